#include "tests/src/users/users.h"

namespace {
class Rights : public Users {};
ON_BOTH_ENGINES(Rights);
} // namespace

TEST(WorkPlaceBit, OnlySixteenWorkPlacesHaveOne)
{
    EXPECT_EQ(workPlaceBit(1), 1);
    EXPECT_EQ(workPlaceBit(3), 4);
    EXPECT_EQ(workPlaceBit(16), 0x8000);
    for (const int without : {-1, 0, 17, 40, 500})
        EXPECT_EQ(workPlaceBit(without), 0);
}

TEST_P(Rights, SourcesAreDraggedWithTheTickedWorkPlaces)
{
    add(1, [](TEditUserDlg &dialog) {
        tick(dialog, {1, 3});
        selectSources(dialog, {0, 1});
        drag(dialog.FinList, dialog.RightsTree);
        EXPECT_EQ(tree(dialog), "Biudžetas=5(Buhalterija,Sandėlis) Fondas=5(Buhalterija,Sandėlis)");
        EXPECT_TRUE(dialog.RightsTree->topLevelItem(0)->isExpanded());
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, ASecondTickTakesTheWorkPlaceBack)
{
    add(1, [](TEditUserDlg &dialog) {
        tick(dialog, {1, 3, 1});
        selectSources(dialog, {0});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        EXPECT_EQ(tree(dialog), "Biudžetas=4(Sandėlis)");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, ASourceThatIsThereStaysAsItIs)
{
    add(1, [](TEditUserDlg &dialog) {
        giveRight(dialog);
        tick(dialog, {2});
        drag(dialog.FinList, dialog.RightsTree);
        EXPECT_EQ(tree(dialog), "Biudžetas=1(Buhalterija)");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, AWorkPlaceOfTheSameNameBlocksASource)
{
    budget().ExecSQL("update bd_kdv set kdv_pav = 'Fondas' where kdv_id = 1");
    add(1, [](TEditUserDlg &dialog) {
        giveRight(dialog);
        selectSources(dialog, {1});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        EXPECT_EQ(tree(dialog), "Biudžetas=1(Fondas)");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, WorkPlacesAreDroppedOntoASourceOrOneOfItsWorkPlaces)
{
    add(1, [](TEditUserDlg &dialog) {
        giveRight(dialog);
        tick(dialog, {2});
        drag(dialog.KDVCheckList, dialog.RightsTree);
        EXPECT_EQ(tree(dialog), "Biudžetas=1(Buhalterija)") << "on empty space nothing happens";
        drag(dialog.KDVCheckList, dialog.RightsTree, dialog.RightsTree->topLevelItem(0)->child(0));
        EXPECT_EQ(tree(dialog), "Biudžetas=3(Buhalterija,Kasa)");
        tick(dialog, {4});
        drag(dialog.KDVCheckList, dialog.RightsTree, dialog.RightsTree->topLevelItem(0));
        EXPECT_EQ(tree(dialog), "Biudžetas=11(Buhalterija,Kasa,Virtuvė)");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, OtherDragsAreNotTaken)
{
    add(1, [](TEditUserDlg &dialog) {
        QMimeData text;
        text.setText("Biudžetas");
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &text, Qt::LeftButton, {});
        QApplication::sendEvent(dialog.RightsTree->viewport(), &enter);
        EXPECT_FALSE(enter.isAccepted());
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, InsertOnWorkPlacesAddsToTheSelectedNodeAsItIs)
{
    add(1, [](TEditUserDlg &dialog) {
        giveRight(dialog);
        tick(dialog, {1, 2});
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(0));
        QTest::keyClick(dialog.KDVCheckList, Qt::Key_Insert);
        EXPECT_EQ(tree(dialog), "Biudžetas=3(Buhalterija,Kasa)");
        QTreeWidgetItem *place = dialog.RightsTree->topLevelItem(0)->child(0);
        dialog.RightsTree->setCurrentItem(place);
        tick(dialog, {4});
        QTest::keyClick(dialog.KDVCheckList, Qt::Key_Insert);
        EXPECT_EQ(tree(dialog), "Biudžetas=3(Buhalterija,Kasa)");
        EXPECT_EQ(place->childCount(), 2) << "under the work place, not beside it";
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, DeleteTakesAWorkPlaceOutOfItsSourcesMask)
{
    add(1, [](TEditUserDlg &dialog) {
        tick(dialog, {1, 3});
        selectSources(dialog, {0, 1});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(0)->child(1));
        QTest::keyClick(dialog.RightsTree, Qt::Key_Delete);
        EXPECT_EQ(tree(dialog), "Biudžetas=1(Buhalterija) Fondas=5(Buhalterija,Sandėlis)");
        EXPECT_EQ(dialog.RightsTree->currentItem(), dialog.RightsTree->topLevelItem(0)->child(0));
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(1));
        QTest::keyClick(dialog.RightsTree, Qt::Key_Delete);
        EXPECT_EQ(tree(dialog), "Biudžetas=1(Buhalterija)");
        EXPECT_EQ(dialog.RightsTree->currentItem()->text(0), "Buhalterija");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, OnlyWorkPlacesThatTheAdministratorSeesAreOffered)
{
    CurrentUser().workPlaces = 0b1010;
    add(1, [](TEditUserDlg &dialog) {
        ASSERT_EQ(dialog.KDVCheckList->count(), 2);
        EXPECT_EQ(dialog.KDVCheckList->item(0)->text(), "Kasa");
        EXPECT_EQ(dialog.KDVCheckList->item(1)->text(), "Virtuvė");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, FiveHundredWorkPlacesAreListedAsFarAsTheyHaveABit)
{
    for (int id = 5; id <= 500; ++id)
        budget().ExecSQL("insert into bd_kdv (kdv_id, kdv_pav) values (:id, :pav)",
                         {{"id", id}, {"pav", QString("Vieta %1").arg(id)}});
    EXPECT_TRUE(add(1, [](TEditUserDlg &dialog) {
        EXPECT_EQ(dialog.KDVCheckList->count(), 16);
        fill(dialog, "jonas");
        tick(dialog, {16});
        selectSources(dialog, {0});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        dialog.cb_userAdmin->setChecked(true);
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(storedRights(), QStringList("1|1|32768"));
}
