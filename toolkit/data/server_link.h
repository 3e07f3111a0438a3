#pragma once

#include "toolkit/text/errors.h"

#include <functional>
#include <optional>

class TDatabase;

// The way from a session to its server.
struct TServerLink {
    QString server;             // the name that the connection words have for the one that was reached
    QString encryption;         // how the way is encrypted: "TLSv1.3"; empty when it is not
    bool onThisMachine = false; // over a socket of this machine or its loopback address

    // Others on the network can read along.
    bool isOpenToOthers() const { return encryption.isEmpty() && !onThisMachine; }
};

// How the session reaches its server; nothing while that is lost, and for a file.
std::optional<TServerLink> serverLink(const TDatabase &session);

// Makes a step towards a server that is lost, without waiting; true when it was reached. The session itself
// connects at its next use.
bool seekServer(TDatabase &session);

// Why the server that is sought does not let the session in, in words for the user; empty while it is not
// reached, and when it will let it in by itself.
QString seekRefusal(const TDatabase &session);

// A commit whose answer is lost with the server is looked up before TDatabase::Commit() returns: it returns
// when the changes were written, and raises ECommitUnknown when they were not or that cannot be told. Where
// it cannot be told yet, whoever saved asks foundWritten() before he saves once more. Where nobody does, the
// next transaction of the session asks instead of beginning, and raises EConnectionLost with what was found
// out.

// What became of a commit whose answer was lost.
enum class TCommitFate {
    Written,
    NotWritten,
    NotKnownYet, // the server has not been reached since, or has not decided
    NotToBeFound // the server was asked and cannot tell any more
};

// The server went away while it was committing, and the changes are not known to be written. The message
// tells what is known.
class ECommitUnknown : public EConnectionLost {
public:
    ECommitUnknown(TCommitFate knownFate, qlonglong itsNumber, const QString &server);

    // The transaction to ask about before the next attempt; 0 when nothing more will be known.
    qlonglong openNumber() const { return fate == TCommitFate::NotKnownYet ? number : 0; }

    const TCommitFate fate; // never Written
    const qlonglong number; // the transaction's, for commitFate()
};

// What became of the transaction with this number (TDatabase::transactionNumber()), whose commit raised
// ECommitUnknown. As long as that is not known the server is asked. NotToBeFound also for a transaction of a
// session that is no more.
TCommitFate commitFate(qlonglong number);

// Whether the save with this openNumber() was found written meanwhile, so that it must not run once more;
// false for 0. Raises ECommitUnknown as long as that cannot be told, and once when it cannot be told any
// more; else the number becomes 0.
bool foundWritten(qlonglong &number);

// A server that was not stopped in order may give the number of a transaction that was lost to another one.
// The question, in the server's own wording and with %1 for that number, is whether the transaction was the
// session's; it answers a truth, or null where nobody can tell. Without a question that is taken for granted.
void setCommitWitness(TDatabase &session, const QString &question);

// How many milliseconds a server is sought each time that one must know; a minute at first. Returns the
// former.
int setSeekPatience(int milliseconds);

// How many milliseconds the answer to a commit is waited for before it is taken for lost, as a server that
// hangs answers nothing and ends nothing; two minutes at first. Returns the former.
int setCommitPatience(int milliseconds);

// What the user is told of it.
QString toldFate(TCommitFate fate);

// What happens to the sessions with a server.
enum class TLinkEvent {
    Lost,       // a server is gone; it is sought at the next use, or by seekServer()
    AnswerLost, // it went while it was committing: it is sought, and asked what became of the changes
    Found,      // a session has its server again
    Written,    // changes whose answer was lost were found written; who saved them goes on as after any save
};

// Called at each of them, on the same thread, also in the middle of a save: the hook may change what is
// shown; it must neither ask the user nor run a statement. Returns the previous hook.
using TLinkHook = std::function<void(TLinkEvent)>;
TLinkHook setLinkHook(TLinkHook hook);
