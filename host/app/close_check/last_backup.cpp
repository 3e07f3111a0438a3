#include "host/app/close_check/last_backup.h"

#include "toolkit/text/datetime.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString momentFormat = u"yyyy-MM-dd-HHmm"_s;
constexpr int momentLength = 15;

} // namespace

std::optional<QDateTime> lastBackup(const TDatabase &fin)
{
    if (fin.engine() != Engine::Sqlite)
        return std::nullopt;
    const QDir folder(QFileInfo(fin.settings().file).dir().filePath(u"atsargines"_s));
    for (const QFileInfo &file :
         folder.entryInfoList({u"*.velmora"_s}, QDir::Files, QDir::Name | QDir::Reversed)) {
        const QString name = file.fileName();
        const auto moment =
            QDateTime::fromString(name.first(qMin(momentLength, int(name.size()))), momentFormat);
        if (moment.isValid() && moment <= Now().dateTime() && file.size() > 0)
            return moment;
    }
    return std::nullopt;
}
