#pragma once

#include "toolkit/text/datetime.h"

// The date moved by a number of months; a day that the month does not have becomes its last day.
TDateTime GoMonth(TDateTime date, int months);

// A month as people read it: "2026 m. birželis".
QString PeriodText(TDateTime month);

// Month index 0 to 11 (January = 0) as quarter 1 to 4 and month of the quarter 1 to 3, and back.
struct TQuarterMonth {
    int quarter;
    int month;
};
TQuarterMonth quarterOf(int monthIndex);
int monthIndexOf(TQuarterMonth at);
