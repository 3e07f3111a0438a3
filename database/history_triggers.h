#pragma once

class TDatabase;
class QString;

// The triggers of the history for one connection to a file. They are temporary: other programs, which do not
// know the functions they call, can open and write the file.
QString historyTriggers(TDatabase &db);
