#include "database/backups/backup_folder.h"

#include "database/backups/unfinished.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int dailyKept = 12;
const QString momentForm = u"yyyy-MM-dd-HHmmss"_s;
const QString unfinishedEnding = u".dalinis"_s;

constexpr std::array<std::pair<BackupKind, const char *>, 5> words{{{BackupKind::Day, "diena"},
                                                                    {BackupKind::Close, "menuo"},
                                                                    {BackupKind::RollBack, "atsukimas"},
                                                                    {BackupKind::StartOfWork, "pradzia"},
                                                                    {BackupKind::ByHand, "ranka"}}};

// Nothing when the file has no name of a backup.
std::optional<TBackup> named(const QFileInfo &file)
{
    static const QRegularExpression form(
        u"^(\\d{4}-\\d\\d-\\d\\d-\\d{6})-([a-z]+)(-\\d{4}-\\d\\d)?\\.velmora$"_s);
    const QRegularExpressionMatch match = form.match(file.fileName());
    const std::optional<BackupKind> kind = kindOf(match.captured(2));
    const QDateTime made = QDateTime::fromString(match.captured(1), momentForm);
    if (!match.hasMatch() || !kind || !made.isValid())
        return {};
    return TBackup{.file = file.absoluteFilePath(), .kind = *kind, .made = made, .size = file.size()};
}

} // namespace

QString wordOf(BackupKind kind)
{
    const auto found = std::ranges::find(words, kind, &std::pair<BackupKind, const char *>::first);
    Q_ASSERT(found != words.end());
    return QLatin1String(found->second);
}

std::optional<BackupKind> kindOf(const QString &word)
{
    for (const auto &[kind, text] : words)
        if (word == QLatin1String(text))
            return kind;
    return {};
}

QString backupFolderOf(const QString &booksFolder)
{
    return QDir(booksFolder).filePath(u"atsargines"_s);
}

QString backupName(BackupKind kind, const QDateTime &made, const QString &month)
{
    const bool ofMonth = kind == BackupKind::Close || kind == BackupKind::RollBack;
    return u"%1-%2%3.velmora"_s.arg(made.toString(momentForm), wordOf(kind),
                                    ofMonth && !month.isEmpty() ? u'-' + month : QString());
}

QList<TBackup> backupsIn(const QString &folder)
{
    QList<TBackup> backups;
    const QFileInfoList files =
        QDir(folder).entryInfoList({u"*.velmora"_s}, QDir::Files | QDir::NoSymLinks, QDir::Name);
    for (const QFileInfo &file : files) {
        std::optional<TBackup> backup = named(file);
        if (!backup)
            continue;
        try {
            backup->holds = describeArchive(backup->file);
        } catch (const Exception &error) {
            backup->damage = error.message();
        }
        backups.prepend(*backup);
    }
    return backups;
}

QStringList unfinishedIn(const QString &folder)
{
    QStringList files;
    for (const QFileInfo &file :
         QDir(folder).entryInfoList({u'*' + unfinishedEnding}, QDir::Files | QDir::NoSymLinks))
        if (named(QFileInfo(file.absoluteFilePath().chopped(unfinishedEnding.size()))))
            files.append(file.absoluteFilePath());
    return files;
}

QList<TBackup> surplusOf(const QList<TBackup> &newestFirst, const QDateTime &now)
{
    QList<TBackup> surplus;
    int kept = 0;
    for (const TBackup &backup : newestFirst) {
        if (backup.kind != BackupKind::Day || backup.made > now)
            continue;
        if (kept >= dailyKept)
            surplus.append(backup);
        kept += backup.sound();
    }
    return surplus;
}
