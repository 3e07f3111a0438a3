#pragma once

#include <QString>

class TDatabase;

// Until the open transaction ends, no other station writes the table: what is judged after this call is still
// so when the transaction writes. Reading goes on. To be called before the transaction writes anything.
void lockTable(TDatabase *database, const QString &table);
