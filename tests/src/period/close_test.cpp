#include "src/period/Closeperiod.h"

#include "tests/src/open_books.h"
#include "tests/src/period/when_hidden.h"
#include "tests/support/message_box.h"

#include <QTest>
#include <QTimer>

using Closeperiod::StartPerClose;
using Closeperiod::TPerCloseDlg;

namespace {

const QString differ = "Neįmanoma uždaryti periodo, kol nelygios debeto ir kredito sumos";
const QString done = "Periodas uždarytas sekmingai";

class MonthClose : public OnOpenBooks {
protected:
    // Two opening balances with these totals.
    void openingTotals(double debit, double credit)
    {
        startOfWork(2026, 1, 1);
        balance(account("241"), debit, 0);
        balance(account("401"), 0, credit);
    }

    QStringList months()
    {
        return rows(books(), "select * from bd_period where per_menuo > 0 order by per_id");
    }
};
ON_BOTH_ENGINES(MonthClose);

// Starts the close and answers the question with yes; the dialog is started and its message confirmed.
QString closeAndTell()
{
    QString told;
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([&told](TPerCloseDlg &shown) {
        NextBoxes end{QMessageBox::Ok};
        pressButton(shown, "Pradėti");
        told = end.at(0).text;
    });
    StartPerClose();
    return told;
}

// Starts the close where the dialog must not come up; returns the message shown instead.
ShownBox closeRefused()
{
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    StartPerClose();
    EXPECT_EQ(Closeperiod::PerCloseDlg, nullptr);
    return boxes.at(1);
}

} // namespace

TEST_P(MonthClose, AsksWhetherTheTablesAreClosed)
{
    startOfWork(2026, 1, 1);
    const QStringList before = dump(books());
    NextBoxes question{QMessageBox::No};
    StartPerClose();
    EXPECT_EQ(question.at(0).kind, 18);
    EXPECT_EQ(question.at(0).text, "Ar visos lentelės uždarytos?");
    EXPECT_EQ(dump(books()), before);
}

TEST_P(MonthClose, NamesTheOldAndTheNewPeriod)
{
    startOfWork(2025, 4, 3);
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([](TPerCloseDlg &shown) {
        EXPECT_EQ(shown.windowTitle(), "Periodo uždarymas");
        EXPECT_EQ(shown.findChild<QLabel *>("OldPer")->text(), "2025 m. gruodis");
        EXPECT_EQ(shown.findChild<QLabel *>("NewPer")->text(), "2026 m. sausis");
        EXPECT_FALSE(shown.findChild<TAnimate *>()->isVisible());
        pressButton(shown, "&Atšaukti");
    });
    StartPerClose();
    EXPECT_EQ(months(), QStringList("6|2025|4|3"));
}

TEST_P(MonthClose, TheNextMonthBecomesCurrent)
{
    openingTotals(1000, 1000);
    EXPECT_EQ(closeAndTell(), done);
    EXPECT_EQ(months(), QStringList({"6|2026|1|1", "7|2026|1|2"}));
    EXPECT_EQ(EinPer_Id(), 7);
    EXPECT_EQ(EinPer_Date().date(), QDate(2026, 2, 1));
    EXPECT_EQ(
        rows(books(), "select ssl_sum_db, ssl_sum_kr from bd_saslik where ssl_perid = 7 order by ssl_sum_db"),
        QStringList({"0|1000", "1000|0"}));
}

TEST_P(MonthClose, TotalsThatRoundToTheSameWholeNumberAreEqual)
{
    openingTotals(1000.40, 1000.00);
    EXPECT_EQ(closeAndTell(), done);
}

TEST_P(MonthClose, HalvesRoundToEven)
{
    openingTotals(1000.50, 1000.00);
    EXPECT_EQ(closeAndTell(), done);
}

TEST_P(MonthClose, TotalsJustBelowAndAboveTheWholeNumberAreEqual)
{
    openingTotals(1000.49, 999.51);
    EXPECT_EQ(closeAndTell(), done);
}

TEST_P(MonthClose, TotalsThatDifferRefuseTheFirstClose)
{
    openingTotals(1000.60, 1000.00);
    const ShownBox box = closeRefused();
    EXPECT_EQ(box.kind, 81);
    EXPECT_EQ(box.text, differ);
    EXPECT_EQ(months().size(), 1);
}

TEST_P(MonthClose, AHalfAndABitMoreDiffer)
{
    openingTotals(1000.51, 1000.50);
    EXPECT_EQ(closeRefused().text, differ);
}

TEST_P(MonthClose, WithoutBalancesTheFirstCloseProceeds)
{
    startOfWork(2026, 1, 1);
    EXPECT_EQ(closeAndTell(), done);
}

TEST_P(MonthClose, LaterMonthsAreClosedWithoutTheCheck)
{
    openingTotals(1000, 1000);
    closeAndTell();
    books().ExecSQL("update bd_saslik set ssl_sum_db = 5 where ssl_perid = 7 and ssl_sum_db <> 0");
    EXPECT_EQ(closeAndTell(), done);
    EXPECT_EQ(EinPer_Id(), 8);
}

TEST_P(MonthClose, AfterDecemberComeTheYearAndItsQuarters)
{
    startOfWork(2025, 4, 3);
    EXPECT_EQ(closeAndTell(), done);
    EXPECT_EQ(
        rows(books(), "select * from bd_period where per_id > 6 order by per_id"),
        QStringList({"7|2026|0|0", "8|2026|1|0", "9|2026|2|0", "10|2026|3|0", "11|2026|4|0", "12|2026|1|1"}));
    EXPECT_EQ(EinPer_Date().date(), QDate(2026, 1, 1));
}

TEST_P(MonthClose, ABalanceTableThatCannotBeReadIsTold)
{
    startOfWork(2026, 1, 1);
    books().nativeExec("alter table bd_saslik rename to bd_saslik_dingo");
    const ShownBox box = closeRefused();
    EXPECT_EQ(box.kind, 49);
    EXPECT_EQ(box.text, "Neimanoma atydariti sąskaitų likučių lentelės");
}

TEST_P(MonthClose, AFailureRestoresTheButtonsAndChangesNoRow)
{
    openingTotals(1000, 1000);
    refuseInserting("bd_period", "per_id > 6");
    const QStringList before = dump(books());
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([](TPerCloseDlg &shown) {
        NextBoxes failure{QMessageBox::Ok};
        pressButton(shown, "Pradėti");
        EXPECT_TRUE(failure.at(0).text.contains("sugadinta tyčia"));
        EXPECT_TRUE(shown.isVisible());
        EXPECT_TRUE(shown.findChild<QPushButton *>("StartBtn")->isEnabled());
        EXPECT_TRUE(shown.findChild<QPushButton *>("CancelBtn")->isVisible());
        EXPECT_FALSE(shown.findChild<TAnimate *>()->isVisible());
        pressButton(shown, "&Atšaukti");
    });
    StartPerClose();
    EXPECT_EQ(dump(books()), before);
    EXPECT_EQ(EinPer_Id(), 6);
    EXPECT_FALSE(books().InTransaction());
}

TEST_P(MonthClose, TheAnimationMovesWhileTheDatabaseWorks)
{
    startOfWork(2026, 1, 1);
    slowDownInserting("bd_period");
    int frames = 0;
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([&frames](TPerCloseDlg &shown) {
        const auto *animation = shown.findChild<TAnimate *>();
        QTimer watcher;
        QObject::connect(&watcher, &QTimer::timeout, animation,
                         [&frames, animation] { frames = qMax(frames, animation->frame()); });
        watcher.start(5);
        NextBoxes end{QMessageBox::Ok};
        pressButton(shown, "Pradėti");
    });
    StartPerClose();
    EXPECT_GE(frames, 3);
}

TEST_P(MonthClose, WithoutAPeriodItSaysSoInsteadOfOpening)
{
    const ShownBox box = closeRefused();
    EXPECT_EQ(box.kind, 81);
    EXPECT_EQ(box.text, "Darbo pradžios periodas nenustatytas");
}

TEST_P(MonthClose, ItsWindowHasNoButtonsAndEscCloses)
{
    startOfWork(2026, 1, 1);
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([](TPerCloseDlg &shown) {
        EXPECT_FALSE(shown.windowFlags() & (Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                                            Qt::WindowCloseButtonHint | Qt::WindowContextHelpButtonHint));
        EXPECT_TRUE(shown.windowFlags() & Qt::CustomizeWindowHint);
        QTest::keyClick(&shown, Qt::Key_Escape);
        EXPECT_FALSE(shown.isVisible());
    });
    StartPerClose();
    EXPECT_EQ(months().size(), 1);
}

TEST_P(MonthClose, EnterOnTheRefusalClosesNothing)
{
    startOfWork(2026, 1, 1);
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([](TPerCloseDlg &shown) {
        auto *refusal = shown.findChild<QPushButton *>("CancelBtn");
        refusal->setFocus();
        QTest::keyClick(refusal, Qt::Key_Return);
        EXPECT_FALSE(shown.isVisible());
    });
    StartPerClose();
    EXPECT_EQ(months().size(), 1);
}

TEST_P(MonthClose, ItIsNotLeftWhileItRuns)
{
    startOfWork(2026, 1, 1);
    slowDownInserting("bd_period");
    bool left = false;
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([&left](TPerCloseDlg &shown) {
        const auto *animation = shown.findChild<TAnimate *>();
        const auto former = TDatabase::setBusyHook([&shown, &left, animation] {
            EXPECT_TRUE(animation->isVisible());
            shown.reject();
            shown.close();
            left = left || !shown.isVisible();
        });
        NextBoxes end{QMessageBox::Ok};
        pressButton(shown, "Pradėti");
        TDatabase::setBusyHook(former);
        EXPECT_EQ(end.at(0).text, done);
    });
    StartPerClose();
    EXPECT_FALSE(left);
}

// --- another station, and what is lost on the way

TEST_P(MonthClose, ShowsTheMonthThatAnotherStationOpened)
{
    openingTotals(1000, 1000);
    secondFin()->ExecSQL("call Close_Per()");
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([](TPerCloseDlg &shown) {
        EXPECT_EQ(shown.findChild<QLabel *>("OldPer")->text(), "2026 m. vasaris");
        EXPECT_EQ(shown.findChild<QLabel *>("NewPer")->text(), "2026 m. kovas");
        pressButton(shown, "&Atšaukti");
    });
    StartPerClose();
    EXPECT_EQ(EinPer_Id(), 7);
}

TEST_P(MonthClose, AMonthThatAnotherStationClosedSinceClosesNoOther)
{
    openingTotals(1000, 1000);
    QStringList closed;
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([this, &closed](TPerCloseDlg &shown) {
        secondFin()->ExecSQL("call Close_Per()");
        closed = dump(books());
        NextBoxes told{QMessageBox::Ok};
        pressButton(shown, "Pradėti");
        EXPECT_EQ(told.at(0).kind, 49);
        EXPECT_EQ(told.at(0).text, "Periodas 2026 m. sausis jau nebe einamasis. Dabar einamasis periodas yra "
                                   "2026 m. vasaris; jis nepakeistas.");
        EXPECT_FALSE(shown.isVisible());
        EXPECT_EQ(shown.result(), QDialog::Rejected);
    });
    StartPerClose();
    EXPECT_EQ(dump(books()), closed);
    EXPECT_EQ(EinPer_Id(), 7);
    EXPECT_FALSE(books().InTransaction());
}

TEST_P(MonthClose, AStartOfWorkSetAnewMeanwhileIsAnotherMonth)
{
    openingTotals(1000, 1000);
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([this](TPerCloseDlg &shown) {
        secondFin()->ExecSQL("update bd_period set per_metai = 2025");
        NextBoxes told{QMessageBox::Ok};
        pressButton(shown, "Pradėti");
        EXPECT_TRUE(told.at(0).text.contains("einamasis periodas yra 2025 m. sausis"));
    });
    StartPerClose();
    EXPECT_EQ(months(), QStringList("6|2025|1|1"));
}

TEST_P(MonthClose, PeriodsThatAreGoneMeanwhileAreTold)
{
    openingTotals(1000, 1000);
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([this](TPerCloseDlg &shown) {
        secondFin()->ExecSQL("delete from bd_period");
        NextBoxes told{QMessageBox::Ok};
        pressButton(shown, "Pradėti");
        EXPECT_EQ(told.at(0).text,
                  "Periodas 2026 m. sausis jau nebe einamasis. Darbo pradžios periodas nenustatytas.");
    });
    StartPerClose();
    EXPECT_EQ(months(), QStringList());
}

TEST_P(MonthClose, EndsAlsoWhenTheCurrentPeriodCannotBeReadAfterwards)
{
    openingTotals(1000, 1000);
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([this](TPerCloseDlg &shown) {
        const WhenHidden broken("StartedProg", [this] {
            secondFin()->nativeExec("alter table bd_period rename to bd_period_dingo");
        });
        NextBoxes told{QMessageBox::Ok, QMessageBox::Ok};
        pressButton(shown, "Pradėti");
        EXPECT_EQ(told.at(1).text, done);
        EXPECT_FALSE(shown.isVisible());
        EXPECT_EQ(shown.result(), QDialog::Accepted);
    });
    StartPerClose();
    secondFin()->nativeExec("alter table bd_period_dingo rename to bd_period");
    EXPECT_EQ(months().size(), 2);
    FollowPeriod();
    EXPECT_EQ(EinPer_Id(), 7);
}

namespace {
class MonthCloseOnServer : public MonthClose {
protected:
    // The connection ends at the very moment of the commit.
    void loseTheServerAtCommit()
    {
        books().nativeExec("create function f_end() returns trigger language plpgsql security definer as "
                           "$$ begin perform pg_terminate_backend(pg_backend_pid()); return null; end $$;"
                           "create constraint trigger t_end after insert on bd_period "
                           "deferrable initially deferred for each row execute function f_end()");
    }
};
ON_ENGINE(MonthCloseOnServer, Engine::PostgreSql);
} // namespace

TEST_P(MonthCloseOnServer, ASecondPressAfterALostAnswerClosesNoSecondMonth)
{
    openingTotals(1000, 1000);
    loseTheServerAtCommit();
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([this](TPerCloseDlg &shown) {
        NextBoxes told{QMessageBox::Ok, QMessageBox::Ok};
        pressButton(shown, "Pradėti");
        EXPECT_TRUE(told.at(0).text.contains("patikrinta: Neįrašyta"));
        EXPECT_TRUE(shown.isVisible());
        // As if the commit had reached the server and only its answer had not come.
        secondFin()->nativeExec("drop trigger t_end on bd_period");
        secondFin()->ExecSQL("call Close_Per()");
        pressButton(shown, "Pradėti");
        EXPECT_TRUE(told.at(1).text.contains("einamasis periodas yra 2026 m. vasaris"));
        EXPECT_FALSE(shown.isVisible());
    });
    StartPerClose();
    EXPECT_EQ(months(), QStringList({"6|2026|1|1", "7|2026|1|2"}));
    EXPECT_EQ(EinPer_Id(), 7);
}

TEST_P(MonthCloseOnServer, TwoStationsThatStartTogetherCloseOneMonth)
{
    openingTotals(1000, 1000);
    const auto other = open(finSettings());
    other->StartTransaction();
    other->ExecSQL("call Close_Per()");
    NextBoxes question{QMessageBox::Yes};
    OnNextDialog<TPerCloseDlg> dialog([&other](TPerCloseDlg &shown) {
        // This one waits for the other, which commits meanwhile.
        const auto former = TDatabase::setBusyHook([&other] {
            if (other->InTransaction())
                other->Commit();
        });
        NextBoxes told{QMessageBox::Ok};
        pressButton(shown, "Pradėti");
        TDatabase::setBusyHook(former);
        EXPECT_TRUE(told.at(0).text.contains("einamasis periodas yra 2026 m. vasaris"));
    });
    StartPerClose();
    EXPECT_EQ(months().size(), 2);
}
