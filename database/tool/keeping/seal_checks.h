#pragma once

#include "database/seals.h"
#include "database/tool/keeping/check.h"

// What the seals of a book and its history say of themselves, before they are held against the contents.
struct TSealCheck {
    QList<TSeal> seals;
    TNumbers sealed;   // the records that they cover
    TNumbers unsealed; // the records that came after
};

// Looks through the chain of seals and through all records: names what was changed, removed or is no record
// of the program's, and tells what is only strange to progress. title names the book.
TSealCheck checkSeals(TDatabase &db, const QString &title, QStringList &found, const TProgress &progress);

// Months that were closed, against the totals in their seals; and whether a seal tells of every close.
void checkSealedMonths(TDatabase &fin, const TSealCheck &check, QStringList &found);
