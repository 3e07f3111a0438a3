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

TEST_P(Rights, TheMouseDragsSourcesAndWorkPlaces)
{
    add(1, [](TEditUserDlg &dialog) {
        tick(dialog, {1});
        dragByMouse(dialog.FinList, 1, dialog.RightsTree, {5, dialog.RightsTree->viewport()->height() - 3});
        EXPECT_EQ(tree(dialog), "Fondas=1(Buhalterija)");
        tick(dialog, {2});
        dragByMouse(dialog.KDVCheckList, 1, dialog.RightsTree,
                    dialog.RightsTree->visualItemRect(dialog.RightsTree->topLevelItem(0)).center());
        EXPECT_EQ(tree(dialog), "Fondas=3(Buhalterija,Kasa)");
        EXPECT_EQ(dialog.FinList->count(), 2) << "what is dragged stays where it is";
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, NodesOfTheTreeCannotBeDraggedWithinIt)
{
    add(1, [](TEditUserDlg &dialog) {
        tick(dialog, {1});
        selectSources(dialog, {0, 1});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        const std::unique_ptr<QMimeData> node(
            dialog.RightsTree->model()->mimeData({dialog.RightsTree->model()->index(0, 0)}));
        QDropEvent drop({5, 5}, Qt::CopyAction, node.get(), Qt::LeftButton, {});
        QApplication::sendEvent(dialog.RightsTree->viewport(), &drop);
        EXPECT_FALSE(drop.isAccepted());
        EXPECT_EQ(tree(dialog), "Biudžetas=1(Buhalterija) Fondas=1(Buhalterija)");
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

// What is under a work place is gone before the work place itself: no other bit of the source is touched.
TEST_P(Rights, DeletingAWorkPlaceWithMoreUnderItTakesItsOwnBitOnly)
{
    add(1, [](TEditUserDlg &dialog) {
        tick(dialog, {1, 2});
        selectSources(dialog, {0});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(0)->child(0));
        tick(dialog, {4});
        QTest::keyClick(dialog.KDVCheckList, Qt::Key_Insert);
        ASSERT_EQ(dialog.RightsTree->selectedNode()->childCount(), 2);
        QTest::keyClick(dialog.RightsTree, Qt::Key_Delete);
        EXPECT_EQ(tree(dialog), "Biudžetas=2(Kasa)");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, DeleteWithNothingSelectedDeletesNothing)
{
    add(1, [](TEditUserDlg &dialog) {
        giveRight(dialog);
        EXPECT_EQ(dialog.RightsTree->selectedNode(), nullptr);
        QTest::keyClick(dialog.RightsTree, Qt::Key_Delete);
        EXPECT_EQ(tree(dialog), "Biudžetas=1(Buhalterija)");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(Rights, GoingToTheTreeSelectsItsFirstNode)
{
    add(1, [](TEditUserDlg &dialog) {
        giveRight(dialog);
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_T, Qt::AltModifier);
        EXPECT_EQ(dialog.RightsTree->selectedNode(), dialog.RightsTree->topLevelItem(0));
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

// Bits that no work place of this list has are neither shown nor written again.
TEST_P(Rights, ForeignBitsOfAStoredMaskAreLeftOut)
{
    user(1, "ona", true, (1 << 16) | (1 << 20) | 0b101);
    EXPECT_TRUE(change(1, [](TEditUserDlg &dialog) {
        EXPECT_EQ(tree(dialog), "Biudžetas=5(Buhalterija,Sandėlis)");
        type(dialog.NameEdit, "Kita");
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(storedRights(), QStringList("1|1|5"));
}

TEST_P(Rights, WorkPlacesWithoutABitAreNotOffered)
{
    for (const int id : {-3, 0, 17, 40})
        budget().ExecSQL("insert into bd_kdv (kdv_id, kdv_pav) values (:id, 'Be bito')", {{"id", id}});
    add(1, [](TEditUserDlg &dialog) {
        EXPECT_EQ(dialog.KDVCheckList->count(), 4);
        EXPECT_TRUE(dialog.KDVCheckList->findItems("Be bito", Qt::MatchExactly).isEmpty());
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
