#include "tests/src/accounts/sheets.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace Balans;

namespace {

constexpr char tooMany[] = "Perdaug suminiu eilučiu";
constexpr char noTotal[] = "Truksta lapo suminės eilutes!";
constexpr char between[] = "Lapo suminė eilutė gali būti tik pirma arba paskutinė";

struct Case {
    const char *name;
    const char *lines;
    const char *codes; // or the refusal
};

constexpr Case cases[] = {
    {"TotalAlone", "S", "A0000"},
    {"TotalAtTheTop", "S D G", "A0000 A0101 A01AA"},
    {"TotalAtTheBottom", "D G S", "A0101 A01AA AAAAA"},
    {"TotalAtBothEnds", "S D G S", "A0000 A0101 A01AA AAAAA"},
    {"GroupTotalBeforeTwoDetails", "G D D S", "A0100 A0101 A0102 AAAAA"},
    {"GroupTotalAfterTwoDetails", "D D G S", "A0101 A0102 A01AA AAAAA"},
    {"HeadsOfTwoGroups", "S G D G D D", "A0000 A0100 A0101 A0200 A0201 A0202"},
    {"FeetOfTwoGroups", "S D G D D G", "A0000 A0101 A01AA A0201 A0202 A02AA"},
    {"FootThenHead", "S D G G D", "A0000 A0101 A01AA A0200 A0201"},
    {"HeadThenFoot", "S G D G D G D G", tooMany},
    {"HeadAndFootOfOneGroup", "S G D G", tooMany},
    {"TwoGroupTotalsInARow", "G G D S", tooMany},
    {"TwoFeetInARow", "D G G S", tooMany},
    {"DetailsWithoutATotal", "S D D", tooMany},
    {"GroupTotalWithoutDetails", "S G", tooMany},
    {"NoLines", "", noTotal},
    {"NoSideTotal", "G D", noTotal},
    {"NoSideTotalAndTooManyTotals", "G G D", noTotal},
    {"SideTotalBetweenGroups", "D G S D G", between},
    {"SideTotalInsideAGroup", "G S D", between},
    {"TwoSideTotalsAtTheBottom", "D G S S", between},
    {"TwoSideTotalsAtTheTop", "S S D G", between},
    {"GroupsInterruptedByATotal", "G G D S D", between},
    {"LineWithoutKindIsDropped", "S ? G D", "A0000 A0100 A0101"},
    {"LineWithoutKindBehindAGroupIsDropped", "D G ? S", "A0101 A01AA AAAAA"},
};

class Codes : public testing::TestWithParam<Case> {};
INSTANTIATE_TEST_SUITE_P(, Codes, testing::ValuesIn(cases),
                         [](const testing::TestParamInfo<Case> &each) { return each.param.name; });

// So many groups of one detail each, totals at their feet, and the side's total.
TBalSheet groups(int count)
{
    TBalSheet sheet = sheetOf(u"S"_s);
    for (int i = 0; i < count; ++i)
        for (const TBalLine &line : sheetOf(u"D G"_s))
            sheet.push_back(line);
    return sheet;
}

TBalSheet details(int count)
{
    TBalSheet sheet = sheetOf(u"S G"_s);
    sheet.resize(std::size_t(2 + count), sheetOf(u"D"_s).front());
    return sheet;
}

bool knowsTwo(const QString &number)
{
    return number == u"2411" || number == u"2412";
}

TBalSheet withDetail(const QString &text, TBalKind kind = TBalKind::Detail)
{
    return {{u"Turtas"_s, TBalKind::SideTotal}, {u"Grupė"_s, TBalKind::GroupTotal}, {text, kind}};
}

} // namespace

TEST_P(Codes, AreAsTabled)
{
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, sheetOf(QString::fromUtf8(GetParam().lines))),
              QString::fromUtf8(GetParam().codes));
}

TEST(CodesOfSides, HaveTheLetterOfTheSide)
{
    EXPECT_EQ(codesOf(TBalSide::Pasyvas, sheetOf(u"S G D D S"_s)), u"P0000 P0100 P0101 P0102 PPPPP"_s);
    EXPECT_EQ(codesOf(TBalSide::Pasyvas, sheetOf(u"D G S"_s)), u"P0101 P01PP PPPPP"_s);
    EXPECT_EQ(codesOf(TBalSide::Uzbalansine, sheetOf(u"D G S"_s)), u"U0101 U01UU UUUUU"_s);
}

TEST(CodesOfGroups, TheNinthIsWrittenWithANoughtAndTheTenthWithout)
{
    const QStringList codes = codesOf(TBalSide::Aktyvas, groups(10)).split(u' ');
    EXPECT_EQ(codes.mid(17, 4), (QStringList{u"A0901"_s, u"A09AA"_s, u"A1001"_s, u"A10AA"_s}));
}

TEST(CodesOfGroups, NinetyNineAreTakenAndAHundredRefused)
{
    EXPECT_TRUE(codesOf(TBalSide::Aktyvas, groups(99)).endsWith(u" A9901 A99AA"));
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, groups(100)),
              u"Balanso lape gali būti ne daugiau kaip 99 grupės (eilutė Nr: 200)"_s);
}

TEST(CodesOfGroups, AHundredthGroupWithItsTotalAtTheHeadIsRefused)
{
    TBalSheet sheet = groups(99);
    for (const TBalLine &line : sheetOf(u"G D"_s))
        sheet.push_back(line);
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, sheet),
              u"Balanso lape gali būti ne daugiau kaip 99 grupės (eilutė Nr: 200)"_s);
}

TEST(CodesOfDetails, NinetyNineAreTakenAndAHundredRefused)
{
    EXPECT_TRUE(codesOf(TBalSide::Aktyvas, details(99)).endsWith(u" A0198 A0199"));
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, details(100)),
              u"Grupėje gali būti ne daugiau kaip 99 detalios eilutės (eilutė Nr: 102)"_s);
}

TEST(CodesOfDetails, ALineWithoutKindAmongThemIsOne)
{
    TBalSheet sheet = sheetOf(u"S G D"_s);
    sheet.push_back({u"Be rūšies (1)"_s, TBalKind::None});
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, sheet), u"A0000 A0100 A0101 A0102"_s);
    sheet.back().text = u"Be sąskaitos"_s;
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, sheet),
              u"Detali eilutė Nr: 4 neturi sąskaitos arba esama sąskaita neegzistuoja"_s);
}

TEST(AccountsOfADetail, MustAllBeInTheChart)
{
    const auto refused = u"Detali eilutė Nr: 3 neturi sąskaitos arba esama sąskaita neegzistuoja"_s;
    const auto told = [](const QString &text) {
        return codesOf(TBalSide::Aktyvas, withDetail(text), knowsTwo);
    };
    const auto taken = u"A0000 A0100 A0101"_s;
    EXPECT_EQ(told(u"Bankas (2411)"_s), taken);
    EXPECT_EQ(told(u"Bankas(2411, 2412)"_s), taken);
    EXPECT_EQ(told(u"Bankas (2411,  2412 )"_s), taken);
    EXPECT_EQ(told(u"Bankas (2411"_s), taken) << "the closing parenthesis may be missing";
    EXPECT_EQ(told(u"Bankas"_s), refused);
    EXPECT_EQ(told(u""_s), refused);
    EXPECT_EQ(told(u"Bankas ()"_s), refused);
    EXPECT_EQ(told(u"Bankas ( 2411)"_s), refused) << "blanks count around the first number";
    EXPECT_EQ(told(u"Bankas (2411, 9999)"_s), refused);
    EXPECT_EQ(told(u"Bankas (9999, 2411)"_s), refused);
    EXPECT_EQ(told(u"Bankas (2411,)"_s), refused);
    EXPECT_EQ(told(u"Bankas (2411) ir kasa"_s), refused);
}

TEST(AccountsOfADetail, AreNotLookedUpWhereThereIsNoChart)
{
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, withDetail(u"Bankas"_s), {}), u"A0000 A0100 A0101"_s);
}

TEST(AccountsOfADetail, StandBehindTheName)
{
    EXPECT_EQ(nameOf(u"Bankas (2411) (2)"_s), u"Bankas "_s);
    EXPECT_EQ(nameOf(u"Bankas"_s), u"Bankas"_s);
    EXPECT_EQ(shownText(u"Bankas"_s, {u"2411"_s, u"2412"_s}), u"Bankas (2411, 2412)"_s);
    EXPECT_EQ(shownText(u"Bankas "_s, {u"2411"_s}), u"Bankas (2411)"_s);
    EXPECT_EQ(shownText(u"Bankas"_s, {}), u"Bankas"_s);
    EXPECT_EQ(shownText({}, {u"2411"_s}), u" (2411)"_s);
}

TEST(AccountsOfADetail, TheSecondDatabaseKeepsWhatStandsBehindEach)
{
    EXPECT_EQ(accountRemainders(u"Bankas (2411, 2412, 2413)"_s),
              (QStringList{u"2412, 2413"_s, u"2413"_s, u"2413"_s}));
    EXPECT_EQ(accountRemainders(u"Bankas (2411)"_s), QStringList{u"2411"_s});
    EXPECT_EQ(accountRemainders(u"Bankas (, 2411)"_s), (QStringList{u"2411"_s, u"2411"_s}));
}

TEST(TextsOfLines, LongerThanTheirColumnAreRefused)
{
    const QString longest(100, u'ž');
    const auto told = [](const QString &text, TBalKind kind = TBalKind::Detail) {
        return codesOf(TBalSide::Aktyvas, withDetail(text, kind),
                       kind == TBalKind::Detail ? knowsTwo : knowsAll);
    };
    const auto refused = u"Eilutė Nr: 3 ilgesnė kaip 100 ženklų"_s;
    EXPECT_EQ(told(longest + u"(2411)"_s), u"A0000 A0100 A0101"_s);
    EXPECT_EQ(told(longest + u" (2411)"_s), u"A0000 A0100 A0101"_s) << "as it is shown";
    EXPECT_EQ(storedName(longest + u" (2411)"_s), longest);
    EXPECT_EQ(told(longest + u"  (2411)"_s), refused);
    EXPECT_EQ(told(longest + u"ž(2411)"_s), refused);
    TBalSheet sheet = sheetOf(u"S"_s);
    sheet.front().text = longest + u' ';
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, sheet), u"Eilutė Nr: 1 ilgesnė kaip 100 ženklų"_s);
}

TEST(TextsOfLines, OutsideTheCodePageAreRefusedWithTheSign)
{
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, withDetail(u"Bankas → (1)"_s)),
              u"Eilutėje Nr: 3 yra ženklas „→“, kurio negalima įrašyti"_s);
    EXPECT_EQ(codesOf(TBalSide::Aktyvas, withDetail(u"Bankas \U0001F4B6 (1)"_s)),
              u"Eilutėje Nr: 3 yra ženklas „\U0001F4B6“, kurio negalima įrašyti"_s);
}

TEST(KindsOfLines, FollowFromTheirCodes)
{
    for (const TBalSide side : allSides) {
        const std::size_t first = std::size_t(side) * 5;
        EXPECT_EQ(kindOfCode(side, StrKod[first]), TBalKind::SideTotal);
        EXPECT_EQ(kindOfCode(side, StrKod[first + 1]), TBalKind::GroupTotal);
        EXPECT_EQ(kindOfCode(side, StrKod[first + 2]), TBalKind::Detail);
        EXPECT_EQ(kindOfCode(side, StrKod[first + 3]), TBalKind::GroupTotal);
        EXPECT_EQ(kindOfCode(side, StrKod[first + 4]), TBalKind::SideTotal);
    }
    EXPECT_EQ(kindOfCode(TBalSide::Aktyvas, u"A0001"_s), TBalKind::Detail);
    EXPECT_EQ(kindOfCode(TBalSide::Aktyvas, u"AAA00"_s), TBalKind::Detail);
}

TEST(SidesOfCodes, FollowFromTheFirstLetter)
{
    TBalSide side{};
    EXPECT_TRUE(sideOfCode(u"P0101"_s, side));
    EXPECT_EQ(side, TBalSide::Pasyvas);
    EXPECT_FALSE(sideOfCode(u"X0101"_s, side));
    EXPECT_FALSE(sideOfCode({}, side));
}
