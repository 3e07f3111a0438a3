#include "src/accounts/balance_keys.h"
#include "tests/src/accounts/sheets.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace Balans;

namespace {

// A line in which "|" stands where the caret is.
TCaretLine at(const char *line, TBalKind kind = TBalKind::Detail, bool isLast = false)
{
    QString text = QString::fromUtf8(line);
    const qsizetype caret = text.indexOf(u'|');
    return {{text.remove(caret, 1), kind}, caret + 1, isLast};
}

constexpr auto total = TBalKind::SideTotal;
constexpr auto groupTotal = TBalKind::GroupTotal;

struct CharacterCase {
    const char *line;
    char16_t typed;
    TKeyAct act;
};

QString inserted(const TCaretLine &caret, const QString &text, int leftOut = 0)
{
    int left = 0;
    const QString taken = insertable(
        caret, text, [](const QString &number) { return number == u"2411"; }, left);
    EXPECT_EQ(left, leftOut) << qPrintable(text);
    return taken;
}

// A line with the part between the bars removed, as a selection is.
QString without(const char *line)
{
    QString text = QString::fromUtf8(line);
    const qsizetype from = text.indexOf(u'|');
    const qsizetype to = text.lastIndexOf(u'|') - 1;
    text.remove(u'|');
    const TRange range = removalWithin({text, TBalKind::Detail}, {from, to});
    return text.remove(range.from, range.to - range.from);
}

} // namespace

TEST(Enter, SplitsNoLine)
{
    EXPECT_EQ(actOfEnter(at("Ka|sa")), TKeyAct::Swallow);
    EXPECT_EQ(actOfEnter(at("Kas|a")), TKeyAct::Swallow);
    EXPECT_EQ(actOfEnter(at("|Kasa")), TKeyAct::Pass);
    EXPECT_EQ(actOfEnter(at("Kasa|")), TKeyAct::Pass);
    EXPECT_EQ(actOfEnter(at("|")), TKeyAct::Pass);
}

TEST(Enter, AddsNothingBehindTheTotalAtTheBottom)
{
    EXPECT_EQ(actOfEnter(at("Turtas|", total, true)), TKeyAct::Swallow);
    EXPECT_EQ(actOfEnter(at("|", total, true)), TKeyAct::Swallow);
    EXPECT_EQ(actOfEnter(at("|Turtas", total, true)), TKeyAct::Pass);
    EXPECT_EQ(actOfEnter(at("Turtas|", total, false)), TKeyAct::Pass);
    EXPECT_EQ(actOfEnter(at("Grupė|", groupTotal, true)), TKeyAct::Pass);
}

TEST(Characters, DoAsTabled)
{
    using enum TKeyAct;
    const CharacterCase cases[] = {
        {"Kasa|", u'(', FirstAccount},
        {"|", u'(', FirstAccount},
        {"Ka|sa", u'(', FirstAccount},
        {"Ka|sa (2411)", u'(', Swallow},
        {"Kasa (2411|", u')', CloseList},
        {"|Kasa (2411", u')', CloseList},
        {"Kasa (2411)|", u')', Swallow},
        {"Kasa|", u')', Swallow},
        {"Kasa|", u',', Swallow},
        {"Kasa| (2411)", u',', Pass},
        {"Kasa |(2411)", u',', Pass},
        {"Kasa (2411|)", u',', NextAccount},
        {"Kasa (2411|, 2412)", u',', NextAccount},
        {"Kasa (24|11)", u',', Swallow},
        {"Kasa (|2411)", u',', Swallow},
        {"Kasa (2411,| 2412)", u',', Swallow},
        {"Kasa (2411)|", u',', Swallow},
        {"Kasa (2411) 9|)", u',', Swallow},
        {"Kasa) (2411|)", u',', NextAccount},
        {"Kasa (2411|", u',', Swallow},
        {"Kasa|", u'x', Pass},
        {"Kasa |(2411)", u'x', Pass},
        {"Kasa (|2411)", u'x', Swallow},
        {"Kasa (2411)|", u'9', Swallow},
    };
    for (const CharacterCase &each : cases)
        EXPECT_EQ(actOfCharacter(at(each.line), each.typed), each.act)
            << each.line << ' ' << char(each.typed);
}

TEST(Characters, WithoutAShapeOfTheirOwnAreNotTyped)
{
    for (const char16_t typed : {u'\n', u'\t', u'\u200d', u'\u00ad', u'\xd83d', u'\xde00', u'\ue000'})
        for (const TBalKind kind : {TBalKind::Detail, total})
            EXPECT_EQ(actOfCharacter(at("Kasa|", kind), typed), TKeyAct::Swallow) << int(typed);
}

TEST(Characters, OfTotalsAreFreeButForParentheses)
{
    for (const TBalKind kind : {total, groupTotal}) {
        EXPECT_EQ(actOfCharacter(at("Turtas|", kind), u'('), TKeyAct::Swallow);
        EXPECT_EQ(actOfCharacter(at("Turtas|", kind), u')'), TKeyAct::Swallow);
        EXPECT_EQ(actOfCharacter(at("Turtas|", kind), u','), TKeyAct::Pass);
        EXPECT_EQ(actOfCharacter(at("Turtas (2|", kind), u'x'), TKeyAct::Pass);
    }
}

TEST(Removing, JoinsNoLines)
{
    EXPECT_EQ(actOfBackspace(at("|Kasa")), TKeyAct::Swallow);
    EXPECT_EQ(actOfDelete(at("Kasa|")), TKeyAct::Swallow);
    EXPECT_EQ(actOfBackspace(at("|")), TKeyAct::Pass);
    EXPECT_EQ(actOfDelete(at("|")), TKeyAct::Pass);
    EXPECT_EQ(actOfBackspace(at("Kasa|")), TKeyAct::Pass);
    EXPECT_EQ(actOfDelete(at("|Kasa")), TKeyAct::Pass);
}

TEST(Removing, TakesTheAccountsAsAWhole)
{
    EXPECT_EQ(actOfBackspace(at("Kasa (24|11)")), TKeyAct::DropAccounts);
    EXPECT_EQ(actOfBackspace(at("Kasa (2411)|")), TKeyAct::DropAccounts);
    EXPECT_EQ(actOfBackspace(at("Kasa |(2411)")), TKeyAct::DropAccounts);
    EXPECT_EQ(actOfBackspace(at("Kasa| (2411)")), TKeyAct::Pass);
    EXPECT_EQ(actOfDelete(at("Kasa (|2411)")), TKeyAct::DropAccounts);
    EXPECT_EQ(actOfDelete(at("Kasa |(2411)")), TKeyAct::DropAccounts);
    EXPECT_EQ(actOfDelete(at("Kasa| (2411)")), TKeyAct::DropAccounts);
    EXPECT_EQ(actOfDelete(at("Kas|a (2411)")), TKeyAct::Pass);
    EXPECT_EQ(actOfBackspace(at("Turtas (2|", total)), TKeyAct::Pass);
}

TEST(Removing, OfASelectionTakesTheAccountsItTouches)
{
    EXPECT_EQ(without("K|as|a (2411)"), u"Ka (2411)"_s);
    EXPECT_EQ(without("K|asa |(2411)"), u"K(2411)"_s);
    EXPECT_EQ(without("K|asa (|2411)"), u"K"_s);
    EXPECT_EQ(without("Kasa (24|1|1)"), u"Kasa "_s);
    EXPECT_EQ(without("Kasa (24||11)"), u"Kasa (2411)"_s);
}

TEST(Removing, OfSeveralLinesKeepsAtMostOneOfThem)
{
    const TBalLine first{u"Kasa (2411)"_s, TBalKind::Detail};
    const TBalLine last{u"Turtas"_s, total};
    const auto left = [&](qsizetype from, qsizetype to) -> QString {
        const auto removal = removalAcross(first, last, {from, to});
        if (!removal)
            return u"refused"_s;
        return first.text.left(removal->range.from) + u'/' + last.text.mid(removal->range.to) +
               (removal->kind == total ? u" total"_s : u" detail"_s);
    };
    EXPECT_EQ(left(0, 0), u"/Turtas total"_s);
    EXPECT_EQ(left(0, 3), u"/tas total"_s);
    EXPECT_EQ(left(0, 6), u"/ detail"_s);
    EXPECT_EQ(left(11, 6), u"Kasa (2411)/ detail"_s);
    EXPECT_EQ(left(2, 6), u"Ka/ detail"_s);
    EXPECT_EQ(left(8, 6), u"Kasa / detail"_s);
    EXPECT_EQ(left(2, 3), u"refused"_s);
    EXPECT_EQ(left(11, 0), u"refused"_s);
    const auto intoAccounts = removalAcross(last, first, {0, 7});
    ASSERT_TRUE(intoAccounts);
    EXPECT_EQ(intoAccounts->range.to, first.text.size());
}

TEST(Pasting, GoesByTheRulesOfTyping)
{
    EXPECT_EQ(inserted(at("Kasa|"), u" ir bankas"_s), u" ir bankas"_s);
    EXPECT_EQ(inserted(at("Kasa|"), u" (ir), bankas"_s, 3), u" ir bankas"_s);
    EXPECT_EQ(inserted(at("Kasa| (2411)"), u", bankas"_s), u", bankas"_s);
    EXPECT_EQ(inserted(at("Kasa (2411)|"), u"99"_s, 2), QString());
    EXPECT_EQ(inserted(at("Turtas|", total), u", iš viso (Lt)"_s, 2), u", iš viso Lt"_s);
    EXPECT_EQ(inserted(at("|"), u"a\tb\x01"_s, 1), u"a b"_s);
}

TEST(Pasting, BringsAccountsThatAreInTheChart)
{
    EXPECT_EQ(inserted(at("|"), u"Kasa, bankas (2411)\t"_s), u"Kasa, bankas (2411)"_s);
    EXPECT_EQ(inserted(at("Ka|"), u"sa(2411)"_s), u"sa(2411)"_s);
    EXPECT_EQ(inserted(at("|"), u"Kasa (9999)"_s, 2), u"Kasa 9999"_s);
    EXPECT_EQ(inserted(at("|"), u"Kasa (2411"_s, 1), u"Kasa 2411"_s);
    EXPECT_EQ(inserted(at("|Kasa"), u"Kasa (2411)"_s, 2), u"Kasa 2411"_s) << "not in front of a name";
    EXPECT_EQ(inserted(at("|", total), u"Kasa (2411)"_s, 2), u"Kasa 2411"_s) << "not in a total";
    EXPECT_EQ(inserted(at("Kasa |(2411)"), u"(2411)"_s, 2), u"2411"_s) << "not a second time";
}
