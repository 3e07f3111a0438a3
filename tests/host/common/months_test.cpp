#include "host/common/months.h"
#include "toolkit/text/errors.h"

#include <gtest/gtest.h>

namespace {
QDate moved(QDate from, int months)
{
    return GoMonth(TDateTime(from), months).date();
}
} // namespace

TEST(PeriodText, NamesYearAndMonth)
{
    EXPECT_EQ(PeriodText(TDateTime(QDate(2026, 6, 1))), QStringLiteral("2026 m. birželis"));
}

TEST(GoMonth, MovesForwardAndBackOverTheYear)
{
    EXPECT_EQ(moved(QDate(2004, 12, 1), 1), QDate(2005, 1, 1));
    EXPECT_EQ(moved(QDate(2005, 1, 1), -1), QDate(2004, 12, 1));
    EXPECT_EQ(moved(QDate(2005, 1, 1), -25), QDate(2002, 12, 1));
    EXPECT_EQ(moved(QDate(2005, 5, 17), 0), QDate(2005, 5, 17));
}

TEST(GoMonth, ADayThatTheMonthLacksBecomesItsLast)
{
    EXPECT_EQ(moved(QDate(2004, 1, 31), 1), QDate(2004, 2, 29));
    EXPECT_EQ(moved(QDate(2005, 1, 31), 1), QDate(2005, 2, 28));
    EXPECT_EQ(moved(QDate(2005, 8, 31), 1), QDate(2005, 9, 30));
}

TEST(GoMonth, KeepsTheTimeOfDayAlsoBeforeDayZero)
{
    const double later = TDateTime(QDate(2005, 2, 1)).value();
    EXPECT_DOUBLE_EQ(GoMonth(TDateTime(TDateTime(QDate(2005, 1, 1)).value() + 0.25), 1).value(),
                     later + 0.25);
    const double early = TDateTime(QDate(1890, 2, 1)).value();
    EXPECT_DOUBLE_EQ(GoMonth(TDateTime(TDateTime(QDate(1890, 1, 1)).value() - 0.25), 1).value(),
                     early - 0.25);
}

TEST(GoMonth, RefusesToLeaveTheCalendar)
{
    EXPECT_THROW(moved(QDate(9999, 12, 1), 1), EConvertError);
}

TEST(Months, IndexAndQuarterAgreeForTheWholeYear)
{
    const int quarters[] = {1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4};
    for (int index = 0; index < 12; ++index) {
        const TQuarterMonth at = quarterOf(index);
        EXPECT_EQ(at.quarter, quarters[index]);
        EXPECT_EQ(at.month, index % 3 + 1);
        EXPECT_EQ(monthIndexOf(at), index);
    }
}
