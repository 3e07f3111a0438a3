#pragma once

#include <QString>

class TDatabase;

// Until the open transaction ends, no other station writes the table: what is judged after this call is still
// so when the transaction writes. Reading goes on. To be called before the transaction writes anything.
void lockTable(TDatabase *database, const QString &table);

// Until the open transaction ends, no other station begins to refer to the row; those that have begun to are
// waited for, so that the row's uses can be counted after this call.
void lockRow(TDatabase *database, const QString &table, const QString &keyColumn, double key);
