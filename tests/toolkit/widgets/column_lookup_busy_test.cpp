// A list may be painted while a statement runs, and a statement may run because a list is painted.

#include "tests/support/engines.h"
#include "toolkit/widgets/column_lookup.h"

#include <QScopeGuard>

namespace {

class LookupWhileBusy : public OnEmptyDatabases {
protected:
    void SetUp() override
    {
        OnEmptyDatabases::SetUp();
        mnFin_Db->nativeExec("create table raktai (id integer primary key, pav varchar(10))");
        mnFin_Db->nativeExec("insert into raktai values (1, 'vienas')");
    }
    // Long enough for the hook to be called.
    void workForAWhile()
    {
        mnFin_Db->nativeExec(
            "with recursive n(i) as (select 1 union all select i + 1 from n where i < 1500000) "
            "select count(*) from n");
    }
    void whileHooked(const std::function<void()> &hook, const std::function<void()> &work)
    {
        const auto former = TDatabase::setBusyHook(hook);
        const auto restore = qScopeGuard([&former] { TDatabase::setBusyHook(former); });
        work();
    }
};
ON_BOTH_ENGINES(LookupWhileBusy);

} // namespace

TEST_P(LookupWhileBusy, ReadsNothingUntilTheStatementHasEnded)
{
    TColumnLookup texts(mnFin_Db, "select id, pav from raktai");
    QStringList seen;
    whileHooked([&] { seen << texts.text(1); }, [this] { workForAWhile(); });
    ASSERT_FALSE(seen.isEmpty());
    EXPECT_EQ(seen.first(), "");
    EXPECT_EQ(texts.text(1), "vienas");
}

TEST_P(LookupWhileBusy, IsNotPaintedIntoWhileItReads)
{
    int paintings = 0;
    TColumnLookup texts([this](const QVariant &) {
        workForAWhile();
        return QString("vienas");
    });
    whileHooked([&] { ++paintings; }, [&] { EXPECT_EQ(texts.text(1), "vienas"); });
    EXPECT_EQ(paintings, 0);
    whileHooked([&] { ++paintings; }, [this] { workForAWhile(); });
    EXPECT_GT(paintings, 0);
}
