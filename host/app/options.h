#pragma once

#include "toolkit/text/errors.h"

#include <QString>
#include <QStringList>

// What the command line asked for.
struct TOptions {
    QString data;   // folder of the embedded books; empty: as the settings say
    QString server; // connection words of a PostgreSQL server; empty: embedded
    QString known;  // an institution of this workstation's list, by its key
    QString user;   // fills in the login name
    QString open;   // screen class or entry function to open after login
    QString tour;   // folder to write the tour into; empty: no tour
    QString told;   // help or version: to be told in place of a start; empty otherwise
};

// A command line that is not understood; the message says why.
class EUsage : public Exception {
public:
    using Exception::Exception;
};

// Reads the command line; the first argument is the program's name. Raises EUsage.
TOptions readOptions(const QStringList &arguments);
