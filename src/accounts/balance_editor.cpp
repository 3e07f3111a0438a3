#include "src/accounts/balance_editor.h"

#include "src/accounts/balance_format.h"
#include "toolkit/widgets/guard.h"

#include <QKeyEvent>

using namespace Balans;
using namespace Qt::StringLiterals;

namespace {

// All changes made while it lives are undone as one.
class TOneStep {
public:
    explicit TOneStep(const QTextCursor &cursor) : step(cursor) { step.beginEditBlock(); }
    ~TOneStep() { step.endEditBlock(); }
    TOneStep(const TOneStep &) = delete;
    TOneStep &operator=(const TOneStep &) = delete;

private:
    QTextCursor step;
};

// A sign, and no command nor accelerator: the third level of a keyboard comes as Alt and Control together.
bool isTyped(const QKeyEvent &event)
{
    const bool isCommand = event.modifiers() & Qt::ControlModifier && !(event.modifiers() & Qt::AltModifier);
    const bool isAccelerator =
        event.modifiers() & Qt::AltModifier && !(event.modifiers() & Qt::ControlModifier);
    return !event.text().isEmpty() && event.text().at(0).isPrint() && !isCommand && !isAccelerator;
}

} // namespace

TBalEdit::TBalEdit(QWidget *parent) : QTextEdit(parent)
{
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    setSheet({});
}

void TBalEdit::setSheet(const TBalSheet &sheet)
{
    document()->setUndoRedoEnabled(false);
    clear();
    QTextCursor writer(document());
    writer.beginEditBlock();
    formatBlock(writer.block(), sheet.empty() ? TBalKind::Detail : sheet.front().kind);
    for (std::size_t i = 0; i < sheet.size(); ++i) {
        const auto &[text, kind] = sheet[i];
        if (i > 0)
            writer.insertBlock(paragraphOf(kind), lettersOf(kind));
        writer.insertText(text, lettersOf(kind));
    }
    writer.endEditBlock();
    document()->setUndoRedoEnabled(true);
    moveCursor(QTextCursor::Start);
}

TBalSheet TBalEdit::sheet() const
{
    TBalSheet lines;
    if (document()->isEmpty())
        return lines;
    lines.reserve(std::size_t(document()->blockCount()));
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        lines.push_back(lineOfBlock(block));
    return lines;
}

TCaretLine TBalEdit::caretAt(const QTextCursor &cursor)
{
    return {lineOfBlock(cursor.block()), cursor.positionInBlock() + 1, !cursor.block().next().isValid()};
}

TCaretLine TBalEdit::caretLine() const
{
    return caretAt(textCursor());
}

bool TBalEdit::hasSideTotal() const
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        if (kindOfBlock(block) == TBalKind::SideTotal)
            return true;
    return false;
}

void TBalEdit::changeKind(TBalKind kind)
{
    const QTextBlock block = textCursor().block();
    if (kind == TBalKind::SideTotal && kindOfBlock(block) != TBalKind::SideTotal && hasSideTotal())
        return;
    const TOneStep step(textCursor());
    formatBlock(block, kind);
}

void TBalEdit::moveTotalToTop()
{
    const TCaretLine total = caretLine();
    if (total.line.kind != TBalKind::SideTotal || !total.isLast || document()->blockCount() == 1)
        return;
    const TOneStep step(textCursor());
    QTextCursor last = textCursor();
    last.movePosition(QTextCursor::End);
    last.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    last.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
    last.removeSelectedText();
    QTextCursor top(document());
    const TBalKind second = kindOfBlock(top.block());
    top.insertBlock();
    formatBlock(top.block(), second);
    top.movePosition(QTextCursor::Start);
    top.insertText(total.line.text);
    formatBlock(top.block(), TBalKind::SideTotal);
    setTextCursor(top);
}

void TBalEdit::moveTotalToBottom()
{
    const TCaretLine total = caretLine();
    if (total.line.kind != TBalKind::SideTotal || textCursor().blockNumber() > 0 || total.isLast)
        return;
    const TOneStep step(textCursor());
    QTextCursor first(document());
    const TBalKind second = kindOfBlock(first.block().next());
    first.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
    first.removeSelectedText();
    formatBlock(first.block(), second);
    first.movePosition(QTextCursor::End);
    first.insertBlock(paragraphOf(TBalKind::SideTotal), lettersOf(TBalKind::SideTotal));
    first.insertText(total.line.text, lettersOf(TBalKind::SideTotal));
    setTextCursor(first);
}

void TBalEdit::settle(const TBalSheet &sheet)
{
    if (std::size_t(document()->blockCount()) != sheet.size() || document()->isEmpty())
        return;
    const TOneStep step(textCursor());
    QTextBlock block = document()->begin();
    for (const TBalLine &line : sheet) {
        settleText(block, line.text);
        block = block.next();
    }
}

// Only what differs is written, so that the caret stays beside what it stood beside.
void TBalEdit::settleText(const QTextBlock &block, const QString &text)
{
    const QString before = block.text();
    if (before == text)
        return;
    const auto [from, fromOf] = std::ranges::mismatch(before, text);
    const qsizetype first = from - before.begin();
    const qsizetype shared = std::min(before.size(), text.size()) - first;
    qsizetype same = 0; // characters at the end
    while (same < shared && before.at(before.size() - 1 - same) == text.at(text.size() - 1 - same))
        ++same;
    QTextCursor range(block);
    range.setPosition(int(block.position() + first));
    range.setPosition(int(block.position() + before.size() - same), QTextCursor::KeepAnchor);
    range.insertText(text.mid(first, text.size() - same - first), lettersOf(kindOfBlock(block)));
}

// --- keys

// The base gets no sign of a key: text comes in by the rules alone.
void TBalEdit::keyPressEvent(QKeyEvent *event)
{
    runGuarded(this, [this, event] {
        const bool isBelowTheLast = event->key() == Qt::Key_Down && caretLine().isLast;
        if (isBelowTheLast || takesClipboardKey(event) || (!isReadOnly() && takesKey(event))) {
            event->accept();
            return;
        }
        QKeyEvent command(event->type(), event->key(), event->modifiers(), {}, event->isAutoRepeat());
        QTextEdit::keyPressEvent(&command);
        event->setAccepted(command.isAccepted());
    });
}

bool TBalEdit::takesKey(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
            return false;
        typeEnter();
        return true;
    }
    if (takesRemovalKey(event))
        return true;
    if (!isTyped(*event))
        return false;
    typeText(event->text());
    return true;
}

bool TBalEdit::takesRemovalKey(QKeyEvent *event)
{
    if (event->matches(QKeySequence::DeleteStartOfWord))
        removeFurther(QTextCursor::PreviousWord);
    else if (event->matches(QKeySequence::DeleteEndOfWord))
        removeFurther(QTextCursor::NextWord);
    else if (event->matches(QKeySequence::DeleteEndOfLine))
        removeFurther(QTextCursor::EndOfBlock);
    else if (event->modifiers() & Qt::AltModifier)
        return false; // on some platforms a key of undoing
    else if (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete)
        typeErasing(event->key() == Qt::Key_Backspace);
    else
        return false;
    return true;
}

void TBalEdit::typeText(const QString &text)
{
    for (const QChar typed : text)
        typeCharacter(typed);
}

// An account is picked before the selection goes: without one nothing changes.
void TBalEdit::typeCharacter(QChar typed)
{
    if (textCursor().hasSelection() && !removalOfSelection())
        return;
    const TKeyAct act = actOfCharacter(caretWithoutSelection(), typed);
    const bool picks = act == TKeyAct::FirstAccount || act == TKeyAct::NextAccount;
    const QString text = picks ? pickAccount() : QString(typed);
    if (act == TKeyAct::Swallow || text.isEmpty())
        return;
    if (textCursor().hasSelection()) {
        const TOneStep step(textCursor());
        removeSelection();
        perform(act, text);
    } else {
        perform(act, text); // letters typed one after another are undone together
    }
    ensureCursorVisible();
}

void TBalEdit::perform(TKeyAct act, const QString &text)
{
    QTextCursor caret = textCursor();
    const QTextCharFormat letters = lettersOf(caretLine().line.kind);
    switch (act) {
    case TKeyAct::Swallow:
        break;
    case TKeyAct::Pass:
        caret.insertText(text, letters);
        break;
    case TKeyAct::CloseList:
        caret.movePosition(QTextCursor::EndOfBlock);
        caret.insertText(u")"_s, letters);
        break;
    case TKeyAct::FirstAccount:
        caret.movePosition(QTextCursor::EndOfBlock);
        caret.insertText(u'(' + text + u')', letters);
        caret.movePosition(QTextCursor::PreviousCharacter);
        setTextCursor(caret); // where the comma of the next account goes
        break;
    case TKeyAct::NextAccount:
        caret.insertText(u", "_s + text, letters);
        break;
    case TKeyAct::DropAccounts:
        caret.setPosition(int(caret.block().position() + caretLine().accountsColumn() - 1));
        caret.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        caret.removeSelectedText();
        setTextCursor(caret);
        break;
    }
}

void TBalEdit::typeEnter()
{
    if (textCursor().hasSelection() || actOfEnter(caretLine()) != TKeyAct::Pass)
        return;
    const bool above = caretLine().column == 1 && !caretLine().line.text.isEmpty();
    QTextCursor at = textCursor();
    {
        const TOneStep step(at);
        addLine(at, above);
    }
    setTextCursor(at);
    ensureCursorVisible();
}

// The line is added as a detail: above, and the cursor stays in its own, or below, where the cursor goes.
void TBalEdit::addLine(QTextCursor &at, bool above)
{
    if (!above) {
        at.movePosition(QTextCursor::EndOfBlock);
        at.insertBlock(paragraphOf(TBalKind::Detail), lettersOf(TBalKind::Detail));
        return;
    }
    const TBalKind kind = kindOfBlock(at.block());
    at.insertBlock();
    formatBlock(at.block(), kind);
    formatBlock(at.block().previous(), TBalKind::Detail);
}

void TBalEdit::typeErasing(bool backwards)
{
    if (textCursor().hasSelection()) {
        removeSelection();
        return;
    }
    const TCaretLine caret = caretLine();
    const TKeyAct act = backwards ? actOfBackspace(caret) : actOfDelete(caret);
    const TOneStep step(textCursor());
    if (act != TKeyAct::Pass)
        perform(act, {});
    else if (backwards ? caret.column == 1 : caret.atEnd())
        dropEmptyLine(backwards);
    else if (backwards)
        textCursor().deletePreviousChar();
    else
        textCursor().deleteChar();
    ensureCursorVisible();
}

// Keys that take more than a character do what the plain ones do at the edges and at the accounts.
void TBalEdit::removeFurther(QTextCursor::MoveOperation upTo)
{
    const bool backwards = upTo == QTextCursor::PreviousWord;
    const TCaretLine caret = caretLine();
    const bool isPlain = (backwards ? actOfBackspace(caret) : actOfDelete(caret)) == TKeyAct::Pass &&
                         !caret.line.text.isEmpty();
    if (textCursor().hasSelection() || !isPlain) {
        typeErasing(backwards);
        return;
    }
    QTextCursor range = textCursor();
    const QTextBlock block = range.block();
    range.movePosition(upTo, QTextCursor::KeepAnchor);
    range.setPosition(qBound(block.position(), range.position(), block.position() + block.length() - 1),
                      QTextCursor::KeepAnchor);
    setTextCursor(range);
    removeSelection();
}

// The empty line of the caret goes, and the caret to the end of the line above it or to the beginning of the
// one below. The only line there is stays, but is no side total any more.
void TBalEdit::dropEmptyLine(bool backwards)
{
    QTextCursor caret = textCursor();
    const QTextBlock stays = backwards ? caret.block().previous() : caret.block().next();
    if (!stays.isValid()) {
        if (kindOfBlock(caret.block()) == TBalKind::SideTotal)
            formatBlock(caret.block(), TBalKind::Detail);
        return;
    }
    const TBalKind kind = kindOfBlock(stays);
    backwards ? caret.deletePreviousChar() : caret.deleteChar();
    formatBlock(caret.block(), kind);
    setTextCursor(caret);
}
