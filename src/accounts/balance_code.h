#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <vector>

// The coding of the balance-sheet form. Each of its three sides is a sheet of lines whose kinds are chosen by
// people; the codes of the lines are made here, so that the order of the codes is the order of the lines.
namespace Balans {

enum class TBalSide { Aktyvas, Pasyvas, Uzbalansine };
constexpr int sideCount = 3;
inline constexpr std::array allSides{TBalSide::Aktyvas, TBalSide::Pasyvas, TBalSide::Uzbalansine};

enum class TBalKind { SideTotal, GroupTotal, Detail, None };

// A line as it is typed. A detail line has its accounts behind its name: "Kasa (2411, 2412)".
struct TBalLine {
    QString text;
    TBalKind kind = TBalKind::Detail;
    bool operator==(const TBalLine &) const = default;
};
using TBalSheet = std::vector<TBalLine>;

// What a coded line has attached: its code, a side letter and four characters.
struct TBalKodif {
    QString kodas;
    bool operator==(const TBalKodif &) const = default;
};
struct TBalEntry {
    QString text;
    TBalKodif kodif;
    bool operator==(const TBalEntry &) const = default;
};
using TBalList = std::vector<TBalEntry>;
using TBalForm = std::array<TBalList, sideCount>;

// Templates of the codes, five for each side: total at the top, head of a group, detail, foot of a group,
// total at the bottom.
extern const std::array<QString, 15> StrKod;

constexpr qsizetype longestName = 100;
constexpr int mostGroups = 99;
constexpr int mostDetails = 99; // in a group

// --- one line

bool hasAccounts(const QString &text);
// What stands before the first "(", to the letter; all of it when there is none.
QString nameOf(const QString &text);
// The name as it is stored: the blank with which the accounts are shown does not make it too long.
QString storedName(const QString &text);
// The account numbers of a line; blanks around them do not count, save around the first.
QStringList accountPieces(const QString &text);
// What the second database keeps for the accounts: for each of them but the last all that stand behind it.
QStringList accountRemainders(const QString &text);
// A line as it is shown: the name, and the accounts between parentheses behind a blank.
QString shownText(const QString &name, const QStringList &accounts);

// Whether an account number is in the chart.
using TKnowsAccount = std::function<bool(const QString &number)>;
// True when the line has accounts and the chart knows every one.
bool CheckSas(const QString &text, const TKnowsAccount &known);

// --- a sheet

// The side of a code; false when its letter is none.
bool sideOfCode(const QString &code, TBalSide &side);
TBalKind kindOfCode(TBalSide side, const QString &code);

// The lines of a side with their codes. Lines without a kind are left out unless they stand among details.
// Without known the accounts are not checked. Raises Exception, in words, for a sheet without a side total,
// for a detail without an account of the chart, for groups that have not exactly one total, for more groups
// or details than codes, for a side total between other lines and for a text that cannot be stored.
TBalList encodeSheet(TBalSide side, const TBalSheet &sheet, const TKnowsAccount &known);
TBalSheet decodeSheet(TBalSide side, const TBalList &list);

// Raises Exception in words when a detail line at this place, counted from 1, has no known account.
[[noreturn]] void refuseDetail(qsizetype number);

} // namespace Balans
