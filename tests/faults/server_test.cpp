#include "database/schema.h"
#include "tests/faults/large_books.h"
#include "tests/faults/raised.h"
#include "tests/faults/victim_process.h"
#include "tests/support/mounts.h"
#include "tests/support/postgres.h"
#include "tests/support/silent_server.h"
#include "toolkit/data/server_link.h"

#include <iostream>
#include <random>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// A server that is not there, does not let one in, or goes away.

namespace {
class Server : public testing::Test {
protected:
    static void SetUpTestSuite() { postgres = std::make_unique<OwnPostgres>(); }
    static void TearDownTestSuite() { postgres.reset(); }

    void TearDown() override { postgres->restart(); }

    static TSessionSettings with(const QString &connInfo)
    {
        TSessionSettings settings;
        settings.alias = u"mnFin_Db"_s;
        settings.engine = Engine::PostgreSql;
        settings.connInfo = connInfo;
        return settings;
    }

    // A new database of that name with the schema.
    static TSessionSettings books(const QString &name)
    {
        TDatabase server(with(postgres->connInfo(u"postgres"_s)));
        server.Open();
        server.nativeExec(u"create database %1 template template0"_s.arg(name));
        TSessionSettings settings = with(postgres->connInfo(name));
        TDatabase db(settings);
        db.Open();
        upgrade(db, Book::Main);
        return settings;
    }

    // One statement to the server itself, as its superuser.
    static void administer(const QString &statement)
    {
        TDatabase server(with(postgres->superuserConnInfo(u"postgres"_s)));
        server.Open();
        server.nativeExec(statement);
    }

    static void insertPeriod(TDatabase &db, int id)
    {
        db.ExecSQL(u"insert into bd_period values (:id, 2005, 1, 1)"_s, {{u"id"_s, id}});
    }

    static std::unique_ptr<OwnPostgres> postgres;
};
std::unique_ptr<OwnPostgres> Server::postgres;
} // namespace

TEST_F(Server, ThatIsNotThereIsToldInWords)
{
    const QString failure = raised<EConnectionLost>(
        [] { TDatabase(with(u"host=/nonexistent port=5432 user=velmora dbname=postgres"_s)).Open(); });
    EXPECT_TRUE(tells(failure, u"Nepavyko prisijungti prie duomenų bazės serverio"_s));
    EXPECT_TRUE(tells(failure, u"Serveris nepasiekiamas"_s));
}

TEST_F(Server, ThatNeverAnswersIsToldInWordsAndTheNextOfTheWordsIsReached)
{
    const SilentServer silent;
    const QString words = u"host=127.0.0.1%1 port=%2%3 user=velmora dbname=postgres"_s;
    const QString alone = words.arg(QString()).arg(silent.port()).arg(QString());
    EXPECT_TRUE(tells(raised<EConnectionLost>([&alone] { TDatabase(with(alone)).Open(); }),
                      u"Serveris nepasiekiamas"_s));
    const QString folder = postgres->connInfo(u"postgres"_s).section(u"host="_s, 1).section(u' ', 0, 0);
    TDatabase pair(with(words.arg(u","_s + folder).arg(silent.port()).arg(u",5432"_s)));
    pair.Open();
    EXPECT_TRUE(pair.Connected());
}

TEST_F(Server, RefusesAWrongPasswordAndTakesTheRightOne)
{
    const QString failure = raised<EDatabaseError>(
        [] { TDatabase(with(postgres->passwordConnInfo(u"postgres"_s, u"neteisingas"_s))).Open(); });
    EXPECT_TRUE(tells(failure, u"Serveris nepriėmė naudotojo vardo arba slaptažodžio"_s));
    TDatabase right(with(postgres->passwordConnInfo(u"postgres"_s, u"slaptas"_s)));
    right.Open();
    EXPECT_TRUE(right.Connected());
}

TEST_F(Server, LostAtTheMomentOfSavingIsToldOnceAndTheNextAttemptSaves)
{
    const int usualPatience = setSeekPatience(1000);
    TDatabase db(books(u"prarasta"_s));
    db.Open();
    db.StartTransaction();
    insertPeriod(db, 6);
    postgres->crash();
    qlonglong lost = 0;
    try {
        db.Commit();
    } catch (const ECommitUnknown &error) {
        EXPECT_TRUE(tells(error.message(), u"Ryšys"_s));
        lost = error.openNumber();
    }
    EXPECT_NE(lost, 0);
    EXPECT_FALSE(db.InTransaction());

    EXPECT_TRUE(tells(raised<EConnectionLost>([&db] { insertPeriod(db, 7); }), u"server"_s));

    postgres->restart();
    setSeekPatience(usualPatience);
    EXPECT_FALSE(foundWritten(lost));
    db.StartTransaction();
    insertPeriod(db, 8);
    db.Commit();
    EXPECT_EQ(rows(db, u"select per_id from bd_period"_s), QStringList{u"8"_s});
}

TEST_F(Server, CrashedInTheMiddleOfACloseHoldsWholeBooks)
{
    const TSessionSettings settings = books(u"griuvo"_s);
    const auto fresh = [&settings] {
        auto db = std::make_unique<TDatabase>(settings);
        db->Open();
        return db;
    };
    fillLargeBooks(*fresh());
    const QByteArray before = fingerprint(*fresh());
    VictimProcess whole(u"close"_s, settings);
    ASSERT_TRUE(whole.finish()) << whole.failure().toStdString();
    const QByteArray after = fingerprint(*fresh());
    fresh()->ExecSQL(u"call Back_Per()"_s);
    ASSERT_EQ(fingerprint(*fresh()), before);

    const unsigned seed = std::random_device()();
    std::mt19937 random(seed);
    std::uniform_int_distribution<qint64> moment(0, whole.duration());
    int closed = 0;
    constexpr int crashes = 5;
    for (int i = 0; i < crashes; ++i) {
        VictimProcess victim(u"close"_s, settings);
        ASSERT_TRUE(victim.waitUntilItBegins()) << victim.failure().toStdString();
        QThread::usleep(ulong(moment(random)));
        postgres->restart();
        victim.finish();
        const QByteArray found = fingerprint(*fresh());
        ASSERT_TRUE(found == before || found == after) << "seed " << seed;
        if (found == after) {
            ++closed;
            fresh()->ExecSQL(u"call Back_Per()"_s);
        }
    }
    std::cout << crashes << " crashes of the server, seed " << seed << ": " << closed << " after, "
              << crashes - closed << " before\n";
}

TEST_F(Server, WithAFullDiskDamagesNothingAndClosesWhenThereIsRoom)
{
    const TSessionSettings original = books(u"talpios"_s);
    const auto at = [](const TSessionSettings &settings) {
        auto db = std::make_unique<TDatabase>(settings);
        db->Open();
        return db;
    };
    fillLargeBooks(*at(original));
    const QByteArray before = fingerprint(*at(original));
    const qint64 size =
        nativeValue(*at(original), u"select pg_database_size(current_database())"_s).toLongLong();
    constexpr qint64 room = 4'000'000; // less than a close writes
    const SmallDisk disk(size + room);
    REQUIRE_MOUNTED(disk);
    const passwd *owner = getpwnam("postgres");
    ASSERT_TRUE(owner);
    ASSERT_EQ(chown(disk.path().toUtf8(), owner->pw_uid, owner->pw_gid), 0);
    administer(u"create tablespace ankstu location '%1'"_s.arg(disk.path()));
    administer(
        u"create database ankstos owner velmora template talpios tablespace ankstu strategy file_copy"_s);

    const TSessionSettings settings = with(postgres->connInfo(u"ankstos"_s));
    VictimProcess starved(u"close"_s, settings);
    EXPECT_FALSE(starved.finish());
    EXPECT_TRUE(tells(starved.failure(), u"nebeliko vietos"_s));
    EXPECT_EQ(fingerprint(*at(settings)), before);

    ASSERT_TRUE(disk.resize(size * 3));
    VictimProcess fed(u"close"_s, settings);
    EXPECT_TRUE(fed.finish()) << fed.failure().toStdString();
    administer(u"drop database ankstos with (force)"_s);
    administer(u"drop tablespace ankstu"_s);
}
