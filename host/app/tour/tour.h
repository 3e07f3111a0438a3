#pragma once

#include <QString>

// The entry of the module that the host loads for the tour. Does the main job of the program through its real
// screens on fresh books, as a user would by mouse and keyboard, and writes a picture of each step and an
// index.html into the folder. Prints one line per step. Returns 0; 1 when a step failed, after telling which.
extern "C" int runTour(const QString &folder);
