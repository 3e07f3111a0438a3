#pragma once

#include "toolkit/data/record.h"

// The record that is being edited, calculated fields left out.
struct EditedRecord {
    Record now;
    Record before; // as it was read
    bool modified = false;
    int insertedAt = -1; // model row of a new record

    void start(const Record &record)
    {
        before = now = record;
        modified = false;
    }
};
