#include "toolkit/text/datetime.h"

#include <cmath>
#include <limits>

namespace {

constexpr qint64 dayLength = qint64(24) * 60 * 60 * 1000;
constexpr double firstDay = -693593; // the first day of year 1
constexpr double lastDay = 2958466;  // the first day of year 10000

QDate dayZero()
{
    return QDate(1899, 12, 30);
}

double dayNumber(QDate date)
{
    return date.isValid() ? double(dayZero().daysTo(date)) : std::numeric_limits<double>::quiet_NaN();
}

// Local time, or invalid outside the years 1 to 9999. Rounding to the millisecond may reach the next day.
QDateTime moment(double days)
{
    if (!(days >= firstDay && days < lastDay))
        return {};
    const qint64 total = std::llround(days * double(dayLength));
    const qint64 day = (total - (total < 0 ? dayLength - 1 : 0)) / dayLength;
    const QDateTime result(dayZero().addDays(day),
                           QTime::fromMSecsSinceStartOfDay(int(total - day * dayLength)));
    return result.date().year() > 9999 ? QDateTime() : result;
}

QDateTime &fixedClock()
{
    static QDateTime clock;
    return clock;
}

QDateTime currentMoment()
{
    return fixedClock().isValid() ? fixedClock() : QDateTime::currentDateTime();
}

} // namespace

TDateTime::TDateTime(QDate date) : days(dayNumber(date)) {}

TDateTime::TDateTime(const QDateTime &moment)
    : days(dayNumber(moment.toLocalTime().date()) +
           double(moment.toLocalTime().time().msecsSinceStartOfDay()) / double(dayLength))
{
}

QDate TDateTime::date() const
{
    return moment(days).date();
}

QDateTime TDateTime::dateTime() const
{
    return moment(days);
}

TDateTime Now()
{
    return TDateTime(currentMoment());
}

TDateTime Date()
{
    return TDateTime(currentMoment().toLocalTime().date());
}

void setClock(QDateTime fixed)
{
    fixedClock() = std::move(fixed);
}
