#include "tests/src/accounts/edited_sheet.h"
#include "tests/support/message_box.h"
#include "toolkit/text/errors.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QTextLayout>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace Balans;

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

TEST_F(BalanceEditor, APickerLeftWithoutAnAccountKeepsTheSelection)
{
    const TBalSheet before = edit.sheet();
    picked.clear();
    select(3, 5, 3, 12);
    typeText(u"("_s);
    EXPECT_EQ(edit.sheet(), before);
    EXPECT_EQ(edit.textCursor().selectedText(), u" (2411)"_s);
    EXPECT_FALSE(edit.document()->isUndoAvailable());
    picked = u"2412"_s;
    typeText(u"("_s);
    EXPECT_EQ(line(3).text, u"Kasa(2412)"_s);
    edit.undo();
    EXPECT_EQ(edit.sheet(), before);
}

TEST_F(BalanceEditor, WhereTheAccountsCannotBeReadNothingIsPasted)
{
    const TBalSheet before = edit.sheet();
    edit.accountsForPaste = []() -> TKnowsAccount { throw Exception(u"Nėra ryšio"_s); };
    select(2, 1, 2, 8);
    {
        NextBoxes box{QMessageBox::Ok};
        paste(u"Bankas (2412)"_s);
        EXPECT_EQ(box.at(0).text, u"Nėra ryšio"_s);
    }
    EXPECT_EQ(edit.sheet(), before);
    EXPECT_EQ(edit.textCursor().selectedText(), u"Pinigai"_s);
    EXPECT_THROW(edit.moveSelection(0), Exception);
    EXPECT_EQ(edit.sheet(), before);
    EXPECT_FALSE(edit.document()->isUndoAvailable());
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

TEST_F(BalanceEditor, ALineThatIsSelectedToItsEndKeepsItsKindToo)
{
    select(2, 1, 2, 8);
    press(Qt::Key_C, Qt::ControlModifier);
    goTo(3, 12);
    press(Qt::Key_Return);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(line(4), (TBalLine{u"Pinigai"_s, groupTotal}));
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
    EXPECT_EQ(edit.textCursor().selectedText(), u"Kasa (2411)"_s);
    EXPECT_FALSE(edit.document()->isRedoAvailable()) << "what was refused";
    EXPECT_FALSE(edit.document()->isUndoAvailable());
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
    commit(u"9)x"_s);
    EXPECT_EQ(line(3).text, u"Kasa (2411)"_s);
    goTo(3, 5);
    commit(u"ėš"_s);
    EXPECT_EQ(line(3).text, u"Kasaėš (2411)"_s);
    select(1, 3, 2, 4);
    commit(u"ėš"_s);
    EXPECT_EQ(lines().size(), 3);
}

TEST_F(BalanceEditor, AnInputMethodReplacesWhatItSays)
{
    goTo(2, 8);
    QInputMethodEvent event;
    event.setCommitString(u"us"_s, -2, 2);
    QApplication::sendEvent(&edit, &event);
    EXPECT_EQ(line(2).text, u"Pinigus"_s);
}

TEST_F(BalanceEditor, WhatIsBeingComposedIsShownAndReplacesNothing)
{
    const TBalSheet before = edit.sheet();
    select(1, 1, 1, 4);
    QInputMethodEvent composing(u"ab"_s, {});
    QApplication::sendEvent(&edit, &composing);
    EXPECT_EQ(edit.document()->firstBlock().layout()->preeditAreaText(), u"ab"_s);
    EXPECT_EQ(edit.sheet(), before);
}

TEST_F(BalanceEditor, ALineEndOfAnInputMethodIsAnEnter)
{
    goTo(2, 4);
    commit(u"x\ny"_s);
    EXPECT_EQ(lines(), (QStringList{u"Turtas"_s, u"Pinxyigai"_s, u"Kasa (2411)"_s}));
    for (const QString &end :
         {u"\r\n"_s, u"\r"_s, QString(QChar::ParagraphSeparator), QString(QChar::LineSeparator)}) {
        goTo(1, 7);
        commit(end + u"A"_s);
        EXPECT_EQ(line(2), (TBalLine{u"A"_s, detail}));
        EXPECT_EQ(lines().size(), 4);
        edit.undo();
        edit.undo();
    }
}

// Signs of two code units, and those that join others, are no part of a name.
TEST_F(BalanceEditor, SignsBeyondTheBasicPlaneAreNotTyped)
{
    const TBalSheet before = edit.sheet();
    const QString family = u"👨\u200d👩"_s;
    for (const int column : {1, 5, 12}) {
        goTo(3, column);
        commit(family);
        for (const QString &sign : {u"😀"_s, family, QString(u'\u200d')}) {
            QKeyEvent typed(QEvent::KeyPress, 0, {}, sign);
            QApplication::sendEvent(&edit, &typed);
        }
        EXPECT_EQ(edit.sheet(), before) << column;
    }
    goTo(2, 8);
    commit(u" 😀x"_s);
    paste(family);
    EXPECT_EQ(line(2).text, u"Pinigai x"_s);
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
