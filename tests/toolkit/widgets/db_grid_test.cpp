#include "tests/toolkit/widgets/window_fixture.h"
#include "toolkit/widgets/column_lookup.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/guard.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextDocument>
#include <QToolTip>

namespace {

class DbGrid : public InWindow {
protected:
    void SetUp() override
    {
        InWindow::SetUp();
        grid = add<TDBGrid>();
        grid->setColumns({{.field = u"PRE_PAVAD"_s, .title = u"Prekė"_s, .width = 120},
                          {.field = u"pre_suma"_s, .width = 80},
                          {.field = u"pre_data"_s, .title = u"Data"_s, .format = u"yyyy \"m.\" mmmm"_s}});
        grid->setDataSet(set.get());
    }

    QString cell(int row, int column) const { return grid->model()->index(row, column).data().toString(); }

    TDBGrid *grid = nullptr;
};

} // namespace

TEST_F(DbGrid, ShowsItsColumnsAsDescribed)
{
    EXPECT_EQ(grid->model()->rowCount(), 3);
    EXPECT_EQ(grid->model()->columnCount(), 3);
    EXPECT_EQ(grid->model()->headerData(0, Qt::Horizontal).toString(), u"Prekė"_s);
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal).toString(), u"Suma"_s) << "the field's label";
    EXPECT_EQ(cell(0, 0), u"Agurkai"_s);
    EXPECT_EQ(cell(0, 1), u"12.50"_s);
    EXPECT_EQ(cell(0, 2), u"2005 m. birželis"_s);
    EXPECT_EQ(cell(1, 2), QString());
    EXPECT_TRUE(grid->model()->index(0, 1).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    EXPECT_GE(grid->columnWidth(0), 120);
}

TEST_F(DbGrid, TheRowAndTheRecordAreAlwaysTheSame)
{
    show(grid);
    EXPECT_EQ(grid->currentIndex().row(), 0);
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_EQ(set->RecNo(), 1);
    set->Next();
    EXPECT_EQ(grid->currentIndex().row(), 2);
    QTest::keyClick(grid, Qt::Key_Home);
    EXPECT_EQ(set->RecNo(), 0);
    QTest::keyClick(grid, Qt::Key_End);
    EXPECT_EQ(set->RecNo(), 2);
    EXPECT_EQ(grid->selectedRows(), QList<int>{2});
    set->Close();
    EXPECT_EQ(grid->model()->rowCount(), 0);
    set->Open();
    EXPECT_EQ(grid->currentIndex().row(), 0);
    EXPECT_GE(grid->columnWidth(0), 120);
}

TEST_F(DbGrid, FollowsInsertingDeletingAndCancelling)
{
    show(grid);
    set->Append();
    EXPECT_EQ(grid->model()->rowCount(), 4);
    EXPECT_EQ(grid->currentIndex().row(), 3);
    set->Cancel();
    EXPECT_EQ(grid->model()->rowCount(), 3);
    EXPECT_EQ(grid->currentIndex().row(), set->RecNo());
    set->First();
    set->Delete();
    EXPECT_EQ(grid->model()->rowCount(), 2);
    EXPECT_EQ(cell(0, 0), u"Bulvės"_s);
    EXPECT_EQ(set->RecNo(), 0);
    EXPECT_EQ(grid->currentIndex().row(), 0);
    set->Insert();
    set->FieldByName(u"pre_pavad"_s)->setValue(u"Aviečių uogienė"_s);
    set->Post();
    EXPECT_EQ(cell(0, 0), u"Aviečių uogienė"_s);
    EXPECT_EQ(grid->currentIndex().row(), set->RecNo());
}

TEST_F(DbGrid, ARecordWhoseChangesAreRefusedIsNotLeft)
{
    show(grid);
    set->Edit();
    set->FieldByName(u"pre_pavad"_s)->setValue(u"kita"_s);
    set->BeforePost = [](TDataSet &) { throw EDatabaseError(u"Taip negalima"_s); };
    NextBoxes boxes{QMessageBox::Ok};
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_EQ(boxes.at(0).text, u"Taip negalima"_s);
    EXPECT_EQ(set->RecNo(), 0);
    EXPECT_EQ(grid->currentIndex().row(), 0);
    EXPECT_EQ(set->State(), dsEdit);
    set->BeforePost = {};
}

TEST_F(DbGrid, AnEmptyListSaysSo)
{
    const auto painted = [this] { return grid->viewport()->grab().toImage(); };
    show(grid);
    const QImage full = painted();
    db->ExecSQL(u"delete from prekes"_s);
    set->Close();
    set->Open();
    const QImage empty = painted();
    set->Close();
    const QImage blank = painted();
    EXPECT_NE(full, empty);
    EXPECT_NE(empty, blank) << "nothing is written in the empty list";
}

TEST_F(DbGrid, CopiesTheSelectedRowsWithTitlesInTheOrderShown)
{
    show(grid);
    db->ExecSQL(u"update prekes set pre_pavad = 'a	b' where pre_id = 2"_s);
    set->Close();
    set->Open();
    grid->horizontalHeader()->moveSection(1, 0);
    grid->selectAll();
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(),
              u"Suma\tPrekė\tData\n12.50\tAgurkai\t2005 m. birželis\n0.01\ta b\t\n"
              "\tČiobreliai\t2004 m. vasaris\n"_s);
    grid->clearSelection();
    grid->setColumnHidden(0, true);
    grid->copySelection();
    EXPECT_EQ(QApplication::clipboard()->text(), u"Suma\tData\n12.50\t2005 m. birželis\n"_s)
        << "without a selection the current row";
}

TEST_F(DbGrid, ACopyKeepsItsBlanksAsTextAndAsATable)
{
    show(grid);
    db->ExecSQL(u"update prekes set pre_pavad = '2411  Kasa <b>' where pre_id = 1"_s);
    set->Close();
    set->Open();
    grid->selectRow(0);
    grid->copySelection();
    const QMimeData *copied = QApplication::clipboard()->mimeData();
    EXPECT_TRUE(copied->text().contains(u"\n2411  Kasa <b>\t"_s)) << str(copied->text());
    QTextDocument pasted;
    pasted.setHtml(copied->html());
    EXPECT_TRUE(pasted.toPlainText().contains(u"2411  Kasa <b>"_s)) << str(pasted.toPlainText());
}

// --- widths

TEST_F(DbGrid, WhatIsLeftOverGoesToTheWidestTexts)
{
    window->resize(800, 300);
    show(grid);
    EXPECT_EQ(grid->columnWidth(1), 80) << "an amount needs no more than it was given";
    EXPECT_GT(grid->columnWidth(0), 400);
    EXPECT_EQ(grid->ownWidth(0), 120) << "a print knows nothing of the window";
    EXPECT_EQ(grid->horizontalHeader()->length(), grid->viewport()->width());
    window->resize(60, 300);
    EXPECT_EQ(grid->columnWidth(0), 120) << "never less than described";
    window->resize(900, 300);
    EXPECT_EQ(grid->horizontalHeader()->length(), grid->viewport()->width());
}

TEST_F(DbGrid, AFlaggedColumnTakesItAll)
{
    grid->setColumns(
        {{.field = u"pre_pavad"_s, .width = 120}, {.field = u"pre_kodas"_s, .width = 50, .stretch = true}});
    window->resize(800, 300);
    show(grid);
    EXPECT_EQ(grid->columnWidth(0), 120);
    EXPECT_GT(grid->columnWidth(1), 500);
}

TEST_F(DbGrid, AWidthOfTheUsersStays)
{
    window->resize(800, 300);
    show(grid);
    grid->setColumnWidth(0, 60);
    EXPECT_EQ(grid->ownWidth(0), 60);
    window->resize(900, 300);
    EXPECT_EQ(grid->columnWidth(0), 60);
    set->Close();
    set->Open();
    EXPECT_EQ(grid->columnWidth(0), 60);
}

TEST_F(DbGrid, AnArrangementComesBackInAListOfTheSameColumns)
{
    show(grid);
    grid->setColumnWidth(1, 77);
    grid->horizontalHeader()->moveSection(2, 0);
    const QByteArray arranged = grid->arrangement();
    TDBGrid again;
    again.setColumns(grid->columns());
    again.setSortMark(u"pre_data"_s, Qt::DescendingOrder);
    again.setArrangement(arranged);
    EXPECT_EQ(again.columnWidth(1), 77);
    EXPECT_EQ(again.horizontalHeader()->visualIndex(2), 0);
    EXPECT_EQ(again.horizontalHeader()->sortIndicatorSection(), 2)
        << "the order of the rows is another matter";
    EXPECT_TRUE(again.horizontalHeader()->isSortIndicatorShown());
    TDBGrid other;
    other.setColumns({{.field = u"pre_kodas"_s, .width = 50}, {.field = u"pre_suma"_s, .width = 80}});
    for (const QByteArray &unfit :
         {arranged, QByteArray("ne"), QByteArray(), QByteArray("\x7f\xff\xff\xff")}) {
        other.setArrangement(unfit);
        EXPECT_EQ(other.columnWidth(1), 80);
    }
}

TEST_F(DbGrid, OnlyACutCellShowsItsTextAsAToolTip)
{
    db->ExecSQL(u"update prekes set pre_pavad = 'Labai <b>ilgas</b>' where pre_id = 1"_s);
    set->Close();
    set->Open();
    show(grid);
    const auto tip = [&] {
        QToolTip::hideText();
        const QPoint at = grid->visualRect(grid->model()->index(0, 0)).center();
        QHelpEvent asked(QEvent::ToolTip, at, grid->viewport()->mapToGlobal(at));
        QApplication::sendEvent(grid->viewport(), &asked);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    grid->setColumnWidth(0, 300);
    EXPECT_EQ(tip(), QString());
    grid->setColumnWidth(0, 30);
    EXPECT_TRUE(tip().contains(u"&lt;b&gt;ilgas")) << str(tip());
    QToolTip::hideText();
}

TEST_F(DbGrid, AMisspeltColumnIsAssertedWhenTheSetOpens)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    set->Close();
    grid->setColumns({{.field = u"pre_pavaad"_s}});
    EXPECT_DEATH(set->Open(), "pre_pavaad");
}

// --- texts by look-up

TEST_F(DbGrid, ALookUpIsReadOnceAndServesEveryTextOfTheField)
{
    const auto groups = std::make_shared<TColumnLookup>(db.get(), u"select grp_id, grp_pavad from grupes"_s);
    int asked = 0;
    const auto own = std::make_shared<TColumnLookup>([&](const QVariant &key) {
        ++asked;
        return u"<%1>"_s.arg(key.toString());
    });
    set->Close();
    grid->setColumns({{.field = u"pre_grpid"_s, .lookup = groups}, {.field = u"pre_tip"_s, .lookup = own}});
    set->Open();
    EXPECT_EQ(cell(0, 0), u"Kuras"_s);
    EXPECT_EQ(cell(1, 0), QString()) << "no key, no text";
    EXPECT_EQ(set->FieldByName(u"pre_grpid"_s)->DisplayText(), u"Kuras"_s);
    EXPECT_FALSE(grid->model()->index(0, 0).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    EXPECT_EQ(cell(0, 1) + cell(0, 1) + cell(1, 1), u"<1><1><0>"_s);
    EXPECT_EQ(asked, 2) << "once for each key";
    db->ExecSQL(u"update grupes set grp_pavad = 'Degalai' where grp_id = 2"_s);
    EXPECT_EQ(cell(0, 0), u"Kuras"_s);
    set->Close();
    set->Open();
    EXPECT_EQ(cell(0, 0), u"Degalai"_s) << "a list that is read anew reads its look-ups anew";
}

TEST_F(DbGrid, TitlesAreClickedByFieldAndMayBeCentred)
{
    QSignalSpy clicked(grid, &TDBGrid::titleClicked);
    grid->setTitlesCentred(true);
    show(grid);
    QHeaderView *header = grid->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(header->sectionPosition(1) + 20, 5));
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked[0][0].toString(), u"pre_suma"_s);
    EXPECT_EQ(header->defaultAlignment(), Qt::AlignCenter);
}

TEST_F(DbGrid, EnterAndADoubleClickActivateTheRecordAndLettersGoToTheScreen)
{
    QSignalSpy activated(grid, &TDBGrid::rowActivated);
    show(grid);
    QTest::keyClick(grid, Qt::Key_Return);
    EXPECT_EQ(activated.count(), 1);
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_B, Qt::NoModifier, u"b"_s);
    QApplication::sendEvent(grid, &letter);
    EXPECT_FALSE(letter.isAccepted());
    EXPECT_EQ(set->RecNo(), 0);
}

TEST_F(DbGrid, TabLeavesAList)
{
    auto *next = add<QLineEdit>();
    show(grid);
    leave(grid);
    EXPECT_TRUE(next->hasFocus());
}

TEST_F(DbGrid, CellsAreEditedInPlaceUnderTheColumnsRules)
{
    grid->setCellEditing(true);
    show(grid);
    grid->setCurrentIndex(grid->model()->index(1, 1));
    EXPECT_EQ(set->RecNo(), 1);
    QTest::keyClick(grid, Qt::Key_F2);
    auto *editor = grid->findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), u"0.0051"_s);
    EXPECT_EQ(editor->accessibleName(), u"Suma"_s);
    editor->selectAll();
    typeLetters(editor, u"3,5"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents(); // the cell takes its text after the key
    EXPECT_EQ(cell(1, 1), u"3.50"_s);
    set->Post();
    EXPECT_EQ(stored(u"pre_suma"_s, 2).toDouble(), 3.5);
}

TEST_F(DbGrid, ARefusedCellIsShownAndKeepsItsValue)
{
    grid->setCellEditing(true);
    show(grid);
    NextBoxes boxes{QMessageBox::Ok};
    EXPECT_FALSE(grid->model()->setData(grid->model()->index(0, 1), u"abc"_s));
    EXPECT_TRUE(boxes.at(0).text.contains(u"abc")) << str(boxes.at(0).text);
    EXPECT_EQ(cell(0, 1), u"12.50"_s);
}

TEST_F(DbGrid, ACellsButtonChoosesTheValueElsewhere)
{
    grid->setColumns({{.field = u"pre_pavad"_s, .browse = [this] {
                           set->Edit();
                           set->FieldByName(u"pre_pavad"_s)->setValue(u"Iš sąrašo"_s);
                       }}});
    grid->setCellEditing(true);
    show(grid);
    grid->edit(grid->model()->index(0, 0));
    auto *editor = grid->findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_F4);
    EXPECT_EQ(editor->text(), u"Iš sąrašo"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents(); // the cell takes its text after the key
    EXPECT_EQ(cell(0, 0), u"Iš sąrašo"_s);
}

TEST_F(DbGrid, RowsAreOfOneHeight)
{
    EXPECT_EQ(grid->verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    EXPECT_EQ(grid->rowHeight(0), grid->rowHeight(2));
}

TEST_F(DbGrid, SurvivesItsDataSet)
{
    show(grid);
    set.reset();
    EXPECT_EQ(grid->DataSet(), nullptr);
    EXPECT_EQ(grid->model()->rowCount(), 0);
    QTest::keyClick(grid, Qt::Key_End);
}
