#pragma once

#include "toolkit/data/database.h"

#include <vector>

// The values of one record, one for each field that is not calculated.
using Record = std::vector<Variant>;

enum class TChangeKind { Inserted, Modified, Deleted };

// A record on its way into the database.
struct TRecordChange {
    TChangeKind kind = TChangeKind::Modified;
    Record before; // as it was read; nulls for a new one
    Record now;    // as it shall be
};

// One column of a record that another station changed while it was edited here.
struct TChangedColumn {
    QString field;
    QString label; // empty when the field has none
    Variant before, theirs, own;
    QString beforeText, theirsText, ownText; // as the field shows them
};

// Whether two values are one key. Keys travel as whole numbers, as doubles holding whole values and as texts:
// 6, 6.0 and "6" are one key.
bool sameKey(const Variant &a, const Variant &b);
