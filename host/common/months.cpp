#include "host/common/months.h"

#include "toolkit/text/errors.h"
#include "toolkit/text/format.h"

#include <cmath>

TDateTime GoMonth(TDateTime date, int months)
{
    const QDate moved = date.date().addMonths(months);
    if (!moved.isValid() || moved.year() < 1 || moved.year() > 9999)
        throw EConvertError(QStringLiteral("Data išeina už leistinų ribų"));
    const double timeOfDay = date.value() - std::floor(date.value());
    return TDateTime(TDateTime(moved).value() + timeOfDay);
}

QString PeriodText(TDateTime month)
{
    return FormatDateTime(QStringLiteral("yyyy \"m.\" mmmm"), month);
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
