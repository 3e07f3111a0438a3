#pragma once

struct sqlite3;

// Teaches a connection the functions that the triggers of the history call (history_triggers.h): who changes,
// when, whether a routine is under way, and rows as JSON objects.
void teachHistory(sqlite3 *db);
