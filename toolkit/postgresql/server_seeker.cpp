#include "toolkit/postgresql/server_seeker.h"

#include <poll.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestTryMs = 5000; // a server that does not answer must not hold up the next
constexpr int pauseMs = 300;       // after one that is not there
constexpr int longPauseMs = 5000; // after one that answers, and somebody must do something about what it says

bool isThisMachine(const QByteArray &name, const QByteArray &address)
{
    return name.startsWith('/') || name.startsWith('@') || address.startsWith("127.") || address == "::1";
}

bool isReady(const PGconn *connection, PostgresPollingStatusType awaited)
{
    pollfd socket{PQsocket(connection), short(awaited == PGRES_POLLING_READING ? POLLIN : POLLOUT), 0};
    return poll(&socket, 1, 0) != 0;
}

} // namespace

TServerLink linkOf(PGconn *connection)
{
    TServerLink link;
    const QByteArray name = PQhost(connection);
    link.onThisMachine = isThisMachine(name, PQhostaddr(connection));
    if (!name.startsWith('/') && !name.startsWith('@'))
        link.server = QString::fromUtf8(name);
    if (PQsslInUse(connection))
        link.encryption = QString::fromUtf8(PQsslAttribute(connection, "protocol"));
    else if (PQgssEncInUse(connection))
        link.encryption = u"GSSAPI"_s;
    return link;
}

ServerSeeker::ServerSeeker(const ServerWords &words) : servers(wordsOfEachServer(words)) {}

void ServerSeeker::tryNext()
{
    const ServerWords &words = servers.at(next);
    next = (next + 1) % servers.size();
    QList<const char *> names;
    QList<const char *> values;
    for (auto word = words.cbegin(); word != words.cend(); ++word) {
        names.append(word.key().constData());
        values.append(word.value().constData());
    }
    names.append(nullptr);
    values.append(nullptr);
    connection.reset(PQconnectStartParams(names.constData(), values.constData(), 0));
    const bool begun = connection && PQstatus(connection.get()) != CONNECTION_BAD;
    status = begun ? PGRES_POLLING_WRITING : PGRES_POLLING_FAILED;
    sinceTry.start();
    if (!begun)
        failed();
}

void ServerSeeker::failed()
{
    const QString why = lastingRefusal(QString::fromUtf8(PQerrorMessage(connection.get())));
    if (!why.isEmpty())
        refused = why;
}

int ServerSeeker::pause() const
{
    return refused.isEmpty() || servers.size() > 1 ? pauseMs : longPauseMs;
}

bool ServerSeeker::step()
{
    if (status == PGRES_POLLING_OK)
        return true;
    const bool waits = status == PGRES_POLLING_READING || status == PGRES_POLLING_WRITING;
    if (!waits || sinceTry.hasExpired(longestTryMs)) {
        if (!sinceTry.isValid() || sinceTry.hasExpired(pause()))
            tryNext();
        return false;
    }
    while (isReady(connection.get(), status)) {
        status = PQconnectPoll(connection.get());
        if (status == PGRES_POLLING_OK)
            return true;
        if (status == PGRES_POLLING_FAILED) {
            failed();
            return false;
        }
    }
    return false;
}

OwnServerConnection ServerSeeker::take()
{
    status = PGRES_POLLING_FAILED;
    return std::move(connection);
}
