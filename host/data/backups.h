#pragma once

#include "database/backups/backup_folder.h"
#include "host/data/connections.h"

#include <functional>
#include <optional>

// The backups of the open books, as the program keeps them by itself.

// Where the open books are, as it is said to a program that is to open them, too.
TBooksSettings openBooksSettings();

// The folder of their backups: beside embedded books; of a server's books the one that was chosen for them at
// this workstation, empty while there is none.
QString backupFolder();
// Chooses it for a server's books; empty: none.
void setBackupFolder(const QString &folder);

// The newest sound backup of the open books; nothing when there is none. Those of days to come, which a clock
// that was wrong made, do not count.
std::optional<TBackup> lastBackup();

// Has the open books backed up before something that cannot be taken back. True: it may go on, because there
// is a backup, the user goes on without one, or nobody at this workstation is to make any. Where the program
// has set no maker nothing is made.
bool backedUpBefore(BackupKind what);
void setBackupMaker(std::function<bool(BackupKind)> maker);
