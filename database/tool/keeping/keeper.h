#pragma once

#include "database/backups/backup_folder.h"
#include "database/standard/standard.h"
#include "database/tool/keeping/check.h"
#include "database/tool/keeping/store.h"

// What the program does with books. Each function tells its steps to progress and raises Exception with a
// message for the user; new books take their place only when they are whole.

// Creates both databases with the schema. Refuses when one of them exists.
void createBooks(TStore &store, const TProgress &progress);

// The same, with the given steps of the set-up written.
void createStandardBooks(TStore &store, const TSetUp &setUp, const TProgress &progress);

// The same, filled with the demonstration data; size multiplies the volume.
void createDemoBooks(TStore &store, int size, const TProgress &progress);

// Brings both databases to the revision of this program.
void upgradeBooks(TStore &store, const TProgress &progress);

// The findings of the check, each in words.
QStringList checkBooks(TStore &store, const TProgress &progress);

// Takes the contents of both databases as they are: what the check finds of changes past the program is told
// once more and not again afterwards. The reason stays in the seals. Refuses when there is none.
void acceptBooks(TStore &store, const QString &reason, const TProgress &progress);

// Writes both databases, each as it is at one moment, into one file. Refuses when the file exists. Each copy
// is loaded or read as a whole and compared with what was copied, and every byte read again before the file
// gets its name.
void backUpBooks(TStore &store, const QString &file, const TProgress &progress);

// The same into a folder of backups (backup_folder.h), which is made when it is missing; returns the file. A
// daily one is made once a day: when there is one of today, that is returned. Then daily ones that are no
// longer needed are removed. Waits while another program does the same there.
QString keepBackup(TStore &store, BackupKind kind, const QString &folder, const TProgress &progress);

// Loads a backup aside and compares it with its control totals; the books are not touched. Raises Exception
// when it could not be restored.
void verifyBackup(TStore &store, const QString &file, const TProgress &progress);

// What to write of a table.
struct TTableChoice {
    QString table;
    bool escaped = false;      // so that the file can be run: see exportForReplay()
    bool deletesFirst = false; // the first statement empties the table
};
// Writes one table of the budget database to a file of insert statements and returns the number of rows.
// Refuses when the file exists or there is no such table.
qlonglong exportTableOf(TStore &store, const TTableChoice &choice, const QString &file,
                        const TProgress &progress);

// Builds the books of a backup aside, compares them with the control totals of the backup and puts them in
// place. Books standing there are kept under the names returned. A damaged backup changes nothing.
QStringList restoreBooks(TStore &store, const QString &file, const TProgress &progress);
