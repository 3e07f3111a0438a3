#pragma once

#include "src/accounts/balance_code.h"

#include <optional>

// What keys may do on a sheet of the balance-sheet form. Names are typed; the accounts behind them come from
// the picker and go as a whole; lines are never split nor joined.
namespace Balans {

// The line in which the caret stands. Columns are counted from 1: the caret at the end stands in the column
// behind the last character.
struct TCaretLine {
    TBalLine line;
    qsizetype column = 1;
    bool isLast = false; // of the sheet

    bool atEnd() const { return column > line.text.size(); }
    // The column of the first "(" of a detail line; 0 when it has none, and on totals.
    qsizetype accountsColumn() const;
};

enum class TKeyAct {
    Pass,         // the key does what it does in any text
    Swallow,      // nothing happens
    FirstAccount, // the picker; "(" and the account and ")" go to the end of the line
    NextAccount,  // the picker; ", " and the account go to the caret
    CloseList,    // ")" goes to the end of the line
    DropAccounts, // all from the "(" on goes
};

TKeyAct actOfEnter(const TCaretLine &caret);
// What has no shape of its own, half a sign of two code units among it, is never typed.
TKeyAct actOfCharacter(const TCaretLine &caret, QChar typed);
TKeyAct actOfBackspace(const TCaretLine &caret);
TKeyAct actOfDelete(const TCaretLine &caret);

// What of a text without line ends goes in at the caret, as if it were typed. A text that ends in accounts of
// the chart goes in as it is at the end of a detail line without any. leftOut grows by the characters that
// may not be typed there.
QString insertable(TCaretLine caret, const QString &text, const TKnowsAccount &known, int &leftOut);

// A range to be removed: from so many characters of its first line up to so many of its last one.
struct TRange {
    qsizetype from = 0;
    qsizetype to = 0;
};
// The range within a line with all of the line's accounts in it when it touches them.
TRange removalWithin(const TBalLine &line, TRange range);
// A range over several lines likewise, and the kind of the line that is left. Nothing when the rests of two
// lines would be joined.
struct TRemoval {
    TRange range;
    TBalKind kind = TBalKind::Detail;
};
std::optional<TRemoval> removalAcross(const TBalLine &first, const TBalLine &last, TRange range);

} // namespace Balans
