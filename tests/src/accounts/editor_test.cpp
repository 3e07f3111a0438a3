#include "src/accounts/balance_editor.h"
#include "tests/src/accounts/sheets.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace Balans;

namespace {

constexpr auto detail = TBalKind::Detail;
constexpr auto total = TBalKind::SideTotal;
constexpr auto groupTotal = TBalKind::GroupTotal;

class BalanceEditor : public testing::Test {
protected:
    BalanceEditor()
    {
        edit.pickAccount = [this] { return picked; };
        edit.accountsForPaste = [] { return [](const QString &number) { return number.startsWith(u"24"); }; };
        edit.resize(500, 300);
        edit.show();
        edit.setSheet({{u"Turtas"_s, total}, {u"Pinigai"_s, groupTotal}, {u"Kasa (2411)"_s, detail}});
    }

    // The caret goes to a line, counted from 1, and a column, counted from 1; or so far a selection goes.
    void goTo(int line, int column, QTextCursor::MoveMode mode = QTextCursor::MoveAnchor)
    {
        QTextCursor caret = edit.textCursor();
        caret.setPosition(edit.document()->findBlockByNumber(line - 1).position() + column - 1, mode);
        edit.setTextCursor(caret);
    }
    void select(int line, int column, int toLine, int toColumn)
    {
        goTo(line, column);
        goTo(toLine, toColumn, QTextCursor::KeepAnchor);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers with = {}) { QTest::keyClick(&edit, key, with); }
    void typeText(const QString &text)
    {
        for (const QChar each : text) {
            QKeyEvent typed(QEvent::KeyPress, 0, {}, QString(each));
            QApplication::sendEvent(&edit, &typed);
        }
    }
    void paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }
    QStringList lines() const { return edit.toPlainText().split(u'\n'); }
    TBalLine line(int number) const { return edit.sheet().at(std::size_t(number - 1)); }
    int caretColumn() const { return int(edit.caretLine().column); }
    int caretNumber() const { return edit.textCursor().blockNumber() + 1; }

    QString picked = u"2412"_s;
    TBalEdit edit{nullptr};
};

} // namespace

TEST_F(BalanceEditor, ShowsKindsAsSizeStyleAndAlignment)
{
    struct {
        int size;
        bool emphasised;
        Qt::Alignment alignment;
    } const tabled[] = {
        {15, true, Qt::AlignHCenter}, {12, true, Qt::AlignHCenter}, {10, false, Qt::AlignLeft}};
    for (int i = 0; i < 3; ++i) {
        const QTextBlock block = edit.document()->findBlockByNumber(i);
        const QTextCharFormat letters = block.begin().fragment().charFormat();
        EXPECT_EQ(letters.fontPointSize(), tabled[i].size);
        EXPECT_EQ(letters.fontWeight() == QFont::Bold, tabled[i].emphasised);
        EXPECT_EQ(letters.fontItalic(), tabled[i].emphasised);
        EXPECT_EQ(block.blockFormat().alignment(), tabled[i].alignment);
    }
}

TEST_F(BalanceEditor, GivesBackTheSheetItWasGiven)
{
    const TBalSheet sheet{{u""_s, groupTotal}, {u"Kasa"_s, detail}, {u""_s, detail}, {u""_s, total}};
    edit.setSheet(sheet);
    EXPECT_EQ(edit.sheet(), sheet);
    edit.setSheet({});
    EXPECT_EQ(edit.sheet(), TBalSheet());
}

TEST_F(BalanceEditor, TypesTextOfTheLinesOwnKind)
{
    goTo(1, 1);
    typeText(u"Visas "_s);
    goTo(2, 8);
    typeText(u", iš viso"_s);
    EXPECT_EQ(edit.sheet(), (TBalSheet{{u"Visas Turtas"_s, total},
                                       {u"Pinigai, iš viso"_s, groupTotal},
                                       {u"Kasa (2411)"_s, detail}}));
}

TEST_F(BalanceEditor, LettersTypedInARowAreUndoneTogether)
{
    goTo(2, 8);
    typeText(u" kasoje"_s);
    edit.undo();
    EXPECT_EQ(line(2), (TBalLine{u"Pinigai"_s, groupTotal}));
}

TEST_F(BalanceEditor, EnterMakesADetailAndSplitsNoLine)
{
    goTo(1, 3);
    press(Qt::Key_Return);
    EXPECT_EQ(lines().size(), 3);
    goTo(1, 7);
    press(Qt::Key_Enter);
    EXPECT_EQ(line(2), (TBalLine{u""_s, detail}));
    EXPECT_EQ(caretNumber(), 2);
    goTo(1, 1);
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(line(1), (TBalLine{u""_s, detail}));
    EXPECT_EQ(line(2), (TBalLine{u"Turtas"_s, total}));
    EXPECT_EQ(caretNumber(), 2);
}

TEST_F(BalanceEditor, AParenthesisOpensThePicker)
{
    edit.setSheet({{u"Bankas"_s, detail}});
    goTo(1, 1);
    typeText(u"("_s);
    EXPECT_EQ(lines(), QStringList{u"Bankas(2412)"_s});
    picked = u"2413"_s;
    typeText(u","_s);
    EXPECT_EQ(lines(), QStringList{u"Bankas(2412, 2413)"_s});
    typeText(u")x9"_s);
    EXPECT_EQ(lines(), QStringList{u"Bankas(2412, 2413)"_s});
}

TEST_F(BalanceEditor, APickerLeftWithoutAnAccountChangesNothing)
{
    edit.setSheet({{u"Bankas"_s, detail}, {u"Kasa (2411)"_s, detail}});
    picked.clear();
    goTo(1, 3);
    typeText(u"("_s);
    goTo(2, 11);
    typeText(u","_s);
    EXPECT_EQ(lines(), (QStringList{u"Bankas"_s, u"Kasa (2411)"_s}));
    EXPECT_FALSE(edit.document()->isUndoAvailable());
}

TEST_F(BalanceEditor, ClosesAnOpenList)
{
    edit.setSheet({{u"Bankas (2411"_s, detail}});
    typeText(u")"_s);
    EXPECT_EQ(lines(), QStringList{u"Bankas (2411)"_s});
}

TEST_F(BalanceEditor, BackspaceAndDeleteTakeTheAccountsInOneStep)
{
    goTo(3, 9);
    press(Qt::Key_Backspace);
    EXPECT_EQ(line(3).text, u"Kasa "_s);
    edit.undo();
    EXPECT_EQ(line(3).text, u"Kasa (2411)"_s);
    goTo(3, 6);
    press(Qt::Key_Delete);
    EXPECT_EQ(line(3).text, u"Kasa "_s);
    press(Qt::Key_Backspace);
    EXPECT_EQ(line(3).text, u"Kasa"_s);
}

TEST_F(BalanceEditor, BackspaceAndDeleteJoinNoLines)
{
    const TBalSheet before = edit.sheet();
    goTo(2, 1);
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace, Qt::ControlModifier);
    goTo(1, 7);
    press(Qt::Key_Delete);
    press(Qt::Key_Delete, Qt::ControlModifier);
    press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(edit.sheet(), before);
}

TEST_F(BalanceEditor, AnEmptyLineGoesAndItsNeighboursKeepTheirKinds)
{
    const TBalSheet before = edit.sheet();
    goTo(1, 7);
    press(Qt::Key_Return);
    press(Qt::Key_Delete);
    EXPECT_EQ(edit.sheet(), before);
    EXPECT_EQ(caretNumber(), 2);
    EXPECT_EQ(caretColumn(), 1);
    goTo(1, 7);
    press(Qt::Key_Return);
    press(Qt::Key_Backspace);
    EXPECT_EQ(edit.sheet(), before);
    EXPECT_EQ(caretNumber(), 1);
    EXPECT_EQ(caretColumn(), 7);
}

TEST_F(BalanceEditor, AnEmptySideTotalThatCannotGoIsNoTotalAnyMore)
{
    edit.setSheet({{u""_s, total}, {u"Kasa"_s, detail}});
    goTo(1, 1);
    press(Qt::Key_Backspace);
    EXPECT_FALSE(edit.hasSideTotal());
    EXPECT_EQ(lines(), (QStringList{u""_s, u"Kasa"_s}));
}

TEST_F(BalanceEditor, KeysForWordsStayWithinTheLineAndTheName)
{
    edit.setSheet({{u"Pinigai kasoje (2411)"_s, detail}, {u"Bankas"_s, detail}});
    goTo(1, 9);
    press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(line(1).text, u"Pinigai (2411)"_s);
    press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(line(1).text, u"Pinigai "_s) << "a Backspace beside the parenthesis takes the accounts";
    press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(lines(), (QStringList{u""_s, u"Bankas"_s}));
}

TEST_F(BalanceEditor, DownOnTheLastLineStaysWhereItIs)
{
    goTo(3, 3);
    press(Qt::Key_Down);
    EXPECT_EQ(caretColumn(), 3);
    goTo(2, 3);
    press(Qt::Key_Down);
    EXPECT_EQ(caretNumber(), 3);
}

TEST_F(BalanceEditor, ChangesTheKindOfTheWholeLine)
{
    goTo(2, 3);
    edit.changeKind(detail);
    EXPECT_EQ(line(2), (TBalLine{u"Pinigai"_s, detail}));
    edit.changeKind(total);
    EXPECT_EQ(line(2).kind, detail) << "there is a side total already";
    goTo(1, 1);
    edit.changeKind(groupTotal);
    EXPECT_FALSE(edit.hasSideTotal());
    goTo(2, 1);
    edit.changeKind(total);
    EXPECT_EQ(line(2).kind, total);
    edit.undo();
    edit.undo();
    EXPECT_EQ(line(1).kind, total);
}

TEST_F(BalanceEditor, MovesTheSideTotalFromEndToEnd)
{
    const TBalSheet before = edit.sheet();
    goTo(1, 2);
    edit.moveTotalToTop();
    EXPECT_EQ(edit.sheet(), before) << "it is there";
    edit.moveTotalToBottom();
    const TBalSheet moved{before[1], before[2], before[0]};
    EXPECT_EQ(edit.sheet(), moved);
    EXPECT_TRUE(edit.textCursor().atEnd());
    edit.moveTotalToBottom();
    EXPECT_EQ(edit.sheet(), moved);
    edit.moveTotalToTop();
    EXPECT_EQ(edit.sheet(), before);
    EXPECT_EQ(caretNumber(), 1);
    goTo(2, 1);
    edit.moveTotalToTop();
    edit.moveTotalToBottom();
    EXPECT_EQ(edit.sheet(), before) << "only from a side total";
    edit.undo();
    EXPECT_EQ(edit.sheet(), moved);
}

TEST_F(BalanceEditor, TypingOverASelectionJoinsNoLines)
{
    const TBalSheet before = edit.sheet();
    select(1, 3, 2, 4);
    typeText(u"x"_s);
    press(Qt::Key_Delete);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(edit.sheet(), before);
    select(1, 2, 1, 4);
    typeText(u"x"_s);
    EXPECT_EQ(line(1), (TBalLine{u"Txtas"_s, total}));
    edit.undo();
    EXPECT_EQ(edit.sheet(), before);
}

TEST_F(BalanceEditor, WholeLinesAreCutAndPastedWithTheirKinds)
{
    const TBalSheet before = edit.sheet();
    select(1, 1, 2, 1);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(edit.sheet(), (TBalSheet{before[1], before[2]}));
    goTo(2, 1);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit.sheet(), (TBalSheet{before[1], before[0], before[2]}));
}

TEST_F(BalanceEditor, APastedSideTotalIsADetailWhereThereIsOne)
{
    select(1, 1, 1, 7);
    press(Qt::Key_C, Qt::ControlModifier);
    goTo(2, 8);
    press(Qt::Key_Return);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(line(3), (TBalLine{u"Turtas"_s, detail}));
}

TEST_F(BalanceEditor, SeveralPastedLinesBecomeDetails)
{
    int leftOut = 0;
    QObject::connect(&edit, &TBalEdit::charactersLeftOut, [&](int count) { leftOut = count; });
    goTo(2, 8);
    press(Qt::Key_Return);
    paste(u"Kasa (2412)\r\nBankas (9)\nValiuta\n"_s);
    EXPECT_EQ(edit.sheet(), (TBalSheet{{u"Turtas"_s, total},
                                       {u"Pinigai"_s, groupTotal},
                                       {u"Kasa (2412)"_s, detail},
                                       {u"Bankas 9"_s, detail},
                                       {u"Valiuta"_s, detail},
                                       {u"Kasa (2411)"_s, detail}}));
    EXPECT_EQ(leftOut, 2);
    edit.undo();
    EXPECT_EQ(lines().size(), 4) << "a paste is undone as one";
}

TEST_F(BalanceEditor, SeveralLinesPastedInsideALineDoNotSplitIt)
{
    goTo(2, 4);
    paste(u"X\nY"_s);
    EXPECT_EQ(lines(), (QStringList{u"Turtas"_s, u"PinXigai"_s, u"Y"_s, u"Kasa (2411)"_s}));
    goTo(1, 1);
    paste(u"A\nB\nC"_s);
    EXPECT_EQ(lines().first(4), (QStringList{u"A"_s, u"B"_s, u"CTurtas"_s, u"PinXigai"_s}));
    EXPECT_EQ(line(3).kind, total);
}

TEST_F(BalanceEditor, NothingIsPastedBehindTheTotalAtTheBottom)
{
    edit.setSheet({{u"Kasa (2411)"_s, detail}, {u"Turtas"_s, total}});
    goTo(2, 7);
    paste(u"!\nA\nB"_s);
    EXPECT_EQ(lines(), (QStringList{u"Kasa (2411)"_s, u"Turtas!"_s}));
}

TEST_F(BalanceEditor, WhatIsDraggedMovesByTheRules)
{
    const TBalSheet before = edit.sheet();
    select(3, 1, 3, 12);
    edit.moveSelection(0);
    EXPECT_EQ(edit.sheet(), before) << "accounts may not stand there, so nothing moves";
    edit.setSheet({{u"A"_s, detail}, {u"B"_s, groupTotal}, {u"C"_s, detail}});
    select(3, 1, 3, 2);
    goTo(2, 1);
    select(2, 1, 3, 1);
    edit.moveSelection(0);
    EXPECT_EQ(edit.sheet(), (TBalSheet{{u"B"_s, groupTotal}, {u"A"_s, detail}, {u"C"_s, detail}}));
    edit.undo();
    EXPECT_EQ(lines(), (QStringList{u"A"_s, u"B"_s, u"C"_s})) << "a move is undone as one";
}

TEST_F(BalanceEditor, WhatIsDroppedFromElsewhereIsPasted)
{
    QMimeData dropped;
    dropped.setText(u"(x), "_s);
    const QPoint top = edit.cursorRect(QTextCursor(edit.document())).center();
    QDragEnterEvent enters(top, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QApplication::sendEvent(edit.viewport(), &enters);
    QDropEvent drop(top, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QApplication::sendEvent(edit.viewport(), &drop);
    EXPECT_EQ(lines(), (QStringList{u"x, Turtas"_s, u"Pinigai"_s, u"Kasa (2411)"_s}));
    EXPECT_EQ(lines().size(), 3);
}

TEST_F(BalanceEditor, AnInputMethodTypesByTheRules)
{
    goTo(3, 12);
    QInputMethodEvent committed;
    committed.setCommitString(u"9)x"_s);
    QApplication::sendEvent(&edit, &committed);
    EXPECT_EQ(line(3).text, u"Kasa (2411)"_s);
    goTo(3, 5);
    QInputMethodEvent letters;
    letters.setCommitString(u"ėš"_s);
    QApplication::sendEvent(&edit, &letters);
    EXPECT_EQ(line(3).text, u"Kasaėš (2411)"_s);
    select(1, 3, 2, 4);
    QApplication::sendEvent(&edit, &letters);
    EXPECT_EQ(lines().size(), 3);
}

TEST_F(BalanceEditor, ItsMenuObeysTheRules)
{
    const TBalSheet before = edit.sheet();
    select(1, 3, 2, 4);
    for (const char *name : {"edit-cut", "edit-delete"}) {
        bool triggered = false;
        QTimer::singleShot(0, &edit, [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            auto *action = menu->findChild<QAction *>(name);
            ASSERT_TRUE(action);
            action->trigger();
            triggered = true;
            menu->close();
        });
        QContextMenuEvent wanted(QContextMenuEvent::Mouse, {5, 5}, edit.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(edit.viewport(), &wanted);
        EXPECT_TRUE(triggered) << name;
        EXPECT_EQ(edit.sheet(), before) << name;
    }
}

TEST_F(BalanceEditor, TenThousandLinesAreReadAndPastedAtOnce)
{
    TBalSheet sheet{{u"Turtas"_s, total}};
    QStringList pasted;
    for (int i = 0; i < 10000; ++i) {
        sheet.push_back({u"Eilutė %1 (2411)"_s.arg(i), detail});
        pasted << u"Dar viena %1 (2411)"_s.arg(i);
    }
    QElapsedTimer timer;
    timer.start();
    edit.setSheet(sheet);
    QApplication::processEvents();
    EXPECT_EQ(edit.sheet(), sheet);
    goTo(10001, 1);
    paste(pasted.join(u'\n') + u'\n');
    goTo(5000, 3);
    typeText(u"abc"_s);
    press(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(lines().size(), 20001);
    EXPECT_LT(timer.elapsed(), 15000);
}
