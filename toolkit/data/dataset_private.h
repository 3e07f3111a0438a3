#pragma once

#include "toolkit/data/dataset.h"
#include "toolkit/data/row_store.h"

#include <QElapsedTimer>
#include <QHash>
#include <QTimer>

#include <map>

constexpr int firstRows = 100; // read at once before the first of them is shown

// The inside of a data set. Three ways of counting rows meet here:
// - a source row is a place in `rows`, in the order in which the rows came;
// - a seen row counts only what passes the filter;
// - a model row counts seen rows and the record being inserted.
struct TDataSet::Private {
    explicit Private(TDataSet *set);

    // --- fields
    void makeFields(const QList<TResultColumn> &columns);
    TField *fieldOf(const TResultColumn &column, int index, bool calculated);
    int storedFields() const { return int(fields.size() - calculatedColumns.size()); }

    // Changes the whole model; no view fetches meanwhile.
    void reset(const std::function<void()> &change);

    // --- fetching
    bool fetchRows(int limit, qint64 milliseconds); // false when the last row is here; publishes what came
    void fetchAll();
    void fetchUntilSeen(int seen);
    void publish(int firstNew);
    void stopFetching();
    void idleFetch();
    void fetchFails(const Exception &error);

    // --- rows
    int seenCount() const { return filter ? int(visible.size()) : published; }
    int modelRows() const { return seenCount() + (state == dsInsert ? 1 : 0); }
    int sourceOfSeen(int seen) const { return filter ? visible[size_t(seen)] : seen; }
    int sourceOfModel(int row) const; // -1 for the record being inserted
    bool passes(int source);
    void insertRow(int seen, RowArena::Address address); // the model is told by the caller
    void removeRow(int seen);
    void refilter();
    void hideCurrentUnlessPassing();
    void clearRows();

    // --- values of the record that is looked at
    Variant valueAt(int source, int field);
    Variant value(int field);
    const Record &calculatedOf(int source); // -1: the record being edited
    void forgetCalculated() { calculatedFor = -2; }

    // --- cursor
    void moveTo(int row);
    void settle(); // the cursor stands on a row that exists
    void scrolled();
    void leaveRecord(); // posts or cancels what is being edited

    // --- editing
    void checkActive() const;
    void checkWritable() const;
    void startInsert(int row);
    void setState(TDataSetState to);
    void setValue(TField &field, const Variant &accepted);
    void flush();
    void checkRequired() const;
    void write();
    void writeChange(TRecordChange &change);
    [[noreturn]] void raiseInCaptions(const EConstraintError &error, const Record &record);
    void takeTheirs(const QList<TChangedColumn> &columns, bool asOwn);
    void keepInserted();
    void keepUpdated();
    void changed(int row);

    // --- changes held back
    struct HeldChange {
        TChangeKind kind = TChangeKind::Modified;
        RowArena::Address before = 0;
        RowArena::Address now = 0;
        int order = 0;                            // of the first change; 0: none was held
        std::optional<RowArena::Address> written; // as the database made it
    };
    void startHolding();
    void forgetHeld();
    std::vector<HeldChange> heldInOrder() const;
    void rereadHeldRow(const QList<TChangedColumn> &columns);
    void holdInserted(RowArena::Address now);
    void holdModified(RowArena::Address before, RowArena::Address now);
    void holdDeleted(RowArena::Address row);

    TDataSet *q;
    TDataSetState state = dsInactive;

    std::vector<std::unique_ptr<TField>> fields;
    std::vector<std::unique_ptr<TField>> retired; // of earlier openings; somebody may still point to them
    QHash<QString, int> fieldIndex;               // by lower-case name
    QList<TResultColumn> calculatedColumns;
    std::vector<std::pair<QString, std::function<void(TField &)>>> settings;

    std::unique_ptr<TStatement> statement; // while rows are still to come
    QTimer idle;
    bool resetting = false;
    bool stop = false; // at the next row
    QString failure;   // why the fetching stopped early

    RowArena arena;
    std::vector<RowArena::Address> rows;
    std::vector<int> visible; // source rows that pass the filter; only with a filter
    int published = 0;        // source rows that the model has told of
    std::function<bool(TDataSet &)> filter;

    int current = -1;
    bool bof = true;
    bool eof = true;
    int lookAt = -1;                  // source row that hooks see instead of the current record; -1: none
    const Record *lookInto = nullptr; // a record that hooks see instead of any row
    int insertedAt = -1;              // model row of the record being inserted

    Record buffer; // the record being edited, calculated fields left out
    Record before; // as it was
    bool modified = false;
    bool readOnly = false;

    Record calculated;
    int calculatedFor = -2; // source row, -1 the record being edited, -2 none
    bool calculating = false;

    std::map<int, std::function<void()>> flushers;
    int lastFlusher = 0;

    QHash<RowArena::Address, HeldChange> held; // by the present version of the row
    std::vector<HeldChange> heldDeletions;
    std::vector<RowArena::Address> rowsBefore; // as they were before the first change held back
    bool holding = false;
    int heldOrder = 0;
};

// Hooks see another row than the current one while it lives.
class LookAtRow {
public:
    LookAtRow(int &place, int source) : where(place), previous(std::exchange(place, source)) {}
    ~LookAtRow() { where = previous; }
    LookAtRow(const LookAtRow &) = delete;
    LookAtRow &operator=(const LookAtRow &) = delete;

private:
    int &where;
    int previous;
};
