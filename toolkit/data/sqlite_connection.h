#pragma once

#include "toolkit/data/connection.h"

#include <QHash>
#include <QSet>

struct sqlite3_stmt;
class SqliteStatement;

// One handle on a SQLite file. The reading one is opened read-only and serves one half-read list at a time,
// so that each list sees what was committed when it was opened.
class SqliteConnection final : public EngineConnection {
public:
    SqliteConnection(TSessionSettings settings, TDatabase::Connection use);
    ~SqliteConnection() override;

    static void setTeacher(std::function<void(sqlite3 *)> teacher);

    void open() override;
    void close() override;
    bool isOpen() const override { return db != nullptr; }
    std::unique_ptr<TStatement> prepare(const TranslatedSql &sql) override;
    void run(const QByteArray &script) override;
    void begin() override;
    void commit(int patienceMs) override;
    void rollback() override;
    bool inTransaction() const override;
    void forgetPrepared() override;

    // --- for its statements
    sqlite3 *native() const { return db; }
    sqlite3_stmt *take(const QByteArray &text);
    void giveBack(const QByteArray &text, sqlite3_stmt *statement);
    void enlist(SqliteStatement *statement) { statements.insert(statement); }
    void dismiss(SqliteStatement *statement) { statements.remove(statement); }
    void operationStarts() { busy.start(); }

private:
    void checkPlace() const;
    void openFile();
    void setUp();
    static int waitForLock(void *self, int attempts);
    static int progress(void *self);

    sqlite3 *db = nullptr;
    QHash<QByteArray, sqlite3_stmt *> idle;
    QSet<SqliteStatement *> statements;
};
