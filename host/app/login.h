#pragma once

#include <QString>

class TMainWindow;

// Asks for name and password over the main window and lets the user in. A user who may only view gets
// sessions that cannot write, and is told so. Other books: nobody is let in, the user asks for those of
// another institution.
enum class TLoginEnd { LoggedIn, GivenUp, OtherBooks };
TLoginEnd logInAt(TMainWindow &window, const QString &name);
