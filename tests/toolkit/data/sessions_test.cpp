// A session on either engine: opening, transactions, errors in words, the catalogue.

#include "tests/support/engines.h"
#include "tests/toolkit/data/expect_error.h"
#include "toolkit/data/statement.h"

#include <QElapsedTimer>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

class Sessions : public OnEmptyDatabases {
protected:
    void SetUp() override
    {
        OnEmptyDatabases::SetUp();
        mnFin_Db->nativeExec(
            u"create table bd_t (t_id integer primary key, t_kodas varchar(10) not null unique,"
            " t_suma numeric(15,4), t_data date, t_kiek integer, t_pastaba text)"_s);
        mnFin_Db->nativeExec(
            u"create table bd_v (v_id integer primary key, v_tid integer not null references bd_t (t_id))"_s);
    }

    void insert(int id, const QString &code, const Variant &sum = {})
    {
        mnFin_Db->ExecSQL(u"insert into bd_t (t_id, t_kodas, t_suma) values (:id, :kodas, :suma)"_s,
                          {{u"id"_s, id}, {u"kodas"_s, code}, {u"suma"_s, sum}});
    }

    Variant one(const QString &sql, const QVariantMap &parameters = {})
    {
        return mnFin_Db->fieldResult(sql, parameters);
    }
};

ON_BOTH_ENGINES(Sessions);

} // namespace

TEST_P(Sessions, ExecSqlTellsHowManyRowsChanged)
{
    insert(1, u"A"_s);
    insert(2, u"B"_s);
    EXPECT_EQ(mnFin_Db->ExecSQL(u"update bd_t set t_suma = 5"_s), 2);
    EXPECT_EQ(mnFin_Db->ExecSQL(u"delete from bd_t where t_id = 7"_s), 0);
}

TEST_P(Sessions, MaximumOfAnEmptyTableIsNull)
{
    EXPECT_TRUE(one(u"select max(t_id) from bd_t"_s).isNull());
    EXPECT_TRUE(one(u"select t_id from bd_t where t_id = 1"_s).isNull());
}

TEST_P(Sessions, ValuesComeBackWithTheirTypes)
{
    mnFin_Db->ExecSQL(u"insert into bd_t values (:a, :b, :c, :d, :e, :f)"_s, {{u"a"_s, 7.0},
                                                                              {u"b"_s, u"ąž'"_s},
                                                                              {u"c"_s, 0.1},
                                                                              {u"d"_s, QDate(2004, 1, 31)},
                                                                              {u"e"_s, 3},
                                                                              {u"f"_s, QString()}});
    EXPECT_EQ(one(u"select t_id from bd_t"_s), Variant(qlonglong(7)));
    EXPECT_EQ(one(u"select t_kodas from bd_t"_s), Variant(u"ąž'"_s));
    EXPECT_EQ(one(u"select t_suma from bd_t"_s), Variant(0.1));
    EXPECT_EQ(one(u"select t_data from bd_t"_s), Variant(QDate(2004, 1, 31)));
    EXPECT_EQ(one(u"select t_kiek from bd_t"_s), Variant(qlonglong(3)));
}

TEST_P(Sessions, AmountsAreReadRoundedToTheirScale)
{
    insert(1, u"A"_s, 0.1 + 0.2);
    EXPECT_EQ(one(u"select t_suma from bd_t"_s).toDouble(), 0.3);
    insert(2, u"B"_s, 99999999999.9999);
    EXPECT_EQ(one(u"select t_suma from bd_t where t_id = 2"_s).toDouble(), 99999999999.9999);
}

TEST_P(Sessions, WholeDoublesFindWholeKeys)
{
    insert(5, u"A"_s);
    EXPECT_EQ(one(u"select t_kodas from bd_t where t_id = :id"_s, {{u"ID"_s, 5.0}}), Variant(u"A"_s));
    EXPECT_EQ(one(u"select t_kodas from bd_t where t_id = :id"_s, {{u"id"_s, 100000.0}}), Variant());
}

TEST_P(Sessions, WhatNoEngineCanHoldIsRefused)
{
    EXPECT_ERROR(EDatabaseError, insert(1, u"A\0B"_s), u"nulinis ženklas"_s);
    EXPECT_ERROR(EDatabaseError, insert(1, u"A"_s, std::numeric_limits<double>::infinity()), u"baigtinis"_s);
    EXPECT_ERROR(EDatabaseError, insert(1, u"A"_s, std::numeric_limits<double>::quiet_NaN()), u"baigtinis"_s);
    EXPECT_ERROR(EDatabaseError, one(u"select t_id from bd_t where t_id = :id"_s, {{u"kita"_s, 1}}),
                 u"kita"_s);
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_t"_s), u"0"_s);
}

TEST_P(Sessions, ConstraintsAnswerInWords)
{
    insert(1, u"A"_s);
    EXPECT_ERROR(EConstraintError, insert(2, u"A"_s), u"Toks įrašas jau yra."_s);
    EXPECT_ERROR(EConstraintError, mnFin_Db->ExecSQL(u"insert into bd_t (t_id) values (3)"_s),
                 u"Neužpildytas privalomas laukas."_s);
    EXPECT_ERROR(EConstraintError, mnFin_Db->ExecSQL(u"insert into bd_v (v_id, v_tid) values (1, 99)"_s),
                 u"susietas"_s);
    try {
        insert(2, u"A"_s);
    } catch (const EDatabaseError &error) {
        EXPECT_FALSE(error.serverText.isEmpty());
        EXPECT_TRUE(error.statement.contains(u"bd_t"_s));
    }
}

TEST_P(Sessions, TransactionsEndOnlyWhatWasBegun)
{
    mnFin_Db->Commit();
    mnFin_Db->Rollback();
    mnFin_Db->StartTransaction();
    mnFin_Db->StartTransaction();
    insert(1, u"A"_s);
    mnFin_Db->Rollback();
    EXPECT_FALSE(mnFin_Db->InTransaction());
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_t"_s), u"0"_s);

    mnFin_Db->StartTransaction();
    insert(1, u"A"_s);
    mnFin_Db->Commit();
    EXPECT_EQ(value(*secondFin(), u"select count(*) from bd_t"_s), u"1"_s);
}

TEST_P(Sessions, AnInnerGuardLeavesTheDecisionToTheOuterOne)
{
    {
        TTransaction outer(mnFin_Db);
        TTransaction inner(mnFin_Db);
        insert(1, u"A"_s);
        inner.commit();
        EXPECT_TRUE(mnFin_Db->InTransaction());
    }
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_t"_s), u"0"_s);
}

TEST_P(Sessions, TheWordCommitIsPassedOverInATransaction)
{
    mnFin_Db->StartTransaction();
    mnFin_Db->ExecSQL(u"insert into bd_t (t_id, t_kodas) values (1, 'A') commit"_s);
    EXPECT_TRUE(mnFin_Db->InTransaction());
    mnFin_Db->Rollback();
    mnFin_Db->ExecSQL(u"insert into bd_t (t_id, t_kodas) values (2, 'B') commit"_s);
    EXPECT_EQ(rows(*secondFin(), u"select t_id from bd_t"_s), QStringList{u"2"_s});
}

TEST_P(Sessions, CommittingAfterAFailureNeverPassesHalfAChangeForAWhole)
{
    insert(1, u"A"_s);
    const auto change = [this] {
        TTransaction tran(mnFin_Db);
        insert(2, u"B"_s);
        EXPECT_THROW(insert(3, u"A"_s), EConstraintError);
        tran.commit();
    };
    if (engine() == Engine::PostgreSql)
        EXPECT_ERROR(EDatabaseError, change(), u"Pakeitimai neįrašyti"_s);
    else
        change();
    EXPECT_FALSE(mnFin_Db->InTransaction());
    const QString expected = engine() == Engine::PostgreSql ? u"1"_s : u"2"_s;
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_t"_s), expected);
}

TEST_P(Sessions, ALockOfAnotherStationIsToldInWords)
{
    insert(1, u"A"_s);
    TSessionSettings impatient = finSettings();
    impatient.busyTimeoutMs = 100;
    const std::unique_ptr<TDatabase> other = open(impatient);
    mnFin_Db->StartTransaction();
    mnFin_Db->ExecSQL(u"update bd_t set t_suma = 1 where t_id = 1"_s);
    EXPECT_ERROR(EDatabaseBusy, other->ExecSQL(u"update bd_t set t_suma = 2 where t_id = 1"_s),
                 u"Duomenų bazę užrakino kita programa"_s);
    mnFin_Db->Commit();
    EXPECT_EQ(other->ExecSQL(u"update bd_t set t_suma = 2 where t_id = 1"_s), 1);
}

TEST_P(Sessions, AReadOnlySessionCannotWriteByAnyStatement)
{
    TSessionSettings settings = finSettings();
    settings.readOnly = true;
    const std::unique_ptr<TDatabase> viewer = open(settings);
    EXPECT_EQ(value(*viewer, u"select count(*) from bd_t"_s), u"0"_s);
    EXPECT_ERROR(EDatabaseError, viewer->ExecSQL(u"insert into bd_t (t_id, t_kodas) values (1, 'A')"_s),
                 u"tik skaitymui"_s);
    EXPECT_THROW(viewer->nativeExec(u"create table kita (a integer)"_s), EDatabaseError);
}

TEST_P(Sessions, TheReadingConnectionTakesSelectsOnly)
{
    EXPECT_ERROR(EDatabaseError, mnFin_Db->prepare(u"delete from bd_t"_s, TDatabase::Connection::Reading),
                 u"tik užklausos"_s);
}

TEST_P(Sessions, HalfReadListsStandSideBySideAndSeeWhatWasCommittedBefore)
{
    for (int i = 1; i <= 500; ++i)
        insert(i, QString::number(i));
    const QString all = u"select t_id from bd_t order by t_id"_s;
    const auto first = mnFin_Db->prepare(all, TDatabase::Connection::Reading);
    first->exec();
    ASSERT_TRUE(first->next());
    insert(501, u"501"_s);
    const auto second = mnFin_Db->prepare(all, TDatabase::Connection::Reading);
    second->exec();
    int seen = 0;
    while (second->next())
        ++seen;
    EXPECT_EQ(seen, 501);
    // A list that cannot even be prepared leaves the half-read one alone.
    EXPECT_THROW(mnFin_Db->prepare(u"select t_nera from bd_t"_s, TDatabase::Connection::Reading), Exception);
    int rest = 1;
    while (first->next())
        ++rest;
    EXPECT_EQ(rest, 500);
}

TEST_P(Sessions, AStatementThatOutlivesItsSessionRaisesAndNeverConnects)
{
    insert(1, u"A"_s);
    auto session = open(finSettings());
    const auto statement = session->prepare(u"select t_id from bd_t"_s);
    session->Close();
    EXPECT_FALSE(session->Connected());
    EXPECT_ERROR(EDatabaseError, session->ExecSQL(u"delete from bd_t"_s), u"neatverta"_s);
    EXPECT_ERROR(EDatabaseError, statement->exec(), u"uždaryta"_s);
    session->Open();
    EXPECT_EQ(value(*session, u"select count(*) from bd_t"_s), u"1"_s);
    session.reset();
    EXPECT_THROW(statement->exec(), EDatabaseError);
}

TEST_P(Sessions, AStatementThatTheEngineDoesNotKnowIsRefused)
{
    EXPECT_ERROR(EDatabaseError, mnFin_Db->nativeExec(u"select nera_tokios()"_s), u"nera_tokios"_s);
    TranslatedSql sql;
    sql.text = u"select x from nera_lenteles"_s;
    EXPECT_ERROR(EDatabaseError, mnFin_Db->prepareNative(sql), u"Duomenų bazės klaida: "_s);
}

TEST_P(Sessions, TheBusyHookGoesOnWhileAStatementRuns)
{
    int beats = 0;
    const TDatabase::BusyHook before = TDatabase::setBusyHook([&beats] { ++beats; });
    QElapsedTimer clock;
    clock.start();
    const QString counting =
        u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 1500000) "
        "select count(*) from n"_s;
    mnFin_Db->nativeExec(counting);
    const qint64 elapsed = clock.elapsed();
    TDatabase::setBusyHook(before);
    EXPECT_LE(beats, elapsed / 40);
    EXPECT_GE(beats, elapsed / 40 / 3);
    EXPECT_GE(beats, 1);
}

TEST_P(Sessions, TheCatalogueKnowsColumnsKeysAndReferences)
{
    const QList<TColumnInfo> columns = mnFin_Db->columnsOf(u"BD_T"_s);
    ASSERT_EQ(columns.size(), 6);
    EXPECT_EQ(columns.at(0).name, u"t_id"_s);
    EXPECT_TRUE(columns.at(0).key);
    EXPECT_EQ(columns.at(0).kind, ColumnKind::Number);
    EXPECT_EQ(columns.at(1).size, 10);
    EXPECT_TRUE(columns.at(1).required);
    EXPECT_FALSE(columns.at(2).required);
    EXPECT_EQ(mnFin_Db->kindOf(u"T_DATA"_s), ColumnKind::Date);
    EXPECT_EQ(mnFin_Db->kindOf(u"t_kodas"_s), ColumnKind::Code);
    EXPECT_TRUE(mnFin_Db->columnsOf(u"nera"_s).isEmpty());
    EXPECT_EQ(mnFin_Db->joinCondition(u"bd_v"_s, u"bd_t"_s), u"bd_v.v_tid = bd_t.t_id"_s);
    EXPECT_EQ(mnFin_Db->joinCondition(u"bd_t"_s, u"bd_v"_s), u"bd_t.t_id = bd_v.v_tid"_s);
    mnFin_Db->nativeExec(u"alter table bd_t add column t_nauja integer"_s);
    EXPECT_EQ(mnFin_Db->columnsOf(u"bd_t"_s).size(), 7);
}

TEST_P(Sessions, QuotingDoublesQuotes)
{
    EXPECT_EQ(TDatabase::quoted(u"O'Hara"_s), u"'O''Hara'"_s);
    insert(1, u"O'Hara"_s);
    EXPECT_EQ(value(*mnFin_Db, u"select t_id from bd_t where t_kodas = "_s + TDatabase::quoted(u"O'Hara"_s)),
              u"1"_s);
}
