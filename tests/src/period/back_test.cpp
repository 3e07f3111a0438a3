#include "src/period/Perback.h"

#include "tests/src/open_books.h"
#include "tests/src/period/when_hidden.h"
#include "tests/support/message_box.h"

using Perback::PeriodBack;

namespace {

class MonthBack : public OnOpenBooks {
protected:
    // January 2026 with balances, closed once: February is current.
    void oneMonthClosed()
    {
        startOfWork(2026, 1, 1);
        balance(account("241"), 1000, 0);
        balance(account("401"), 0, 1000);
        before = dump(books());
        books().ExecSQL("call Close_Per()");
        GetPeriod();
    }

    QStringList before; // the books as they were before the close
};
ON_BOTH_ENGINES(MonthBack);

} // namespace

TEST_P(MonthBack, TheStartOfWorkMonthIsRefusedWithoutAQuestion)
{
    startOfWork(2026, 1, 1);
    NextBoxes boxes{QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(0).kind, 81);
    EXPECT_EQ(boxes.at(0).text, "Negalima atsukti darbo pradžios periodo!");
}

TEST_P(MonthBack, RowsWithoutAMonthAreNotCounted)
{
    startOfWork(2026, 1, 1);
    books().ExecSQL("insert into bd_period values (7, 2027, 0, NULL)");
    NextBoxes boxes{QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(0).text, "Negalima atsukti darbo pradžios periodo!");
}

TEST_P(MonthBack, AsksTwiceAndStopsAtEitherNo)
{
    oneMonthClosed();
    const QStringList closed = dump(books());
    {
        NextBoxes boxes{QMessageBox::No};
        PeriodBack();
        EXPECT_EQ(boxes.at(0).kind, 18);
        EXPECT_EQ(boxes.at(0).text, "Atsukant periodą bus ištrinti paskutinio periodo likučiai!");
    }
    {
        NextBoxes boxes{QMessageBox::Yes, QMessageBox::No};
        PeriodBack();
        EXPECT_EQ(boxes.at(1).kind, 18);
        EXPECT_EQ(boxes.at(1).text, "Ar visos lentelės uždarytos?");
    }
    EXPECT_EQ(dump(books()), closed);
    EXPECT_EQ(EinPer_Id(), 7);
}

TEST_P(MonthBack, TheBooksAreAsBeforeTheClose)
{
    oneMonthClosed();
    ASSERT_EQ(EinPer_Id(), 7);
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(2).kind, 33);
    EXPECT_EQ(boxes.at(2).text, "Periodas atsuktas sėkmingai.");
    EXPECT_EQ(dump(books()), before);
    EXPECT_EQ(EinPer_Id(), 6);
    EXPECT_EQ(EinPer_Date().date(), QDate(2026, 1, 1));
    EXPECT_EQ(Perback::PerBackDlg, nullptr);
}

TEST_P(MonthBack, AFailureIsToldAndChangesNothing)
{
    oneMonthClosed();
    const QStringList closed = dump(books());
    refuseDeleting("bd_period");
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(2).kind, 49);
    EXPECT_EQ(boxes.at(2).text, "Neįmanoma atsukti darbo pradžios periodo");
    EXPECT_EQ(dump(books()), closed);
    EXPECT_EQ(EinPer_Id(), 7);
    EXPECT_FALSE(books().InTransaction());
    EXPECT_EQ(Perback::PerBackDlg, nullptr);
}

// --- another station

TEST_P(MonthBack, TheMonthThatAnotherStationOpenedSinceIsTheOneRolledBack)
{
    oneMonthClosed();
    const QStringList closed = dump(books());
    secondFin()->ExecSQL("call Close_Per()");
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(2).text, "Periodas atsuktas sėkmingai.");
    EXPECT_EQ(dump(books()), closed);
    EXPECT_EQ(EinPer_Id(), 7);
}

TEST_P(MonthBack, AMonthClosedByAnotherStationMeanwhileIsNotRolledBack)
{
    oneMonthClosed();
    QStringList further;
    // The other station acts while this one is asked.
    OnNextDialog<QMessageBox> asked([this, &further](QMessageBox &box) {
        secondFin()->ExecSQL("call Close_Per()");
        further = dump(books());
        box.button(QMessageBox::Yes)->click();
    });
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(1).kind, 49);
    EXPECT_EQ(boxes.at(1).text, "Periodas 2026 m. vasaris jau nebe einamasis. Dabar einamasis periodas yra "
                                "2026 m. kovas; jis nepakeistas.");
    EXPECT_EQ(dump(books()), further);
    EXPECT_EQ(EinPer_Id(), 8);
    EXPECT_FALSE(books().InTransaction());
    EXPECT_EQ(Perback::PerBackDlg, nullptr);
}

TEST_P(MonthBack, AMonthRolledBackByAnotherStationMeanwhileLeavesTheOneBefore)
{
    oneMonthClosed();
    books().ExecSQL("call Close_Per()");
    OnNextDialog<QMessageBox> asked([this](QMessageBox &box) {
        secondFin()->ExecSQL("call Back_Per()");
        box.button(QMessageBox::Yes)->click();
    });
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(1).text, "Periodas 2026 m. kovas jau nebe einamasis. Dabar einamasis periodas yra "
                                "2026 m. vasaris; jis nepakeistas.");
    EXPECT_EQ(EinPer_Id(), 7);
}

TEST_P(MonthBack, WhenTheCurrentPeriodCannotBeReadAfterwardsItIsStillToldAsDone)
{
    oneMonthClosed();
    const WhenHidden broken("ProgressBar", [this] {
        secondFin()->nativeExec("alter table bd_period rename to bd_period_dingo");
    });
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok, QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(3).text, "Periodas atsuktas sėkmingai.");
    secondFin()->nativeExec("alter table bd_period_dingo rename to bd_period");
    EXPECT_EQ(dump(*secondFin()), before);
}
