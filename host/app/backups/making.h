#pragma once

#include "database/backups/backup_folder.h"

#include <functional>

class QWidget;

// Backs the open books up before something that cannot be taken back. When that fails, the user is told why
// and asked whether to go on all the same; the refusal is the default. False: he does not. Who may only view
// makes none, and of a server's books none is made while no folder was chosen for them.
bool backUpOrAsk(BackupKind what);

// Begins the daily backup of the open books in the background, a little later than now: once a day one is
// made. When it fails, the user is told why and asked whether to go on all the same; when he does not, he is
// led to where backups are made. It ends before its owner does.
void startDailyBackup(QWidget *owner, const std::function<void()> &toBackups);
// Waits for it where it is under way.
void waitForDailyBackup();
