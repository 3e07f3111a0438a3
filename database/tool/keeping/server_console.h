#pragma once

#include "toolkit/text/errors.h"

#include <QProcessEnvironment>
#include <QStringList>

#include <memory>

struct pg_conn;

// What must be said to a server outside of any of our databases: statements of its own, and the environment
// of its own programs.
class TServerConsole {
public:
    // Connects to the database postgres of the server. connInfo may name another one.
    explicit TServerConsole(const QString &connInfo);

    // Runs a statement and returns the first column of its rows. Raises EDatabaseError.
    QStringList run(const QString &statement);

private:
    std::unique_ptr<pg_conn, void (*)(pg_conn *)> connection;
};

// The database that the connection words name.
QString databaseOf(const QString &connInfo);
// The same words with another database.
QString withDatabase(const QString &connInfo, const QString &database);

// Runs one of the server's client programs (pg_dump, pg_restore) on the database that the words name. The
// words go through the environment, so that no password stands in the list of processes. Raises Exception
// with the program's own text when it is missing or fails.
void runServerProgram(const QString &program, const QStringList &arguments, const QString &connInfo);
