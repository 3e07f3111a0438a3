#pragma once

#include "toolkit/data/connection.h"

// The commits of a session whose answer was lost, and what became of them. At most one at a time is not known
// of: no transaction begins before.
class CommitFates {
public:
    // The answer to the commit of this transaction is lost. Returns when it is found to be written, else
    // raises ECommitUnknown.
    void answerLost(EngineConnection &connection, qlonglong number, const QString &serverText);

    // Where a commit is not known of, asks and raises EConnectionLost with what was found out: who begins a
    // transaction may be doing the same once more. The next one begins, unless it is not known still.
    void settle(EngineConnection &connection);

    // A question in the engine's own wording, %1 stands for the server's number of the transaction; it
    // answers a truth, or null.
    QString witness;

private:
    friend TCommitFate commitFate(qlonglong number);
    TCommitFate ask(EngineConnection &connection);
    TCommitFate askAndTell(EngineConnection &connection);

    qlonglong open = 0; // the transaction that is not known of; 0: none
    QByteArray openId;  // the server's number of it
};

// What a session has to do with its server.
struct ServerSession {
    explicit ServerSession(const TDatabase &session);
    ~ServerSession();
    ServerSession(const ServerSession &) = delete;
    ServerSession &operator=(const ServerSession &) = delete;

    static ServerSession &of(const TDatabase &session);

    std::shared_ptr<EngineConnection> editing;
    std::vector<std::shared_ptr<EngineConnection>> reading;
    CommitFates fates;
};

// How many milliseconds a commit may last.
int commitPatience();

void tellLinkEvent(TLinkEvent event);
