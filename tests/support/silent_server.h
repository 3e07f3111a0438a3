#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

// A place of this machine's network that takes connections and never says a word, as a server behind a dead
// way does.
class SilentServer {
public:
    SilentServer() : listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(address);
        auto *const where = reinterpret_cast<sockaddr *>(&address);
        constexpr int queue = 20;
        listens = bind(listener, where, size) == 0 && listen(listener, queue) == 0 &&
                  getsockname(listener, where, &size) == 0;
    }
    ~SilentServer() { close(listener); }
    SilentServer(const SilentServer &) = delete;
    SilentServer &operator=(const SilentServer &) = delete;

    // On 127.0.0.1; 0 when it does not listen.
    int port() const { return listens ? ntohs(address.sin_port) : 0; }

private:
    const int listener;
    sockaddr_in address{};
    bool listens = false;
};
