#pragma once

#include "toolkit/text/errors.h"

struct sqlite3;

// What an engine tells about a refused statement, turned into an exception with a message for the user.

// Raises what the SQLite connection's last error means.
[[noreturn]] void raiseSqliteError(sqlite3 *db, int code, const QString &statement);

// Raises for a statement that the engine does not understand.
[[noreturn]] void raiseBadWording(const QString &engineText, const QString &statement);

// What a server tells of a failure; any of it may be empty.
struct ServerFailure {
    QString state; // the five signs of the SQL state
    QString message;
    QString detail;
    QString column;
    QString constraint;
    bool atStandby = false; // of a server that only follows another one
};
[[noreturn]] void raiseServerError(const ServerFailure &failure, const QString &statement);
[[noreturn]] void raiseConnectionLost(const QString &serverText, const QString &statement);

// Whether the state says that the server is gone or goes.
bool meansConnectionLost(const QString &state);
