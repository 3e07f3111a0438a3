#pragma once

#include "host/data/connections.h"
#include "host/data/main_datas.h"

// Checks name and password against bd_usr and fills CurrentUser: flags, and the work places of all rights.
// From then on what the sessions change is recorded in the user's name (database/history.h).
// False when there is no such user or the password differs; CurrentUser then stays as it was.
// The name is compared without regard to case and outer blanks, the password exactly. For a view-only user
// the caller then makes the sessions read-only.
bool logIn(TMainDatas &datas, const QString &name, const QString &password);

// The same where each person has a login of his own on the server (own_login.h): opens the
// books with it, as MainDatas. False when the server does not take name and password; it does not tell a
// wrong password from one that has expired. Raises EDatabaseError with a message for the user when the server
// cannot be reached, the login has no rights on these books, or nobody of that name is among their users.
// Unless it returns true nothing has changed.
bool logIn(const TBooksSettings &books, const QString &name, const QString &password);

// Reads the work places of the current user anew, after his rights have changed. Without a user: nothing.
void RefreshRights();
