#include "tests/toolkit/text/settings_guard.h"

namespace {

double number(const QString &text)
{
    return StrToFloat(text);
}

QString refusal(const QString &text)
{
    return conversionError([&] { StrToFloat(text); });
}

class StrToFloatTest : public WithSettings {};

} // namespace

TEST_F(StrToFloatTest, AcceptsBothDecimalSeparatorsWhateverTheLocale)
{
    for (const QChar separator : {QChar(u'.'), QChar(u',')}) {
        FormatSettings().DecimalSeparator = separator;
        EXPECT_EQ(number(QStringLiteral("1000.50")), 1000.5);
        EXPECT_EQ(number(QStringLiteral("1000,50")), 1000.5);
        EXPECT_EQ(number(QStringLiteral("-5")), -5);
        EXPECT_EQ(number(QStringLiteral("+5,")), 5);
        EXPECT_EQ(number(QStringLiteral(",5")), 0.5);
    }
}

TEST_F(StrToFloatTest, AcceptsBlanksBetweenGroupsOfThree)
{
    EXPECT_EQ(number(QStringLiteral("1 000,50")), 1000.5);
    EXPECT_EQ(number(QStringLiteral(u"1\u00a0234\u00a0567.8")), 1234567.8);
    EXPECT_EQ(number(QStringLiteral(u"12\u202f000")), 12000);
    EXPECT_EQ(number(QStringLiteral("  42 ")), 42);
    EXPECT_EQ(number(QStringLiteral(u"\u22125,1")), -5.1);
}

TEST_F(StrToFloatTest, RefusesBlanksElsewhere)
{
    for (const char *text :
         {"1 00", "10 00", "1000 000", "1 0000", "1 000 00", "- 5", "1 ,5", "1, 5", "0,000 1"})
        EXPECT_EQ(refusal(QLatin1String(text)),
                  QStringLiteral(u"„%1“ nėra skaičius").arg(QLatin1String(text)));
}

TEST_F(StrToFloatTest, RefusesWhatIsNoNumber)
{
    for (const char *text :
         {"abc", "1,2,3", "1.000,50", "--5", "5-", "0x10", "inf", "nan", "1e", "e5", ".", "-", ","})
        EXPECT_EQ(refusal(QLatin1String(text)),
                  QStringLiteral(u"„%1“ nėra skaičius").arg(QLatin1String(text)));
    EXPECT_EQ(refusal(QString()), QStringLiteral(u"Neįvestas skaičius"));
    EXPECT_EQ(refusal(QStringLiteral("  ")), QStringLiteral(u"Neįvestas skaičius"));
}

TEST_F(StrToFloatTest, RefusesANumberThatIsNotFinite)
{
    EXPECT_EQ(refusal(QStringLiteral("1e400")), QStringLiteral(u"„1e400“ nėra skaičius"));
    EXPECT_EQ(refusal(QStringLiteral("-1e400")), QStringLiteral(u"„-1e400“ nėra skaičius"));
    EXPECT_FALSE(refusal(QString(400, u'9')).isEmpty());
}

TEST_F(StrToFloatTest, ReadsManyDigitsAsTheNearestNumber)
{
    EXPECT_EQ(number(QStringLiteral("12345678901234567890")), 12345678901234567890.0);
    EXPECT_EQ(number(QStringLiteral("0.12345678901234567890")), 0.1234567890123456789);
    EXPECT_EQ(number(QStringLiteral("1e3")), 1000);
    EXPECT_EQ(number(QStringLiteral("2.5E-3")), 0.0025);
}

TEST_F(StrToFloatTest, ReadsBackWhatThePicturesShow)
{
    FormatSettings().DecimalSeparator = u',';
    EXPECT_EQ(number(FormatFloat(QStringLiteral("#,##0.00"), -1234567.891)), -1234567.89);
}
