#pragma once

#include "host/app/home/home_section.h"

class TDatabase;

// What the home page tells of the books besides the checks. Each raises EDatabaseError.

// Whether the month has so many lines that nobody waits for its checks unasked.
bool checksTakeLong(TDatabase &fin, qlonglong period);

// The last close and roll-back, and the last backup.
QList<THomeLine> lastCloseAndBackup(TDatabase &fin);
// The last changes of the main books, the youngest first, each with its row; none where no history is kept.
QList<THomeLine> lastChanges(TDatabase &fin, int atMost);
