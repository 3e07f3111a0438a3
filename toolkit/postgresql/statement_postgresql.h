#pragma once

#include "toolkit/postgresql/postgresql_connection.h"

// A statement of PostgreSQL. On the editing connection it is run at once; a select on the reading connection
// is read through a cursor, in pieces that grow.
class PostgresStatement final : public TStatement {
public:
    PostgresStatement(std::shared_ptr<PostgresConnection> connection, const TranslatedSql &sql,
                      bool piecewise);
    ~PostgresStatement() override;

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

private:
    const ServerPrepared &prepared();
    void openCursor();
    void fetch();
    void closeCursor();

    std::shared_ptr<PostgresConnection> connection;
    TranslatedSql sql;
    QByteArray text;
    bool piecewise;
    QList<TResultColumn> result;
    QList<QByteArray> values;
    ServerResult rows;
    int row = -1;
    qlonglong changed = 0;
    QByteArray cursor; // its name; empty when there is none
    int cursorGeneration = 0;
    bool moreRows = false;
    int pieceSize = 0;
    mutable QHash<int, QByteArray> blobs; // decoded values of the current row
};
