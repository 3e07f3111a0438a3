#include "toolkit/postgresql/postgresql_connection.h"

#include "toolkit/data/engine_errors.h"
#include "toolkit/postgresql/commit_question.h"
#include "toolkit/postgresql/server_types.h"
#include "toolkit/postgresql/statement_postgresql.h"

#include <QScopeGuard>
#include <QThread>

#include <array>
#include <cerrno>
#include <poll.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int pollMs = 40;
constexpr qsizetype preparedLimit = 200;

QByteArray quotedWord(const QByteArray &value)
{
    QByteArray text = value;
    return '\'' + text.replace('\\', "\\\\").replace('\'', "\\'") + '\'';
}

bool isFailure(const PGresult *result)
{
    const ExecStatusType status = PQresultStatus(result);
    return status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK && status != PGRES_EMPTY_QUERY;
}

QString field(const PGresult *result, int code)
{
    return QString::fromUtf8(PQresultErrorField(result, code));
}

} // namespace

PostgresConnection::PostgresConnection(TSessionSettings theSettings, TDatabase::Connection theUse)
    : EngineConnection(std::move(theSettings), theUse)
{
}

PostgresConnection::~PostgresConnection()
{
    close();
}

void PostgresConnection::open()
{
    const bool idle = !inTransaction() && cursors == 0;
    if (conn && !lost && (trusted || !idle))
        return;
    checkPermitted();
    close();
    connectServer();
    try {
        setUp();
    } catch (const EDatabaseError &) {
        close();
        throw;
    }
}

void PostgresConnection::connectServer()
{
    // The driver takes a ';' in its options for a blank, so what may hold one goes through the setters.
    ServerWords words = serverWords(settings.connInfo, settings.readOnly || reading());
    addDatabase(u"QPSQL"_s);
    database.setDatabaseName(QString::fromUtf8(words.take("dbname")));
    database.setPassword(QString::fromUtf8(words.take("password")));
    QByteArray options;
    for (auto word = words.cbegin(); word != words.cend(); ++word)
        options += word.key() + '=' + quotedWord(word.value()) + ' ';
    database.setConnectOptions(QString::fromUtf8(options));
    if (!database.open()) {
        const QString text = database.lastError().databaseText().trimmed();
        removeDatabase();
        raiseRefusedConnection(text);
    }
    conn = static_cast<PGconn *>(nativeHandle());
    Q_ASSERT(conn);
    lost = false;
    trusted = true;
    ++connections;
}

void PostgresConnection::setUp()
{
    PQsetNoticeReceiver(
        conn, [](void *, const PGresult *) {}, nullptr);
    run("set client_encoding to 'UTF8'; set datestyle to iso, ymd; set bytea_output to hex; "
        "set standard_conforming_strings to on; set client_min_messages to error; "
        "set default_transaction_isolation to 'read committed'; set lock_timeout to " +
        QByteArray::number(settings.busyTimeoutMs));
    runOpeningScript();
    seeker.reset();
    if (onFound)
        onFound();
}

void PostgresConnection::close()
{
    if (!conn)
        return;
    conn = nullptr;
    lost = false;
    cursors = 0;
    byText.clear();
    ++connections;
    removeDatabase();
}

std::unique_ptr<TStatement> PostgresConnection::prepare(const TranslatedSql &sql)
{
    open();
    return std::make_unique<PostgresStatement>(
        std::static_pointer_cast<PostgresConnection>(shared_from_this()), sql, reading());
}

void PostgresConnection::serverLost(const QString &serverText, const QByteArray &text)
{
    lost = true;
    cursors = 0;
    if (onLost)
        onLost();
    raiseConnectionLost(serverText, QString::fromUtf8(text));
}

void PostgresConnection::raise(const PGresult *result, const QByteArray &text)
{
    ServerFailure failure;
    failure.state = field(result, PG_DIAG_SQLSTATE);
    failure.message = field(result, PG_DIAG_MESSAGE_PRIMARY);
    failure.detail = field(result, PG_DIAG_MESSAGE_DETAIL);
    failure.column = field(result, PG_DIAG_COLUMN_NAME);
    failure.constraint = field(result, PG_DIAG_CONSTRAINT_NAME);
    if (failure.message.isEmpty())
        failure.message = QString::fromUtf8(PQresultErrorMessage(result)).trimmed();
    failure.atStandby = qstrcmp(PQparameterStatus(conn, "in_hot_standby"), "on") == 0;
    if (PQstatus(conn) == CONNECTION_BAD || meansConnectionLost(failure.state))
        serverLost(failure.message, text);
    if (failure.state == u"0A000" ||
        failure.state == u"26000") // the plan is out of date: prepared anew next time
        byText.clear();
    raiseServerError(failure, QString::fromUtf8(text));
}

void PostgresConnection::waitForServer(const QByteArray &text)
{
    while (PQisBusy(conn)) {
        if (PQsocket(conn) < 0) // the send met its end already: there is nothing to wait on
            serverLost(QString::fromUtf8(PQerrorMessage(conn)).trimmed(), text);
        pollfd socket{PQsocket(conn), POLLIN, 0};
        const int ready = poll(&socket, 1, pollMs);
        if (ready < 0 && errno != EINTR)
            serverLost(QString::fromLocal8Bit(strerror(errno)), text);
        if (answerBy.hasExpired())
            serverLost(u"no answer in time"_s, text);
        busy.beat();
        if (ready > 0 && !PQconsumeInput(conn))
            serverLost(QString::fromUtf8(PQerrorMessage(conn)).trimmed(), text);
    }
}

// The last result with rows, else the last one; the first failure is raised after everything is read.
ServerResult PostgresConnection::collect(const QByteArray &text)
{
    ServerResult kept;
    ServerResult failure;
    for (;;) {
        waitForServer(text);
        ServerResult result(PQgetResult(conn));
        if (!result)
            break;
        if (isFailure(result.get())) {
            if (!failure)
                failure = std::move(result);
        } else if (!kept || PQresultStatus(result.get()) == PGRES_TUPLES_OK ||
                   PQresultStatus(kept.get()) != PGRES_TUPLES_OK) {
            kept = std::move(result);
        }
    }
    if (failure)
        raise(failure.get(), text);
    if (!kept)
        serverLost(QString::fromUtf8(PQerrorMessage(conn)).trimmed(), text);
    return kept;
}

ServerResult PostgresConnection::await(bool sent, const QByteArray &text)
{
    Q_ASSERT_X(!waiting, "PostgresConnection", "the busy hook must not start a statement");
    if (!sent)
        serverLost(QString::fromUtf8(PQerrorMessage(conn)).trimmed(), text);
    busy.start();
    waiting = true;
    const auto done = qScopeGuard([this] { waiting = false; });
    return collect(text);
}

ServerResult PostgresConnection::query(const QByteArray &text)
{
    return await(PQsendQuery(conn, text.constData()) == 1, text);
}

const ServerPrepared &PostgresConnection::prepared(const QByteArray &text)
{
    if (const auto found = byText.constFind(text); found != byText.constEnd())
        return *found;
    if (byText.size() >= preparedLimit)
        forgetPrepared();
    ServerPrepared fresh;
    fresh.name = "s" + QByteArray::number(++names);
    ServerResult about;
    guarded([&] {
        await(PQsendPrepare(conn, fresh.name.constData(), text.constData(), 0, nullptr) == 1, text);
        about = await(PQsendDescribePrepared(conn, fresh.name.constData()) == 1, text);
    });
    for (int i = 0; i < PQnparams(about.get()); ++i)
        fresh.parameterTypes.append(PQparamtype(about.get(), i));
    fresh.columns = describe(about.get());
    return *byText.insert(text, fresh);
}

QList<TResultColumn> PostgresConnection::describe(const PGresult *result) const
{
    QList<TResultColumn> columns;
    for (int i = 0; i < PQnfields(result); ++i) {
        columns.append(
            serverColumn(QString::fromUtf8(PQfname(result, i)), PQftype(result, i), PQfmod(result, i)));
    }
    return columns;
}

namespace {

// The arrays that libpq takes; a bytea goes as its bytes, everything else as text.
struct ParameterArrays {
    ParameterArrays(const QList<Oid> &types, const QList<QByteArray> &values)
    {
        for (qsizetype i = 0; i < values.size(); ++i) {
            const QByteArray &value = values.at(i);
            data.append(value.isNull() ? nullptr : value.constData());
            lengths.append(int(value.size()));
            formats.append(i < types.size() && types.at(i) == ServerType::bytea ? 1 : 0);
        }
    }
    QList<const char *> data;
    QList<int> lengths;
    QList<int> formats;
};

} // namespace

ServerResult PostgresConnection::execute(const ServerPrepared &statement, const QByteArray &text,
                                         const QList<QByteArray> &values)
{
    const ParameterArrays arrays(statement.parameterTypes, values);
    return await(PQsendQueryPrepared(conn, statement.name.constData(), int(values.size()),
                                     arrays.data.constData(), arrays.lengths.constData(),
                                     arrays.formats.constData(), 0) == 1,
                 text);
}

ServerResult PostgresConnection::execute(const QByteArray &text, const QList<Oid> &types,
                                         const QList<QByteArray> &values)
{
    const ParameterArrays arrays(types, values);
    return await(PQsendQueryParams(conn, text.constData(), int(values.size()), types.constData(),
                                   arrays.data.constData(), arrays.lengths.constData(),
                                   arrays.formats.constData(), 0) == 1,
                 text);
}

void PostgresConnection::forgetPrepared()
{
    byText.clear();
    if (isOpen() && PQtransactionStatus(conn) != PQTRANS_INERROR)
        query("deallocate all");
}

void PostgresConnection::run(const QByteArray &script)
{
    open();
    query(script);
}

// The number is known before anything can be lost, and costs no message of its own. It also makes a standby
// refuse at once.
void PostgresConnection::begin()
{
    number.clear();
    if (settings.readOnly) {
        run("begin");
        return;
    }
    open();
    try {
        number = PQgetvalue(query("begin; select pg_current_xact_id()").get(), 0, 0);
    } catch (const EConnectionLost &) {
        throw;
    } catch (const EDatabaseError &) {
        query("rollback");
        throw;
    }
}

// The server answers the commit of a failed transaction with a roll-back; that is a failure.
void PostgresConnection::commit(int patienceMs)
{
    answerBy.setRemainingTime(patienceMs);
    const auto anyTime = qScopeGuard([this] { answerBy = QDeadlineTimer::Forever; });
    const ServerResult result = query("commit");
    if (qstrcmp(PQcmdStatus(result.get()), "COMMIT") != 0)
        throw EDatabaseError(u"Pakeitimai neįrašyti: ankstesnis operacijos veiksmas nepavyko."_s,
                             QString::fromUtf8(PQcmdStatus(result.get())), u"commit"_s);
}

void PostgresConnection::rollback()
{
    query("rollback");
}

std::optional<TServerLink> PostgresConnection::link() const
{
    return isOpen() ? std::optional(linkOf(conn)) : std::nullopt;
}

ServerSeeker &PostgresConnection::theSeeker()
{
    if (!seeker)
        seeker = std::make_unique<ServerSeeker>(serverWords(settings.connInfo, settings.readOnly));
    return *seeker;
}

bool PostgresConnection::seek()
{
    if (!isOpen() && !theSeeker().step())
        return false;
    seeker.reset();
    return true;
}

TCommitFate PostgresConnection::fateOf(const QByteArray &id, const QByteArray &witness, int seekMs)
{
    if (id.isEmpty()) // of a session that cannot write
        return TCommitFate::NotWritten;
    const QDeadlineTimer patience(seekMs);
    const CommitQuestion question{openingScript(), id, witness};
    busy.start();
    TCommitFate fate = TCommitFate::NotKnownYet;
    while (fate == TCommitFate::NotKnownYet && !patience.hasExpired()) {
        if (theSeeker().step())
            fate = question.ask(*theSeeker().take());
        QThread::msleep(pollMs);
        busy.beat();
    }
    seeker.reset();
    return fate;
}

bool PostgresConnection::inTransaction() const
{
    if (!conn || lost)
        return false;
    const PGTransactionStatusType status = PQtransactionStatus(conn);
    return status == PQTRANS_INTRANS || status == PQTRANS_INERROR;
}

void PostgresConnection::guarded(const std::function<void()> &action)
{
    if (cursors == 0) {
        action();
        return;
    }
    query("savepoint s");
    try {
        action();
    } catch (const EConnectionLost &) {
        throw;
    } catch (const Exception &) {
        query("rollback to savepoint s; release savepoint s");
        throw;
    }
    query("release savepoint s");
}

QByteArray PostgresConnection::cursorOpens()
{
    if (cursors == 0)
        query("begin");
    ++cursors;
    return "c" + QByteArray::number(++names);
}

void PostgresConnection::cursorCloses(int itsGeneration)
{
    if (itsGeneration != connections || lost || cursors == 0)
        return;
    if (--cursors == 0)
        query("commit");
}
