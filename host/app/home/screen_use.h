#pragma once

#include "host/common/package.h"

class TDatabase;

// How often the screens of an institution are opened on this workstation; kept in the settings store.

// Counts an opening. Does nothing where settings cannot be written.
void countUse(const TDatabase &books, const TPackageEntry &entry);

// Those opened most, the most used first; of entries in a menu only.
TPackageEntries mostUsed(const TDatabase &books, const TPackageEntries &entries, int atMost);
