#pragma once

#include <algorithm>

// Where a data set stands: a model row, -1 when there is none, and whether it ran against an end.
struct Cursor {
    int row = -1;
    bool bof = true;
    bool eof = true;

    void put(int where)
    {
        row = where;
        bof = eof = row < 0;
    }

    // On a row that exists, as near as possible.
    void settle(int count)
    {
        row = std::clamp(row, std::min(0, count - 1), count - 1);
        bof = row <= 0;
        eof = row < 0;
    }
};
