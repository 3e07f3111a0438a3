#pragma once

#include "host/app/options.h"
#include "host/data/connections.h"

class TLoginPatience;
class TMainWindow;

// Asks for name and password over the main window and lets the user in. A user who may only view gets
// sessions that cannot write, and is told so. Other books: nobody is let in, the user asks for those of
// another institution. The patience is that of the whole way in, whichever books it leads to.
enum class TLoginEnd { LoggedIn, GivenUp, OtherBooks };
TLoginEnd logInAt(TMainWindow &window, const QString &name, TLoginPatience &patience);
// The same for the given books, which are opened by the login where each person has one of his own.
TLoginEnd logInAt(TMainWindow &window, const TBooksSettings &books, const QString &name,
                  TLoginPatience &patience);

// The way in to books that are open: asks for name and password, and leads from there to other institutions
// until the user is in; the institution then stands first on the workstation's list, under the name that its
// books have, and its books have today's backup made. False when the user gave up.
bool enterOpenBooks(TMainWindow &window, TBooksSettings books, const QString &user);

// The way in: opens the books that the program begins with and leads into them. False when the user gave
// up. Raises EDatabaseError and EConvertError.
bool enterBooks(TMainWindow &window, const TOptions &options);
