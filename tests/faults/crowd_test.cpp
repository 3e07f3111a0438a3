#include "database/schema.h"
#include "tests/faults/raised.h"
#include "tests/faults/victim_process.h"
#include "tests/support/engines.h"
#include "tests/support/postgres.h"

using namespace Qt::StringLiterals;

// Two hundred stations at once on one server. A program has many of them, as each costs a process dear.

namespace {

constexpr int programs = 8;
constexpr int stationsOfEach = 25;
constexpr int accounts = 300; // more than a list fetches at once, so that each list stands half read

TSessionSettings freshBooks(const OwnPostgres &server)
{
    TSessionSettings settings{.alias = u"mnFin_Db"_s, .engine = Engine::PostgreSql};
    settings.connInfo = server.connInfo(u"postgres"_s);
    {
        TDatabase db(settings);
        db.Open();
        db.nativeExec(u"create database minia template template0"_s);
    }
    settings.connInfo = server.connInfo(u"minia"_s);
    TDatabase db(settings);
    db.Open();
    upgrade(db, Book::Main);
    db.nativeExec(u"insert into bd_period values (1, 2005, 0, 0), (2, 2005, 1, 0), (3, 2005, 2, 0), "
                  "(4, 2005, 3, 0), (5, 2005, 4, 0), (6, 2005, 1, 1)"_s);
    db.nativeExec(u"insert into bd_sasplan (sas_id, sas_sasnr, sas_tip) select i, 'S' || i, 'D' "
                  "from generate_series(1, %1) n (i)"_s.arg(accounts));
    return settings;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

} // namespace

TEST(Crowd, OfTwoHundredStationsLosesNothingWhileAMonthIsClosed)
{
    const OwnPostgres server;
    const TSessionSettings settings = freshBooks(server);
    std::vector<std::unique_ptr<VictimProcess>> stations;
    for (int i = 0; i < programs; ++i)
        stations.push_back(std::make_unique<VictimProcess>(u"crowd"_s, settings, QStringList{},
                                                           QString::number(stationsOfEach)));
    for (const auto &each : stations)
        ASSERT_TRUE(each->waitUntilItBegins()) << each->failure().toStdString();
    TDatabase db(settings);
    db.Open();
    // Each with the connection of its list.
    EXPECT_GE(nativeValue(db, u"select count(*) from pg_stat_activity where datname = 'minia'"_s).toInt(),
              2 * programs * stationsOfEach);
    VictimProcess close(u"close"_s, settings);
    EXPECT_TRUE(close.finish()) << close.failure().toStdString();

    QStringList operations, entries, refusals;
    for (const auto &each : stations) {
        EXPECT_TRUE(each->finish()) << each->failure().toStdString();
        operations += each->told(u"operacija"_s);
        entries += each->told(u"irasas"_s);
        refusals += each->told(u"atsisakyta"_s);
    }
    EXPECT_GE(operations.size(), programs * stationsOfEach);
    EXPECT_EQ(sorted(rows(db, u"select opr_pavad from bd_opr"_s)), sorted(operations));
    EXPECT_EQ(sorted(rows(db, u"select irs_id from bd_irasai"_s)), sorted(entries));
    EXPECT_EQ(value(db, u"select count(*) from bd_istorija where ist_lentele = 'bd_opr'"_s),
              QString::number(operations.size()));
    EXPECT_EQ(value(db, u"select ssl_sum_db from bd_saslik where ssl_perid = 7 and ssl_sasid = 1"_s),
              QString::number(entries.size()));
    EXPECT_GE(refusals.size(), programs * stationsOfEach);
    refusals.removeDuplicates();
    for (const QString &refusal : std::as_const(refusals))
        EXPECT_TRUE(refusal.contains(u"mėnuo uždarytas"_s) || refusal.contains(u"užrakino"_s))
            << refusal.toStdString();
}
