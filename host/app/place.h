#pragma once

#include <QString>

// A place of the program: one of its entries, and the row or the node that it is to stand on.
struct TPlace {
    QString screen; // the name of the entry; empty: nowhere
    double key = 0; // 0: as it opens

    bool isSomewhere() const { return !screen.isEmpty(); }
    bool operator==(const TPlace &) const = default;
};
