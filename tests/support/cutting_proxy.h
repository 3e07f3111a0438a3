#pragma once

#include <QString>
#include <QTemporaryDir>

#include <atomic>
#include <thread>
#include <vector>

// The way to a server on a socket of its own, which a test cuts at a chosen moment. It serves on threads of
// its own, so that a session that waits for the server may be the test's own.
class CuttingProxy {
public:
    // The folder of the server's socket, and its port.
    explicit CuttingProxy(const QString &serverFolder, int port = 5432);
    ~CuttingProxy();
    CuttingProxy(const CuttingProxy &) = delete;
    CuttingProxy &operator=(const CuttingProxy &) = delete;

    // The folder to connect to instead of the server's.
    QString folder() const { return own.path(); }

    enum class Cut {
        Never,
        BeforeCommit, // the next commit does not reach the server
        AfterCommit,  // the next commit is done, but its answer does not come back
        Silence       // the same, and the connection hangs instead of being cut
    };
    // Ends the connection that the next commit is sent on, unless it hangs. With away, nobody gets through
    // afterwards.
    void cutAt(Cut when, bool away = false);
    // Ends all connections; with away, nobody gets through afterwards.
    void cutNow(bool away = false);
    // Who comes gets through again.
    void comeBack() { isAway = false; }

    int cuts() const { return done; } // how many commits were cut so far

private:
    void listen();
    void serve(int client);
    struct Pair {
        int client;
        int upstream;
        bool edits = false; // lists are read over other connections, which commit, too
        bool awaitsAnswer = false;
        bool hangs = false;
    };
    bool ask(Pair &pair);
    static bool answer(const Pair &pair);

    const QTemporaryDir own;
    const QByteArray server;
    int listener = -1;
    std::atomic<Cut> cut = Cut::Never;
    std::atomic<bool> goesAway = false;
    std::atomic<bool> isAway = false;
    std::atomic<bool> ends = false;
    std::atomic<int> generation = 0; // rises when all connections are to end
    std::atomic<int> done = 0;
    std::thread acceptor;
    std::vector<std::thread> pairs;
};
