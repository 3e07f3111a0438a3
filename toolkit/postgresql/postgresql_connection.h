#pragma once

#include "toolkit/data/connection.h"
#include "toolkit/postgresql/server_seeker.h"

#include <QDeadlineTimer>
#include <QHash>

struct FreeServerResult {
    void operator()(PGresult *result) const { PQclear(result); }
};
using ServerResult = std::unique_ptr<PGresult, FreeServerResult>;

// A statement that the server has prepared under a name.
struct ServerPrepared {
    QByteArray name;
    QList<Oid> parameterTypes;
    QList<TResultColumn> columns;
};

// One connection to a PostgreSQL server. Everything is sent without blocking and waited for on the socket, so
// that the busy hook goes on.
//
// The reading one holds a transaction while at least one list is half read.
class PostgresConnection final : public EngineConnection {
public:
    PostgresConnection(TSessionSettings settings, TDatabase::Connection use);
    ~PostgresConnection() override;

    void open() override;
    void close() override;
    bool isOpen() const override { return conn != nullptr && !lost; }
    std::unique_ptr<TStatement> prepare(const TranslatedSql &sql) override;
    void run(const QByteArray &script) override;
    void begin() override;
    void commit(int patienceMs) override;
    void rollback() override;
    bool inTransaction() const override;
    std::optional<TServerLink> link() const override;
    bool seek() override;
    QString refusal() const override { return seeker ? seeker->refusal() : QString(); }
    QByteArray transactionId() const override { return number; }
    TCommitFate fateOf(const QByteArray &id, const QByteArray &witness, int seekMs) override;
    void mistrust() override { trusted = false; }
    void forgetPrepared() override;

    // --- for its statements

    // Rises with every new connection: what was made on an older one is gone.
    int generation() const { return connections; }
    const ServerPrepared &prepared(const QByteArray &text);
    ServerResult execute(const ServerPrepared &statement, const QByteArray &text,
                         const QList<QByteArray> &values);
    // The same without a preparation, for the opening of a cursor.
    ServerResult execute(const QByteArray &text, const QList<Oid> &types, const QList<QByteArray> &values);
    ServerResult query(const QByteArray &text);

    // Cursors stand in one transaction, begun with the first and ended with the last of them.
    QByteArray cursorOpens();
    void cursorCloses(int itsGeneration);
    // A failure inside takes back only what was done inside: half-read lists go on.
    void guarded(const std::function<void()> &action);

private:
    void connectServer();
    void setUp();
    ServerResult await(bool sent, const QByteArray &text);
    ServerResult collect(const QByteArray &text);
    void waitForServer(const QByteArray &text);
    [[noreturn]] void serverLost(const QString &serverText, const QByteArray &text);
    [[noreturn]] void raise(const PGresult *result, const QByteArray &text);
    QList<TResultColumn> describe(const PGresult *result) const;
    ServerSeeker &theSeeker();

    PGconn *conn = nullptr;
    bool lost = false;
    bool trusted = true;
    bool waiting = false;
    QDeadlineTimer answerBy = QDeadlineTimer::Forever; // how long an answer is waited for
    int connections = 0;
    int cursors = 0;
    qlonglong names = 0;
    QByteArray number; // the server's, of the transaction begun last
    std::unique_ptr<ServerSeeker> seeker;
    QHash<QByteArray, ServerPrepared> byText;
};
