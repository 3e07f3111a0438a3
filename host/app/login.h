#pragma once

#include <QString>

class TMainWindow;

// Asks for name and password over the main window and lets the user in. A user who may only view gets
// sessions that cannot write, and is told so. False when the user gave up.
bool logInAt(TMainWindow &window, const QString &name);
