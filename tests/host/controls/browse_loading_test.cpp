#include "tests/host/controls/bankai_fixture.h"

#include "host/common/forms.h"

namespace {
class BrowseLoading : public Bankai {
protected:
    static constexpr int many = 20'000;
    void openLong()
    {
        addManyBanks(many);
        open();
    }
};
ON_BOTH_ENGINES(BrowseLoading);
} // namespace

TEST_P(BrowseLoading, ALongListShowsItsFirstRowsAndSaysThatMoreAreComing)
{
    openLong();
    EXPECT_TRUE(frm->loading());
    EXPECT_TRUE(frm->panel(0).startsWith(u"Įrašų kiekis: … "_s)) << frm->panel(0).toStdString();
    EXPECT_TRUE(frm->panel(0).endsWith(u'+'));
    EXPECT_EQ(shown(0, 2), u"Ąžuolo kreditas"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !frm->loading(); }, 60'000));
    EXPECT_EQ(frm->panel(0), u"Įrašų kiekis: 20003"_s);
}

TEST_P(BrowseLoading, EscapeStopsTheLoadingAndKeepsWhatIsThere)
{
    openLong();
    ASSERT_TRUE(frm->loading());
    press(Qt::Key_Escape);
    QTest::qWait(50);
    EXPECT_TRUE(frm->isVisible());
    EXPECT_FALSE(frm->loading());
    const int part = frm->dataSet()->fetchedCount();
    EXPECT_GT(part, 0);
    EXPECT_LT(part, many);
    EXPECT_EQ(frm->panel(0), u"Įrašų kiekis: … %1+"_s.arg(part));
    QTest::qWait(50);
    EXPECT_EQ(frm->dataSet()->fetchedCount(), part);
    press(Qt::Key_F5);
    frm->dataSet()->RecordCount();
    EXPECT_EQ(frm->dataSet()->fetchedCount(), many + 3);
}

TEST_P(BrowseLoading, WritingGoesOnWhileTheListIsHalfRead)
{
    openLong();
    ASSERT_TRUE(frm->loading());
    TTransaction transaction(fin);
    fin->ExecSQL(u"update bd_bankai set bnk_rink = 1 where bnk_kodas = 30"_s);
    transaction.commit();
    EXPECT_EQ(value(*fin, u"select bnk_rink from bd_bankai where bnk_kodas = 30"_s), u"1"_s);
    frm->RefreshData(30);
    EXPECT_EQ(key(), 30);
}

TEST_P(BrowseLoading, AHalfReadListDoesNotFetchFromInsideAStatement)
{
    openLong();
    ASSERT_TRUE(frm->loading());
    const int before = frm->dataSet()->fetchedCount();
    QTest::qSleep(60);
    paintWhileBusy();
    EXPECT_EQ(frm->dataSet()->fetchedCount(), before);
}

TEST_P(BrowseLoading, ClosingAHalfReadListLeavesNoStatementBehind)
{
    openLong();
    ASSERT_TRUE(frm->loading());
    close();
    fin->ExecSQL(u"delete from bd_bankai"_s);
    EXPECT_TRUE(stored().isEmpty());
}
