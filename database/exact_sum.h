#pragma once

struct sqlite3;

// Replaces the aggregate sum() of a connection, also over a window, by one that is exact to four decimals:
// a million times 0.10 is 100000.00. Values that are no multiples of 0.0001 are added with compensation.
// As the engine's own: whole numbers alone give a whole number, no values give null.
void teachExactSum(sqlite3 *db);
