#pragma once

#include "toolkit/data/calculated_record.h"
#include "toolkit/data/cursor.h"
#include "toolkit/data/dataset.h"
#include "toolkit/data/edited_record.h"
#include "toolkit/data/field_list.h"
#include "toolkit/data/held_changes.h"
#include "toolkit/data/row_list.h"
#include "toolkit/data/row_reader.h"

#include <map>

constexpr int firstRows = 100; // read at once before the first of them is shown

// The inside of a data set. A model row counts the seen rows of the list and the record being inserted.
struct TDataSet::Private {
    explicit Private(TDataSet *set);

    // Changes the whole model; no view fetches meanwhile.
    void reset(const std::function<void()> &change);

    // --- fetching
    bool fetchRows(int limit, qint64 milliseconds); // false when the last row is here; publishes what came
    void fetchAll();
    void fetchUntilSeen(int seen);
    int fetchUntilFound(const std::function<int(int from)> &find); // -1: no row is the one
    void publish();
    void idleFetch();

    // --- rows
    int modelRows() const { return rows.seenCount() + (state == dsInsert ? 1 : 0); }
    int sourceOfModel(int row) const; // -1 for the record being inserted
    int currentSource() const { return rows.sourceOf(cursor.row); }
    RowList::Passes filterOf(std::function<bool(TDataSet &)> filter);
    void hideCurrentUnlessPassing();
    void clearRows();
    Record recordOf(int source) const { return rows.read(rows.at(source), fields.stored()); }

    // --- values of the record that is looked at
    Variant valueAt(int source, int field);
    Variant value(int field);
    const Record &calculatedOf(int source); // -1: the record being edited

    // --- cursor
    void moveTo(int row);
    void scrolled();
    void leaveRecord(); // posts or cancels what is being edited
    void moveToSame(const Record &record);

    // --- editing
    void checkActive() const;
    void checkWritable() const;
    void startInsert(int row);
    void setState(TDataSetState to);
    void setValue(TField &field, const Variant &accepted);
    void flush();
    void checkRequired() const;
    void write(TRecordChange &change);
    [[noreturn]] void raiseInCaptions(const EUniqueViolation &error, const Record &record);
    void rereadHeldRow(const QList<TChangedColumn> &columns);
    void takeTheirs(const QList<TChangedColumn> &columns, bool asOwn);
    void writeEdited();
    void writeDeletion();
    void keepInserted();
    void keepUpdated();
    void changed(int row);

    TDataSet *q;
    TDataSetState state = dsInactive;
    FieldList fields;
    RowList rows;
    RowReader reader;
    Cursor cursor;
    EditedRecord edited;
    CalculatedRecord calculated;
    HeldChanges held;

    int lookAt = -1;                  // source row that hooks see instead of the current record; -1: none
    const Record *lookInto = nullptr; // a record that hooks see instead of any row
    int openings = 0;
    bool resetting = false;
    bool readOnly = false;

    std::map<int, std::function<void()>> flushers;
    int lastFlusher = 0;
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
