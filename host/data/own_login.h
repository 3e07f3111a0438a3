#pragma once

#include "host/data/connections.h"

// Books on a server that each person opens with a login of his own: the connection words name no user.
bool haveOwnLogins(const TBooksSettings &books);
// The same books as this person reaches them; kept nowhere but in the sessions.
TBooksSettings booksAs(const TBooksSettings &books, const QString &login, const QString &password);

// Whether the current user reached the open books with his own login.
bool hasOwnLogin();

// A value as a connection word has it: between quotes it may hold any sign.
QString quotedWord(QString value);
