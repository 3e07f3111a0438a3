#pragma once

#include "toolkit/data/statement.h"

#include <memory>
#include <vector>

// Rows kept encoded one behind the other in large pieces of memory. A row is written once and never changed,
// so its address stands for this very version of the row until clear().
//
// A cell takes one byte for a null and for a truth, one byte and its text for a text of up to 245 bytes, two
// to ten bytes for a whole number, nine for another number.
class RowArena {
public:
    using Address = quint32;

    // Both raise EDatabaseError when the arena is full (16 GB).
    Address append(const TStatement &row, int columns);
    Address append(const std::vector<Variant> &values);

    Variant value(Address row, int column) const;
    std::vector<Variant> values(Address row, int columns) const;

    void clear();
    qsizetype encodedBytes() const { return used; }

private:
    Address store(const QByteArray &encoded);
    const char *at(Address row) const;

    std::vector<std::unique_ptr<char[]>>
        pieces; // a row larger than a slot takes several; the first one holds it
    qsizetype slotFill = 0;
    qsizetype used = 0;
    QByteArray scratch;
};
