#pragma once

#include <QString>

// The temporary PostgreSQL server that the test programs of a build share. The first use starts it; ctest
// stops it. The role velmora may create databases and roles and is no superuser.

// The folder of the server's socket. Ends the program when the server cannot be started.
QString postgresFolder();

// The words that connect to a database of it.
QString postgresConnInfo(const QString &database);

// Statements for the server itself: creating and dropping databases and roles.
void postgresExec(const QString &statement);

// The first value that a query of the server gives.
QString postgresValue(const QString &query);

bool postgresHasDatabase(const QString &database);

// Drops the groups of books whose main database is called so, and the logins of their persons. The databases
// must be gone.
void postgresDropRolesOf(const QString &mainDatabase);

// A server of the caller's own, to be crashed and restarted at will; it goes with the object.
class OwnPostgres {
public:
    OwnPostgres();
    ~OwnPostgres();
    OwnPostgres(const OwnPostgres &) = delete;
    OwnPostgres &operator=(const OwnPostgres &) = delete;

    QString connInfo(const QString &database) const;
    // The same as the server's superuser.
    QString superuserConnInfo(const QString &database) const;
    // A role that must show its password, which is "slaptas".
    QString passwordConnInfo(const QString &database, const QString &password) const;

    void crash();   // stops at once, as a power cut would
    void restart(); // crashes unless it is down, and comes back on the same data

private:
    void command(const QString &action);
    QString state;
    QString folder;
};
