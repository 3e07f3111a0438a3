#pragma once

#include "toolkit/sql/translator.h"
#include "toolkit/text/errors.h"

#include <QSqlDatabase>
#include <QVariant>

#include <functional>
#include <memory>

struct sqlite3;
class TStatement;

using Variant = QVariant;

enum class Engine { Sqlite, PostgreSql };

// How a session reaches its database.
struct TSessionSettings {
    QString alias; // the session's name: "mnFin_Db" or "mnRavl"
    Engine engine = Engine::Sqlite;
    QString file;             // SQLite: the file; created when missing unless readOnly
    QString connInfo;         // PostgreSQL: key=value words as libpq takes them
    bool readOnly = false;    // opened read-only in the engine itself: no statement can write
    int busyTimeoutMs = 5000; // how long a lock of another program is waited for
};

// One column of a table as the engine's catalogue describes it.
struct TColumnInfo {
    QString name; // lower case
    QString type; // lower case, as declared: "integer", "varchar", "numeric", "date" …
    int size = 0; // characters of a varchar; 0 when unlimited or no text
    bool required = false;
    bool key = false; // part of the primary key
    ColumnKind kind = ColumnKind::Unknown;
};

// A session: one editing connection and, opened on first use, one reading connection for lists.
//
// Every statement is worded in the system's own dialect and passes the translator; only nativeExec() does
// not. All errors are raised as EDatabaseError or one of its kinds, with a Lithuanian message.
class TDatabase : public SqlCatalog {
public:
    explicit TDatabase(TSessionSettings settings);
    ~TDatabase() override;
    TDatabase(const TDatabase &) = delete;
    TDatabase &operator=(const TDatabase &) = delete;

    // Called once per SQLite connection right after it is opened, to teach it functions and routines.
    static void setSqliteTeacher(std::function<void(sqlite3 *)> teacher);

    // Connects. Raises EConnectionLost, or EDatabaseError when the file is no database or cannot be used.
    void Open();
    void Close();
    bool Connected() const;

    const QString &AliasName() const;
    Engine engine() const;
    const TSessionSettings &settings() const;

    // BeginTran takes the write lock at once. Beginning twice, and ending without a beginning, are harmless.
    void StartTransaction();
    void Commit();
    void Rollback();
    bool InTransaction() const;
    // Tells one transaction of the session from another; 0 while none is open.
    qlonglong transactionNumber() const;

    // Runs a statement that gives no rows; returns the number of rows changed. The word commit at the end of
    // the wording commits, unless a transaction is open. A running statement calls the busy hook.
    qlonglong ExecSQL(const QString &statement, const QVariantMap &parameters = {});

    // The single value of a one-row, one-column select; null when there is no row or the value is null.
    Variant fieldResult(const QString &statement, const QVariantMap &parameters = {});

    // Prepares a statement on the editing connection, or on the reading one.
    enum class Connection { Editing, Reading };
    std::unique_ptr<TStatement> prepare(const QString &statement, Connection on = Connection::Editing);

    // The same for a statement that is worded for the engine already.
    std::unique_ptr<TStatement> prepareNative(const TranslatedSql &sql, Connection on = Connection::Editing);

    // Several statements in the engine's own wording, for the schema only. The catalogue is read anew
    // afterwards.
    void nativeExec(const QString &script);

    // A script in the engine's own wording that the editing connection runs at once and that every connection
    // which takes its place runs first: after a lost server is reached again, after the session was opened
    // anew. Not to be given inside a transaction. Raises what the script raises; it then stands as given.
    void setOpeningScript(const QString &script);

    // A text between single quotes, quotes inside doubled.
    static QString quoted(const QString &text);

    // The catalogue. An unknown table gives an empty list.
    QList<TColumnInfo> columnsOf(const QString &table) const;
    QStringList keyOf(const QString &table) const; // the columns of its primary key
    ColumnKind kindOf(const QString &column) const override;
    QString joinCondition(const QString &left, const QString &right) const override;
    QStringList columnNames(const QString &table) const override;
    bool isGivenByDatabase(const QString &table, const QString &column) const override;
    bool isRequired(const QString &column) const override;
    bool isRoutine(const QString &name) const override;
    // The catalogue is read anew on next use; to be called after the schema changed.
    void forgetCatalogue();

    SqlTranslator &translator();
    QSqlDatabase &handle(Connection on = Connection::Editing);

    // Called about 25 times a second, on the same thread, while a statement runs for long. The hook may
    // paint; it must not start another statement on this session. Returns the previous hook.
    using BusyHook = std::function<void()>;
    static BusyHook setBusyHook(BusyHook hook);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// The one guard that pairs begin with commit: rolls back unless commit() was reached.
//   TTransaction tran(db); …; tran.commit();
// Nested inside an open transaction of the same session it does nothing; the outer one decides.
class TTransaction {
public:
    explicit TTransaction(TDatabase *database);
    ~TTransaction();
    TTransaction(const TTransaction &) = delete;
    TTransaction &operator=(const TTransaction &) = delete;

    // Raises EDatabaseError when the transaction was lost meanwhile, so that half a change never passes for a
    // whole.
    void commit();

private:
    TDatabase *database;
    bool owner;
    qlonglong number = 0;
    bool done = false;
};
