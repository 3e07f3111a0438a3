#include "toolkit/postgresql/commit_question.h"

#include "toolkit/postgresql/postgresql_connection.h"

namespace {

// The first value of an answer; null without one.
QByteArray answer(PGconn &connection, const QByteArray &question)
{
    const ServerResult result(PQexec(&connection, question.constData()));
    if (PQresultStatus(result.get()) != PGRES_TUPLES_OK || PQntuples(result.get()) == 0)
        return {};
    return PQgetvalue(result.get(), 0, 0);
}

constexpr char numberNotGivenOut[] = "22023";

} // namespace

TCommitFate CommitQuestion::ask(PGconn &connection) const
{
    if (!openingScript.isEmpty())
        answer(connection, openingScript);
    if (answer(connection, "select pg_is_in_recovery()") != "f")
        return TCommitFate::NotKnownYet;
    const ServerResult status(PQexec(&connection, ("select pg_xact_status('" + id + "'::xid8)").constData()));
    // A server that took over, or came back, without the transaction has not reached its number yet.
    if (qstrcmp(PQresultErrorField(status.get(), PG_DIAG_SQLSTATE), numberNotGivenOut) == 0)
        return TCommitFate::NotWritten;
    if (PQresultStatus(status.get()) != PGRES_TUPLES_OK)
        return TCommitFate::NotKnownYet;
    const QByteArray told = PQgetvalue(status.get(), 0, 0);
    if (told == "aborted")
        return TCommitFate::NotWritten;
    if (told == "in progress")
        return TCommitFate::NotKnownYet;
    if (told != "committed")
        return TCommitFate::NotToBeFound;
    const QByteArray isOurs = witness.isEmpty() ? "t" : answer(connection, witness);
    if (isOurs == "t")
        return TCommitFate::Written;
    return isOurs == "f" ? TCommitFate::NotWritten : TCommitFate::NotToBeFound;
}
