#pragma once

#include "toolkit/data/database.h"

// Start, commit and roll back a transaction of a session. Beginning on an open transaction, and ending
// without one, are harmless: several screens rely on it.
void BeginTran(TDatabase *database);
void CommitTran(TDatabase *database);
void RollBackTran(TDatabase *database);

// Runs a one-row, one-column select and returns its single value; null when there is none.
Variant GetFieldResult(TDatabase *database, const QString &sql);

// Runs a statement that changes data, or a routine, directly.
void DbiQExecDirect(TDatabase *database, const QString &sql);
