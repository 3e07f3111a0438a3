#include "host/controls/transactions.h"
#include "tests/support/engines.h"

using namespace Qt::StringLiterals;

namespace {
class Transactions : public OnBothEngines {};
ON_BOTH_ENGINES(Transactions);
} // namespace

TEST_P(Transactions, BeginningTwiceAndEndingWithoutABeginningAreHarmless)
{
    CommitTran(mnFin_Db);
    RollBackTran(mnFin_Db);
    BeginTran(mnFin_Db);
    BeginTran(mnFin_Db);
    DbiQExecDirect(mnFin_Db, u"insert into bd_objektai (obj_id, obj_pavad) values (1, 'A')"_s);
    RollBackTran(mnFin_Db);
    EXPECT_FALSE(mnFin_Db->InTransaction());
    EXPECT_EQ(GetFieldResult(mnFin_Db, u"select count(*) from bd_objektai"_s).toInt(), 0);
    BeginTran(mnFin_Db);
    DbiQExecDirect(mnFin_Db, u"insert into bd_objektai (obj_id, obj_pavad) values (1, 'A')"_s);
    CommitTran(mnFin_Db);
    CommitTran(mnFin_Db);
    EXPECT_EQ(value(*secondFin(), u"select count(*) from bd_objektai"_s), u"1"_s);
}

TEST_P(Transactions, AFieldResultOfNothingIsNull)
{
    EXPECT_TRUE(GetFieldResult(mnFin_Db, u"select max(obj_id) from bd_objektai"_s).isNull());
    EXPECT_TRUE(GetFieldResult(mnFin_Db, u"select obj_id from bd_objektai"_s).isNull());
    EXPECT_EQ(GetFieldResult(mnFin_Db, u"select max(obj_id) from bd_objektai"_s).toDouble() + 1, 1.0);
}

TEST_P(Transactions, AFailingStatementRaisesAndChangesNothing)
{
    EXPECT_THROW(DbiQExecDirect(mnFin_Db, u"delete from nera_tokios"_s), Exception);
}
