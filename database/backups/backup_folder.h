#pragma once

#include "database/backups/archive.h"

#include <QDateTime>

#include <optional>

// The folder in which an institution's backups are kept, made one after the other and thrown away when there
// are enough. Their names tell moment and reason and sort by the moment:
//
//     2026-11-22-083015-diena.velmora   2026-11-22-101500-menuo-2026-10.velmora
//
// Files with other names are nobody's business here.

// Why a backup was made.
enum class BackupKind { Day, Close, RollBack, StartOfWork, ByHand };

// The word for it in names and on the command line: diena, menuo, atsukimas, pradzia, ranka.
QString wordOf(BackupKind kind);
std::optional<BackupKind> kindOf(const QString &word);

// A backup of the folder.
struct TBackup {
    QString file; // with its path
    BackupKind kind = BackupKind::ByHand;
    QDateTime made; // as its name says, local time
    qint64 size = 0;
    TArchive holds; // what it says of itself
    QString damage; // why it is none; empty: it is whole as far as its head and its length tell

    bool sound() const { return damage.isEmpty(); }
};

// Where embedded books have theirs: beside them.
QString backupFolderOf(const QString &booksFolder);

// The name for one made at that moment; month ("2026-10") is the one that is to be closed or rolled back.
QString backupName(BackupKind kind, const QDateTime &made, const QString &month);

// The backups of a folder, newest first. A file that is still being written is none. An empty list when there
// is no such folder.
QList<TBackup> backupsIn(const QString &folder);

// Which of them may go: daily ones beyond the newest twelve sound ones. A clock that was set back makes
// backups of days to come: those are neither counted nor removed.
QList<TBackup> surplusOf(const QList<TBackup> &newestFirst, const QDateTime &now);
