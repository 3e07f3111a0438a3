#include "toolkit/data/sqlite_connection.h"

#include "toolkit/data/engine_errors.h"
#include "toolkit/data/statement_sqlite.h"

#include <QFileInfo>
#include <QThread>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int progressSteps = 10000;
constexpr int lockPollMs = 10;
constexpr qsizetype idleLimit = 64;

std::function<void(sqlite3 *)> &teacher()
{
    static std::function<void(sqlite3 *)> theTeacher;
    return theTeacher;
}

} // namespace

void SqliteConnection::setTeacher(std::function<void(sqlite3 *)> aTeacher)
{
    teacher() = std::move(aTeacher);
}

SqliteConnection::SqliteConnection(TSessionSettings theSettings, TDatabase::Connection theUse)
    : EngineConnection(std::move(theSettings), theUse)
{
}

SqliteConnection::~SqliteConnection()
{
    close();
}

// The engine tells "unable to open" for all of these; the user needs to know which.
void SqliteConnection::checkPlace() const
{
    const QFileInfo file(settings.file);
    if (settings.file.isEmpty())
        throw EDatabaseError(u"Nenurodytas duomenų bazės failas."_s);
    if (!file.dir().exists())
        throw EDatabaseError(u"Nerastas duomenų bazės aplankas „%1“."_s.arg(file.absolutePath()));
    if (file.isDir())
        throw EDatabaseError(u"„%1“ yra aplankas, o ne duomenų bazės failas."_s.arg(settings.file));
    if (!file.exists() && (settings.readOnly || reading()))
        throw EDatabaseError(u"Nerastas duomenų bazės failas „%1“."_s.arg(settings.file));
}

void SqliteConnection::openFile()
{
    addDatabase(u"QSQLITE"_s);
    database.setDatabaseName(settings.file);
    if (settings.readOnly || reading())
        database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
    if (!database.open()) {
        const QString text = database.lastError().text();
        removeDatabase();
        throw EDatabaseError(u"Nepavyko atverti duomenų bazės failo „%1“."_s.arg(settings.file), text);
    }
    db = static_cast<sqlite3 *>(nativeHandle());
    Q_ASSERT(db);
}

void SqliteConnection::setUp()
{
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_handler(db, &SqliteConnection::waitForLock, this);
    sqlite3_progress_handler(db, progressSteps, &SqliteConnection::progress, this);
    run("pragma foreign_keys = on");
    run("select count(*) from sqlite_master"); // the first look into the file: is it a database at all?
    if (!settings.readOnly && !reading()) {
        if (sqlite3_db_readonly(db, "main") == 1)
            throw EDatabaseError(u"Į duomenų bazės failą „%1“ negalima rašyti."_s.arg(settings.file));
        run("pragma journal_mode = wal");
        run("pragma synchronous = full");
    }
    if (teacher())
        teacher()(db);
    runOpeningScript();
}

void SqliteConnection::open()
{
    if (db)
        return;
    checkPermitted();
    checkPlace();
    openFile();
    try {
        setUp();
    } catch (const EDatabaseError &error) {
        close();
        if (error.message().contains(settings.file))
            throw;
        throw EDatabaseError(u"Nepavyko atverti duomenų bazės „%1“. %2"_s.arg(settings.file, error.message()),
                             error.serverText, error.statement);
    }
}

void SqliteConnection::close()
{
    if (!db)
        return;
    for (SqliteStatement *statement : std::as_const(statements))
        statement->detach();
    statements.clear();
    forgetPrepared();
    db = nullptr;
    removeDatabase();
}

std::unique_ptr<TStatement> SqliteConnection::prepare(const TranslatedSql &sql)
{
    open();
    return std::make_unique<SqliteStatement>(std::static_pointer_cast<SqliteConnection>(shared_from_this()),
                                             sql);
}

sqlite3_stmt *SqliteConnection::take(const QByteArray &text)
{
    if (sqlite3_stmt *kept = idle.take(text))
        return kept;
    sqlite3_stmt *statement = nullptr;
    const char *tail = nullptr;
    busy.start();
    const int code = sqlite3_prepare_v3(db, text.constData(), int(text.size() + 1), SQLITE_PREPARE_PERSISTENT,
                                        &statement, &tail);
    if (code == SQLITE_ERROR)
        raiseBadWording(QString::fromUtf8(sqlite3_errmsg(db)), QString::fromUtf8(text));
    if (code != SQLITE_OK)
        raiseSqliteError(db, code, QString::fromUtf8(text));
    if (!statement)
        throw EDatabaseError(u"Tuščias duomenų bazės sakinys."_s, {}, QString::fromUtf8(text));
    return statement;
}

void SqliteConnection::giveBack(const QByteArray &text, sqlite3_stmt *statement)
{
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    if (idle.size() >= idleLimit)
        forgetPrepared();
    if (idle.contains(text))
        sqlite3_finalize(statement);
    else
        idle.insert(text, statement);
}

void SqliteConnection::forgetPrepared()
{
    for (sqlite3_stmt *statement : std::as_const(idle))
        sqlite3_finalize(statement);
    idle.clear();
}

void SqliteConnection::run(const QByteArray &script)
{
    open();
    busy.start();
    const int code = sqlite3_exec(db, script.constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        raiseSqliteError(db, code, QString::fromUtf8(script));
}

// The write lock is taken here: a reader that turns writer later would be refused without waiting.
void SqliteConnection::begin()
{
    run("begin immediate");
}

void SqliteConnection::commit(int /*patienceMs*/)
{
    run("commit");
}

void SqliteConnection::rollback()
{
    run("rollback");
}

bool SqliteConnection::inTransaction() const
{
    return db && sqlite3_get_autocommit(db) == 0;
}

int SqliteConnection::waitForLock(void *self, int)
{
    auto *connection = static_cast<SqliteConnection *>(self);
    if (connection->busy.elapsedMs() >= connection->settings.busyTimeoutMs)
        return 0;
    QThread::msleep(lockPollMs);
    connection->busy.beat();
    return 1;
}

int SqliteConnection::progress(void *self)
{
    static_cast<SqliteConnection *>(self)->busy.beat();
    return 0;
}
