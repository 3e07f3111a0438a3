#include "host/data/settings_file.h"

#include "database/private_place.h"
#include "toolkit/text/errors.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

void writeSettingsFile(const QString &file, const QByteArray &content)
{
    makePrivateFolder(QFileInfo(file).absolutePath());
    QSaveFile out(file);
    const bool open =
        out.open(QIODevice::WriteOnly) && out.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (open)
        out.write(content);
    if (!open || !out.commit())
        throw EConvertError(u"Nepavyko įrašyti nustatymų failo „%1“: %2"_s.arg(QDir::toNativeSeparators(file),
                                                                               out.errorString()));
}
