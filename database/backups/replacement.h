#pragma once

#include "toolkit/text/file_error.h"

#include <QStringList>

#include <functional>

// Two renames are not one step: a program that is killed between them would leave books of two kinds. So both
// embedded databases of a folder are replaced by way of a journal. Before it stands nothing was changed; from
// then on the replacement is decided, and whoever opens the books next finishes it first.

// How a database is called that is built beside the one it is to replace.
inline constexpr char newEnding[] = ".nauja";
// What the engine keeps beside a database file.
const QStringList &databaseCompanions();

// Gives both new databases of the folder their final names. They must be whole, on the disk and open nowhere,
// as must be those that they replace. Those are kept under the names returned. checkKept is asked of each of
// these when all is done but decided: a program may have opened the old one at the last moment, and what it
// writes goes with the file. Whatever that raises has everything put back. The caller holds the folder's lock
// (booksLock). Raises EFileError: everything is as before then, or, where that failed too, finished by the
// next one who opens the books.
QStringList replaceBooks(const QString &folder, const std::function<void(const QString &kept)> &checkKept);

// To be called before embedded books are opened or looked for: finishes what a killed program has decided.
// Costs a look for one file where there is nothing to do. Raises EFileError when it cannot be finished; the
// books must not be opened then.
void finishReplacement(const QString &folder);
// The same for who holds the lock already.
void finishReplacementLocked(const QString &folder);

// Whether a replacement is decided and not finished: the new databases must stay where they are then.
bool replacementUnderWay(const QString &folder);

// The lock file of those who create or replace the books of a folder.
QString booksLock(const QString &folder);
