#include "tests/host/controls/bankai_fixture.h"

#include <QHeaderView>

namespace {
class BrowseOrder : public Bankai {
protected:
    QList<int> keys()
    {
        load();
        QList<int> all;
        for (int row = 0; row < frm->dataSet()->rowCount(); ++row)
            all << frm->dataSet()->index(row, 0).data(Qt::DisplayRole).toInt();
        return all;
    }
    void clickTitle(int column)
    {
        QHeaderView *header = frm->grid()->horizontalHeader();
        const QPoint at(header->sectionViewportPosition(column) + 20, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
    }
};
ON_BOTH_ENGINES(BrowseOrder);
} // namespace

TEST_P(BrowseOrder, ATitleClickOrdersAndASecondOneTurnsTheOrder)
{
    open();
    clickTitle(0);
    EXPECT_EQ(keys(), (QList<int>{10, 20, 30}));
    EXPECT_TRUE(frm->grid()->horizontalHeader()->isSortIndicatorShown());
    EXPECT_EQ(frm->grid()->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    clickTitle(0);
    EXPECT_EQ(keys(), (QList<int>{30, 20, 10}));
    EXPECT_EQ(frm->grid()->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    clickTitle(2);
    EXPECT_EQ(keys(), (QList<int>{20, 30, 10}));
    EXPECT_EQ(frm->grid()->horizontalHeader()->sortIndicatorSection(), 2);
}

TEST_P(BrowseOrder, TheOrderOfTheStatementIsMarkedAndTurnedByItsTitle)
{
    open();
    EXPECT_EQ(frm->grid()->horizontalHeader()->sortIndicatorSection(), 2);
    EXPECT_EQ(findEdit()->accessibleName(), u"Ieškoti stulpelyje Pavadinimas"_s);
    clickTitle(2);
    EXPECT_EQ(keys(), (QList<int>{10, 30, 20}));
}

TEST_P(BrowseOrder, TheCurrentRowStaysCurrent)
{
    open();
    frm->LastBtnClick();
    ASSERT_EQ(key(), 10);
    frm->OrderData(u"bnk_kodas"_s);
    EXPECT_EQ(key(), 10);
    EXPECT_EQ(frm->dataSet()->RecNo(), 0);
}

TEST_P(BrowseOrder, TheOrderSurvivesARefresh)
{
    open();
    frm->OrderData(AnsiString(u"BNK_KODAS"_s));
    frm->OrderData(u"BNK_KODAS"_s, true);
    frm->RefreshBtnClick();
    EXPECT_EQ(keys(), (QList<int>{30, 20, 10}));
}

TEST_P(BrowseOrder, KeysOrderByTheCurrentColumn)
{
    open();
    frm->grid()->setCurrentIndex(frm->grid()->model()->index(0, 0));
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(keys(), (QList<int>{10, 20, 30}));
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(keys(), (QList<int>{30, 20, 10}));
}

TEST_P(BrowseOrder, AnUnknownColumnLeavesListAndOrderAsTheyWere)
{
    open();
    EXPECT_THROW(frm->OrderData(u"nera_tokio"_s), Exception);
    frm->RefreshData(0);
    EXPECT_EQ(keys(), (QList<int>{20, 30, 10}));
}

TEST_P(BrowseOrder, ATitleDoesNothingWhereOrderingIsSwitchedOff)
{
    struct Fixed : TBankaiFrm {
        explicit Fixed(QWidget *owner) : TBankaiFrm(owner) { description.titleOrder = false; }
    };
    frm = createForm<Fixed>(nullptr);
    frm->show();
    clickTitle(0);
    EXPECT_EQ(keys(), (QList<int>{20, 30, 10}));
    EXPECT_FALSE(frm->grid()->horizontalHeader()->isSortIndicatorShown());
}
