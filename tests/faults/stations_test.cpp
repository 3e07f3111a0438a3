#include "tests/faults/raised.h"
#include "tests/faults/victim_process.h"
#include "tests/support/engines.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

// Several programs on the same books at the same moment.

using Stations = OnBothEngines;
ON_BOTH_ENGINES(Stations);

namespace {
void beginWith(TDatabase &db, int year)
{
    db.StartTransaction();
    db.ExecSQL(u"update bd_period set per_metai = :metai where per_id = 6"_s, {{u"metai"_s, year}});
}
} // namespace

TEST_P(Stations, TwoProgramsWriteIntoTheSameBooks)
{
    constexpr int each = 100;
    VictimProcess one(u"append"_s, finSettings(), {}, QString::number(each));
    VictimProcess other(u"append"_s, finSettings(), {}, QString::number(each));
    EXPECT_TRUE(one.finish()) << one.failure().toStdString();
    EXPECT_TRUE(other.finish()) << other.failure().toStdString();
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_opr"_s), QString::number(2 * each));
    EXPECT_EQ(value(*mnFin_Db, u"select max(opr_id) from bd_opr"_s), QString::number(2 * each));
}

TEST_P(Stations, LockHeldTooLongIsToldInWordsAndTheNextAttemptSucceeds)
{
    mnFin_Db->ExecSQL(u"insert into bd_period values (6, 2005, 1, 1)"_s);
    TSessionSettings impatient = finSettings();
    impatient.busyTimeoutMs = 300;
    const auto other = open(impatient);

    beginWith(*mnFin_Db, 2006);
    QElapsedTimer waited;
    waited.start();
    const QString failure = raised<EDatabaseBusy>([&other] { beginWith(*other, 2007); });
    EXPECT_GE(waited.elapsed(), 250);
    EXPECT_LT(waited.elapsed(), 5000);
    EXPECT_TRUE(tells(failure, u"užrakino"_s));
    other->Rollback();
    mnFin_Db->Commit();
    EXPECT_EQ(value(*other, u"select per_metai from bd_period"_s), u"2006"_s);

    beginWith(*other, 2007);
    other->Commit();
    EXPECT_EQ(value(*mnFin_Db, u"select per_metai from bd_period"_s), u"2007"_s);
}

TEST_P(Stations, TwoClosesStartedTogetherCloseTwoMonthsOrOne)
{
    for (int i = 1; i <= 5; ++i)
        mnFin_Db->ExecSQL(u"insert into bd_period values (:id, 2005, :ketv, 0)"_s,
                          {{u"id"_s, i}, {u"ketv"_s, i - 1}});
    mnFin_Db->ExecSQL(u"insert into bd_period values (6, 2005, 1, 1)"_s);
    VictimProcess one(u"close"_s, finSettings());
    VictimProcess other(u"close"_s, finSettings());
    const int closed = int(one.finish()) + int(other.finish());
    EXPECT_GE(closed, 1) << one.failure().toStdString() << other.failure().toStdString();
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_period where per_menuo > 0"_s),
              QString::number(1 + closed));
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_period where per_menuo > 0 and per_ketv = 1"_s),
              QString::number(1 + closed));
}
