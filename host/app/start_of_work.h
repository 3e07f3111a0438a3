#pragma once

#include "host/common/package.h"

// Whether the entry is the dialog that sets the start-of-work period.
bool setsStartOfWork(const TPackageEntry &entry);

// Setting the start of work anew takes their period from all months closed since and from their balances.
// While there are any, the user is asked, with their numbers, and embedded books are backed up beside
// themselves; on a server the user is told to do that. False when the user refused. Raises Exception when
// there is no backup.
bool mayResetStartOfWork();
