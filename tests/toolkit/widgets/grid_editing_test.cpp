#include "tests/toolkit/widgets/window_fixture.h"
#include "toolkit/widgets/column_lookup.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/own_escape.h"

#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>

namespace {

class EditedInPlace : public InWindow {
protected:
    void SetUp() override
    {
        InWindow::SetUp();
        grid = add<TDBGrid>();
        grid->setColumns({{.field = u"pre_pavad"_s, .title = u"Prekė"_s}, {.field = u"pre_suma"_s}});
        grid->setDataSet(set.get());
        grid->setEditsInPlace(true);
        other = add<QLineEdit>();
    }
    // The cell that is typed in; null when there is none.
    QLineEdit *cell() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return grid->findChild<QLineEdit *>();
    }

    TDBGrid *grid = nullptr;
    QLineEdit *other = nullptr;
};

} // namespace

TEST_F(EditedInPlace, WholeRowsAreSelectedUntilARecordIsEdited)
{
    show(grid);
    EXPECT_FALSE(grid->cellEditing());
    EXPECT_EQ(grid->selectionModel()->selectedIndexes().size(), 2);
    typeLetters(grid, u"x"_s);
    EXPECT_FALSE(cell());
    set->Edit();
    EXPECT_TRUE(grid->cellEditing());
    ASSERT_TRUE(cell());
    EXPECT_EQ(cell()->text(), u"Agurkai");
    EXPECT_EQ(grid->selectionModel()->selectedIndexes().size(), 1);
    set->Cancel();
    EXPECT_FALSE(cell());
    EXPECT_FALSE(grid->cellEditing());
    EXPECT_EQ(grid->selectionModel()->selectedIndexes().size(), 2);
}

TEST_F(EditedInPlace, AnInsertedRecordIsTypedInAtOnce)
{
    show(grid);
    set->Append();
    ASSERT_TRUE(cell());
    EXPECT_EQ(grid->currentIndex().row(), 3);
    typeLetters(cell(), u"Druska"_s);
    set->Post();
    EXPECT_FALSE(cell());
    EXPECT_EQ(stored(u"pre_pavad"_s, 4), u"Druska");
}

TEST_F(EditedInPlace, APostTakesWhatIsBeingTypedAndStopsWhereItIsRefused)
{
    show(grid);
    set->Edit();
    typeOver(cell(), u"日"_s);
    {
        NextBoxes told{QMessageBox::Ok};
        EXPECT_THROW(set->Post(), EAbort);
        EXPECT_EQ(told.count(), 1);
    }
    EXPECT_EQ(set->State(), dsEdit);
    ASSERT_TRUE(cell());
    EXPECT_EQ(cell()->text(), u"日") << "what was typed stays";
    typeOver(cell(), u"Agurkėliai"_s);
    set->Post();
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Agurkėliai");
}

TEST_F(EditedInPlace, WhatIsRefusedIsToldOnceForEachAttemptAndStaysInItsCell)
{
    show(grid);
    set->Append();
    const auto attempts = std::vector<std::function<void()>>{
        [this] { QTest::keyClick(cell(), Qt::Key_Tab); }, [this] { QTest::keyClick(cell(), Qt::Key_Return); },
        [this] { QTest::keyClick(cell(), Qt::Key_Up); }, [this] { other->setFocus(); },
        [this] {
            const QPoint row = grid->visualRect(grid->model()->index(0, 0)).center();
            QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, row);
        }};
    typeOver(cell(), u"Ąžuolas 日"_s);
    for (const std::function<void()> &leave : attempts) {
        NextBoxes told{QMessageBox::Ok};
        leave();
        QCoreApplication::processEvents();
        show();
        ASSERT_TRUE(cell() && cell()->hasFocus());
        EXPECT_EQ(cell()->text(), u"Ąžuolas 日");
        EXPECT_EQ(set->State(), dsInsert);
        EXPECT_EQ(grid->selectionModel()->selectedIndexes(), QModelIndexList{grid->currentIndex()});
        EXPECT_EQ(grid->currentIndex().row(), set->RecNo());
    }
    set->Cancel();
    QCoreApplication::processEvents();
    EXPECT_FALSE(cell());
    EXPECT_EQ(set->RecordCount(), 3);
}

TEST_F(EditedInPlace, CancellingGivesUpWhatIsBeingTyped)
{
    show(grid);
    set->Edit();
    typeOver(cell(), u"kita"_s);
    set->Cancel();
    QCoreApplication::processEvents();
    EXPECT_EQ(set->State(), dsBrowse);
    EXPECT_EQ(set->FieldByName(u"pre_pavad"_s)->AsString(), u"Agurkai");
}

TEST_F(EditedInPlace, TabLeavesTheRecordOnlyWhenItIsStored)
{
    show(grid);
    set->Edit();
    bool refuses = true;
    QObject::connect(grid, &TDBGrid::left, grid, [&] {
        if (!refuses)
            set->Post();
    });
    typeOver(cell(), u"Agurkėliai"_s);
    QTest::keyClick(cell(), Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), grid);
    refuses = false;
    QTest::keyClick(grid, Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), other);
    EXPECT_EQ(stored(u"pre_pavad"_s), u"Agurkėliai");
}

TEST_F(EditedInPlace, TellsWhenTheKeyboardComesAndGoes)
{
    show(other);
    QSignalSpy entered(grid, &TDBGrid::entered);
    QSignalSpy left(grid, &TDBGrid::left);
    grid->setFocus();
    EXPECT_EQ(entered.count(), 1);
    set->Edit();
    ASSERT_TRUE(cell() && cell()->hasFocus());
    QCoreApplication::processEvents();
    EXPECT_EQ(left.count(), 0) << "a cell of its own is no other control";
    {
        NextBoxes told{QMessageBox::Ok};
        QMessageBox::information(window.get(), u"Žinia"_s, u"Žinia"_s);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(left.count(), 0) << "a message only borrows it";
    show(other);
    QCoreApplication::processEvents();
    EXPECT_GE(left.count(), 1);
}

TEST_F(EditedInPlace, EscEndsTheTypingInACellUnlessTheWindowHasAUseForIt)
{
    int escapes = 0;
    QShortcut escape(Qt::Key_Escape, window.get());
    QObject::connect(&escape, &QShortcut::activated, window.get(), [&escapes] { ++escapes; });
    show(grid);
    set->Edit();
    typeOver(cell(), u"kita"_s);
    QTest::keyClick(cell(), Qt::Key_Escape);
    EXPECT_EQ(escapes, 0);
    EXPECT_FALSE(cell());
    EXPECT_EQ(set->State(), dsEdit);
    set->Cancel();
    window->setProperty(ownsEscape, true);
    set->Edit();
    QTest::keyClick(cell(), Qt::Key_Escape);
    EXPECT_EQ(escapes, 1);
}

TEST_F(EditedInPlace, AKeyShowsTheTextThatStandsForIt)
{
    grid->setColumns(
        {{.field = u"pre_grpid"_s,
          .lookup = std::make_shared<TColumnLookup>(db.get(), u"select grp_id, grp_pavad from grupes"_s)}});
    show(grid);
    set->Edit();
    EXPECT_EQ(cell()->text(), u"Kuras");
    typeOver(cell(), u"1"_s);
    set->Post();
    EXPECT_EQ(stored(u"pre_grpid"_s), u"1");
    EXPECT_EQ(grid->currentIndex().data().toString(), u"Maistas");
}
