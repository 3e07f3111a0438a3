#pragma once

#include "toolkit/data/database.h"
#include "toolkit/data/server_link.h"
#include "toolkit/data/statement.h"

#include <QElapsedTimer>

// Calls the busy hook about 25 times a second while one operation of the engine runs.
class BusyBeat {
public:
    void start();
    void beat();
    qint64 elapsedMs() const { return sinceStart.elapsed(); }

    static TDatabase::BusyHook &hook();
    // Whether the hook is running just now: nothing may be read then.
    static bool isBeating();

    // While it lives the hook is not called: for what is read in the middle of a painting.
    class Quiet {
    public:
        Quiet();
        ~Quiet();
        Quiet(const Quiet &) = delete;
        Quiet &operator=(const Quiet &) = delete;
    };

private:
    QElapsedTimer sinceStart;
    qint64 lastBeatMs = 0;
};

// What a statement and a session need of one connection. Statements hold their connection; a connection that
// is closed ends its statements, which then raise.
class EngineConnection : public std::enable_shared_from_this<EngineConnection> {
public:
    static std::shared_ptr<EngineConnection> create(const TSessionSettings &settings,
                                                    TDatabase::Connection use);
    virtual ~EngineConnection();
    EngineConnection(const EngineConnection &) = delete;
    EngineConnection &operator=(const EngineConnection &) = delete;

    // Only the session opens and ends it: a statement that outlives its session must not connect anew.
    void permit() { permitted = true; }
    void end();

    // Connects, or connects anew after the server was lost. Does nothing while it stands. Raises when the
    // session is closed.
    virtual void open() = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;

    // A statement in the engine's own wording.
    virtual std::unique_ptr<TStatement> prepare(const TranslatedSql &sql) = 0;
    virtual void run(const QByteArray &script) = 0;

    virtual void begin() = 0;
    // Raises EConnectionLost also when a server has not answered within that time.
    virtual void commit(int patienceMs) = 0;
    virtual void rollback() = 0;
    virtual bool inTransaction() const = 0;

    // --- what only a server has

    virtual std::optional<TServerLink> link() const { return {}; }
    // A step towards a server that is lost, without waiting; true when it was reached.
    virtual bool seek() { return true; }
    // Why the server that is sought lets nobody in, in words for the user; empty while that is not known.
    virtual QString refusal() const { return {}; }
    // The server's own number of the transaction that was begun last.
    virtual QByteArray transactionId() const { return {}; }
    // Seeks the server for that long and asks what became of that transaction. The witness is a question in
    // the server's own wording; what is said to be written is believed when it answers true, or is empty, and
    // was another's when it answers false.
    virtual TCommitFate fateOf(const QByteArray & /*id*/, const QByteArray & /*witness*/, int /*seekMs*/)
    {
        return TCommitFate::NotToBeFound;
    }

    // Another connection of the session lost its server: an idle connection is not trusted any more.
    virtual void mistrust() {}
    // Prepared statements that are kept for later are thrown away.
    virtual void forgetPrepared() = 0;

    // Run first on every connection that is made from now on.
    void setOpeningScript(const QByteArray &script) { firstScript = script; }

    QSqlDatabase &handle() { return database; }

    // Called when the server is found lost.
    std::function<void()> onLost;
    // Called when it was connected.
    std::function<void()> onFound;

protected:
    EngineConnection(TSessionSettings settings, TDatabase::Connection use);

    bool reading() const { return use == TDatabase::Connection::Reading; }
    void checkPermitted() const;
    const QByteArray &openingScript() const { return firstScript; }
    void runOpeningScript();
    // The driver's own connection object behind Qt's.
    void *nativeHandle() const;
    void addDatabase(const QString &driver);
    void removeDatabase();

    const TSessionSettings settings;
    const TDatabase::Connection use;
    QSqlDatabase database;
    BusyBeat busy;

private:
    bool permitted = false;
    QByteArray firstScript;
};

// Refuses what no engine may be given: a NUL inside a text, a number that is not finite.
void checkBindable(const QString &parameter, const Variant &value);

// Nothing at all: no value, or a date that is none. An empty text is a value.
bool isNothing(const Variant &value);

// The position of a parameter; raises EDatabaseError for an unknown name.
int parameterPosition(const TranslatedSql &sql, const QString &name);

// A whole double as a whole number when it can be told apart from its neighbours; null otherwise.
std::optional<qlonglong> wholeNumber(double value);

// The number that a text of digits with a decimal point means; exact to the last bit.
double numberOf(QByteArrayView text);

// yyyy-mm-dd; an invalid date when it is anything else.
QDate dateOf(QByteArrayView text);
bool isDay(QByteArrayView text); // dateOf() is valid
QDateTime momentOf(QByteArrayView text);
QByteArray isoText(const Variant &dateOrMoment);
