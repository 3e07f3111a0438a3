#pragma once

#include "src/accounts/balance_editor.h"
#include "tests/src/accounts/sheets.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTest>
#include <QTextBlock>

// An editor with three lines, and hands that type into it.
namespace Balans {

class BalanceEditor : public testing::Test {
protected:
    static constexpr auto detail = TBalKind::Detail;
    static constexpr auto total = TBalKind::SideTotal;
    static constexpr auto groupTotal = TBalKind::GroupTotal;

    BalanceEditor()
    {
        using namespace Qt::StringLiterals;
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
    void commit(const QString &text) // as an input method does
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&edit, &event);
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

    QString picked = QStringLiteral("2412"); // what the picker gives
    TBalEdit edit{nullptr};
};

} // namespace Balans
