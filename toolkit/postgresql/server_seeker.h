#pragma once

#include "toolkit/data/server_link.h"
#include "toolkit/postgresql/server_words.h"

#include <QElapsedTimer>

#include <libpq-fe.h>

#include <memory>

struct FreeServerConnection {
    void operator()(PGconn *connection) const { PQfinish(connection); }
};
using OwnServerConnection = std::unique_ptr<PGconn, FreeServerConnection>;

// How this connection reaches its server.
TServerLink linkOf(PGconn *connection);

// Looks for a server that takes connections, one after another of those in the words, round and round, and
// never waits: every step does what can be done at once.
class ServerSeeker {
public:
    explicit ServerSeeker(const ServerWords &words);

    // Takes a step; true once a server is reached.
    bool step();
    // Why the last server that answered lets nobody in; empty while none did, and when it will by itself.
    QString refusal() const { return refused; }
    // The connection to the server that was reached; the seeking begins anew afterwards.
    OwnServerConnection take();

private:
    void tryNext();
    void failed();
    int pause() const;

    const QList<ServerWords> servers;
    qsizetype next = 0;
    OwnServerConnection connection;
    PostgresPollingStatusType status = PGRES_POLLING_FAILED;
    QElapsedTimer sinceTry;
    QString refused;
};
