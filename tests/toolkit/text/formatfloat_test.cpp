#include "tests/toolkit/text/settings_guard.h"

#include <cmath>
#include <limits>

namespace {

std::string shown(const char *picture, double value)
{
    return str(FormatFloat(QString::fromUtf8(picture), value));
}

class FormatFloatTest : public WithSettings {};

} // namespace

TEST_F(FormatFloatTest, RoundsTheDecimalValueAsShownHalfAwayFromZero)
{
    EXPECT_EQ(shown("0.00", 0.005), "0.01");
    EXPECT_EQ(shown("0.00", 1.005), "1.01");
    EXPECT_EQ(shown("0.00", 2.675), "2.68");
    EXPECT_EQ(shown("0.00", -1.005), "-1.01");
    EXPECT_EQ(shown("0.00", 0.0049), "0.00");
    EXPECT_EQ(shown("0.00", 999.995), "1000.00");
    EXPECT_EQ(shown("0.00", 0.995), "1.00");
    EXPECT_EQ(shown("0", 0.5), "1");
    EXPECT_EQ(shown("0", 2.5), "3");
    EXPECT_EQ(shown("0", 0.05), "0");
    EXPECT_EQ(shown("0.00", 1e-300), "0.00");
}

TEST_F(FormatFloatTest, ANumberThatRoundsToZeroHasNoSign)
{
    EXPECT_EQ(shown("0.00", -0.0), "0.00");
    EXPECT_EQ(shown("0.00", -0.004), "0.00");
    EXPECT_EQ(shown("#0.00", -0.0049), "0.00");
    EXPECT_EQ(shown("0.00", -0.005), "-0.01");
}

TEST_F(FormatFloatTest, ShowsThePicturesOfTheScreens)
{
    EXPECT_EQ(shown("\"Debetas: \"0.00", 1520.4), "Debetas: 1520.40");
    EXPECT_EQ(shown("\"Kreditas: \"0.00", 0), "Kreditas: 0.00");
    EXPECT_EQ(shown("#0.00", 0.5), "0.50");
    EXPECT_EQ(shown("#0.00", 12345.678), "12345.68");
    EXPECT_EQ(shown("#", 12), "12");
    EXPECT_EQ(shown("#", 0), "");
    EXPECT_EQ(shown("#.##", 0.5), ".5");
    EXPECT_EQ(shown("0.##", 3), "3");
    EXPECT_EQ(shown("0.0#", 3), "3.0");
    EXPECT_EQ(shown("000", 7), "007");
    EXPECT_EQ(shown(".00", 12.5), "12.50");
}

TEST_F(FormatFloatTest, LiteralsStandInEitherQuotesAndMayHoldTheOther)
{
    EXPECT_EQ(shown("'Suma: \"0\" '0", 5), "Suma: \"0\" 5");
    EXPECT_EQ(shown("0 'Lt; #'", 5), "5 Lt; #");
    EXPECT_EQ(shown("00-00", 1234), "12-34");
    EXPECT_EQ(shown("00-00", 123456), "1234-56");
    EXPECT_EQ(shown("0 \"be galo", 1), "1 be galo");
}

TEST_F(FormatFloatTest, SectionsServePositiveNegativeAndZero)
{
    EXPECT_EQ(shown("0.0;(0.0);'nulis'", 1.25), "1.3");
    EXPECT_EQ(shown("0.0;(0.0);'nulis'", -1.25), "(1.3)");
    EXPECT_EQ(shown("0.0;(0.0);'nulis'", 0), "nulis");
    EXPECT_EQ(shown("0.0;(0.0);'nulis'", -0.01), "nulis");
    EXPECT_EQ(shown("0.0;;'nulis'", -2), "-2.0");
    EXPECT_EQ(shown("0.0;(0.0)", 0), "0.0");
}

TEST_F(FormatFloatTest, BigValuesKeepAllTheirDigits)
{
    EXPECT_EQ(shown("0.00", 99999999999.9999), "100000000000.00");
    EXPECT_EQ(shown("0.00", 99999999999.99), "99999999999.99");
    EXPECT_EQ(shown("0.00", 1e22), "10000000000000000000000.00");
    EXPECT_EQ(shown("0", 1e300).size(), 301u);
}

TEST_F(FormatFloatTest, GroupsOfThousandsAreParted)
{
    FormatSettings().ThousandSeparator = u' ';
    EXPECT_EQ(shown("#,##0.00", 1234567.5), "1 234 567.50");
    EXPECT_EQ(shown("#,##0.00", 123), "123.00");
    EXPECT_EQ(shown("#,##0.00", -1000), "-1 000.00");
}

TEST_F(FormatFloatTest, TheDecimalSeparatorIsTheUsers)
{
    FormatSettings().DecimalSeparator = u',';
    EXPECT_EQ(shown("0.00", 1.5), "1,50");
    EXPECT_EQ(str(FloatToStr(1.5)), "1,5");
}

TEST_F(FormatFloatTest, AnEmptyPictureShowsTheShortestText)
{
    EXPECT_EQ(shown("", 0.1), "0.1");
    EXPECT_EQ(str(FloatToStr(0.1 + 0.2)), "0.30000000000000004");
    EXPECT_EQ(str(FloatToStr(-0.0)), "0");
    EXPECT_EQ(str(FloatToStr(12000)), "12000");
    EXPECT_EQ(str(FloatToStr(-1.25e-7)), "-1.25E-7");
    EXPECT_EQ(str(FloatToStr(3e20)), "3E20");
    EXPECT_EQ(str(FloatToStr(9007199254740993.0)), "9007199254740992");
}

TEST_F(FormatFloatTest, EveryShortestTextReadsBackAsTheSameNumber)
{
    for (const double value : {0.1, 1.0 / 3, 1e-5, 123456.789, 1e17, 1.7976931348623157e308,
                               2.2250738585072014e-308, -99999999999.9999})
        EXPECT_EQ(StrToFloat(FloatToStr(value)), value) << value;
}
