#include "database/schema.h"
#include "tests/support/engines.h"
#include "toolkit/data/statement.h"

#include <QDeadlineTimer>
#include <QThread>

using namespace Qt::StringLiterals;

using Revisions = OnEmptyDatabases;
ON_BOTH_ENGINES(Revisions);

// On a server, where a list that somebody has read half holds its tables.
class RevisionsOnServer : public OnEmptyDatabases {
protected:
    // Whether somebody begins to wait for a lock in the main database.
    bool somebodyWaits()
    {
        const QDeadlineTimer patience(60'000);
        while (!patience.hasExpired()) {
            if (nativeValue(*secondFin(),
                            u"select count(*) from pg_locks join pg_database d on d.oid = database "
                            "where datname = current_database() and not granted"_s) != u"0")
                return true;
            QThread::msleep(20);
        }
        return false;
    }
};
ON_ENGINE(RevisionsOnServer, Engine::PostgreSql);

namespace {

const TRevision first{1,
                      {u"create table bd_a (a_id integer primary key)"_s, u"insert into bd_a values (1)"_s}};
const TRevision second{2, {u"create table bd_b (b_id integer primary key)"_s}};
const TRevision broken{3,
                       {u"create table bd_c (c_id integer primary key); delete from bd_a"_s,
                        u"insert into bd_nera values (1)"_s}};

} // namespace

TEST_P(Revisions, AnEmptyDatabaseStandsAtNone)
{
    EXPECT_EQ(revisionOf(*mnFin_Db), 0);
}

TEST_P(Revisions, TheProgramsOwnBringItToTheLatest)
{
    QStringList told;
    upgrade(*mnFin_Db, Book::Main, [&](int number, int last) { told << u"%1/%2"_s.arg(number).arg(last); });
    upgrade(*mnRavl, Book::Budget);
    EXPECT_EQ(revisionOf(*mnFin_Db), latestRevision());
    EXPECT_EQ(revisionOf(*mnRavl), latestRevision());
    EXPECT_EQ(told.size(), latestRevision());
    EXPECT_EQ(told.last(), u"%1/%1"_s.arg(latestRevision()));
}

TEST_P(Revisions, AreNumberedAlikeForBothBooksAndEngines)
{
    for (const Book book : {Book::Main, Book::Budget}) {
        const QList<TRevision> list = revisions(engine(), book);
        ASSERT_EQ(list.size(), latestRevision());
        for (int i = 0; i < list.size(); ++i) {
            EXPECT_EQ(list.at(i).number, i + 1);
            EXPECT_FALSE(list.at(i).scripts.isEmpty());
        }
    }
}

TEST_P(Revisions, ASecondUpgradeHasNothingToDo)
{
    upgrade(*mnFin_Db, Book::Main, {first});
    bool told = false;
    upgrade(*mnFin_Db, Book::Main, {first}, [&](int, int) { told = true; });
    EXPECT_FALSE(told);
    EXPECT_EQ(rows(*mnFin_Db, u"select a_id from bd_a"_s), (QStringList{u"1"_s}));
}

TEST_P(Revisions, OnlyTheMissingOnesAreApplied)
{
    upgrade(*mnFin_Db, Book::Main, {first});
    upgrade(*mnFin_Db, Book::Main, {first, second});
    EXPECT_EQ(revisionOf(*mnFin_Db), 2);
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_b"_s), u"0");
}

TEST_P(Revisions, AFailingOneLeavesTheOlderOneWhole)
{
    upgrade(*mnFin_Db, Book::Main, {first});
    EXPECT_THROW(upgrade(*mnFin_Db, Book::Main, {first, second, broken}), EDatabaseError);
    EXPECT_FALSE(mnFin_Db->InTransaction());
    EXPECT_EQ(revisionOf(*mnFin_Db), 2);
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_a"_s), u"1");
    EXPECT_FALSE(mnFin_Db->columnsOf(u"bd_b"_s).isEmpty());
    EXPECT_TRUE(mnFin_Db->columnsOf(u"bd_c"_s).isEmpty());
}

TEST_P(Revisions, AFailingFirstOneLeavesNothing)
{
    const TRevision bad{1, {u"create table bd_a (a_id integer)"_s, u"insert into bd_nera values (1)"_s}};
    EXPECT_THROW(upgrade(*mnFin_Db, Book::Main, {bad}), EDatabaseError);
    EXPECT_EQ(revisionOf(*mnFin_Db), 0);
    EXPECT_TRUE(mnFin_Db->columnsOf(u"bd_a"_s).isEmpty());
}

TEST_P(Revisions, ADatabaseOfANewerProgramIsRefusedUntouched)
{
    upgrade(*mnFin_Db, Book::Main, {first, second});
    const QStringList before = dump(*mnFin_Db);
    try {
        upgrade(*mnFin_Db, Book::Main, {first});
        ADD_FAILURE() << "was not refused";
    } catch (const ENewerDatabase &error) {
        EXPECT_TRUE(error.message().contains(u"naujesnė programa")) << error.what();
        EXPECT_TRUE(error.message().contains(mnFin_Db->AliasName())) << error.what();
    }
    EXPECT_EQ(dump(*mnFin_Db), before);
}

TEST_P(Revisions, TheOtherBooksDatabaseIsRefused)
{
    upgrade(*mnFin_Db, Book::Main, {first});
    EXPECT_THROW(upgrade(*mnFin_Db, Book::Budget, {first, second}), EDatabaseError);
    EXPECT_EQ(revisionOf(*mnFin_Db), 1);
}

TEST_P(Revisions, TwoStationsAtOnceApplyEachOnce)
{
    const TSessionSettings settings = finSettings();
    const auto bringUp = [this, settings](QString &failure) {
        try {
            const std::unique_ptr<TDatabase> station = open(settings);
            upgrade(*station, Book::Main, {first, second});
        } catch (const Exception &error) {
            failure = error.message();
        }
    };
    QString failures[2];
    const std::unique_ptr<QThread> other(QThread::create([&] { bringUp(failures[1]); }));
    other->start();
    bringUp(failures[0]);
    other->wait();
    EXPECT_EQ(failures[0], QString());
    EXPECT_EQ(failures[1], QString());
    EXPECT_EQ(revisionOf(*mnFin_Db), 2);
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_a"_s), u"1");
}

TEST_P(RevisionsOnServer, WaitForAListThatIsReadOnMeanwhile)
{
    upgrade(*mnFin_Db, Book::Main, {first});
    mnFin_Db->nativeExec(u"insert into bd_a select i from generate_series(2, 50000) i"_s);
    const auto list = mnFin_Db->prepare(u"select a_id from bd_a"_s, TDatabase::Connection::Reading);
    list->exec();
    ASSERT_TRUE(list->next());

    constexpr int usualPatienceMs = 200;
    QString failure;
    TSessionSettings settings = finSettings();
    settings.busyTimeoutMs = usualPatienceMs;
    const std::unique_ptr<QThread> upgrading(QThread::create([&, settings] {
        try {
            const std::unique_ptr<TDatabase> station = open(settings);
            upgrade(*station, Book::Main, {first, {2, {u"alter table bd_a add a_nauja integer"_s}}});
        } catch (const Exception &error) {
            failure = error.message();
        }
    }));
    upgrading->start();
    EXPECT_TRUE(somebodyWaits());
    QThread::msleep(5 * usualPatienceMs);
    int read = 1;
    while (list->next())
        ++read;
    EXPECT_EQ(read, 50000);
    EXPECT_TRUE(upgrading->wait(60'000));
    EXPECT_EQ(failure, QString());
    EXPECT_EQ(revisionOf(*mnFin_Db), 2);
}
