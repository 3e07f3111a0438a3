#include "src/period/Closeperiod.h"
#include "tests/src/balances/balances.h"
#include "tests/support/refusal.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QHeaderView>

namespace {

const QString unequal = "Debeto ir kredito likučių sumos nelygios!";

class BalanceList : public Balances {
protected:
    void balanced()
    {
        balance(capital, 0, 100);
        balance(bank, 60, 0);
        balance(cash, 40, 0);
    }
    QStringList shown(int column)
    {
        frm->dataSet()->RecordCount();
        QCoreApplication::processEvents();
        QStringList texts;
        for (int row = 0; row < frm->grid()->model()->rowCount(); ++row)
            texts << frm->grid()->model()->index(row, column).data().toString();
        return texts;
    }
    QComboBox *periods() const { return frm->findChild<QComboBox *>("PeriodBox"); }
};
ON_BOTH_ENGINES(BalanceList);

} // namespace

TEST_P(BalanceList, ShowsTheBalancesByAccountNumberWithTotals)
{
    balanced();
    openList();
    EXPECT_EQ(frm->windowTitle(), "Sąskaitų likučiai");
    EXPECT_EQ(shown(0), QStringList({"241  Sąskaita 241", "262  Sąskaita 262", "401  Sąskaita 401"}));
    EXPECT_EQ(shown(1), QStringList({"60.00", "40.00", "0.00"}));
    EXPECT_EQ(shown(2), QStringList({"0.00", "0.00", "100.00"}));
    EXPECT_EQ(frm->panel(0), "Įrašų kiekis: 3");
    EXPECT_EQ(frm->panel(1), "Debetų suma: 100.00");
    EXPECT_EQ(frm->panel(2), "Kreditų suma: 100.00");
    EXPECT_EQ(SasLikFrm, frm);
    closeList();
    EXPECT_EQ(SasLikFrm, nullptr);
}

TEST_P(BalanceList, WithoutAPeriodItDoesNotOpen)
{
    books().ExecSQL("delete from bd_period where per_menuo > 0");
    EXPECT_EQ(refusalOf([] { createForm<TSasLikFrm>(nullptr); }), "Darbo pradžios periodas nenustatitas!");
    EXPECT_EQ(SasLikFrm, nullptr);
}

TEST_P(BalanceList, PeriodsAreTheMonthsInLithuanianAndTheNewestIsShown)
{
    balance(bank, 5, 0);
    nextMonth();
    openList();
    EXPECT_EQ(periods()->count(), 2);
    EXPECT_EQ(periods()->itemText(0), "2004 m. sausis");
    EXPECT_EQ(periods()->currentText(), "2004 m. vasaris");
    EXPECT_EQ(frm->panel(0), "Įrašų kiekis: 0");
    EXPECT_FALSE(periods()->isEditable());
    NextBoxes box{QMessageBox::Ok};
    periods()->setCurrentIndex(0);
    EXPECT_EQ(box.at(0).text, unequal);
    EXPECT_EQ(shown(1), QStringList("5.00"));
}

TEST_P(BalanceList, IsEditableOnlyInTheFirstPeriod)
{
    openList();
    EXPECT_TRUE(frm->acNew->isVisible());
    closeList();
    nextMonth();
    openList();
    for (const QAction *action : {frm->acNew, frm->acEdit, frm->acDelete})
        EXPECT_FALSE(action->isVisible());
}

TEST_P(BalanceList, AViewOnlyUserMayOnlyOpenTheRow)
{
    balanced();
    CurrentUser().viewOnly = true;
    openList();
    EXPECT_FALSE(frm->acNew->isEnabled());
    EXPECT_FALSE(frm->acDelete->isEnabled());
    EXPECT_TRUE(frm->acEdit->isEnabled());
}

TEST_P(BalanceList, UnequalTotalsAreToldAtEveryRefresh)
{
    balance(bank, 100, 0);
    balance(capital, 0, 99.99);
    {
        NextBoxes box{QMessageBox::Ok};
        openList();
        EXPECT_EQ(box.at(0).kind, 81);
        EXPECT_EQ(box.at(0).text, unequal);
    }
    NextBoxes again{QMessageBox::Ok, QMessageBox::Ok};
    frm->RefreshBtnClick();
    frm->RefreshBtnClick();
    EXPECT_EQ(again.texts(), QStringList({unequal, unequal}));
    EXPECT_EQ(shown(1).size(), 2);
}

TEST_P(BalanceList, ATitleClickLeavesTheOrder)
{
    balanced();
    openList();
    QHeaderView *header = frm->grid()->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->sectionViewportPosition(1) + 20, header->height() / 2});
    EXPECT_EQ(shown(1), QStringList({"60.00", "40.00", "0.00"}));
    EXPECT_FALSE(header->isSortIndicatorShown());
    EXPECT_FALSE(frm->acOrder->isVisible() || frm->acOrder->isEnabled());
}

TEST_P(BalanceList, ANewRowBecomesTheCurrentOne)
{
    balanced();
    openList();
    OnNextDialog<TSasLikDlg> dialog([this](TSasLikDlg &shownDialog) {
        chooseAccount(shownDialog, bank);
        type(amount(shownDialog), "0.01");
        pressButton(shownDialog, "&Išsaugoti");
    });
    NextBoxes box{QMessageBox::Ok};
    frm->NewBtnClick();
    EXPECT_EQ(box.at(0).text, unequal);
    EXPECT_EQ(frm->currentKey().toInt(), 4);
    EXPECT_EQ(frm->panel(1), "Debetų suma: 100.01");
}

TEST_P(BalanceList, AChangedRowStaysCurrentAndACancelledOneReadsNothing)
{
    balanced();
    openList();
    frm->LastBtnClick();
    {
        OnNextDialog<TSasLikDlg> cancelled([](TSasLikDlg &dialog) { pressButton(dialog, "&Atšaukti"); });
        frm->EditBtnClick();
    }
    OnNextDialog<TSasLikDlg> dialog([](TSasLikDlg &shownDialog) {
        type(amount(shownDialog), "90");
        pressButton(shownDialog, "&Išsaugoti");
    });
    NextBoxes box{QMessageBox::Ok};
    frm->EditBtnClick();
    EXPECT_EQ(box.count(), 1);
    EXPECT_EQ(frm->currentKey().toInt(), 1);
    EXPECT_EQ(shown(2).last(), "90.00");
}

TEST_P(BalanceList, ADeletedRowChangesTheTotals)
{
    balanced();
    openList();
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    frm->DelBtnClick();
    EXPECT_EQ(boxes.texts(), QStringList({"Ar tikrai norite ištrinti?", unequal}));
    EXPECT_EQ(frm->panel(1), "Debetų suma: 40.00");
    EXPECT_EQ(value(books(), "select count(*) from bd_saslik"), "2");
}

// --- together with the month close

TEST_P(BalanceList, ACloseThatFindsTheTotalsUnequalLeavesTheListAsItIs)
{
    balance(bank, 100, 0);
    balance(capital, 0, 99);
    NextBoxes opening{QMessageBox::Ok};
    openList();
    NextBoxes close{QMessageBox::Yes, QMessageBox::Ok};
    Closeperiod::StartPerClose();
    EXPECT_EQ(close.at(1).text, "Neįmanoma uždaryti periodo, kol nelygios debeto ir kredito sumos");
    EXPECT_EQ(periods()->count(), 1);

    // What is missing is entered in the list; the month closes.
    {
        OnNextDialog<TSasLikDlg> dialog([](TSasLikDlg &shownDialog) {
            type(amount(shownDialog), "100");
            pressButton(shownDialog, "&Išsaugoti");
        });
        frm->LastBtnClick();
        frm->EditBtnClick();
    }
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<Closeperiod::TPerCloseDlg> dialog([](Closeperiod::TPerCloseDlg &shownDialog) {
        NextBoxes end{QMessageBox::Ok};
        pressButton(shownDialog, "Pradėti");
        EXPECT_EQ(end.at(0).text, "Periodas uždarytas sekmingai");
    });
    Closeperiod::StartPerClose();
    EXPECT_EQ(periods()->currentText(), "2004 m. vasaris");
    EXPECT_EQ(frm->panel(1), "Debetų suma: 100.00");
    EXPECT_FALSE(frm->acNew->isVisible());
}

// --- another station

TEST_P(BalanceList, FollowsAnotherStationsCloseAndRollBack)
{
    balanced();
    openList();
    secondFin()->ExecSQL("call Close_Per()");
    FollowPeriod();
    EXPECT_EQ(periods()->count(), 2);
    EXPECT_EQ(periods()->currentText(), "2004 m. vasaris");
    EXPECT_EQ(shown(1), QStringList({"60.00", "40.00", "0.00"}));
    EXPECT_FALSE(frm->acNew->isVisible());

    secondFin()->ExecSQL("call Back_Per()");
    FollowPeriod();
    EXPECT_EQ(periods()->count(), 1);
    EXPECT_EQ(periods()->currentText(), "2004 m. sausis");
    EXPECT_TRUE(frm->acNew->isVisible());
}

TEST_P(BalanceList, WithoutAnyPeriodLeftItShowsNothingAndSaysWhy)
{
    balanced();
    openList();
    secondFin()->ExecSQL("delete from bd_period");
    NextBoxes box{QMessageBox::Ok};
    FollowPeriod();
    EXPECT_EQ(box.at(0).text, "Darbo pradžios periodas nenustatitas!");
    EXPECT_EQ(shown(0), QStringList());
    EXPECT_EQ(periods()->count(), 0);
    EXPECT_EQ(frm->panel(0), "Įrašų kiekis: 0");
    EXPECT_EQ(frm->panel(1), "");
    EXPECT_EQ(frm->panel(2), "");
    EXPECT_FALSE(frm->acNew->isVisible());

    startOfWork(2005, 1, 1);
    EXPECT_EQ(periods()->currentText(), "2005 m. sausis");
    EXPECT_EQ(shown(1), QStringList({"60.00", "40.00", "0.00"}));
    EXPECT_EQ(frm->panel(1), "Debetų suma: 100.00");
    EXPECT_TRUE(frm->acNew->isVisible());
}

// --- money

TEST_P(BalanceList, AMillionDimesAgainstOneCreditAreEqualToTheCent)
{
    const QString series = engine() == Engine::Sqlite
                               ? "with recursive n(i) as (select 1 union all select i + 1 from n "
                                 "where i < 1000000) select i, %1, 6, 0.10, 0 from n"
                               : "select i, %1, 6, 0.10, 0 from generate_series(1, 1000000) as n(i)";
    books().nativeExec("insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) " +
                       series.arg(bank));
    balance(capital, 0, 100000);
    openList();
    EXPECT_EQ(frm->panel(1), "Debetų suma: 100000.00");
    EXPECT_EQ(frm->panel(2), "Kreditų suma: 100000.00");

    balance(bank, 0.01, 0);
    NextBoxes box{QMessageBox::Ok};
    frm->RefreshBtnClick();
    EXPECT_EQ(box.at(0).text, unequal);
    EXPECT_EQ(frm->panel(1), "Debetų suma: 100000.01");
}
