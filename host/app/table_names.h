#pragma once

#include <QString>

// What a table of the books is called by people, as the menus have it; the table's own name where nobody
// knows it by another one.
QString tableName(const QString &table);
