#pragma once

#include "src/accounts/balance_keys.h"

#include <QTextEdit>

#include <optional>

class QTextBlock;

namespace Balans {

// A sheet of the balance-sheet form as rich text: the size of a line's first character is its kind. Whatever
// brings text in or takes it away (keys, an input method, the clipboard, dragging, the window's menu) obeys
// the rules of balance_keys.h, and all of it can be undone.
class TBalEdit : public QTextEdit {
    Q_OBJECT
public:
    explicit TBalEdit(QWidget *parent);

    // Asks for an account; its number, empty when none is chosen.
    std::function<QString()> pickAccount;
    // What accounts a pasted line may bring; asked once for each paste.
    std::function<TKnowsAccount()> accountsForPaste;

    void setSheet(const TBalSheet &sheet); // cannot be undone; the caret goes to the first line
    // Its lines get these texts; kinds and the caret stay. Nothing happens when there are not as many lines.
    void settle(const TBalSheet &sheet);
    TBalSheet sheet() const; // without any line when there is no text
    TCaretLine caretLine() const;
    bool hasSideTotal() const;

    // The line of the caret becomes of this kind. A second side total is not made.
    void changeKind(TBalKind kind);
    // The side total in which the caret stands goes from the last place to the first, or the other way;
    // elsewhere nothing happens.
    void moveTotalToTop();
    void moveTotalToBottom();

    // What was selected goes to another position of the text, as a drag moves it.
    void moveSelection(int position);

signals:
    void charactersLeftOut(int count); // of a paste: they may not stand where they were to go

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    bool takesKey(QKeyEvent *event);
    bool takesClipboardKey(QKeyEvent *event);
    bool takesRemovalKey(QKeyEvent *event);

    static void settleText(const QTextBlock &block, const QString &text);
    void typeText(const QString &text);
    void typeCharacter(QChar typed);
    void typeEnter();
    void typeErasing(bool backwards);
    void removeFurther(QTextCursor::MoveOperation upTo);
    // text: the sign that goes in, or the number of the account.
    void perform(TKeyAct act, const QString &text);
    void dropEmptyLine(bool backwards);
    static void addLine(QTextCursor &at, bool above);
    static TCaretLine caretAt(const QTextCursor &cursor);

    // The selection, if any, goes; false when that would join lines and nothing was done.
    bool removeSelection();
    std::optional<TRemoval> removalOfSelection() const;
    TCaretLine caretWithoutSelection() const;

    int paste(const TBalSheet &lines, const TKnowsAccount &known);
    int pasteAbove(QTextCursor &at, const TBalSheet &lines, const TKnowsAccount &known);
    int pasteBelow(QTextCursor &at, const TBalSheet &lines, const TKnowsAccount &known);
    int pasteInto(QTextCursor &at, const TBalLine &line, const TKnowsAccount &known);

    void cutSelection();
    void deleteSelection();
    void startDrag();

    std::optional<QPoint> dragFrom;
};

} // namespace Balans
