#pragma once

#include <QDate>
#include <QDateTime>

// A moment as a count of days, day 0 = 1899-12-30; the fraction is the time of day.
class TDateTime {
public:
    constexpr TDateTime() = default;
    constexpr explicit TDateTime(double dayCount) : days(dayCount) {}
    explicit TDateTime(QDate date);
    explicit TDateTime(const QDateTime &moment);

    constexpr double value() const { return days; }
    QDate date() const;         // invalid outside the years 1 to 9999
    QDateTime dateTime() const; // local time, to the millisecond

    friend auto operator<=>(const TDateTime &, const TDateTime &) = default; // NOLINT(modernize-use-nullptr)

private:
    double days = 0;
};

// The computer's moment and day. Tests move the clock with setClock; an empty clock is the real one.
TDateTime Now();
TDateTime Date();
void setClock(QDateTime fixed);
