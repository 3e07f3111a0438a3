#include "tests/toolkit/text/settings_guard.h"
#include "toolkit/text/ansistring.h"

using namespace Qt::StringLiterals;

namespace {

class FormatTest : public WithSettings {};

std::string filled(const char *format, const QVariantList &arguments)
{
    return str(Format(QString::fromUtf8(format), arguments));
}

QString refusal(const char *format, const QVariantList &arguments)
{
    return conversionError([&] { Format(QString::fromUtf8(format), arguments); });
}

} // namespace

TEST_F(FormatTest, FillsPlaceholdersInOrder)
{
    EXPECT_EQ(filled("values (%d, %s, %d, %d) commit", {1, u"2005"_s, 0, 0}),
              "values (1, 2005, 0, 0) commit");
    EXPECT_EQ(filled("Detali eilutė Nr: %d", {7}), "Detali eilutė Nr: 7");
    EXPECT_EQ(filled("%u ir %d", {3u, -4}), "3 ir -4");
    EXPECT_EQ(filled("%.2f %f %g", {1.005, 2.0, 0.1}), "1.01 2.00 0.1");
    EXPECT_EQ(filled("100%% %s", {u"%d"_s}), "100% %d");
    EXPECT_EQ(filled("be nieko", {}), "be nieko");
}

TEST_F(FormatTest, WidthAndPrecision)
{
    EXPECT_EQ(filled("[%3d|%-3d|%.3d|%.3d]", {5, 5, 5, -5}), "[  5|5  |005|-005]");
    EXPECT_EQ(filled("[%5s|%-5s|%.2s]", {"ab", "ab", "abc"}), "[   ab|ab   |ab]");
    EXPECT_EQ(filled("%8.2f", {1.5}), "    1.50");
}

TEST_F(FormatTest, AnyValueServesAsText)
{
    EXPECT_EQ(filled("%s %s %s", {12, 1.5, QDate(2005, 6, 7)}), "12 1.5 2005.06.07");
    EXPECT_EQ(filled("„%s“", {QVariant::fromValue(AnsiString(u"žąsis"_s))}), "„žąsis“");
    EXPECT_EQ(filled("[%s]", {QVariant()}), "[]");
}

TEST_F(FormatTest, AWholeNumberPlaceholderRefusesAFloatingPointArgument)
{
    const QString text = u"Formato '%1' negalima taikyti nurodytam argumentui"_s;
    const char *used = "select f_CheckUsed('bd_einsas', 'ein_id', '%d') from dummy";
    EXPECT_EQ(refusal(used, {5.0}), text.arg(QLatin1String(used)));
    EXPECT_EQ(refusal("%u", {5.0}), text.arg(u"%u"_s));
    EXPECT_EQ(refusal("%d", {u"5"_s}), text.arg(u"%d"_s));
    EXPECT_EQ(refusal("%d", {QVariant()}), text.arg(u"%d"_s));
}

TEST_F(FormatTest, RefusesAMissingArgumentAndAnUnknownPlaceholder)
{
    EXPECT_FALSE(refusal("%s %s", {u"a"_s}).isEmpty());
    EXPECT_FALSE(refusal("%q", {1}).isEmpty());
    EXPECT_FALSE(refusal("galas %", {1}).isEmpty());
    EXPECT_FALSE(refusal("%f", {u"1.5"_s}).isEmpty());
}
