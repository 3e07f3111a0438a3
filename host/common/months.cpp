#include "host/common/months.h"

#include "toolkit/text/errors.h"

#include <cmath>

TDateTime GoMonth(TDateTime date, int months)
{
    const QDate moved = date.date().addMonths(months);
    if (!moved.isValid() || moved.year() < 1 || moved.year() > 9999)
        throw EConvertError(QStringLiteral("Data išeina už leistinų ribų"));
    // The fraction is the time of day, and counts forward also for days before day 0.
    const double time = std::abs(date.value() - std::trunc(date.value()));
    const double day = TDateTime(moved).value();
    return TDateTime(day < 0 ? day - time : day + time);
}

TQuarterMonth quarterOf(int monthIndex)
{
    const int quarter = monthIndex / 3 + 1;
    return {quarter, monthIndex + 1 - 3 * (quarter - 1)};
}

int monthIndexOf(TQuarterMonth at)
{
    return (at.quarter - 1) * 3 + at.month - 1;
}
