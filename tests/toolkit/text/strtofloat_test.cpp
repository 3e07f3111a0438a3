#include "tests/toolkit/text/settings_guard.h"

using namespace Qt::StringLiterals;

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
        EXPECT_EQ(number(u"1000.50"_s), 1000.5);
        EXPECT_EQ(number(u"1000,50"_s), 1000.5);
        EXPECT_EQ(number(u"-5"_s), -5);
        EXPECT_EQ(number(u"+5,"_s), 5);
        EXPECT_EQ(number(u",5"_s), 0.5);
    }
}

TEST_F(StrToFloatTest, AcceptsBlanksBetweenGroupsOfThree)
{
    EXPECT_EQ(number(u"1 000,50"_s), 1000.5);
    EXPECT_EQ(number(u"1\u00a0234\u00a0567.8"_s), 1234567.8);
    EXPECT_EQ(number(u"12\u202f000"_s), 12000);
    EXPECT_EQ(number(u"  42 "_s), 42);
    EXPECT_EQ(number(u"\u22125,1"_s), -5.1);
}

TEST_F(StrToFloatTest, RefusesBlanksElsewhere)
{
    for (const char *text :
         {"1 00", "10 00", "1000 000", "1 0000", "1 000 00", "- 5", "1 ,5", "1, 5", "0,000 1"})
        EXPECT_EQ(refusal(QLatin1String(text)), u"„%1“ nėra skaičius"_s.arg(QLatin1String(text)));
}

TEST_F(StrToFloatTest, RefusesWhatIsNoNumber)
{
    for (const char *text :
         {"abc", "1,2,3", "1.000,50", "--5", "5-", "0x10", "inf", "nan", "1e", "e5", ".", "-", ","})
        EXPECT_EQ(refusal(QLatin1String(text)), u"„%1“ nėra skaičius"_s.arg(QLatin1String(text)));
    EXPECT_EQ(refusal(QString()), u"Neįvestas skaičius"_s);
    EXPECT_EQ(refusal(u"  "_s), u"Neįvestas skaičius"_s);
}

TEST_F(StrToFloatTest, RefusesANumberThatIsNotFinite)
{
    EXPECT_EQ(refusal(u"1e400"_s), u"„1e400“ nėra skaičius"_s);
    EXPECT_EQ(refusal(u"-1e400"_s), u"„-1e400“ nėra skaičius"_s);
    EXPECT_FALSE(refusal(QString(400, u'9')).isEmpty());
}

TEST_F(StrToFloatTest, ReadsManyDigitsAsTheNearestNumber)
{
    EXPECT_EQ(number(u"12345678901234567890"_s), 12345678901234567890.0);
    EXPECT_EQ(number(u"0.12345678901234567890"_s), 0.1234567890123456789);
    EXPECT_EQ(number(u"1e3"_s), 1000);
    EXPECT_EQ(number(u"2.5E-3"_s), 0.0025);
}

TEST_F(StrToFloatTest, ReadsBackWhatThePicturesShow)
{
    FormatSettings().DecimalSeparator = u',';
    EXPECT_EQ(number(FormatFloat(u"#,##0.00"_s, -1234567.891)), -1234567.89);
}
