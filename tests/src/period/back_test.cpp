#include "src/period/Perback.h"

#include "tests/src/open_books.h"
#include "tests/src/period/when_hidden.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/message_box.h"
#include "tests/support/postgres.h"
#include "toolkit/data/server_link.h"
#include "toolkit/widgets/guard.h"

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

// --- a server that goes away while it commits

namespace {

class MonthBackOnServer : public MonthBack {
protected:
    void SetUp() override
    {
        MonthBack::SetUp();
        TSessionSettings overProxy = finSettings();
        overProxy.connInfo.replace(postgresFolder(), proxy.folder());
        setMainDatas(std::make_unique<TMainDatas>(overProxy, ravlSettings()));
        MainDatas()->Open();
        oneMonthClosed();
        books().ExecSQL("call Close_Per()");
        GetPeriod();
    }

    // Rolls back; the server is away before its answer comes, and back again before the next press.
    void rollBackWithoutAnswer(CuttingProxy::Cut cut)
    {
        const int patience = setSeekPatience(1'000);
        proxy.cutAt(cut, true);
        NextBoxes boxes{QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
        PeriodBack();
        EXPECT_TRUE(boxes.at(2).text.contains("kol kas nežinoma")) << boxes.at(2).text.toStdString();
        NextBoxes again{QMessageBox::Ok};
        runGuarded(nullptr, [] { PeriodBack(); });
        EXPECT_TRUE(again.at(0).text.contains("kol kas nežinoma")) << again.at(0).text.toStdString();
        proxy.comeBack();
        setSeekPatience(patience);
    }
    QStringList months() { return rows(*secondFin(), "select per_id from bd_period where per_menuo > 0"); }

    CuttingProxy proxy{postgresFolder()};
};
ON_ENGINE(MonthBackOnServer, Engine::PostgreSql);

} // namespace

TEST_P(MonthBackOnServer, ASecondPressAfterALostAnswerRollsBackNoSecondMonth)
{
    rollBackWithoutAnswer(CuttingProxy::Cut::AfterCommit);
    NextBoxes boxes{QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(0).text, "Periodas atsuktas sėkmingai.");
    EXPECT_EQ(months(), QStringList({"6", "7"}));
    EXPECT_EQ(EinPer_Id(), 7);
}

TEST_P(MonthBackOnServer, WhatWasNotRolledBackIsAskedForOnceMore)
{
    rollBackWithoutAnswer(CuttingProxy::Cut::BeforeCommit);
    EXPECT_EQ(months(), QStringList({"6", "7", "8"}));
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(2).text, "Periodas atsuktas sėkmingai.");
    EXPECT_EQ(months(), QStringList({"6", "7"}));
}

TEST_P(MonthBackOnServer, WhereNobodyCanTellTheNextOneIsOfTheSameMonthOrOfNone)
{
    setCommitWitness(books(), "select null::boolean where '%1' <> ''");
    rollBackWithoutAnswer(CuttingProxy::Cut::AfterCommit);
    NextBoxes nobody{QMessageBox::Ok};
    runGuarded(nullptr, [] { PeriodBack(); });
    EXPECT_TRUE(nobody.at(0).text.contains("sužinoti nepavyko")) << nobody.at(0).text.toStdString();
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
    PeriodBack();
    EXPECT_EQ(boxes.at(2).text, "Periodas 2026 m. kovas jau nebe einamasis. Dabar einamasis periodas yra "
                                "2026 m. vasaris; jis nepakeistas.");
    EXPECT_EQ(months(), QStringList({"6", "7"}));
}
