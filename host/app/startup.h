#pragma once

#include "database/standard/standard.h"
#include "host/data/connections.h"

class QWidget;

// The user wants none of the new books that he is offered, but books that are somewhere already.
class EOtherBooksWanted : public EAbort {};

// Opens the books as MainDatas; those that each person opens with a login of his own wait for him, and there
// is no MainDatas meanwhile. Embedded books that are not there yet are created after asking. False when the
// user gave up there. Raises EDatabaseError, EConvertError and EOtherBooksWanted; the books that were open
// stay then.
bool openBooks(const TBooksSettings &settings, QWidget *owner);

// Creates embedded books in the folder and fills them with the demonstration data.
void createDemonstrationBooks(const QString &folder);
// Creates embedded books in the folder and writes what the set-up of a new institution has chosen.
void createSetUpBooks(const QString &folder, const TSetUp &setUp);
// Creates embedded books in the folder with one user, who administers users.
void createEmptyBooks(const QString &folder, const QString &administrator, const QString &password);

// Opens embedded books of a folder as MainDatas and reads the current period.
void openEmbeddedBooks(const QString &folder);
