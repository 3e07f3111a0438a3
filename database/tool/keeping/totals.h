#pragma once

#include "toolkit/data/database.h"

#include <QJsonObject>

// Control totals of a database: of every table the number of its rows and a checksum over all of them. Equal
// totals mean equal contents, whatever the order in which the engine keeps them.
QJsonObject controlTotals(TDatabase &db);
