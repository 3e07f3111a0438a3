#pragma once

#include "toolkit/data/database.h"

#include <QJsonObject>

// What one process of the list benchmark does, and its figures: milliseconds by name, and "peak", the most
// memory held, in MB.
QJsonObject ourList(const TSessionSettings &fin, const TSessionSettings &ravl, int rows);
QJsonObject qtList(const TSessionSettings &fin);
QJsonObject bareLoop(const TSessionSettings &fin);  // the engine's C interface, the text kept
QJsonObject bareFifty(const TSessionSettings &fin); // the first fifty rows of the same statement
