#pragma once

#include "toolkit/data/sqlite_connection.h"

// A statement of SQLite. A column of a table has its declared type; an expression has none there, its type is
// told by the first row.
class SqliteStatement final : public TStatement {
public:
    SqliteStatement(std::shared_ptr<SqliteConnection> connection, const TranslatedSql &sql);
    ~SqliteStatement() override;

    void bind(const QString &name, const Variant &value) override;
    void exec() override;
    bool next() override;
    qlonglong affected() const override { return changed; }
    const QList<TResultColumn> &columns() const override { return result; }
    bool isNull(int column) const override;
    double number(int column) const override;
    qlonglong integer(int column) const override;
    QByteArrayView utf8(int column) const override;
    TFieldType valueType(int column) const override;
    void reset() override;
    const QStringList &parameters() const override { return sql.parameters; }

    // The connection is closed: the statement raises from now on.
    void detach();

private:
    enum class Progress { Idle, FirstRowWaits, Reading, Ended };

    void checkAttached() const;
    bool step();
    void describeColumns();
    void describeExpressions();
    int engineType(int column) const;
    TFieldType storedType(int column) const;

    std::shared_ptr<SqliteConnection> connection;
    TranslatedSql sql;
    QByteArray text;
    sqlite3_stmt *statement;
    QList<TResultColumn> result;
    QList<bool> derived;
    Progress progress = Progress::Idle;
    mutable int typedColumn = -1; // the column of the current row that was asked for its type last
    mutable int typeOfColumn = 0;
    qlonglong changed = 0;
};
