#pragma once

#include "toolkit/data/database.h"

#include <functional>

// The schema of the books as numbered revisions. Each is applied in one transaction: a database stands at
// some revision as a whole, never between two.

// The two books of an institution: the accounting itself (mnFin_Db), and users, rights and financing sources
// (mnRavl).
enum class Book { Main, Budget };

// How a book is called in its own database and in the folders of the schema.
QString nameOf(Book book);

// One step of the schema in the engine's own wording.
struct TRevision {
    int number = 0;
    QStringList scripts; // run in this order
};

// The database was upgraded by a newer program than this one; nothing was touched.
class ENewerDatabase : public EDatabaseError {
public:
    using EDatabaseError::EDatabaseError;
};

// All revisions of a book, oldest first; their numbers go up by one from 1.
QList<TRevision> revisions(Engine engine, Book book);

// The revision that this program works on.
int latestRevision();

// The revision that the database stands at; 0 when it holds none of our tables.
int revisionOf(TDatabase &db);

// Told before each revision: its number and that of the last one to come.
using UpgradeProgress = std::function<void(int number, int last)>;

// Brings the database to the last revision, creating the tables in an empty one. Two stations may do so at
// the same moment: each revision is applied once. A read-only session fails unless there is nothing to do.
// Raises ENewerDatabase, EDatabaseError when it is the other book's database, or what the failing revision
// raised; the revisions before that one stand.
void upgrade(TDatabase &db, Book book, const UpgradeProgress &progress = {});

// The same with revisions of the caller's choice.
void upgrade(TDatabase &db, Book book, const QList<TRevision> &list, const UpgradeProgress &progress = {});
