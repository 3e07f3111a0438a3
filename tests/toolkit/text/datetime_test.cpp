#include "tests/toolkit/text/settings_guard.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

class DateTimeTest : public WithSettings {
protected:
    void TearDown() override
    {
        setClock({});
        WithSettings::TearDown();
    }
};

std::string shown(const char *picture, const QDateTime &moment)
{
    return str(FormatDateTime(QString::fromUtf8(picture), TDateTime(moment)));
}

const QDateTime teaTime(QDate(2005, 6, 7), QTime(16, 5, 9, 42));

} // namespace

TEST_F(DateTimeTest, DaysAreCountedFromTheEndOf1899)
{
    EXPECT_EQ(TDateTime(QDate(1899, 12, 30)).value(), 0);
    EXPECT_EQ(TDateTime(QDate(1998, 4, 1)).value(), 35886);
    EXPECT_EQ(TDateTime(QDate(1, 1, 1)).value(), -693593);
    EXPECT_EQ(TDateTime(38353.75).dateTime(), QDateTime(QDate(2005, 1, 1), QTime(18, 0)));
    EXPECT_EQ(TDateTime(-0.25).dateTime(), QDateTime(QDate(1899, 12, 29), QTime(18, 0)));
    EXPECT_LT(TDateTime(QDate(1899, 1, 1)), TDateTime(QDate(1899, 1, 2)));
}

TEST_F(DateTimeTest, EveryDayAndMillisecondComesBackTheSame)
{
    EXPECT_EQ(TDateTime(teaTime).dateTime(), teaTime);
    for (QDate day(2004, 1, 1); day.year() < 2006; day = day.addDays(1))
        ASSERT_EQ(TDateTime(day).date(), day);
    EXPECT_EQ(TDateTime(QDate(9999, 12, 31)).date(), QDate(9999, 12, 31));
}

TEST_F(DateTimeTest, OutsideTheYearsThereIsNoDate)
{
    EXPECT_FALSE(TDateTime(3e6).date().isValid());
    EXPECT_FALSE(TDateTime(-7e5).date().isValid());
    EXPECT_FALSE(TDateTime(2958465.9999999999).date().isValid());
    EXPECT_FALSE(TDateTime(std::numeric_limits<double>::infinity()).date().isValid());
    EXPECT_FALSE(TDateTime(QDate()).date().isValid());
    EXPECT_FALSE(conversionError([] { DateToStr(TDateTime(3e6)); }).isEmpty());
}

TEST_F(DateTimeTest, TheClockCanBeMoved)
{
    setClock(teaTime);
    EXPECT_EQ(Now().dateTime(), teaTime);
    EXPECT_EQ(Date().value(), TDateTime(QDate(2005, 6, 7)).value());
    setClock({});
    EXPECT_LE(std::abs(QDateTime::currentDateTime().secsTo(Now().dateTime())), 60);
}

TEST_F(DateTimeTest, APeriodIsShownWithItsMonthInTheNominative)
{
    const QStringList names{u"sausis"_s,   u"vasaris"_s,  u"kovas"_s,     u"balandis"_s,
                            u"gegužė"_s,   u"birželis"_s, u"liepa"_s,     u"rugpjūtis"_s,
                            u"rugsėjis"_s, u"spalis"_s,   u"lapkritis"_s, u"gruodis"_s};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(FormatDateTime(u"yyyy \"m.\" mmmm"_s, TDateTime(QDate(2005, month, 1))),
                  u"2005 m. "_s + names[month - 1]);
}

TEST_F(DateTimeTest, PicturesOfDatesAndTimes)
{
    EXPECT_EQ(shown("yyyy.mm.dd", teaTime), "2005.06.07");
    EXPECT_EQ(shown("YYYY-MM-DD", teaTime), "2005-06-07");
    EXPECT_EQ(shown("yy d m", teaTime), "05 7 6");
    EXPECT_EQ(shown("hh:nn:ss.zzz", teaTime), "16:05:09.042");
    EXPECT_EQ(shown("hh:mm", teaTime), "16:05");
    EXPECT_EQ(shown("'d. 'd", teaTime), "d. 7");
    EXPECT_EQ(shown("dddd", teaTime), "antradienis");
    EXPECT_EQ(shown("", teaTime), "2005.06.07");
}

TEST_F(DateTimeTest, OnlyTheSlashIsTheDateSeparator)
{
    FormatSettings().DateSeparator = u'-';
    EXPECT_EQ(shown("yyyy/mm/dd", teaTime), "2005-06-07");
    EXPECT_EQ(shown("yyyy.mm.dd", teaTime), "2005.06.07");
}

TEST_F(DateTimeTest, ReadsTheShortDateFormat)
{
    EXPECT_EQ(StrToDate(u"1998.04.01"_s).date(), QDate(1998, 4, 1));
    EXPECT_EQ(StrToDate(u" 2005.1.2 "_s).date(), QDate(2005, 1, 2));
    EXPECT_EQ(StrToDate(u"2004.02.29"_s).date(), QDate(2004, 2, 29));
    EXPECT_EQ(str(DateToStr(StrToDate(u"2005.01.02"_s))), "2005.01.02");
}

TEST_F(DateTimeTest, RefusesWhatIsNoDate)
{
    for (const char *text : {"", "2005", "2005.13.01", "2005.02.29", "05.01.01", "2005.01.01x", "2005-01-01",
                             "2005.01.001", "01.01.2005", "2005.01.", "2005.00.10", "0000.01.01"})
        EXPECT_EQ(conversionError([&] { StrToDate(QLatin1String(text)); }),
                  u"„%1“ nėra data"_s.arg(QLatin1String(text)));
}
