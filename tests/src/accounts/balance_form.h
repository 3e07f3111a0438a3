#pragma once

#include "src/accounts/Balans.h"
#include "src/accounts/balance_editor.h"
#include "tests/src/accounts/sheets.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"

#include <QTest>
#include <QTextBlock>

// The balance-sheet form open on books that have lines on two sides.
namespace Balans {

class BalanceForm : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        for (const char *number : {"2411", "2412", "262"})
            account(number);
        line("A0000", "TURTAS");
        line("A0101", "Bankas", {1, 2});
        line("A0102", "Kasa", {3});
        line("A01AA", "Iš viso");
        line("P0100", "Skolos");
        line("P0101", "Tiekėjams", {3});
        line("PPPPP", "IŠ VISO");
    }
    void TearDown() override
    {
        close();
        CurrentUser() = {};
        OnOpenBooks::TearDown();
    }
    void close()
    {
        if (frm)
            frm->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TBalFrm &open(bool second = false)
    {
        frm = createForm<TBalFrm>(nullptr);
        frm->InitializeBal(second);
        frm->show();
        bringToFront();
        return *frm;
    }
    TBalEdit &editor() { return *frm->findChild<TBalEdit *>("BalList"); }
    QComboBox &sides() { return *frm->findChild<QComboBox *>("ActBox"); }
    QComboBox &kinds() { return *frm->findChild<QComboBox *>("TypeBox"); }
    QPushButton &top() { return *frm->findChild<QPushButton *>("TopBtn"); }
    QPushButton &bottom() { return *frm->findChild<QPushButton *>("BottomBtn"); }
    void bringToFront()
    {
        frm->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(frm));
        editor().setFocus();
    }
    void saveByKey()
    {
        bringToFront(); // a box was before it, perhaps
        QTest::keyClick(frm, Qt::Key_N, Qt::AltModifier);
    }
    QString refusalOfSave()
    {
        NextBoxes box{QMessageBox::Ok};
        saveByKey();
        return box.at(0).text;
    }

    void line(const QString &code, const QString &name, const QList<int> &accounts = {})
    {
        books().ExecSQL("insert into bd_baleil (bel_kod, bel_pavad) values (:kod, :pavad)",
                        {{"kod", code}, {"pavad", name}});
        for (const int id : accounts)
            books().ExecSQL("insert into bd_balsas values (NULL, :kod, :id, 'D')",
                            {{"kod", code}, {"id", id}});
    }
    void secondLine(const QString &code, const QString &name, const QString &account = {})
    {
        TDatabase &db = *MainDatas()->mnRavl();
        db.ExecSQL("insert into bd_baleil (bel_kod, bel_pavad) values (:kod, :pavad)",
                   {{"kod", code}, {"pavad", name}});
        if (!account.isEmpty())
            db.ExecSQL("insert into bd_balsas values (NULL, :kod, :nr, 'D')",
                       {{"kod", code}, {"nr", account}});
    }
    QStringList lines(const QString &side)
    {
        return rows(books(),
                    "select bel_kod, bel_pavad from bd_baleil where bel_kod like :side order by bel_kod",
                    {{"side", side + '%'}});
    }
    void goTo(int number, int column = 1)
    {
        QTextCursor caret(editor().document()->findBlockByNumber(number - 1));
        caret.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column - 1);
        editor().setTextCursor(caret);
    }

    QPointer<TBalFrm> frm;
};

} // namespace Balans
