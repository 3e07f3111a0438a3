#include "tests/support/cutting_proxy.h"

#include <QByteArray>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int tickMs = 20;

sockaddr_un addressOf(const QByteArray &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= qsizetype(sizeof(address.sun_path)))
        qFatal("the path of a socket is too long: %s", path.constData());
    memcpy(address.sun_path, path.constData(), size_t(path.size()));
    return address;
}

int newSocket()
{
    const int made = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (made < 0)
        qFatal("no socket: %s", strerror(errno));
    return made;
}

bool isReady(int socket)
{
    pollfd waiting{socket, POLLIN, 0};
    return poll(&waiting, 1, tickMs) > 0;
}

bool sendAll(int to, const QByteArray &data)
{
    qsizetype written = 0;
    while (written < data.size()) {
        const ssize_t some =
            send(to, data.constData() + written, size_t(data.size() - written), MSG_NOSIGNAL);
        if (some <= 0)
            return false;
        written += some;
    }
    return true;
}

// What has come; nothing when the other end has closed.
QByteArray received(int from)
{
    QByteArray data(65536, Qt::Uninitialized);
    data.truncate(std::max<ssize_t>(0, recv(from, data.data(), size_t(data.size()), 0)));
    return data;
}

} // namespace

CuttingProxy::CuttingProxy(const QString &serverFolder, int port)
    : own(u"/tmp/velmora-proxy-XXXXXX"_s),
      server(u"%1/.s.PGSQL.%2"_s.arg(serverFolder).arg(port).toUtf8()),
      listener(newSocket())
{
    const sockaddr_un address = addressOf((own.path() + u"/.s.PGSQL.5432"_s).toUtf8());
    constexpr int longestQueue = 20;
    if (bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0 ||
        ::listen(listener, longestQueue) != 0)
        qFatal("the proxy cannot listen: %s", strerror(errno));
    acceptor = std::thread([this] { listen(); });
}

CuttingProxy::~CuttingProxy()
{
    ends = true;
    acceptor.join();
    for (std::thread &each : pairs)
        each.join();
    close(listener);
}

void CuttingProxy::cutAt(Cut when, bool away)
{
    goesAway = away;
    cut = when;
}

void CuttingProxy::cutNow(bool away)
{
    isAway = away;
    ++generation;
}

void CuttingProxy::listen()
{
    while (!ends) {
        if (!isReady(listener))
            continue;
        const int client = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0 && !isAway)
            pairs.emplace_back([this, client] { serve(client); });
        else if (client >= 0)
            close(client);
    }
}

void CuttingProxy::serve(int client)
{
    const int mine = generation;
    Pair pair{client, newSocket()};
    const sockaddr_un address = addressOf(server);
    bool stands = connect(pair.upstream, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0;
    while (stands && !ends && mine == generation) {
        pollfd both[] = {{pair.client, POLLIN, 0}, {pair.upstream, POLLIN, 0}};
        if (poll(both, 2, tickMs) <= 0)
            continue;
        stands = (!both[0].revents || ask(pair)) && (!both[1].revents || answer(pair));
    }
    close(pair.upstream);
    close(pair.client);
}

// Passes on what the client says; false when the connection is to end.
bool CuttingProxy::ask(Pair &pair)
{
    const QByteArray data = received(pair.client);
    if (data.isEmpty())
        return false;
    pair.edits |= data.contains("pg_current_xact_id");
    if (pair.edits && data.contains(QByteArray("commit", 7))) { // with the zero at its end
        const Cut now = cut.exchange(Cut::Never);
        if (now != Cut::Never) {
            ++done;
            isAway = bool(goesAway);
        }
        if (now == Cut::BeforeCommit)
            return false;
        pair.awaitsAnswer = now == Cut::AfterCommit;
        pair.hangs = pair.hangs || now == Cut::Silence;
    }
    return sendAll(pair.upstream, data);
}

bool CuttingProxy::answer(const Pair &pair)
{
    const QByteArray data = received(pair.upstream);
    if (pair.hangs)
        return !data.isEmpty();
    return !data.isEmpty() && !(pair.awaitsAnswer && data.contains("COMMIT")) && sendAll(pair.client, data);
}
