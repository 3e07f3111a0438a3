#include "tests/database/routines_books.h"

#include <QProcess>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

const QString marchIsClosed = u"2025 m. kovo mėnuo uždarytas: jo įrašai ir sąskaitų likučiai nekeičiami."_s;

// March is closed (period 6), April is open (7); each has journal lines and balances.
class ClosedMonths : public SmallBooks {
protected:
    void SetUp() override
    {
        SmallBooks::SetUp();
        startOfWork(2025, 3);
        balance(cash, 6, 100, 0); // ssl_id 1
        balance(payable, 6, 0, 100);
        entry(cash, 6, 0, 5); // irs_id 1
        entry(payable, 6, 5, 0);
        close();
        entry(cash, 7, 3, 0); // irs_id 3
    }

    // Nothing of the statement is done, and what is said names the month.
    void expectRefused(const QString &statement)
    {
        const QStringList before = dump(*mnFin_Db);
        try {
            mnFin_Db->nativeExec(statement);
            ADD_FAILURE() << statement.toStdString() << " was carried out";
        } catch (const EDatabaseError &error) {
            EXPECT_EQ(error.message(), marchIsClosed) << statement.toStdString();
        }
        EXPECT_EQ(dump(*mnFin_Db), before) << statement.toStdString();
    }

    // Runs the statements at the same time as what is already begun on the first session. What it failed
    // with.
    std::unique_ptr<QThread> elsewhere(const QString &statement, QString &failure)
    {
        std::unique_ptr<QThread> other(QThread::create([this, statement, &failure] {
            try {
                open(finSettings())->ExecSQL(statement);
            } catch (const Exception &error) {
                failure = error.message();
            }
        }));
        other->start();
        QThread::msleep(300);
        return other;
    }

    // What the engine's own shell answers.
    QString shell(const QString &statement)
    {
        QProcess process;
        if (engine() == Engine::Sqlite)
            process.start(u"sqlite3"_s, {finSettings().file, statement});
        else
            process.start(u"psql"_s, {u"-X"_s, u"-c"_s, statement, finSettings().connInfo});
        EXPECT_TRUE(process.waitForFinished());
        return QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError());
    }
};
ON_BOTH_ENGINES(ClosedMonths);

class ClosedMonthsOnSqlite : public ClosedMonths {};
ON_ENGINE(ClosedMonthsOnSqlite, Engine::Sqlite);

class ClosedMonthsOnServer : public ClosedMonths {};
ON_ENGINE(ClosedMonthsOnServer, Engine::PostgreSql);

} // namespace

// --- what is refused

TEST_P(ClosedMonths, TakeNoNewBalance)
{
    expectRefused(u"insert into bd_saslik values (90, 1, 6, 1, 0)"_s);
    expectRefused(u"insert into bd_saslik select 90 + ssl_id, ssl_sasid, ssl_perid, 1, 0 from bd_saslik"_s);
}

TEST_P(ClosedMonths, KeepTheirBalancesAsTheyAre)
{
    expectRefused(u"update bd_saslik set ssl_sum_db = 101 where ssl_id = 1"_s);
    expectRefused(u"update bd_saslik set ssl_sasid = 2 where ssl_id = 1"_s);
    expectRefused(u"update bd_saslik set ssl_id = 91 where ssl_id = 1"_s);
}

TEST_P(ClosedMonths, LetNoBalanceInOrOut)
{
    expectRefused(u"update bd_saslik set ssl_perid = 7 where ssl_id = 1"_s);
    expectRefused(u"update bd_saslik set ssl_perid = 99 where ssl_id = 1"_s);
    expectRefused(u"update bd_saslik set ssl_perid = 6 where ssl_perid = 7"_s);
}

TEST_P(ClosedMonths, LoseNoBalance)
{
    expectRefused(u"delete from bd_saslik where ssl_id = 1"_s);
    expectRefused(u"delete from bd_saslik"_s);
}

TEST_P(ClosedMonths, TakeNoNewJournalLine)
{
    expectRefused(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db) values (90, 6, 1, 1)"_s);
}

TEST_P(ClosedMonths, KeepTheirJournalLinesAsTheyAre)
{
    for (const QString &change :
         {u"irs_id = 91"_s, u"irs_data = '2025-03-05'"_s, u"irs_dok = 'K-1'"_s, u"irs_sasid = 2"_s,
          u"irs_sum_db = 1"_s, u"irs_sum_kr = 6"_s, u"irs_dkaid = 5"_s, u"irs_padid = 1"_s,
          u"irs_jveid = 10"_s, u"irs_asig_db = 1"_s, u"irs_asig_kr = 1"_s, u"irs_kas_db = 1"_s,
          u"irs_kas_kr = 1"_s, u"irs_fak_db = 1"_s, u"irs_fak_kr = 1"_s})
        expectRefused(u"update bd_irasai set %1 where irs_id = 1"_s.arg(change));
}

TEST_P(ClosedMonths, LetNoJournalLineInOrOut)
{
    expectRefused(u"update bd_irasai set irs_perid = 7 where irs_id = 1"_s);
    expectRefused(u"update bd_irasai set irs_perid = 6 where irs_id = 3"_s);
}

TEST_P(ClosedMonths, LoseNoJournalLine)
{
    expectRefused(u"delete from bd_irasai where irs_id = 1"_s);
    expectRefused(u"delete from bd_irasai"_s);
}

TEST_P(ClosedMonths, RefuseTheEnginesOwnShellToo)
{
    const QStringList before = dump(*mnFin_Db);
    for (const QString &statement : {u"update bd_saslik set ssl_sum_db = 101 where ssl_id = 1"_s,
                                     u"delete from bd_irasai where irs_id = 1"_s})
        EXPECT_TRUE(shell(statement).contains(marchIsClosed)) << shell(statement).toStdString();
    EXPECT_EQ(dump(*mnFin_Db), before);
    shell(u"update bd_irasai set irs_sum_db = 4 where irs_id = 3"_s);
    EXPECT_EQ(one(u"select irs_sum_db from bd_irasai where irs_id = 3"_s), u"4");
}

TEST_P(ClosedMonths, AreNamedAsPeopleCallThem)
{
    const QStringList names{u"sausio"_s,  u"vasario"_s,  u"kovo"_s,      u"balandžio"_s,
                            u"gegužės"_s, u"birželio"_s, u"liepos"_s,    u"rugpjūčio"_s,
                            u"rugsėjo"_s, u"spalio"_s,   u"lapkričio"_s, u"gruodžio"_s};
    for (int month = 1; month <= 12; ++month) {
        run(u"delete from bd_period"_s);
        startOfWork(2024, month);
        close();
        EXPECT_EQ(errorOf(u"delete from bd_saslik where ssl_id = 1"_s),
                  u"2024 m. %1 mėnuo uždarytas: jo įrašai ir sąskaitų likučiai nekeičiami."_s.arg(
                      names.at(month - 1)));
    }
}

TEST_P(ClosedMonthsOnSqlite, LoseNoRowToAnotherThatTakesItsKey)
{
    expectRefused(u"insert or replace into bd_saslik values (1, 1, 7, 1, 0)"_s);
    expectRefused(u"update or replace bd_saslik set ssl_id = 1 where ssl_perid = 7 and ssl_sasid = 1"_s);
    expectRefused(u"insert or replace into bd_irasai (irs_id, irs_perid) values (1, 7)"_s);
    expectRefused(u"update or replace bd_irasai set rowid = 1 where irs_id = 3"_s);
}

TEST_P(ClosedMonthsOnSqlite, ARefusedStatementInsideATransactionLosesNoRowOfTheOpenOne)
{
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db) values (-1, 7, 1, 1)"_s);
    run(u"insert into bd_saslik values (-1, 1, 7, 1, 0)"_s);
    const QStringList before = dump(*mnFin_Db);
    for (const QString &table : {u"bd_irasai"_s, u"bd_saslik"_s}) {
        shell(u"begin; delete from %1; commit"_s.arg(table));
        mnFin_Db->nativeExec(u"begin"_s);
        EXPECT_EQ(errorOf(u"delete from "_s + table), marchIsClosed);
        mnFin_Db->nativeExec(u"commit"_s);
        EXPECT_EQ(dump(*mnFin_Db), before) << table.toStdString();
    }
}

TEST_P(ClosedMonthsOnServer, AreNotEmptiedAtOnce)
{
    expectRefused(u"truncate bd_saslik"_s);
    expectRefused(u"truncate bd_irasai"_s);
}

TEST_P(ClosedMonthsOnServer, AWriterWaitsForTheCloseThatIsUnderWay)
{
    mnFin_Db->StartTransaction();
    close();
    QString failure;
    const auto other = elsewhere(u"insert into bd_saslik values (90, 1, 7, 1, 0)"_s, failure);
    EXPECT_TRUE(other->isRunning());
    mnFin_Db->Commit();
    other->wait();
    EXPECT_EQ(failure, u"2025 m. balandžio mėnuo uždarytas: jo įrašai ir sąskaitų likučiai nekeičiami.");
}

TEST_P(ClosedMonthsOnServer, AWriterWithAnOlderViewOfTheBooksIsRefused)
{
    const auto other = open(finSettings());
    for (const QString &level : {u"repeatable read"_s, u"serializable"_s}) {
        other->nativeExec(u"begin isolation level "_s + level);
        value(*other, u"select count(*) from bd_period"_s);
        close();
        EXPECT_THROW(
            other->nativeExec(u"insert into bd_saslik select 90, 1, max(per_id), 1, 0 from bd_period"_s),
            EDatabaseError);
        other->nativeExec(u"rollback"_s);
    }
    EXPECT_EQ(one(u"select count(*) from bd_saslik where ssl_id = 90"_s), u"0");
}

TEST_P(ClosedMonthsOnServer, ACloseWaitsForTheWriterAndCarriesWhatHeWrote)
{
    mnFin_Db->StartTransaction();
    run(u"insert into bd_saslik values (90, 2, 7, 12, 0)"_s);
    QString failure;
    const auto other = elsewhere(u"call Close_Per()"_s, failure);
    EXPECT_TRUE(other->isRunning());
    mnFin_Db->Commit();
    other->wait();
    EXPECT_EQ(failure, QString());
    EXPECT_EQ(one(u"select ssl_sum_db from bd_saslik where ssl_perid = 8 and ssl_sasid = 2"_s), u"12");
}

// --- what goes on

TEST_P(ClosedMonths, LeaveTheOpenOneFree)
{
    run(u"insert into bd_saslik values (90, 1, 7, 1, 0)"_s);
    run(u"update bd_saslik set ssl_sum_db = 2, ssl_id = 91 where ssl_id = 90"_s);
    run(u"update bd_saslik set ssl_perid = 99 where ssl_id = 91"_s); // a row without a period is of no month
    run(u"update bd_saslik set ssl_perid = 7 where ssl_id = 91"_s);
    run(u"delete from bd_saslik where ssl_perid = 7"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db) values (90, 7, 1, 1)"_s);
    run(u"update bd_irasai set irs_sum_db = 2, irs_data = '2025-04-05' where irs_id = 90"_s);
    run(u"delete from bd_irasai where irs_perid = 7"_s);
    EXPECT_EQ(one(u"select count(*) from bd_saslik"_s), u"2");
    EXPECT_EQ(one(u"select count(*) from bd_irasai"_s), u"2");
}

TEST_P(ClosedMonths, OpenAgainWhenTheCloseIsTakenBack)
{
    back();
    run(u"update bd_saslik set ssl_sum_db = 101 where ssl_id = 1"_s);
    run(u"delete from bd_irasai where irs_id = 1"_s);
    close();
    expectRefused(u"update bd_saslik set ssl_sum_db = 100 where ssl_id = 1"_s);
}

TEST_P(ClosedMonths, GoWithTheirPeriodWhenWorkStartsAnew)
{
    close();
    run(u"delete from bd_period"_s);
    startOfWork(2026, 1);
    for (const QString &period : {u"6"_s, u"7"_s, u"8"_s}) {
        run(u"update bd_saslik set ssl_sum_db = 1 where ssl_perid = "_s + period);
        run(u"delete from bd_irasai where irs_perid = "_s + period);
    }
    close();
    EXPECT_EQ(
        select(u"select ssl_sum_db, ssl_sum_kr from bd_saslik where ssl_perid = 7 order by ssl_sasid"_s),
        (QStringList{u"1|0"_s, u"0|99"_s}));
}

TEST_P(ClosedMonths, LetAPersonBecomeOneWithTheSame)
{
    run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (3, 'Jonas Žąsinas', 1)"_s);
    run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (4, ' jonas žąsinas', 1)"_s);
    run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (5, 'Jürgen', 1)"_s);
    run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (6, 'JÜRGEN', 1)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_matid) values (90, 7, 4)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_matid) values (91, 7, 6)"_s);
    close();
    run(u"call updMatAsmUnq()"_s);
    EXPECT_EQ(select(u"select irs_matid from bd_irasai where irs_id >= 90 order by irs_id"_s),
              (QStringList{u"3"_s, u"5"_s}));
    EXPECT_EQ(one(u"select count(*) from bd_matasm"_s), u"2");
}

TEST_P(ClosedMonths, LetNoOtherPersonIntoTheirLines)
{
    run(u"insert into bd_matasm (mat_id, mat_asm_kod, mat_pavad, mat_prgid) values (2, '37', 'Jonas', 1)"_s);
    run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (3, 'Jonas', 1)"_s);
    run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (4, 'Jonas', 1)"_s);
    run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (5, 'Ona', 1)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_matid) values (90, 7, 3)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_matid) values (91, 7, 5)"_s);
    close();
    const QString april = u"2025 m. balandžio mėnuo uždarytas: jo įrašai ir sąskaitų likučiai nekeičiami."_s;
    for (const QString &change :
         {u"irs_matid = 2 where irs_id = 90"_s, u"irs_matid = 4 where irs_id = 90"_s,
          u"irs_matid = null where irs_id = 90"_s, u"irs_matid = 3 where irs_id = 91"_s,
          u"irs_matid = 3 where irs_id in (90, 91)"_s})
        EXPECT_EQ(errorOf(u"update bd_irasai set "_s + change), april);
    EXPECT_EQ(select(u"select irs_matid from bd_irasai where irs_id >= 90 order by irs_id"_s),
              (QStringList{u"3"_s, u"5"_s}));
}

TEST_P(ClosedMonthsOnSqlite, TellPersonsApartWhoseLettersTheEngineDoesNotKnow)
{
    const QStringList names{u"'Jürgen'"_s, u"'JÜRGEN'"_s,  u"'Jörgen'"_s, u"'Жанна'"_s, u"'Борис'"_s,
                            u"'жАННА '"_s, u"'Jürgens'"_s, u"null"_s,     u"'ü'"_s};
    for (qsizetype i = 0; i < names.size(); ++i)
        run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (%1, %2, 1)"_s.arg(i + 10).arg(
            names.at(i)));
    EXPECT_EQ(select(u"select tpa_lieka, tpa_senas from sys_tie_patys_asmenys where tpa_lieka >= 10 "
                     "order by 1, 2"_s),
              (QStringList{u"10|11"_s, u"13|15"_s}));
}

TEST_P(ClosedMonths, LetAPersonMoveWithNothingElse)
{
    run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (3, 'Jonas', 1)"_s);
    run(u"insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (4, 'Jonas', 1)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_matid) values (90, 7, 4)"_s);
    const QStringList columns =
        select(u"select column_name from syscolumn join systable on syscolumn.table_id = systable.table_id "
               "where table_name = 'bd_irasai' and column_name <> 'irs_matid'"_s);
    ASSERT_GT(columns.size(), 15);
    for (
        const QString &row :
        {u"bd_sasplan values (8, '8', 'Kita', 'D', NULL)"_s,
         u"bd_jve values (8, 1, NULL, '2.3', 'Kita', 1)"_s,
         u"bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) values (8, 'B1', 'Kitas', 2, 3)"_s,
         u"bd_pad (pad_id, pad_pavad) values (8, 'Kitas')"_s, u"bd_atsasm (ats_id) values (8)"_s,
         u"bd_kasos values (8, 1, 'Kita')"_s, u"bd_einsas (ein_id) values (8)"_s})
        run(u"insert into "_s + row);
    close();
    for (const QString &column : columns) {
        const QString other = column == u"irs_data" ? u"'2025-04-05'"_s : u"8"_s;
        EXPECT_EQ(
            errorOf(u"update bd_irasai set irs_matid = 3, %1 = %2 where irs_id = 90"_s.arg(column, other)),
            u"2025 m. balandžio mėnuo uždarytas: jo įrašai ir sąskaitų likučiai nekeičiami.")
            << column.toStdString();
    }
    run(u"update bd_irasai set irs_matid = 3 where irs_id = 90"_s);
}

TEST_P(ClosedMonths, LeaveExpensesAndCounterpartiesToTheirScreens)
{
    run(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_kas_db) values (90, 6, 10, 1)"_s);
    run(u"update bd_isllik set sml_kas_db = 2 where sml_id = 90"_s);
    run(u"delete from bd_isllik"_s);
    run(u"insert into bd_dbkrlik values (90, 6, 5, NULL, NULL, NULL, 10, 0, NULL)"_s);
    run(u"call p_CalcDBKRLik(null)"_s);
    run(u"call p_CalcDBKRLik(6)"_s);
    run(u"delete from bd_dbkrlik"_s);
}

TEST_P(ClosedMonths, StayClosedAfterACloseThatFailed)
{
    balance(cash, 7, 99'999'999'999.0, 0);
    EXPECT_THROW(close(), EDatabaseError); // together more than a balance can hold
    expectRefused(u"delete from bd_saslik where ssl_id = 1"_s);
}
