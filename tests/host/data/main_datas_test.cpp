#include "host/data/main_datas.h"

#include "database/schema.h"
#include "host/data/connections.h"
#include "tests/host/books.h"

#include <QFile>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

QString messageOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const Exception &error) {
        return error.message();
    }
    return {};
}

} // namespace

using Books = WithMainDatas;
ON_BOTH_ENGINES(Books);

TEST_P(Books, BothSessionsAreOpenUnderTheirNames)
{
    EXPECT_EQ(fin->AliasName(), "mnFin_Db");
    EXPECT_EQ(ravl->AliasName(), "mnRavl");
    EXPECT_EQ(value(*fin, u"select count(*) from bd_period"_s), "0");
    EXPECT_EQ(value(*ravl, u"select count(*) from bd_usr"_s), "0");
}

TEST_P(Books, ANewerSchemaIsRefusedAndLeftAlone)
{
    ravl->ExecSQL(u"update bd_versija set ver_numeris = 9999"_s);
    const QStringList before = dump(*mnRavl);
    TMainDatas late(finSettings(), ravlSettings());
    EXPECT_TRUE(messageOf([&] { late.Open(); }).contains(u"Atnaujinkite programą"_s));
    EXPECT_THROW(late.Open(), ENewerDatabase);
    EXPECT_FALSE(late.mnFin_Db()->Connected());
    EXPECT_FALSE(late.mnRavl()->Connected());
    EXPECT_EQ(dump(*mnRavl), before);
}

TEST_P(Books, AnOlderSchemaNamesTheCommandThatUpgrades)
{
    fin->ExecSQL(u"update bd_versija set ver_numeris = %1"_s.arg(latestRevision() - 1));
    TMainDatas late(finSettings(), ravlSettings());
    EXPECT_TRUE(messageOf([&] { late.Open(); }).contains(u"velmora-db upgrade"));
}

TEST_P(Books, ReadOnlySessionsCannotWriteAnything)
{
    addSmallChart(fin);
    MainDatas()->makeReadOnly();
    EXPECT_EQ(GetParam(), MainDatas()->mnFin_Db()->engine());
    EXPECT_THROW(MainDatas()->mnFin_Db()->ExecSQL(u"delete from bd_sasplan where sas_id = 3"_s),
                 EDatabaseError);
    EXPECT_THROW(MainDatas()->mnRavl()->ExecSQL(u"insert into bd_kdv (kdv_id, kdv_pav) values (1, 'A')"_s),
                 EDatabaseError);
    EXPECT_EQ(value(*MainDatas()->mnFin_Db(), u"select count(*) from bd_sasplan"_s), "7");
}

TEST_P(Books, WithoutPeriodsTheCurrentPeriodIsNone)
{
    EXPECT_EQ(EinPer_Id(), 0);
    EXPECT_EQ(EinPer_Date().value(), 0);
}

TEST_P(Books, TheCurrentPeriodIsTheLastMonthWhateverItsId)
{
    fin->ExecSQL(u"insert into bd_period values (1, 2005, 0, 0)"_s);
    fin->ExecSQL(u"insert into bd_period values (5, 2005, 4, 0)"_s);
    fin->ExecSQL(u"insert into bd_period values (6, 2005, 4, 2)"_s);
    fin->ExecSQL(u"insert into bd_period values (7, 2005, 3, 3)"_s);
    fin->ExecSQL(u"insert into bd_period values (8, 2006, 0, 0)"_s);
    fin->ExecSQL(u"insert into bd_period values (9, 2006, 1, NULL)"_s);
    GetPeriod();
    EXPECT_EQ(EinPer_Id(), 6);
    EXPECT_EQ(EinPer_Date().date(), QDate(2005, 11, 1));
}

TEST_P(Books, ReadingThePeriodAgainTellsOpenScreens)
{
    QSignalSpy told(&periodNotifier(), &TPeriodNotifier::periodChanged);
    fin->ExecSQL(u"insert into bd_period values (6, 2005, 1, 1)"_s);
    EXPECT_EQ(EinPer_Id(), 0);
    GetPeriod();
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(EinPer_Id(), 6);
}

TEST_P(Books, ReadingTheSamePeriodAgainTellsNobody)
{
    fin->ExecSQL(u"insert into bd_period values (6, 2005, 1, 1)"_s);
    GetPeriod();
    QSignalSpy told(&periodNotifier(), &TPeriodNotifier::periodChanged);
    GetPeriod();
    FollowPeriod();
    EXPECT_EQ(told.count(), 0);
}

TEST_P(Books, AMonthThatAnotherStationClosedIsFollowed)
{
    fin->ExecSQL(u"insert into bd_period values (6, 2005, 1, 1)"_s);
    GetPeriod();
    secondFin()->ExecSQL(u"insert into bd_period values (7, 2005, 1, 2)"_s);
    QSignalSpy told(&periodNotifier(), &TPeriodNotifier::periodChanged);
    FollowPeriod();
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(EinPer_Id(), 7);
}

TEST_P(Books, FollowingThePeriodNeverDisturbsWork)
{
    fin->ExecSQL(u"insert into bd_period values (6, 2005, 1, 1)"_s);
    GetPeriod();
    fin->StartTransaction();
    fin->ExecSQL(u"delete from bd_period"_s);
    FollowPeriod();
    EXPECT_EQ(EinPer_Id(), 6);
    fin->Rollback();
    fin->nativeExec(u"alter table bd_period rename to kitur"_s);
    FollowPeriod();
    EXPECT_EQ(EinPer_Id(), 6);
    EXPECT_THROW(GetPeriod(), EDatabaseError);
    EXPECT_EQ(EinPer_Id(), 6);
}

TEST_P(Books, FollowingThePeriodWaitsForTheStatementThatRuns)
{
    int followed = 0;
    const auto former = TDatabase::setBusyHook([&followed] {
        FollowPeriod();
        ++followed;
    });
    fin->nativeExec(engine() == Engine::Sqlite
                        ? u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 800000) "
                          "select count(*) from n"_s
                        : u"select pg_sleep(0.3)"_s);
    TDatabase::setBusyHook(former);
    EXPECT_GT(followed, 0);
    EXPECT_TRUE(fin->Connected());
    fin->ExecSQL(u"insert into bd_period values (6, 2005, 1, 1)"_s);
    FollowPeriod();
    EXPECT_EQ(EinPer_Id(), 6);
}

TEST_P(Books, ClosingTheBooksForgetsThePeriod)
{
    fin->ExecSQL(u"insert into bd_period values (6, 2005, 1, 1)"_s);
    GetPeriod();
    setMainDatas(nullptr);
    EXPECT_EQ(EinPer_Id(), 0);
    EXPECT_EQ(MainDatas(), nullptr);
}

TEST_P(Books, AnInstitutionHasNameAndKind)
{
    EXPECT_EQ(organisationName(), "");
    EXPECT_FALSE(UAB());
    EXPECT_THROW(setUAB(true), EDatabaseError);
    fin->ExecSQL(
        u"insert into bd_org (org_pavad, org_adr, org_i_kod) values ('Šilo mokykla', 'Vilnius', 190000000)"_s);
    EXPECT_EQ(organisationName(), u"Šilo mokykla");
    EXPECT_FALSE(UAB());
    setUAB(true);
    EXPECT_TRUE(UAB());
    setUAB(false);
    EXPECT_FALSE(UAB());
}

using EmptyBooks = OnEmptyDatabases;
ON_BOTH_ENGINES(EmptyBooks);

TEST_P(EmptyBooks, ADatabaseWithoutSchemaIsRefusedAndStaysEmpty)
{
    TMainDatas datas(finSettings(), ravlSettings());
    EXPECT_TRUE(messageOf([&] { datas.Open(); }).contains(u"nėra programos lentelių"));
    EXPECT_FALSE(datas.mnFin_Db()->Connected());
    EXPECT_TRUE(dump(*mnFin_Db).isEmpty());
}

TEST_P(EmptyBooks, UpgradingMakesThemFitToOpen)
{
    upgradeBooks({finSettings(), ravlSettings()});
    TMainDatas datas(finSettings(), ravlSettings());
    datas.Open();
    EXPECT_EQ(revisionOf(*datas.mnFin_Db()), latestRevision());
    EXPECT_EQ(revisionOf(*datas.mnRavl()), latestRevision());
}

TEST(EmbeddedBooks, MissingFilesAreReportedAndNotCreated)
{
    const QTemporaryDir folder;
    const TBooks books = embeddedBooks(folder.path());
    TMainDatas datas(books.fin, books.ravl);
    EXPECT_TRUE(messageOf([&] { datas.Open(); }).contains(u"velmora_fin.db"));
    EXPECT_FALSE(QFile::exists(books.fin.file));
}
