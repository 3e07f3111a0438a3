#pragma once

#include "toolkit/data/server_link.h"

#include <QByteArray>

#include <libpq-fe.h>

// What became of a transaction, asked on a connection made for that.
struct CommitQuestion {
    QByteArray openingScript;
    QByteArray id; // the server's number of the transaction
    QByteArray
        witness; // whether the transaction was the session's; no answer where nobody can tell; empty: none

    // NotKnownYet while the transaction is under way, and when the server does not answer or is a standby.
    TCommitFate ask(PGconn &connection) const;
};
