#include "host/data/connections.h"

#include "host/data/settings_file.h"

#include <QFileInfo>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

constexpr auto folderKey = "Books/Folder"_L1;
constexpr auto serverKey = "Books/Server"_L1;

[[noreturn]] void refuse(const QString &file, const QString &why)
{
    throw EConvertError(u"Netinkamas nustatymų failas „%1“: %2. Duomenų bazė neatidaryta."_s.arg(
        QDir::toNativeSeparators(file), why));
}

// A value with a comma that somebody wrote by hand without quotes is read as a list.
QString textOf(const QSettings &settings, QAnyStringView key)
{
    const QVariant value = settings.value(key);
    return (value.typeId() == QMetaType::QStringList ? value.toStringList().join(u',') : value.toString())
        .trimmed();
}

void requireKnownKeys(const QSettings &settings, const QString &file)
{
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys) {
        if (key != folderKey && key != serverKey)
            refuse(file, u"nežinomas įrašas „%1“"_s.arg(key));
    }
}

// The text between quotes, as the settings store reads it back.
QString quotedText(QString text)
{
    text.replace(u'\\', "\\\\"_L1).replace(u'"', "\\\""_L1);
    return u'"' + text + u'"';
}

} // namespace

TBooksSettings TBooksSettings::embedded(const QString &folder)
{
    return {folder, {}};
}

TBooksSettings TBooksSettings::server(const QString &connInfo, const QString &mainDb, const QString &budgetDb)
{
    QStringList words{connInfo};
    if (!mainDb.isEmpty())
        words.append(u"fin="_s + mainDb);
    if (!budgetDb.isEmpty())
        words.append(u"ravl="_s + budgetDb);
    return {{}, words.join(u' ')};
}

TBooks TBooksSettings::books() const
{
    return isEmbedded() ? embeddedBooks(folder) : serverBooks(connection);
}

std::optional<TBooksSettings> readBooksSettings(const QString &file)
{
    const QFileInfo info(file);
    if (!info.exists())
        return {};
    if (!info.isFile() || !info.isReadable())
        refuse(file, u"jo negalima perskaityti"_s);
    const QSettings settings(file, QSettings::IniFormat);
    if (settings.status() != QSettings::NoError)
        refuse(file, u"jo turinys sugadintas"_s);
    requireKnownKeys(settings, file);
    const TBooksSettings read{textOf(settings, folderKey), textOf(settings, serverKey)};
    if (read.folder.isEmpty() == read.connection.isEmpty())
        refuse(file, u"turi būti nurodytas aplankas arba serveris"_s);
    read.books();
    return read;
}

void writeBooksSettings(const QString &file, const TBooksSettings &settings)
{
    const QString line = settings.isEmbedded() ? u"Folder="_s + quotedText(settings.folder)
                                               : u"Server="_s + quotedText(settings.connection);
    writeSettingsFile(file, (u"[Books]\n"_s + line + u'\n').toUtf8());
}
