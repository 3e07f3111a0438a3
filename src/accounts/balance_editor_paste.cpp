// How text comes into the editor and goes other than by keys: selections, clipboard, dragging, an input
// method, the window's menu.

#include "src/accounts/balance_editor.h"

#include "src/accounts/balance_format.h"
#include "toolkit/widgets/guard.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QScopeGuard>

using namespace Balans;
using namespace Qt::StringLiterals;

namespace {

// Whole lines with their kinds, a letter before the text of each; the plain text goes with them.
const QString linesFormat = u"application/x-velmora-balanso-eilutes"_s;
constexpr char kindLetters[] = "SGD";

QByteArray encoded(const TBalSheet &lines)
{
    QStringList texts;
    for (const auto &[text, kind] : lines)
        texts << QLatin1Char(kindLetters[int(kind == TBalKind::None ? TBalKind::Detail : kind)]) + text;
    return texts.join(u'\n').toUtf8();
}

TBalSheet decoded(const QByteArray &data)
{
    TBalSheet lines;
    for (const QString &each : QString::fromUtf8(data).split(u'\n')) {
        const qsizetype kind = QLatin1StringView(kindLetters).indexOf(each.left(1));
        lines.push_back({each.mid(1), kind < 0 || each.isEmpty() ? TBalKind::Detail : TBalKind(kind)});
    }
    return lines;
}

TBalSheet plainLines(QString text)
{
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    TBalSheet lines;
    for (const QString &each : text.split(u'\n'))
        lines.push_back({each, TBalKind::Detail});
    return lines;
}

TBalSheet linesOf(const QMimeData &data)
{
    return data.hasFormat(linesFormat) ? decoded(data.data(linesFormat)) : plainLines(data.text());
}

} // namespace

// --- what is selected

std::optional<TRemoval> TBalEdit::removalOfSelection() const
{
    const QTextCursor cursor = textCursor();
    const QTextBlock first = document()->findBlock(cursor.selectionStart());
    const QTextBlock last = document()->findBlock(cursor.selectionEnd());
    const TRange range{cursor.selectionStart() - first.position(), cursor.selectionEnd() - last.position()};
    if (first == last)
        return TRemoval{removalWithin(lineOfBlock(first), range), kindOfBlock(first)};
    return removalAcross(lineOfBlock(first), lineOfBlock(last), range);
}

bool TBalEdit::removeSelection()
{
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection())
        return true;
    const auto removal = removalOfSelection();
    if (!removal)
        return false;
    const int first = document()->findBlock(cursor.selectionStart()).position();
    const int last = document()->findBlock(cursor.selectionEnd()).position();
    cursor.beginEditBlock();
    cursor.setPosition(first + int(removal->range.from));
    cursor.setPosition(last + int(removal->range.to), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    formatBlock(cursor.block(), removal->kind);
    cursor.endEditBlock();
    setTextCursor(cursor);
    return true;
}

// Where the caret would stand if the selection were gone.
TCaretLine TBalEdit::caretWithoutSelection() const
{
    const QTextCursor cursor = textCursor();
    TCaretLine caret = caretLine();
    const auto removal = cursor.hasSelection() ? removalOfSelection() : std::nullopt;
    if (!removal)
        return caret;
    const QTextBlock first = document()->findBlock(cursor.selectionStart());
    const QTextBlock last = document()->findBlock(cursor.selectionEnd());
    return {{first.text().left(removal->range.from) + last.text().mid(removal->range.to), removal->kind},
            removal->range.from + 1,
            !last.next().isValid()};
}

// --- the clipboard

bool TBalEdit::takesClipboardKey(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cut))
        cutSelection();
    else if (event->matches(QKeySequence::Paste) && canPaste())
        QTextEdit::paste();
    else
        return event->matches(QKeySequence::Paste);
    return true;
}

void TBalEdit::cutSelection()
{
    if (isReadOnly() || !textCursor().hasSelection() || !removalOfSelection())
        return;
    copy();
    removeSelection();
}

QMimeData *TBalEdit::createMimeDataFromSelection() const
{
    const QTextCursor cursor = textCursor();
    auto *copied = new QMimeData;
    copied->setText(cursor.selectedText().replace(QChar::ParagraphSeparator, u'\n'));
    const QTextBlock first = document()->findBlock(cursor.selectionStart());
    const QTextBlock end = document()->findBlock(cursor.selectionEnd());
    const bool endsWithLine = cursor.selectionEnd() == end.position() + end.length() - 1;
    const bool endsBeforeLine = cursor.selectionEnd() == end.position() && first != end;
    if (cursor.selectionStart() != first.position() || !(endsWithLine || endsBeforeLine))
        return copied;
    TBalSheet lines;
    for (QTextBlock block = first; block != end; block = block.next())
        lines.push_back(lineOfBlock(block));
    lines.push_back(endsBeforeLine ? TBalLine{} : lineOfBlock(end));
    copied->setData(linesFormat, encoded(lines));
    return copied;
}

bool TBalEdit::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText();
}

void TBalEdit::insertFromMimeData(const QMimeData *source)
{
    if (isReadOnly() || !source->hasText())
        return;
    runGuarded(this, [this, source] {
        if (textCursor().hasSelection() && !removalOfSelection())
            return;
        const int leftOut = paste(linesOf(*source), accountsForPaste());
        ensureCursorVisible();
        if (leftOut > 0)
            emit charactersLeftOut(leftOut);
    });
}

// Characters that may not stand where they were to go are left out; their number.
int TBalEdit::paste(const TBalSheet &lines, const TKnowsAccount &known)
{
    QTextCursor at = textCursor();
    at.beginEditBlock();
    const auto endStep = qScopeGuard([&at] { at.endEditBlock(); });
    removeSelection();
    at.setPosition(textCursor().position());
    const bool above = lines.size() > 1 && at.atBlockStart() && !at.block().text().isEmpty();
    const int leftOut = above ? pasteAbove(at, lines, known) : pasteBelow(at, lines, known);
    setTextCursor(at);
    return leftOut;
}

// The last of the lines goes into the line at the cursor, the others become lines above it.
int TBalEdit::pasteAbove(QTextCursor &at, const TBalSheet &lines, const TKnowsAccount &known)
{
    int leftOut = 0;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        addLine(at, true);
        at.movePosition(QTextCursor::PreviousBlock);
        leftOut += pasteInto(at, lines[i], known);
        at.movePosition(QTextCursor::NextBlock);
    }
    return leftOut + pasteInto(at, lines.back(), known);
}

// The first of the lines goes into the line at the cursor, the others become lines below it.
int TBalEdit::pasteBelow(QTextCursor &at, const TBalSheet &lines, const TKnowsAccount &known)
{
    int leftOut = pasteInto(at, lines.front(), known);
    const bool endsLine = lines.size() > 1 && lines.back().text.isEmpty();
    for (std::size_t i = 1; i < lines.size() - std::size_t(endsLine); ++i) {
        at.movePosition(QTextCursor::EndOfBlock);
        if (actOfEnter(caretAt(at)) != TKeyAct::Pass) {
            leftOut += int(lines[i].text.size());
            continue;
        }
        addLine(at, false);
        leftOut += pasteInto(at, lines[i], known);
    }
    return leftOut;
}

int TBalEdit::pasteInto(QTextCursor &at, const TBalLine &line, const TKnowsAccount &known)
{
    const bool takesKind = at.block().text().isEmpty() && !line.text.isEmpty() &&
                           !(line.kind == TBalKind::SideTotal && hasSideTotal());
    if (takesKind)
        formatBlock(at.block(), line.kind);
    int leftOut = 0;
    const TCaretLine caret = caretAt(at);
    at.insertText(insertable(caret, line.text, known, leftOut), lettersOf(caret.line.kind));
    return leftOut;
}

// --- dragging. What is dragged to another place of the sheet is moved by the rules, and stays where it is
// when not all of it may stand at that place.

void TBalEdit::moveSelection(int position)
{
    const QTextCursor cursor = textCursor();
    const bool isInside = position >= cursor.selectionStart() && position <= cursor.selectionEnd();
    if (isReadOnly() || !cursor.hasSelection() || isInside || !removalOfSelection())
        return;
    const TKnowsAccount known = accountsForPaste();
    const std::unique_ptr<QMimeData> moved(createMimeDataFromSelection());
    const int anchor = cursor.anchor();
    const int caret = cursor.position();
    QTextCursor target(document());
    target.setPosition(position);
    QTextCursor step = cursor;
    step.beginEditBlock();
    removeSelection();
    setTextCursor(target);
    const int leftOut = paste(linesOf(*moved), known);
    step.endEditBlock();
    if (leftOut > 0) {
        undo();
        document()->clearUndoRedoStacks(QTextDocument::RedoStack);
        target.setPosition(anchor);
        target.setPosition(caret, QTextCursor::KeepAnchor);
        setTextCursor(target);
    }
}

void TBalEdit::mousePressEvent(QMouseEvent *event)
{
    const int at = cursorForPosition(event->pos()).position();
    const QTextCursor cursor = textCursor();
    const bool onSelection = event->button() == Qt::LeftButton && cursor.hasSelection() &&
                             at >= cursor.selectionStart() && at <= cursor.selectionEnd();
    dragFrom = onSelection ? std::optional(event->pos()) : std::nullopt;
    QTextEdit::mousePressEvent(event);
}

void TBalEdit::mouseMoveEvent(QMouseEvent *event)
{
    if (!dragFrom || !(event->buttons() & Qt::LeftButton)) {
        QTextEdit::mouseMoveEvent(event);
        return;
    }
    if ((event->pos() - *dragFrom).manhattanLength() >= QApplication::startDragDistance())
        startDrag();
}

void TBalEdit::mouseReleaseEvent(QMouseEvent *event)
{
    dragFrom.reset();
    QTextEdit::mouseReleaseEvent(event);
}

void TBalEdit::startDrag()
{
    dragFrom.reset();
    auto *drag = new QDrag(this);
    drag->setMimeData(createMimeDataFromSelection());
    const Qt::DropActions offered = isReadOnly() ? Qt::CopyAction : Qt::CopyAction | Qt::MoveAction;
    const bool moved = drag->exec(offered) == Qt::MoveAction;
    const bool toAnother = drag->target() != this && drag->target() != viewport();
    if (moved && toAnother)
        runGuarded(this, [this] { removeSelection(); });
}

void TBalEdit::dropEvent(QDropEvent *event)
{
    const QTextCursor target = cursorForPosition(event->position().toPoint());
    const bool isOwn = event->source() == this || event->source() == viewport();
    const bool moves = isOwn && event->dropAction() == Qt::MoveAction;
    runGuarded(this, [&] {
        if (moves) {
            moveSelection(target.position());
        } else {
            setTextCursor(target);
            insertFromMimeData(event->mimeData());
        }
    });
    // The base forgets where the drop was to go; it gets nothing to put there.
    const QMimeData nothing;
    QDropEvent emptied(event->position(), Qt::CopyAction, &nothing, event->buttons(), event->modifiers());
    QTextEdit::dropEvent(&emptied);
    event->setDropAction(moves ? Qt::MoveAction : Qt::CopyAction);
    event->accept();
}

// --- an input method, the menu

void TBalEdit::inputMethodEvent(QInputMethodEvent *event)
{
    if (isReadOnly())
        return;
    runGuarded(this, [this, event] {
        QInputMethodEvent none;
        QTextEdit::inputMethodEvent(&none);
        if (event->replacementLength() > 0) {
            QTextCursor range = textCursor();
            range.setPosition(range.position() + event->replacementStart());
            range.setPosition(range.position() + event->replacementLength(), QTextCursor::KeepAnchor);
            setTextCursor(range);
        }
        const TBalSheet lines = plainLines(event->commitString());
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (i > 0)
                typeEnter();
            typeText(lines[i].text);
        }
        if (event->preeditString().isEmpty())
            return;
        QTextCursor caret = textCursor();
        caret.clearSelection(); // what is being composed would replace it unasked
        setTextCursor(caret);
        QInputMethodEvent composing(event->preeditString(), event->attributes());
        QTextEdit::inputMethodEvent(&composing);
    });
    event->accept();
}

void TBalEdit::contextMenuEvent(QContextMenuEvent *event)
{
    const std::unique_ptr<QMenu> menu(createStandardContextMenu(event->pos()));
    const auto replace = [&menu, this](const QString &name, void (TBalEdit::*handler)()) {
        if (auto *action = menu->findChild<QAction *>(name)) {
            action->disconnect(SIGNAL(triggered(bool)));
            connectGuarded(action, &QAction::triggered, this, handler);
        }
    };
    replace(u"edit-cut"_s, &TBalEdit::cutSelection);
    replace(u"edit-delete"_s, &TBalEdit::deleteSelection);
    menu->exec(event->globalPos());
}

void TBalEdit::deleteSelection()
{
    removeSelection();
}
