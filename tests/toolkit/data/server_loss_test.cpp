// A server that goes away is told once, and the next attempt connects anew.

#include "tests/support/cutting_proxy.h"
#include "tests/support/engines.h"
#include "tests/support/postgres.h"
#include "tests/toolkit/data/expect_error.h"
#include "toolkit/data/query.h"
#include "toolkit/data/server_link.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class ServerLoss : public OnEmptyDatabases {
protected:
    void SetUp() override
    {
        OnEmptyDatabases::SetUp();
        mnFin_Db->nativeExec(u"create table bd_t (t_id integer primary key)"_s);
        mnFin_Db->ExecSQL(u"insert into bd_t (t_id) values (1)"_s);
    }

    // Ends every other connection to the same database.
    void killOthers()
    {
        secondFin()->nativeExec(u"select pg_terminate_backend(pid) from pg_stat_activity "
                                "where datname = current_database() and pid <> pg_backend_pid()"_s);
    }
};

INSTANTIATE_TEST_SUITE_P(, ServerLoss, testing::Values(Engine::PostgreSql),
                         [](const testing::TestParamInfo<Engine> &engine) {
                             return engineName(engine.param).toStdString();
                         });

} // namespace

TEST_P(ServerLoss, IsReportedOnceAndTheNextAttemptConnects)
{
    killOthers();
    EXPECT_ERROR(EConnectionLost, mnFin_Db->fieldResult(u"select t_id from bd_t"_s), u"Nutrūko ryšys"_s);
    EXPECT_EQ(mnFin_Db->fieldResult(u"select t_id from bd_t"_s), Variant(qlonglong(1)));
}

TEST_P(ServerLoss, ForgetsTheOpenTransaction)
{
    mnFin_Db->StartTransaction();
    mnFin_Db->ExecSQL(u"insert into bd_t (t_id) values (2)"_s);
    killOthers();
    EXPECT_THROW(mnFin_Db->ExecSQL(u"insert into bd_t (t_id) values (3)"_s), EConnectionLost);
    EXPECT_FALSE(mnFin_Db->InTransaction());
    mnFin_Db->Rollback();
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_t"_s), u"1"_s);
}

TEST_P(ServerLoss, AStatementByItselfIsLookedUpLikeASave)
{
    CuttingProxy proxy(postgresFolder());
    TSessionSettings settings = finSettings();
    settings.connInfo.replace(postgresFolder(), proxy.folder());
    const auto db = open(settings);
    const QString insert = u"insert into bd_t (t_id) values (2)"_s;
    proxy.cutAt(CuttingProxy::Cut::BeforeCommit);
    EXPECT_ERROR(ECommitUnknown, db->ExecSQL(insert), u"Neįrašyta."_s);
    EXPECT_EQ(value(*secondFin(), u"select count(*) from bd_t"_s), u"1"_s);
    proxy.cutAt(CuttingProxy::Cut::AfterCommit);
    EXPECT_EQ(db->ExecSQL(insert), 1);
    EXPECT_EQ(proxy.cuts(), 2);
    EXPECT_EQ(value(*secondFin(), u"select count(*) from bd_t"_s), u"2"_s);
}

TEST_P(ServerLoss, AGuardWhoseTransactionIsGoneRefusesToCommit)
{
    TTransaction tran(mnFin_Db);
    killOthers();
    EXPECT_THROW(mnFin_Db->ExecSQL(u"insert into bd_t (t_id) values (3)"_s), EConnectionLost);
    EXPECT_ERROR(EDatabaseError, tran.commit(), u"Pakeitimai neįrašyti"_s);
}

TEST_P(ServerLoss, OnTheEditingConnectionIsNotToldAgainByTheReadingOne)
{
    const QString all = u"select t_id from bd_t"_s;
    mnFin_Db->prepare(all, TDatabase::Connection::Reading)->exec();
    killOthers();
    EXPECT_THROW(mnFin_Db->fieldResult(all), EConnectionLost);
    const auto list = mnFin_Db->prepare(all, TDatabase::Connection::Reading);
    list->exec();
    EXPECT_TRUE(list->next());
}

TEST_P(ServerLoss, EndsAHalfReadListWithAnError)
{
    mnFin_Db->nativeExec(u"insert into bd_t select generate_series(2, 1000)"_s);
    const auto list = mnFin_Db->prepare(u"select t_id from bd_t"_s, TDatabase::Connection::Reading);
    list->exec();
    ASSERT_TRUE(list->next());
    killOthers();
    const auto rest = [&list] {
        while (list->next()) {
        }
    };
    EXPECT_ERROR(EConnectionLost, rest(), u"Nutrūko ryšys"_s);
    list->exec();
    EXPECT_TRUE(list->next());
}

TEST_P(ServerLoss, ADialogKeepsWhatWasTypedAndSavesAtTheNextAttempt)
{
    TTable set(mnFin_Db, u"bd_t"_s);
    set.Open();
    set.Edit();
    set.FieldByName(u"t_id"_s)->setAsInteger(7);
    killOthers();
    EXPECT_THROW(set.Post(), EConnectionLost);
    EXPECT_EQ(set.State(), dsEdit);
    EXPECT_EQ(set.FieldByName(u"t_id"_s)->AsInteger(), 7);
    set.Post();
    EXPECT_EQ(value(*secondFin(), u"select t_id from bd_t"_s), u"7"_s);
}

TEST_P(ServerLoss, AListThatLosesItsServerSaysSoOnceAndOpensAgain)
{
    mnFin_Db->nativeExec(u"insert into bd_t select generate_series(2, 50000)"_s);
    TQuery set(mnFin_Db, u"select * from bd_t"_s);
    set.readsAside = true;
    set.Open();
    killOthers();
    QSignalSpy failed(&set, &TDataSet::fetchFailed);
    ASSERT_TRUE(QTest::qWaitFor([&failed] { return failed.count() > 0; }, 30000));
    QTest::qWait(50);
    EXPECT_EQ(failed.count(), 1);
    EXPECT_TRUE(failed.at(0).at(0).toString().contains(u"Nutrūko ryšys"_s));
    set.Close();
    set.Open();
    EXPECT_EQ(set.RecordCount(), 50000);
}

TEST_P(ServerLoss, AnUnreachableServerIsToldInWords)
{
    TSessionSettings settings = finSettings();
    settings.connInfo = u"host=/nera/tokio/katalogo dbname=x"_s;
    EXPECT_ERROR(EConnectionLost, TDatabase(settings).Open(), u"Nepavyko prisijungti"_s);
    settings.connInfo = u"tai nera zodziai"_s;
    EXPECT_ERROR(EDatabaseError, TDatabase(settings).Open(), u"Neteisingi prisijungimo"_s);
}

TEST_P(ServerLoss, ARaisedTextOfARoutineIsTheMessage)
{
    mnFin_Db->nativeExec(u"create function blogai() returns integer language plpgsql as "
                         "$$ begin raise exception 'Periodas jau uždarytas!'; end $$"_s);
    EXPECT_ERROR(EDatabaseError, mnFin_Db->nativeExec(u"select blogai()"_s), u"Periodas jau uždarytas!"_s);
}

TEST_P(ServerLoss, TheBusyHookGoesOnWhileTheServerWorks)
{
    int beats = 0;
    const TDatabase::BusyHook before = TDatabase::setBusyHook([&beats] { ++beats; });
    mnFin_Db->nativeExec(u"select pg_sleep(0.5)"_s);
    TDatabase::setBusyHook(before);
    EXPECT_GE(beats, 5);
    EXPECT_LE(beats, 13);
}
