#include "host/data/backups.h"

#include "host/common/settings_store.h"
#include "host/data/known_books.h"
#include "host/data/main_datas.h"
#include "toolkit/text/datetime.h"

#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

std::function<bool(BackupKind)> &maker()
{
    static std::function<bool(BackupKind)> set;
    return set;
}

QString folderKey()
{
    return u"Backups/%1/Folder"_s.arg(keyOf(openBooksSettings()));
}

QString databaseIn(const QStringList &words)
{
    for (const QString &word : words)
        if (word.startsWith("dbname="_L1))
            return word.section(u'=', 1);
    return {};
}

// A folder inside the one that was chosen: books of two institutions in one folder would count each other's
// backups as theirs.
QString nameOfItsOwn(const TBooksSettings &books)
{
    static const QRegularExpression unfit(u"[^\\w-]"_s, QRegularExpression::UseUnicodePropertiesOption);
    const QString database = databaseIn(connectionWords(books.books().fin.connInfo));
    return QString(database).remove(unfit) + u'-' + keyOf(books);
}

} // namespace

TBooksSettings openBooksSettings()
{
    const TSessionSettings &fin = MainDatas()->mnFin_Db()->settings();
    if (fin.engine == Engine::Sqlite)
        return TBooksSettings::embedded(QFileInfo(fin.file).absolutePath());
    QStringList words = connectionWords(fin.connInfo);
    const QString mainDb = databaseIn(words);
    const QString budgetDb = databaseIn(connectionWords(MainDatas()->mnRavl()->settings().connInfo));
    words.removeIf([](const QString &word) { return word.startsWith("dbname="_L1); });
    return TBooksSettings::server(words.join(u' '), mainDb, budgetDb);
}

QString backupFolder()
{
    const TBooksSettings books = openBooksSettings();
    if (books.isEmbedded())
        return backupFolderOf(books.folder);
    const QString chosen = settingsStore().value(folderKey()).toString();
    return chosen.isEmpty() ? chosen : QDir(chosen).filePath(nameOfItsOwn(books));
}

void setBackupFolder(const QString &folder)
{
    settingsStore().setValue(folderKey(), folder);
}

std::optional<TBackup> lastBackup()
{
    const QString folder = backupFolder();
    if (folder.isEmpty())
        return {};
    for (const TBackup &backup : backupsIn(folder))
        if (backup.sound() && backup.made <= Now().dateTime())
            return backup;
    return {};
}

bool backedUpBefore(BackupKind what)
{
    return !maker() || maker()(what);
}

void setBackupMaker(std::function<bool(BackupKind)> set)
{
    maker() = std::move(set);
}
