#pragma once

#include "database/filling/code_tree.h"
#include "toolkit/data/database.h"

// Tables that are filled the same way whatever the books are.

// The chart of accounts: ids from 1 in the order given, detail accounts are those without any below.
void writeAccounts(TDatabase &fin, const QList<TCode> &accounts);

// The six rows of the start of work: year, its quarters and the month, 1 to 12.
void writeStartOfWork(TDatabase &fin, int year, int month);
