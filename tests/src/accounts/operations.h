#pragma once

#include "src/accounts/Opr.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QLineEdit>
#include <QPointer>
#include <QSplitter>
#include <QTest>

// Typical operations as their user has them: three of them, and the accounts of the first.
class Operations : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        cash = account("2411");
        stock = account("203");
        debts = account("691");
        for (const auto &[id, name] :
             {std::pair(1, "Gavimas"), std::pair(2, "Apmokėjimas"), std::pair(3, "Nurašymas")})
            books().ExecSQL("insert into bd_opr (opr_id, opr_pavad) values (:id, :name)",
                            {{"id", id}, {"name", name}});
        line(1, stock, "D");
        line(1, debts, "K");
        line(2, debts, "D");
    }
    void TearDown() override
    {
        delete frm;
        OnOpenBooks::TearDown();
    }
    void line(int operation, int sasId, const QString &side)
    {
        books().ExecSQL("insert into bd_oprsaskor (osk_oprid, osk_sasid, osk_db_kr, osk_1_2) "
                        "values (:opr, :sas, :side, '1')",
                        {{"opr", operation}, {"sas", sasId}, {"side", side}});
    }
    void open()
    {
        frm = createForm<Opr::TOprFrm>(nullptr);
        frm->show();
        activate();
        go(operations());
    }
    void activate()
    {
        frm->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(frm));
    }

    TDBGrid *grid(const char *name) const { return frm->findChild<TDBGrid *>(name); }
    TDBGrid *operations() const { return grid("Operacijos"); }
    TDBGrid *debit() const { return grid("Debetas"); }
    TDBGrid *credit() const { return grid("Kreditas"); }
    static TDataSet &set(const TDBGrid *grid) { return *grid->DataSet(); }
    static QStringList shown(const TDBGrid *grid)
    {
        QStringList texts;
        for (int row = 0; row < grid->model()->rowCount(); ++row)
            texts << grid->model()->index(row, 0).data().toString();
        return texts;
    }
    // The cell that is being typed in; null when there is none.
    static QLineEdit *cell(const TDBGrid *grid) { return grid->findChild<QLineEdit *>(); }

    // --- the user's hands
    void go(QWidget *control)
    {
        activate();
        control->setFocus();
        settle();
    }
    // A key for whatever has the keyboard.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        activate();
        QWidget *focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : frm.data(), key, modifiers);
        settle();
    }
    void keys(const QString &text)
    {
        activate();
        typeKeys(QApplication::focusWidget(), text);
        settle();
    }
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void click(TDBGrid *grid, int row)
    {
        const QPoint there = grid->visualRect(grid->model()->index(row, 0)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, there);
        settle();
    }
    // The row that is marked, as its user sees it.
    static QString marked(const TDBGrid *grid)
    {
        const QModelIndexList chosen = grid->selectionModel()->selectedIndexes();
        return chosen.size() == 1 ? chosen.first().data().toString() : QString();
    }
    // Adds a row to the list that has the keyboard, typed and saved.
    void add(const QString &text)
    {
        press(Qt::Key_Insert);
        keys(text);
        press(Qt::Key_S, Qt::ControlModifier);
    }
    QString refusal(const std::function<void()> &action)
    {
        NextBoxes told{QMessageBox::Ok};
        action();
        return told.at(0).text;
    }

    QStringList enabled() const
    {
        QStringList names;
        for (const QAction *action :
             {frm->acNew, frm->acEdit, frm->acDelete, frm->acRefresh, frm->acSave, frm->acCancel})
            if (action->isEnabled())
                names << action->objectName();
        return names;
    }
    QStringList storedOperations()
    {
        return rows(books(), "select opr_id, opr_pavad from bd_opr order by opr_id");
    }
    QStringList storedLines()
    {
        return rows(books(),
                    "select osk_oprid, s.sas_sasnr, osk_db_kr, osk_1_2 from bd_oprsaskor, bd_sasplan s "
                    "where s.sas_id = osk_sasid order by osk_oprid, osk_db_kr, s.sas_sasnr");
    }

    const QStringList resting{"acNew", "acEdit", "acDelete", "acRefresh"};
    const QStringList changing{"acSave", "acCancel"};
    int cash = 0, stock = 0, debts = 0;
    QPointer<Opr::TOprFrm> frm;
};
