#pragma once

#include "toolkit/data/dataset.h"

// A data set over a statement with named parameters.
//
// Read-only unless RequestLive or an update object is given:
// - RequestLive: the statement selects from one table; a post writes only the changed columns, found by the
//   table's key, and re-reads what the database assigned. UpdateMode is by key only.
// - CachedUpdates with InsertSQL/ModifySQL/DeleteSQL: posts are held in the set and written by
// ApplyUpdates();
//   parameters are named after the columns, OLD_name is the value before the change. CommitUpdates() marks
//   them written, CancelUpdates() throws them away.
class TQuery : public TDataSet {
    Q_OBJECT
public:
    explicit TQuery(TDatabase *database, QObject *parent = nullptr);
    TQuery(TDatabase *database, const QString &sql, QObject *parent = nullptr);

    TDatabase *Database() const;
    void setDatabase(TDatabase *database);

    QString SQL() const;
    void setSQL(const QString &statement); // closes the set
    bool RequestLive = false;
    // A list reads through the session's reading connection, so that its half-read cursor never meets a
    // transaction.
    bool readsAside = false;

    void setParam(const QString &name, const Variant &value);
    Variant param(const QString &name) const;

    void ExecSQL(); // a statement that gives no rows

    // --- cached updates
    bool CachedUpdates = false;
    QString InsertSQL, ModifySQL, DeleteSQL;
    bool UpdatesPending() const;
    void ApplyUpdates();
    void CommitUpdates();
    void CancelUpdates();

    ~TQuery() override;

protected:
    std::unique_ptr<TStatement> openStatement() override;
    bool readsAtOnce() const override { return !readsAside; }
    void writeInsert() override;
    void writeUpdate() override;
    void writeDelete() override;
    bool canWrite() const override;
    bool holdsChanges() const override;

private:
    struct Private;
    std::unique_ptr<Private> q;
};

// A live data set over a whole table, in the order of its key or of the given columns.
class TTable : public TQuery {
    Q_OBJECT
public:
    TTable(TDatabase *database, const QString &table, const QString &order = {}, QObject *parent = nullptr);
};
