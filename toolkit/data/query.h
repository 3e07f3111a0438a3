#pragma once

#include "toolkit/data/changed_elsewhere.h"
#include "toolkit/data/dataset.h"

// By what the row to be changed is found.
enum class TUpdateMode { upWhereKeyOnly, upWhereChanged };
using enum TUpdateMode;

// A data set over a statement with named parameters.
//
// Read-only unless RequestLive or an update object is given:
// - RequestLive: the statement selects from one table; a post writes only the changed columns, found by the
//   table's key, and re-reads the row. When another station changed one of these columns meanwhile, nothing
//   is written and EChangedElsewhere is raised; see acceptOther() and keepOwn(). By upWhereKeyOnly the last
//   one wins. A row that is gone raises ERowGone.
// - InsertSQL/ModifySQL/DeleteSQL: written as they are worded; parameters are named after the columns,
//   OLD_name is the value before the change. What another station changed meanwhile is treated as above: a
//   column changed here too raises EChangedElsewhere, any other is written with their value. The row is then
//   re-read through the query's own statement, so that a key given by the database and computed columns are
//   there.
// - CachedUpdates: posts are held in the set and written by ApplyUpdates(). They stay held, whether it fails
//   or not, until CommitUpdates() takes them for written or CancelUpdates() throws them away; so an outer
//   transaction may still fail and the row be put back into edit.
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
    TUpdateMode UpdateMode = upWhereChanged;
    // Groups of columns that mean something together only, as the two sides of an amount. When one of a group
    // changes, all of it counts as changed: compared with what another station made of it, and written.
    QList<QStringList> WrittenTogether;
    // A list reads through the session's reading connection, so that its half-read cursor never meets a
    // transaction.
    bool readsAside = false;

    void setParam(const QString &name, const Variant &value);
    Variant param(const QString &name) const;

    void ExecSQL(); // a statement that gives no rows

    // Reads the current row anew, computed columns included; it stays as it is where the statement does not
    // show it any more. Not while the row is being edited or changes are held.
    void RefreshRecord();

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
    void write(TRecordChange &change) override;
    bool canWrite() const override;
    bool holdsChanges() const override;

private:
    friend class QueryWriter;
    struct Private;
    std::unique_ptr<Private> q;
};

// A live data set over a whole table, in the order of its key or of the given columns.
class TTable : public TQuery {
    Q_OBJECT
public:
    TTable(TDatabase *database, const QString &table, const QString &order = {}, QObject *parent = nullptr);
};
