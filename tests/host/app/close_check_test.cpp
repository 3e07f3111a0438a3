#include "host/app/close_check/close_checks.h"
#include "host/app/close_check/roll_back_frm.h"
#include "host/common/months.h"
#include "host/data/backups.h"
#include "tests/host/books.h"
#include "tests/support/clock.h"
#include "tests/support/unguarded.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

// February 2026 is to be closed; January was the start of work.
class CloseChecks : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addSmallChart(fin);
        run(u"insert into bd_period values (1, 2026, 0, 0), (2, 2026, 1, 0), (6, 2026, 1, 1), "
            "(7, 2026, 1, 2)"_s);
        GetPeriod();
        takeGuardsAway(*fin); // what the checks find is there all the same
    }
    void run(const QString &sql) { fin->ExecSQL(sql); }

    void opening(int account, double debit, double credit, int period = 7)
    {
        add(u"bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr)"_s, account, debit, credit,
            period);
    }
    void entry(int account, double debit, double credit, const QString &document = u"D-1"_s, int period = 7)
    {
        fin->ExecSQL(
            u"insert into bd_irasai (irs_id, irs_sasid, irs_perid, irs_sum_db, irs_sum_kr, irs_data, "
            "irs_dok) values (:key, :id, :per, :db, :kr, '2026-02-05', :dok)"_s,
            {{u"key"_s, ++key},
             {u"id"_s, account},
             {u"per"_s, period},
             {u"db"_s, debit},
             {u"kr"_s, credit},
             {u"dok"_s, document}});
    }
    void party(int id, int account, int account2)
    {
        fin->ExecSQL(u"insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) values "
                     "(:id, :kod, :pavad, :sas, :sas2)"_s,
                     {{u"id"_s, id},
                      {u"kod"_s, QString::number(id)},
                      {u"pavad"_s, u"Šalis %1"_s.arg(id)},
                      {u"sas"_s, account},
                      {u"sas2"_s, account2}});
    }
    void partyBalance(int id, double debit, double credit, int period = 7)
    {
        fin->ExecSQL(
            u"insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_dkaid, dkl_sum_db, dkl_sum_kr) values "
            "(:key, :per, :dka, :db, :kr)"_s,
            {{u"key"_s, ++key}, {u"per"_s, period}, {u"dka"_s, id}, {u"db"_s, debit}, {u"kr"_s, credit}});
    }
    void node(int id, double estimate)
    {
        run(u"insert into bd_jve (jve_id, jve_islid, jve_kodas, jve_pavad, jve_duom) values "
            "(%1, 1, '2.%1', 'Prekės %1', 1)"_s.arg(id));
        run(u"insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata) values (%1, %1, 1, %2)"_s
                .arg(id)
                .arg(estimate));
    }
    void spend(int nodeId, double cash, double factual, int period = 7)
    {
        run(u"insert into bd_irasai (irs_id, irs_perid, irs_jveid, irs_kas_db, irs_fak_db) values "
            "(%1, %2, %3, %4, %5)"_s.arg(++key)
                .arg(period)
                .arg(nodeId)
                .arg(cash)
                .arg(factual));
    }

    // What a check finds, a line each.
    QStringList found(const QString &name)
    {
        for (const TCloseCheck &check : closeChecks()) {
            if (check.name != name)
                continue;
            QStringList told;
            const TClosing closing{*fin, *ravl, qRound64(EinPer_Id()), EinPer_Date()};
            for (const TCloseFinding &finding : check.find(closing))
                told << u"%1|%2|%3|%4"_s.arg(finding.about, finding.text, finding.place.screen)
                            .arg(finding.place.key);
            return told;
        }
        ADD_FAILURE() << "no check " << qPrintable(name);
        return {};
    }

private:
    void add(const QString &into, int account, double debit, double credit, int period)
    {
        fin->ExecSQL(
            u"insert into %1 values (:key, :id, :per, :db, :kr)"_s.arg(into),
            {{u"key"_s, ++key}, {u"id"_s, account}, {u"per"_s, period}, {u"db"_s, debit}, {u"kr"_s, credit}});
    }
    int key = 0;
};
ON_BOTH_ENGINES(CloseChecks);

using CloseChecksOnFile = CloseChecks;
ON_ENGINE(CloseChecksOnFile, Engine::Sqlite);

} // namespace

TEST_P(CloseChecks, OpeningTotalsAreComparedToTheTenThousandth)
{
    for (int i = 0; i < 10; ++i)
        opening(3, 0.10, 0);
    opening(7, 0, 1.00);
    EXPECT_EQ(found(u"Pradžios likučiai"_s), QStringList());
    opening(7, 0, 0.0001);
    EXPECT_EQ(found(u"Pradžios likučiai"_s),
              QStringList({u"Visos sąskaitos|Debeto suma 1.00 nelygi kredito sumai 1.0001.|TSasLikFrm|0"_s}));
}

TEST_P(CloseChecks, CounterpartiesAreComparedWithTheAccountsThatTheyShare)
{
    party(1, 3, 3);
    party(2, 4, 7); // how it is shared between its two accounts nobody knows
    opening(3, 10, 0);
    opening(4, 5, 0);
    opening(7, 0, 15);
    EXPECT_EQ(found(u"Debitoriai ir kreditoriai"_s), QStringList()) << "books without such balances";
    partyBalance(1, 10, 0);
    partyBalance(2, 0, 10);
    EXPECT_EQ(found(u"Debitoriai ir kreditoriai"_s), QStringList());
    partyBalance(1, 0.01, 0);
    EXPECT_EQ(found(u"Debitoriai ir kreditoriai"_s),
              QStringList({u"221|Debitorių ir kreditorių likučių suma 10.01, o sąskaitos likutis "
                           "10.00.|TDKALikFrm|0"_s}));
    opening(4, 0.01, 0);
    EXPECT_EQ(found(u"Debitoriai ir kreditoriai"_s).last(),
              u"222, 43|Debitorių ir kreditorių likučių suma -10.00, o sąskaitų likučių suma "
              "-9.99.|TDKALikFrm|0"_s);
}

TEST_P(CloseChecks, DocumentsOfTheMonthAreNamedByDayAndNumber)
{
    entry(3, 10.10, 0);
    entry(7, 0, 10.10);
    entry(3, 7, 0, u"D-1"_s, 6); // of a closed month
    EXPECT_EQ(found(u"Mėnesio įrašai"_s), QStringList());
    entry(3, 5, 0, u"D-2"_s);
    entry(7, 0, 4.99, u"D-2"_s);
    EXPECT_EQ(found(u"Mėnesio įrašai"_s),
              QStringList({u"2026.02.05  D-2|Dokumento debetas 5.00 nelygus kreditui 4.99.|TIrasaiFrm|4"_s}));
}

TEST_P(CloseChecks, VeryManyFindingsAreCounted)
{
    for (int i = 1; i <= 60; ++i)
        entry(3, 1, 0, u"D-%1"_s.arg(i));
    const QStringList documents = found(u"Mėnesio įrašai"_s);
    EXPECT_EQ(documents.size(), 51);
    EXPECT_EQ(documents.last(), u"…|Ir dar tokių pat: 10.|TIrasaiFrm|0"_s);
}

TEST_P(CloseChecks, AccountsWithEntriesAreToBeInBothForms)
{
    EXPECT_THROW(found(u"Balanso forma"_s), ENotChecked) << "a form that nobody filled in";
    for (TDatabase *book : {fin, ravl})
        book->ExecSQL(u"insert into bd_baleil values ('A0101', 'Turtas')"_s);
    run(u"insert into bd_balsas values (NULL, 'A0101', 3, 'D')"_s);
    ravl->ExecSQL(u"insert into bd_balsas values (NULL, 'A0101', '221, 43', 'D')"_s);
    entry(3, 1, 0);
    opening(5, 1, 0); // moved by no entry
    EXPECT_EQ(found(u"Balanso forma"_s), QStringList());
    EXPECT_EQ(found(u"Biudžeto balanso forma"_s), QStringList());
    entry(7, 0, 1);
    entry(4, 1, 0);
    const QString told = u"Sąskaita turi mėnesio įrašų, bet jos nėra nė vienoje formos eilutėje."_s;
    EXPECT_EQ(found(u"Balanso forma"_s), QStringList({u"222  Šilumos skolos|%1|TBalFrm|0"_s.arg(told),
                                                      u"43  Mokėtinos sumos|%1|TBalFrm|0"_s.arg(told)}));
    EXPECT_EQ(found(u"Biudžeto balanso forma"_s),
              QStringList({u"222  Šilumos skolos|%1|TBalFrm_mnRavl|0"_s.arg(told)}));
}

TEST_P(CloseChecks, ExpensesOfTheYearAreComparedWithTheCorrectedEstimate)
{
    run(u"insert into bd_asgisl values (1, 'Knyga')"_s);
    node(10, 100);
    node(11, 100);
    run(u"insert into bd_samkor (sak_id, sak_samid, sak_i_ketv) values (1, 11, -20)"_s);
    run(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_kas_db) values (1, 6, 10, 500)"_s);
    spend(10, 60, 0, 6);
    spend(10, 40, 100);
    spend(11, 80, 0);
    EXPECT_EQ(found(u"Sąmatos"_s), QStringList()) << "what stood there on the first day of the year is of "
                                                     "another year";
    spend(10, 0.01, 0);
    spend(11, 0, 80.01, 6);
    EXPECT_EQ(found(u"Sąmatos"_s),
              QStringList({u"2.10  Prekės 10|Kasinės metų išlaidos 100.01 viršija metų sąmatą "
                           "100.00.|TSamFrm|10"_s,
                           u"2.11  Prekės 11|Faktinės metų išlaidos 80.01 viršija metų sąmatą "
                           "80.00.|TSamFrm|11"_s}));
}

TEST_P(CloseChecks, WhatWasSpentInTheYearBeforeTheStartOfWorkCounts)
{
    run(u"delete from bd_period where per_id = 6"_s); // work began in February
    run(u"insert into bd_asgisl values (1, 'Knyga')"_s);
    node(10, 100);
    run(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_kas_db) values (1, 7, 10, 70)"_s);
    spend(10, 30, 0);
    EXPECT_EQ(found(u"Sąmatos"_s), QStringList());
    spend(10, 0.01, 0);
    EXPECT_EQ(found(u"Sąmatos"_s),
              QStringList({u"2.10  Prekės 10|Kasinės metų išlaidos 100.01 viršija metų sąmatą "
                           "100.00.|TSamFrm|10"_s}));
}

TEST_P(CloseChecks, BalancesFollowFromTheMonthBefore)
{
    party(1, 3, 3);
    run(u"insert into bd_asgisl values (1, 'Knyga')"_s);
    node(10, 1000);
    opening(3, 10, 0, 6);
    partyBalance(1, 10, 0, 6);
    entry(3, 2.50, 0, u"D-1"_s, 6);
    opening(3, 12.50, 0);
    partyBalance(1, 10, 0);
    spend(10, 30, 0, 6);
    run(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_kas_db) values (1, 7, 10, 30)"_s);
    EXPECT_EQ(found(u"Kontrolinės sumos"_s), QStringList());
    run(u"update bd_saslik set ssl_sum_db = 12.49 where ssl_perid = 7"_s);
    run(u"update bd_isllik set sml_kas_db = 31"_s);
    run(u"update bd_dbkrlik set dkl_sum_db = 9 where dkl_perid = 7"_s);
    const QString ending = u" pradžios likutis %1, o pagal praėjusį mėnesį ir jo įrašus turi būti %2."_s;
    const auto stored = [this](const QString &sql) { return value(*fin, sql); };
    EXPECT_EQ(found(u"Kontrolinės sumos"_s),
              QStringList(
                  {u"221  Pirkėjų skolos|Sąskaitos%1|TSasLikFrm|%2"_s.arg(
                       ending.arg(u"12.49"_s, u"12.50"_s),
                       stored(u"select ssl_id from bd_saslik where ssl_perid = 7"_s)),
                   u"2.10  Prekės 10|Kasinių išlaidų%1|TIslFrm|10"_s.arg(ending.arg(u"31.00"_s, u"30.00"_s)),
                   u"Šalis 1|Debitoriaus ar kreditoriaus%1|TDKALikFrm|%2"_s.arg(
                       ending.arg(u"9.00"_s, u"10.00"_s),
                       stored(u"select dkl_id from bd_dbkrlik where dkl_perid = 7"_s))}));
}

// Balances of one counterparty in two departments are told apart.
TEST_P(CloseChecks, ABalanceOfACounterpartyIsFoundInItsDepartment)
{
    party(1, 3, 3);
    run(u"insert into bd_pad (pad_id, pad_pavad) values (1, 'Virtuvė'), (2, 'Ūkis')"_s);
    for (const int period : {6, 7})
        for (const int department : {1, 2}) {
            partyBalance(1, period == 7 && department == 2 ? 9 : 10, 0, period);
            run(u"update bd_dbkrlik set dkl_padid = %1 where dkl_padid is null"_s.arg(department));
        }
    EXPECT_EQ(found(u"Kontrolinės sumos"_s),
              QStringList({u"Šalis 1, Ūkis|Debitoriaus ar kreditoriaus pradžios likutis 9.00, o pagal "
                           "praėjusį mėnesį ir jo įrašus turi būti 10.00.|TDKALikFrm|%1"_s.arg(
                               value(*fin, u"select dkl_id from bd_dbkrlik where dkl_perid = 7 and "
                                           "dkl_padid = 2"_s))}));
}

TEST_P(CloseChecks, AnotherStationThatWritesIsSeen)
{
    EXPECT_EQ(found(u"Kitų darbo vietų įrašymai"_s), QStringList());
    const auto reading = secondFin()->prepare(u"select * from bd_sasplan"_s, TDatabase::Connection::Reading);
    reading->exec();
    ASSERT_TRUE(reading->next());
    EXPECT_EQ(found(u"Kitų darbo vietų įrašymai"_s), QStringList())
        << "a list that is half read changes nothing";
    secondFin()->StartTransaction();
    secondFin()->ExecSQL(u"update bd_sasplan set sas_pavad = 'Kita' where sas_id = 7"_s);
    const QStringList stations = found(u"Kitų darbo vietų įrašymai"_s);
    ASSERT_EQ(stations.size(), 1);
    EXPECT_TRUE(stations.first().contains(
        engine() == Engine::Sqlite ? u"Šiuo metu rašo į knygas"_s : u"įrašo pakeitimus ir dar nebaigė."_s));
    secondFin()->Rollback();
    EXPECT_EQ(found(u"Kitų darbo vietų įrašymai"_s), QStringList());
    EXPECT_FALSE(fin->InTransaction());
}

TEST_P(CloseChecksOnFile, TheLastBackupIsToBeFromTodayOrYesterday)
{
    const ClockAt clock(QDateTime({2026, 3, 4}, {10, 0}));
    EXPECT_EQ(found(u"Atsarginė kopija"_s),
              QStringList({u"Atsarginės kopijos|Nėra nė vienos atsarginės kopijos.||0"_s}));
    const QDir folder(backupFolder());
    ASSERT_TRUE(QDir().mkpath(folder.path()));
    const auto backup = [&folder](const QString &name) {
        writeArchive(folder.filePath(name), {.engine = u"sqlite"_s, .createdAt = {}, .parts = {}}, {});
    };
    backup(u"2026-03-02-090000-diena.velmora"_s);
    backup(u"zodynas.velmora"_s);
    backup(u"2026-03-05-090000-diena.velmora"_s); // of a clock that was wrong
    QFile empty(folder.filePath(u"2026-03-04-090000-diena.velmora"_s));
    ASSERT_TRUE(empty.open(QFile::WriteOnly));
    EXPECT_EQ(found(u"Atsarginė kopija"_s),
              QStringList({u"Atsarginės kopijos|Paskutinė atsarginė kopija padaryta 2026.03.02 09:00, prieš "
                           "2 d.||0"_s}));
    backup(u"2026-03-03-090000-diena.velmora"_s);
    EXPECT_EQ(found(u"Atsarginė kopija"_s), QStringList());
}

using CloseChecksOnServer = CloseChecks;
ON_ENGINE(CloseChecksOnServer, Engine::PostgreSql);

TEST_P(CloseChecksOnServer, TheBackupIsCheckedOnlyWhereThereIsAFolderForThem)
{
    EXPECT_THROW(found(u"Atsarginė kopija"_s), ENotChecked);
    setBackupFolder(folder());
    EXPECT_EQ(found(u"Atsarginė kopija"_s),
              QStringList({u"Atsarginės kopijos|Nėra nė vienos atsarginės kopijos.||0"_s}));
}

// What the server tells a role of the sessions of others is less than it tells its owner.
TEST_P(CloseChecksOnServer, AStationIsSeenByARoleThatIsNotItsOwn)
{
    const QString role = u"kita_%1"_s.arg(QCoreApplication::applicationPid());
    fin->nativeExec(u"create role %1 role velmora"_s.arg(role));
    secondFin()->StartTransaction();
    secondFin()->ExecSQL(u"update bd_sasplan set sas_pavad = 'Kita' where sas_id = 7"_s);
    fin->nativeExec(u"set role "_s + role);
    const QStringList stations = found(u"Kitų darbo vietų įrašymai"_s);
    fin->nativeExec(u"reset role"_s);
    secondFin()->Rollback();
    fin->nativeExec(u"drop role "_s + role);
    ASSERT_EQ(stations.size(), 1);
    EXPECT_TRUE(stations.first().contains(u"Nuo ? įrašo pakeitimus"_s)) << stations.first().toStdString();
}

TEST_P(CloseChecks, ARollBackIsToldByTableBeforeItIsDone)
{
    opening(3, 10.10, 0);
    opening(7, 0, 10.10);
    opening(3, 99, 0, 6);
    party(1, 3, 3);
    partyBalance(1, 3, 0);
    const auto told = rollBackOf(*fin);
    ASSERT_TRUE(told);
    EXPECT_EQ(PeriodText(told->month), u"2026 m. vasaris"_s);
    EXPECT_EQ(PeriodText(told->before), u"2026 m. sausis"_s);
    QStringList lines;
    for (const TRolledBack &each : told->deleted)
        lines << u"%1|%2|%3|%4"_s.arg(each.what)
                     .arg(each.rows)
                     .arg(each.debit.value_or(-1))
                     .arg(each.credit.value_or(-1));
    EXPECT_EQ(
        lines,
        QStringList({u"Sąskaitų likučiai|2|101000|101000"_s, u"Išlaidų likučiai: asignavimai|0|0|0"_s,
                     u"Išlaidų likučiai: kasinės išlaidos|0|0|0"_s,
                     u"Išlaidų likučiai: faktinės išlaidos|0|0|0"_s,
                     u"Debitorių ir kreditorių likučiai|1|30000|0"_s, u"Mėnuo: 2026 m. vasaris|1|-1|-1"_s}));
    run(u"delete from bd_period where per_id = 6"_s);
    EXPECT_FALSE(rollBackOf(*fin)) << "the start of work is not taken back";
}

// The sums that are told are what the balances lack after the routine.
TEST_P(CloseChecks, ARollBackDeletesWhatWasTold)
{
    party(1, 3, 3);
    run(u"insert into bd_asgisl values (1, 'Knyga')"_s);
    node(10, 100);
    for (const int period : {6, 7}) {
        opening(3, 10.1001 * period, 0, period);
        opening(7, 0, 20.20 * period, period);
        partyBalance(1, 3.3 * period, 1.1 * period, period);
        run(u"insert into bd_isllik values (%1, %1, 10, 1.5, %1, 7.0001, 2, %1, 9.9)"_s.arg(period));
    }
    const auto amounts = [this] {
        QStringList lines;
        for (const char16_t *sql :
             {u"select count(*), sum(ssl_sum_db) * 10000, sum(ssl_sum_kr) * 10000 from bd_saslik",
              u"select count(*), sum(sml_asig_db) * 10000, sum(sml_asig_kr) * 10000 from bd_isllik",
              u"select count(*), sum(sml_kas_db) * 10000, sum(sml_kas_kr) * 10000 from bd_isllik",
              u"select count(*), sum(sml_fak_db) * 10000, sum(sml_fak_kr) * 10000 from bd_isllik",
              u"select count(*), sum(dkl_sum_db) * 10000, sum(dkl_sum_kr) * 10000 from bd_dbkrlik"})
            lines += rows(*fin, QString::fromUtf16(sql));
        return lines;
    };
    const auto told = rollBackOf(*fin);
    const QStringList before = amounts();
    run(u"call Back_Per()"_s);
    const QStringList after = amounts();
    ASSERT_EQ(before.size(), 5);
    ASSERT_EQ(after.size(), 5);
    for (int line = 0; line < 5; ++line) {
        const TRolledBack &each = told->deleted.at(std::size_t(line));
        const auto gone = [&](int column) {
            return qRound64(before.at(line).section(u'|', column, column).toDouble() -
                            after.at(line).section(u'|', column, column).toDouble());
        };
        EXPECT_GT(each.rows, 0) << line;
        EXPECT_EQ(gone(0), each.rows) << line;
        EXPECT_EQ(gone(1), each.debit) << line;
        EXPECT_EQ(gone(2), each.credit) << line;
    }
}

// Another station may have closed the month that this one takes for the last.
TEST_P(CloseChecks, TheHeadlineTellsTheMonthThatTheTableIsOf)
{
    run(u"insert into bd_period values (8, 2026, 1, 3)"_s);
    const std::unique_ptr<TRollBackFrm> frm(createForm<TRollBackFrm>(nullptr));
    EXPECT_EQ(frm->headline(), u"Atsukus periodą „2026 m. kovas“, einamuoju vėl taps „2026 m. vasaris“. "
                               "Mėnesio įrašai nebus trinami."_s);
}

// What is told is what the routine deletes, the year with its quarters included.
TEST_P(CloseChecks, TheFirstMonthOfAYearTakesItsYearAlong)
{
    run(u"insert into bd_period values (20, 2025, 0, 0), (21, 2025, 1, 0), (22, 2025, 2, 0), (23, 2025, 3, "
        u"0), "
        "(24, 2025, 4, 0), (25, 2025, 4, 3)"_s);
    run(u"delete from bd_period where per_id = 7"_s);
    run(u"insert into bd_period values (3, 2026, 2, 0), (4, 2026, 3, 0), (5, 2026, 4, 0)"_s);
    GetPeriod();
    const auto rowsNow = [this] { return value(*fin, u"select count(*) from bd_period"_s).toInt(); };
    qlonglong toldRows = 0;
    for (const TRolledBack &each : rollBackOf(*fin)->deleted)
        if (!each.debit)
            toldRows += each.rows;
    const int before = rowsNow();
    run(u"call Back_Per()"_s);
    EXPECT_EQ(toldRows, 6);
    EXPECT_EQ(before - rowsNow(), 6);
}
