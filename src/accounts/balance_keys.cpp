#include "src/accounts/balance_keys.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Balans {

namespace {

// Where the accounts of a line begin, counted from 0; -1 when it has none, and on totals.
qsizetype accountsAt(const TBalLine &line)
{
    return line.kind == TBalKind::Detail ? line.text.indexOf(u'(') : -1;
}

// Between the parentheses, behind a number that ends there.
bool isBehindNumber(const TCaretLine &caret)
{
    const QString &text = caret.line.text;
    const qsizetype closing = text.indexOf(u')', accountsAt(caret.line));
    if (caret.atEnd() || (closing >= 0 && caret.column > closing + 1))
        return false;
    const QChar behind = text.at(caret.column - 1);
    return text.at(caret.column - 2).isDigit() && (behind == u')' || behind == u',');
}

TKeyAct actOfComma(const TCaretLine &caret)
{
    const qsizetype accounts = caret.accountsColumn();
    if (accounts > 0 && caret.column <= accounts)
        return TKeyAct::Pass;
    return accounts > 0 && isBehindNumber(caret) ? TKeyAct::NextAccount : TKeyAct::Swallow;
}

// A key that would take the line's end.
TKeyAct actAtTheEdge(const TCaretLine &caret)
{
    return caret.line.text.isEmpty() ? TKeyAct::Pass : TKeyAct::Swallow;
}

// A key that takes a character, and with it the accounts when they begin up to this column.
TKeyAct actInside(const TCaretLine &caret, qsizetype upTo)
{
    const qsizetype accounts = caret.accountsColumn();
    return accounts > 0 && accounts <= upTo ? TKeyAct::DropAccounts : TKeyAct::Pass;
}

bool bringsAccounts(const TCaretLine &caret, const QString &text, const TKnowsAccount &known)
{
    return caret.line.kind == TBalKind::Detail && accountsAt(caret.line) < 0 && caret.atEnd() &&
           text.endsWith(u')') && CheckSas(text, known);
}

} // namespace

qsizetype TCaretLine::accountsColumn() const
{
    return accountsAt(line) + 1;
}

TKeyAct actOfEnter(const TCaretLine &caret)
{
    const bool isInside = caret.column > 1 && !caret.atEnd();
    const bool isBehindTheTotal = caret.isLast && caret.atEnd() && caret.line.kind == TBalKind::SideTotal;
    return isInside || isBehindTheTotal ? TKeyAct::Swallow : TKeyAct::Pass;
}

TKeyAct actOfCharacter(const TCaretLine &caret, QChar typed)
{
    const bool isDetail = caret.line.kind == TBalKind::Detail;
    const qsizetype accounts = caret.accountsColumn();
    if (!typed.isPrint())
        return TKeyAct::Swallow;
    if (typed == u'(')
        return isDetail && accounts == 0 ? TKeyAct::FirstAccount : TKeyAct::Swallow;
    if (typed == u')')
        return accounts > 0 && !caret.line.text.contains(u')') ? TKeyAct::CloseList : TKeyAct::Swallow;
    if (typed == u',' && isDetail)
        return actOfComma(caret);
    return accounts == 0 || caret.column <= accounts ? TKeyAct::Pass : TKeyAct::Swallow;
}

TKeyAct actOfBackspace(const TCaretLine &caret)
{
    return caret.column == 1 ? actAtTheEdge(caret) : actInside(caret, caret.column);
}

TKeyAct actOfDelete(const TCaretLine &caret)
{
    return caret.atEnd() ? actAtTheEdge(caret) : actInside(caret, caret.column + 1);
}

QString insertable(TCaretLine caret, const QString &text, const TKnowsAccount &known, int &leftOut)
{
    if (const QString whole = text.trimmed(); bringsAccounts(caret, whole, known))
        return whole;
    QString taken;
    for (QChar typed : text) {
        if (typed == u'\t')
            typed = u' ';
        if (actOfCharacter(caret, typed) != TKeyAct::Pass) {
            ++leftOut;
            continue;
        }
        taken += typed;
        caret.line.text.insert(caret.column++ - 1, typed);
    }
    return taken;
}

TRange removalWithin(const TBalLine &line, TRange range)
{
    const qsizetype accounts = accountsAt(line);
    if (accounts < 0 || range.to <= accounts || range.from == range.to)
        return range;
    return {std::min(range.from, accounts), line.text.size()};
}

std::optional<TRemoval> removalAcross(const TBalLine &first, const TBalLine &last, TRange range)
{
    const TRange ofFirst = removalWithin(first, {range.from, first.text.size()});
    const TRange ofLast = removalWithin(last, {0, range.to});
    const bool keepsFirst = ofFirst.from > 0;
    const bool keepsLast = ofLast.to < last.text.size();
    if (keepsFirst && keepsLast)
        return {};
    return TRemoval{{ofFirst.from, ofLast.to}, keepsLast ? last.kind : first.kind};
}

} // namespace Balans
