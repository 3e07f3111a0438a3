#pragma once

#include "toolkit/data/database.h"
#include "toolkit/data/field.h"
#include "toolkit/data/record.h"

#include <QAbstractTableModel>

#include <functional>
#include <memory>
#include <vector>

enum class TDataSetState { dsInactive, dsBrowse, dsEdit, dsInsert };
static_assert(int(TDataSetState::dsEdit) == 2 && int(TDataSetState::dsInsert) == 3);
using enum TDataSetState;

// A set of rows with a cursor. It is a table model, so a grid binds to it directly: one model row per record
// that passes the filter, one model column per field; a record being inserted is a model row of its own.
//
// Rows are fetched as they are needed and the rest in idle time on the same thread. They are kept encoded; a
// QVariant exists only while somebody looks at it.
//
// Errors are raised as exceptions and leave state, cursor and typed values as they were. Moving the cursor
// away from a record that is being edited posts it when it was changed and cancels it otherwise.
class TDataSet : public QAbstractTableModel {
    Q_OBJECT
public:
    using Hook = std::function<void(TDataSet &)>;

    explicit TDataSet(QObject *parent = nullptr);
    ~TDataSet() override;

    // --- opening. The fields stay the same objects when the set is opened again with the same columns.
    void Open();
    void Close();
    bool Active() const;
    TDataSetState State() const;

    // --- cursor. RecNo counts from 0; -1 when there is no record.
    bool IsEmpty() const; // fetches at most one row
    bool Bof() const;
    bool Eof() const;
    void First();
    void Prior();
    void Next();
    void Last(); // fetches all
    int RecNo() const;
    void setRecNo(int row);
    int RecordCount();        // fetches all
    int fetchedCount() const; // rows here so far
    bool fetchedAll() const;
    // Moves to the first record whose column equals key; false, and the cursor stays, when there is none or
    // the reading was stopped before it came. Reads until it is found.
    bool Locate(const QString &column, const Variant &key);
    // The same among the rows that are here, from this one on, and without moving: its row, or -1. So a list
    // that is still being read can be searched as its rows come.
    int findRow(const QString &column, const Variant &key, int from = 0) const;

    // Ends the reading at the next row; the rows that are here stay. It may be called from the busy hook.
    void stopReading();
    bool stopped() const; // the set holds only a part of its rows, until it is opened again

    // --- editing
    void Edit();   // an empty set gets a new record
    void Insert(); // before the current record
    void Append(); // at the end
    void Post();
    void Cancel();
    void Delete();
    bool Modified() const;
    // Called at the start of every Post to bring in what is still being typed; may raise to stop the post.
    // Returns a number for removeFlusher().
    int addFlusher(std::function<void()> flusher);
    void removeFlusher(int number);
    bool editing() const { return State() == dsEdit || State() == dsInsert; }

    // How a post goes on that another station's change stopped (EChangedElsewhere). The columns are those of
    // the exception or some of them; the set is in edit state. Nothing else that was typed changes.
    void acceptOther(const QList<TChangedColumn> &columns); // theirs becomes the value, old and new
    void keepOwn(const QList<TChangedColumn> &columns);     // the next Post writes over theirs

    // --- fields
    TField *FieldByName(const QString &name) const; // raises EDatabaseError when there is none
    TField *FindField(const QString &name) const;   // null when there is none
    int FieldCount() const;
    TField *Field(int index) const;
    // A field computed by onCalcFields; to be added before the set is opened.
    TField *addCalculated(const QString &name, TFieldType type, int size = 0);
    // Settings of a field (label, format, rules …) given before the set is open; applied at every Open. Every
    // described field must be there then.
    void describe(const QString &name, std::function<void(TField &)> settings);

    // --- client filter: only records for which it is true are seen. Null: all. It must not raise.
    void setFilter(std::function<bool(TDataSet &)> filter);

    // The set refuses every change while this is on.
    bool ReadOnly() const;
    void setReadOnly(bool on);

    // --- hooks
    Hook BeforeOpen, AfterOpen, BeforeInsert, AfterInsert, BeforeEdit, AfterEdit, BeforePost, AfterPost,
        BeforeDelete, AfterDelete, AfterCancel, AfterScroll, OnCalcFields;

    // --- table model
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

signals:
    void stateChanged();
    void scrolled(); // the cursor stands on another record, or on the same one anew
    void fieldChanged(const QString &name);
    void fetched(); // more rows came; see fetchedAll()
    void fetchFailed(const QString &message);

protected:
    // What a kind of data set supplies.
    virtual std::unique_ptr<class TStatement> openStatement() = 0; // prepared, bound, not run
    // Whether Open reads all rows, so that no half-read cursor stands in the way of a transaction.
    virtual bool readsAtOnce() const { return false; }
    // Writes one record, all or nothing, and puts what the database made of it into change.now.
    virtual void write(TRecordChange &change) = 0;
    // Whether records may be changed at all, and whether changes are held back until they are applied
    // together.
    virtual bool canWrite() const { return true; }
    virtual bool holdsChanges() const { return false; }
    // A field's text for display as it would be in this record.
    QString textIn(const Record &record, int field);

    // The current record becomes what the function makes of it; false: it stays.
    void replaceRecord(const std::function<bool(Record &)> &with);

    bool hasHeldChanges() const;
    // Writes the changes held back, in the order in which the records were first changed. They stay held.
    void writeHeldChanges();
    void heldChangesAreWritten(); // the rows are what the database made of them
    void dropHeldChanges();       // the rows are as they were read

private:
    friend class TField;
    struct Private;
    std::unique_ptr<Private> d;
};
