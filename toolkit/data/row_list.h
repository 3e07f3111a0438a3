#pragma once

#include "toolkit/data/record.h"
#include "toolkit/data/row_store.h"

// The rows of a data set, counted in two ways: a source row is a place in the order in which the rows came, a
// seen row counts only what passes the filter. A row that came is seen after show() only.
class RowList {
public:
    using Address = RowArena::Address;
    using Passes = std::function<bool(int source)>;

    // --- source rows
    int size() const { return int(rows.size()); }
    Address at(int source) const { return rows[size_t(source)]; }
    Variant value(int source, int field) const { return arena.value(rows[size_t(source)], field); }
    Address store(const Record &record) { return arena.append(record); } // in no row yet
    Record read(Address address, int fields) const { return arena.values(address, fields); }
    void replace(int source, Address address) { rows[size_t(source)] = address; }
    Address append(const TStatement &row, int columns);

    // --- seen rows
    int seenCount() const { return filtered() ? int(visible.size()) : shown; }
    int sourceOf(int seen) const { return filtered() ? visible[size_t(seen)] : seen; }
    int firstSeenFrom(int source) const; // the first seen row that is not before this source row
    void insert(int seen, Address address);
    void erase(int seen);
    void hide(int seen);

    // Rows that came since the last show(): how many of them will be seen, then seeing them.
    int countNew();
    void show();

    // --- the filter. It is asked about source rows.
    bool filtered() const { return bool(passes); }
    bool passesFilter(int source) const { return !passes || passes(source); }
    void setFilter(Passes filter); // all rows that were shown are asked anew

    const std::vector<Address> &all() const { return rows; }
    void restore(const std::vector<Address> &before); // all of them are shown
    void clear();

private:
    void refilter();

    RowArena arena;
    std::vector<Address> rows;
    std::vector<int> visible;  // source rows that pass the filter; only with a filter
    std::vector<int> upcoming; // of the rows that came, those that pass
    int shown = 0;
    Passes passes;
};
