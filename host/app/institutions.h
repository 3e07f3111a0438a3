#pragma once

#include "host/app/options.h"
#include "host/data/connections.h"

#include <functional>
#include <optional>

class QWidget;

// The institutions of this workstation: which books the program opens, and how it comes to others.

// The file with the list of institutions, in the program's settings folder.
QString institutionsFile();

// Opens the books that the program begins with, as MainDatas. The command line decides, then knygos.ini, then
// the list of institutions: a single one is opened, several are offered. Where there is none, the books stand
// in the user's data folder. What was opened; nothing when the user gave up. Raises EDatabaseError and
// EConvertError; other books are never opened instead.
std::optional<TBooksSettings> openFirstBooks(const TOptions &options, QWidget *owner);

// Offers the institutions and opens the chosen one as MainDatas. Nothing when the user gave up: the books
// that were open stay so.
std::optional<TBooksSettings> openOtherBooks(QWidget *owner);

// Offers the institutions and opens the chosen one in a window of another process.
void openOtherWindow(QWidget *owner);

// Puts the open books on the list, under the name that they have, as the institution opened last.
void rememberInstitution(const TBooksSettings &books);

// What an institution is called on the list, or where its books are while it has no name there.
QString institutionAt(const TBooksSettings &books);

// What is said to a program that is to open these books. A password is never among it: books of a server
// are to be found in the list of institutions.
QStringList argumentsToOpen(const TBooksSettings &books);

// How this program is started once more; by default as a process of its own. False when that failed.
using TProgramStarter = std::function<bool(const QStringList &arguments)>;
void setProgramStarter(TProgramStarter starter);
