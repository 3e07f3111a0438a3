#pragma once

#include "database/nested.h"

// GetNextTableColumnId(owner, table, column): the next free key of a column. Each is handed out once, also to
// two stations at the same moment, and none below the largest one in the column.
void nextKey(RoutineCall &call);

// f_CheckUsed(table, column, key): how many rows refer to a key. Rows that are parts of the row itself, as a
// counterparty's contracts are, do not count.
void countUses(RoutineCall &call);
