#pragma once

#include <QString>
#include <QStringList>

// What the command line asked for.
struct TOptions {
    QString data;   // folder of the embedded books; empty: as the settings say
    QString server; // connection words of a PostgreSQL server; empty: embedded
    QString user;   // fills in the login name
    QString open;   // screen class or entry function to open after login
    QString tour;   // folder to write the tour into; empty: no tour
};

// Reads the command line. Prints help or a usage error and ends the program where that is asked for.
TOptions readOptions(const QStringList &arguments);
