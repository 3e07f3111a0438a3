#pragma once

#include "toolkit/data/database.h"

// Own logins on a server (postgresql/roles/*.sql): three groups of roles for each pair of books, called after
// the main database, and a role for each person of bd_usr. A login has no way to the books of another
// institution.

// The groups of the books whose main database is called so.
struct TServerGroups {
    explicit TServerGroups(const QString &mainDatabase);

    QString viewers;        // read everything but the passwords of the users
    QString bookkeepers;    // write everything but users and their rights
    QString administrators; // read and write users and their rights
};

// Shuts both books to the public, whatever else can be done; makes the groups, grants them what they may in
// both books, as these are at the moment, gives a login to each person that has none, and ends the logins of
// these groups alone that are no person's; to be run after every change of the schema, as often as one likes.
// Both books must be at the latest revision, and open for their owner.
//
// Returns in words which logins ended and what could not be done: an owner that may make no roles, a name
// that somebody else on the server has. Where no roles were made the books are used with one shared login.
QStringList setUpServerRoles(TDatabase &fin, TDatabase &ravl);
