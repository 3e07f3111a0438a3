#pragma once

#include "toolkit/data/database.h"

// Whether the books add up; each finding in words. Amounts are compared exactly, to four decimals.
QStringList checkBooks(TDatabase &fin);

// Whether somebody may administer the users.
QStringList checkUsers(TDatabase &ravl);
