#pragma once

#include "toolkit/text/datetime.h"

// Holds the program's clock still while it lives.
class ClockAt {
public:
    explicit ClockAt(const QDateTime &moment) { setClock(moment); }
    explicit ClockAt(QDate day) : ClockAt(QDateTime(day, QTime(12, 0))) {}
    ~ClockAt() { setClock({}); }
    ClockAt(const ClockAt &) = delete;
    ClockAt &operator=(const ClockAt &) = delete;
};
