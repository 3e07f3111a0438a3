#include "tests/database/routines_books.h"

#include <QThread>

using namespace Qt::StringLiterals;

using Periods = SmallBooks;
ON_BOTH_ENGINES(Periods);

namespace {
const auto allPeriods = u"select per_id, per_metai, per_ketv, per_menuo from bd_period order by per_id"_s;
const auto accountBalances =
    u"select ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr from bd_saslik order by ssl_perid, ssl_sasid, ssl_id"_s;
} // namespace

TEST_P(Periods, CloseAddsTheNextMonth)
{
    startOfWork(2005, 2);
    close(2);
    EXPECT_EQ(select(u"select * from bd_period where per_menuo > 0 order by per_id"_s),
              (QStringList{u"6|2005|1|2"_s, u"7|2005|1|3"_s, u"8|2005|2|1"_s}));
}

TEST_P(Periods, CloseOfDecemberAddsTheYearAndItsQuartersFirst)
{
    startOfWork(2005, 12);
    close();
    EXPECT_EQ(select(allPeriods).mid(6), (QStringList{u"7|2006|0|0"_s, u"8|2006|1|0"_s, u"9|2006|2|0"_s,
                                                      u"10|2006|3|0"_s, u"11|2006|4|0"_s, u"12|2006|1|1"_s}));
}

TEST_P(Periods, CloseOfDecemberKeepsAYearThatIsThereAlready)
{
    startOfWork(2005, 12);
    for (int quarter = 0; quarter <= 4; ++quarter)
        run(u"insert into bd_period values (%1, 2006, %2, 0)"_s.arg(quarter + 20).arg(quarter));
    close();
    EXPECT_EQ(select(allPeriods).mid(11), (QStringList{u"25|2006|1|1"_s}));
}

TEST_P(Periods, CloseCarriesOpeningAndEntriesNetOnOneSide)
{
    startOfWork(2005, 1);
    balance(cash, 6, 100.10, 0);
    balance(receivable, 6, 0, 30);
    entry(cash, 6, 0, 150.25);
    entry(receivable, 6, 30.5, 0);
    close();
    EXPECT_EQ(select(accountBalances),
              (QStringList{u"1|6|100.1|0"_s, u"2|6|0|30"_s, u"1|7|0|50.15"_s, u"2|7|0.5|0"_s}));
}

TEST_P(Periods, CloseMakesOneBalanceOfSeveralOfAnAccount)
{
    startOfWork(2005, 1);
    balance(cash, 6, 10, 0);
    balance(cash, 6, 5, 0);
    balance(cash, 6, 0, 1);
    close();
    EXPECT_EQ(select(accountBalances).mid(3), (QStringList{u"1|7|14|0"_s}));
}

TEST_P(Periods, CloseCarriesAnAccountThatOnlyEntriesName)
{
    startOfWork(2005, 1);
    entry(payable, 6, 0, 12.3456);
    close();
    EXPECT_EQ(select(accountBalances), (QStringList{u"3|7|0|12.3456"_s}));
}

TEST_P(Periods, WhatComesToNothingIsNotCarried)
{
    startOfWork(2005, 1);
    for (int i = 0; i < 10; ++i)
        entry(cash, 6, 0.10, 0);
    balance(cash, 6, 0, 1);
    balance(receivable, 6, 0.3, 0);
    entry(receivable, 6, 0, 0.1);
    entry(receivable, 6, 0, 0.2);
    close();
    EXPECT_EQ(one(u"select count(*) from bd_saslik where ssl_perid = 7"_s), u"0");
}

TEST_P(Periods, CloseTakesOnlyTheEntriesOfTheMonth)
{
    startOfWork(2005, 1);
    entry(cash, 6, 5, 0);
    close();
    entry(cash, 99, 100, 0);
    entry(cash, 7, 1, 0);
    close();
    EXPECT_EQ(select(accountBalances), (QStringList{u"1|7|5|0"_s, u"1|8|6|0"_s}));
}

TEST_P(Periods, CloseCarriesTheThreeKindsOfExpensesOfANode)
{
    startOfWork(2005, 1);
    run(u"insert into bd_isllik values (1, 6, 10, 100, 0, 0, 20, 7, 0)"_s);
    run(u"insert into bd_isllik values (2, 6, 11, 1, 0, 0, 0, 0, 0)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_jveid, irs_asig_kr, irs_kas_db, irs_fak_kr) "
        "values (1, 6, 10, 40, 50, 7)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_jveid, irs_asig_kr) values (2, 6, 11, 1)"_s);
    close();
    EXPECT_EQ(
        select(u"select sml_jveid, sml_asig_db, sml_asig_kr, sml_kas_db, sml_kas_kr, sml_fak_db, sml_fak_kr "
               "from bd_isllik where sml_perid = 7"_s),
        (QStringList{u"10|60|0|30|0|0|0"_s}));
}

TEST_P(Periods, CloseCarriesDebtorsByCounterpartyAndDepartment)
{
    startOfWork(2005, 1);
    run(u"insert into bd_dbkrlik values (1, 6, 5, NULL, NULL, NULL, 10, 0, NULL)"_s);
    run(u"insert into bd_dbkrlik values (2, 6, 5, NULL, NULL, NULL, 3, 0, 1)"_s);
    run(u"insert into bd_dbkrlik values (3, 6, NULL, 2, 123, 'Jonas', 0, 4, NULL)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_kr, irs_dkaid) values (1, 6, 2, 12, 5)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db, irs_dkaid) values (2, 6, 1, 99, 5)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_kr, irs_dkaid, irs_padid) "
        "values (3, 6, 3, 3, 5, 1)"_s);
    close();
    EXPECT_EQ(select(u"select dkl_dkaid, dkl_sasid, dkl_i_kod, dkl_pavad, dkl_sum_db, dkl_sum_kr, dkl_padid "
                     "from bd_dbkrlik where dkl_perid = 7 order by dkl_sum_kr"_s),
              (QStringList{u"5|NULL|NULL|NULL|0|2|NULL"_s, u"NULL|2|123|Jonas|0|4|NULL"_s}));
}

TEST_P(Periods, BackRemovesTheLastMonthAndItsBalances)
{
    startOfWork(2005, 1);
    balance(cash, 6, 5, 0);
    run(u"insert into bd_isllik values (1, 6, 10, 100, 0, 0, 0, 0, 0)"_s);
    run(u"insert into bd_dbkrlik values (1, 6, 5, NULL, NULL, NULL, 10, 0, NULL)"_s);
    const QStringList before = dump(*mnFin_Db);
    close();
    EXPECT_NE(dump(*mnFin_Db), before);
    back();
    EXPECT_EQ(dump(*mnFin_Db), before);
}

TEST_P(Periods, BackOverTheYearBoundaryRemovesTheYearAndItsQuarters)
{
    startOfWork(2005, 12);
    const QStringList before = select(allPeriods);
    close();
    back();
    EXPECT_EQ(select(allPeriods), before);
}

TEST_P(Periods, BackLeavesTheYearWhileItHasAnotherMonth)
{
    startOfWork(2005, 12);
    close(2);
    back();
    EXPECT_EQ(select(allPeriods).size(), 12);
    EXPECT_EQ(one(u"select get_last_per_id() from dummy"_s), u"12");
}

TEST_P(Periods, BackLeavesAYearThatEstimatesReferTo)
{
    startOfWork(2005, 12);
    close();
    run(u"insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata) values (1, 10, 9, 5)"_s);
    back();
    EXPECT_EQ(select(allPeriods).size(), 11);
    EXPECT_EQ(one(u"select get_last_per_id() from dummy"_s), u"6");
    close();
    EXPECT_EQ(select(allPeriods).mid(11), (QStringList{u"12|2006|1|1"_s}));
}

TEST_P(Periods, BackRefusesTheStartOfWork)
{
    startOfWork(2005, 1);
    EXPECT_EQ(errorOf(u"call Back_Per()"_s), u"Negalima atsukti darbo pradžios periodo!");
    EXPECT_EQ(select(allPeriods).size(), 6);
}

TEST_P(Periods, EntriesOfARemovedMonthCountWhenItComesAgain)
{
    startOfWork(2005, 12);
    close();
    entry(cash, 12, 8, 0);
    back();
    close(2);
    EXPECT_EQ(select(accountBalances), (QStringList{u"1|13|8|0"_s}));
}

TEST_P(Periods, AnEmptyPeriodTableCanNeitherBeClosedNorRolledBack)
{
    EXPECT_EQ(errorOf(u"call Close_Per()"_s), u"Nenustatytas darbo pradžios periodas.");
    EXPECT_EQ(errorOf(u"call Back_Per()"_s), u"Nenustatytas darbo pradžios periodas.");
}

TEST_P(Periods, AFailingCloseChangesNothing)
{
    startOfWork(2005, 1);
    balance(cash, 6, 99'999'999'999.0, 0);
    balance(cash, 6, 99'999'999'999.0, 0); // together more than a balance can hold
    const QStringList before = dump(*mnFin_Db);
    EXPECT_THROW(close(), EDatabaseError);
    EXPECT_EQ(dump(*mnFin_Db), before);
    TTransaction tran(mnFin_Db);
    entry(payable, 6, 1, 0);
    if (engine() == Engine::Sqlite) { // the server gives up the whole transaction
        EXPECT_THROW(close(), EDatabaseError);
        EXPECT_EQ(select(allPeriods).size(), 6);
    }
}

TEST_P(Periods, ACloseThatIsRolledBackNeverWas)
{
    startOfWork(2005, 1);
    balance(cash, 6, 5, 0);
    const QStringList before = dump(*mnFin_Db);
    mnFin_Db->StartTransaction();
    close();
    EXPECT_EQ(one(u"select get_last_per_id() from dummy"_s), u"7");
    mnFin_Db->Rollback();
    EXPECT_EQ(dump(*mnFin_Db), before);
}

TEST_P(Periods, ASecondRowOfTheSameMonthIsRefused)
{
    startOfWork(2005, 1);
    EXPECT_THROW(run(u"insert into bd_period values (7, 2005, 1, 1)"_s), EConstraintError);
}

TEST_P(Periods, ThePeriodTableTakesRowsWithoutAMonth)
{
    startOfWork(2005, 1);
    run(u"insert into bd_period values (7, 2006, 0, NULL)"_s);
    EXPECT_EQ(one(u"select get_last_per_id() from dummy"_s), u"6");
    EXPECT_EQ(one(u"select GetDateByPeriodId(7) from dummy"_s), u"2006-01-01");
}

TEST_P(Periods, TheFirstDayOfAPeriod)
{
    startOfWork(2005, 11);
    EXPECT_EQ(select(u"select GetDateByPeriodId(per_id) from bd_period order by per_id"_s),
              (QStringList{u"2005-01-01"_s, u"2005-01-01"_s, u"2005-04-01"_s, u"2005-07-01"_s,
                           u"2005-10-01"_s, u"2005-11-01"_s}));
    EXPECT_EQ(one(u"select GetDateByPeriodId(99) from dummy"_s), u"NULL");
}

TEST_P(Periods, ADateAsText)
{
    startOfWork(2005, 11);
    EXPECT_EQ(one(u"select DATEFORMAT(GetDateByPeriodId(6),'yyyy.mm.dd') from dummy"_s), u"2005.11.01");
}

TEST_P(Periods, NoPeriodIsTheLastOfAnEmptyTable)
{
    EXPECT_EQ(one(u"select get_last_per_id() from dummy"_s), u"NULL");
}

TEST_P(Periods, TwoClosesAtOnceNeverMakeOneMonthTwice)
{
    startOfWork(2005, 1);
    balance(cash, 6, 5, 0);
    mnFin_Db->StartTransaction();
    close();
    QString failure;
    const TSessionSettings settings = finSettings();
    const std::unique_ptr<QThread> other(QThread::create([&] {
        try {
            open(settings)->ExecSQL(u"call Close_Per()"_s);
        } catch (const Exception &error) {
            failure = error.message();
        }
    }));
    other->start();
    QThread::msleep(300);
    mnFin_Db->Commit();
    other->wait();
    // The server tells the one that waited; a file's station starts afresh with the month that it finds.
    const QString months = engine() == Engine::Sqlite ? u"3"_s : u"2"_s;
    EXPECT_EQ(failure,
              engine() == Engine::Sqlite ? QString() : u"Periodą ką tik pakeitė kita darbo vieta."_s);
    EXPECT_EQ(one(u"select count(*) from bd_period where per_menuo > 0"_s), months);
    EXPECT_EQ(one(u"select count(*) from bd_saslik"_s), months);
    EXPECT_EQ(one(u"select count(distinct ssl_perid) from bd_saslik"_s), months);
}

TEST_P(Periods, WhatOlderBooksLeftInTheNextMonthIsNoPartOfIt)
{
    startOfWork(2005, 1);
    balance(cash, 6, 5, 0);
    run(u"insert into bd_isllik values (1, 6, 10, 100, 0, 0, 0, 0, 0)"_s);
    close();
    run(u"delete from bd_period"_s);
    startOfWork(2006, 3);
    close();
    EXPECT_EQ(select(accountBalances), (QStringList{u"1|6|5|0"_s, u"1|7|5|0"_s}));
    EXPECT_EQ(one(u"select count(*) from bd_isllik"_s), u"2");
}
