#pragma once

#include "toolkit/data/record.h"
#include "toolkit/data/row_store.h"

#include <QHash>

#include <optional>

// Changes held back until they are applied together. Rows are never overwritten where they are kept, so an
// address stands for one version of a row, and the addresses from before the first change are all that taking
// everything back needs.
class HeldChanges {
public:
    using Address = RowArena::Address;

    struct Change {
        TChangeKind kind = TChangeKind::Modified;
        Address before = 0;
        Address now = 0;
        int order = 0;                  // of the first change of its row; 0: no change
        std::optional<Address> written; // as the database made it
    };

    bool isEmpty() const { return changes.isEmpty() && deletions.empty(); }
    std::vector<Change> inOrder() const; // of the first change

    // --- a row was changed. The first one is told of all rows, further ones as they come.
    void start(const std::vector<Address> &rows);
    bool started() const { return holding; }
    void rowCame(Address row);
    void inserted(Address now);
    void modified(Address old, Address now);
    void deleted(Address row);

    // --- the change of the row with this version; null when there is none
    Change *find(Address now);

    // The rows as they were before the first change.
    const std::vector<Address> &rowsBefore() const { return before; }
    void clear() { *this = {}; }

private:
    QHash<Address, Change> changes; // by the present version of the row
    std::vector<Change> deletions;
    std::vector<Address> before;
    bool holding = false;
    int lastOrder = 0;
};
