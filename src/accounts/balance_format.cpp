#include "src/accounts/balance_format.h"

namespace Balans {

namespace {

constexpr int sideTotalSize = 15;
constexpr int groupTotalSize = 12;
constexpr int detailSize = 10;

int sizeOf(TBalKind kind)
{
    switch (kind) {
    case TBalKind::SideTotal:
        return sideTotalSize;
    case TBalKind::GroupTotal:
        return groupTotalSize;
    case TBalKind::Detail:
    case TBalKind::None:
        break;
    }
    return detailSize;
}

bool isTotal(TBalKind kind)
{
    return kind == TBalKind::SideTotal || kind == TBalKind::GroupTotal;
}

} // namespace

QTextCharFormat lettersOf(TBalKind kind)
{
    QTextCharFormat letters;
    letters.setFontPointSize(sizeOf(kind));
    letters.setFontWeight(isTotal(kind) ? QFont::Bold : QFont::Normal);
    letters.setFontItalic(isTotal(kind));
    return letters;
}

QTextBlockFormat paragraphOf(TBalKind kind)
{
    QTextBlockFormat paragraph;
    paragraph.setAlignment(isTotal(kind) ? Qt::AlignHCenter : Qt::AlignLeft);
    return paragraph;
}

TBalKind kindOfBlock(const QTextBlock &block)
{
    const auto first = block.begin();
    const QTextCharFormat letters = first.atEnd() ? block.charFormat() : first.fragment().charFormat();
    const int size = qRound(letters.fontPointSize());
    for (const TBalKind kind : {TBalKind::Detail, TBalKind::GroupTotal, TBalKind::SideTotal})
        if (size == sizeOf(kind))
            return kind;
    return TBalKind::None;
}

TBalLine lineOfBlock(const QTextBlock &block)
{
    return {block.text(), kindOfBlock(block)};
}

void formatBlock(const QTextBlock &block, TBalKind kind)
{
    QTextCursor whole(block);
    whole.setBlockFormat(paragraphOf(kind));
    whole.setBlockCharFormat(lettersOf(kind));
    whole.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    whole.setCharFormat(lettersOf(kind));
}

} // namespace Balans
