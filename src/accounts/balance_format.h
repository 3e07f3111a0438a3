#pragma once

#include "src/accounts/balance_code.h"

#include <QTextBlock>
#include <QTextCursor>

// The kind of a line as the formatting of its text: side totals in 15 points and group totals in 12, bold,
// italic and centred; details in 10, plain and to the left.
namespace Balans {

QTextCharFormat lettersOf(TBalKind kind);
QTextBlockFormat paragraphOf(TBalKind kind);

// By the size of the first character; of an empty line by the size in which it would be typed.
TBalKind kindOfBlock(const QTextBlock &block);
TBalLine lineOfBlock(const QTextBlock &block);

// The whole line becomes of the kind.
void formatBlock(const QTextBlock &block, TBalKind kind);

} // namespace Balans
