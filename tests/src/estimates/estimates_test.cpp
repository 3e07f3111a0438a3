#include "host/data/report_store.h"
#include "src/estimates/Newsam.h"
#include "tests/src/estimates/estimates.h"
#include "toolkit/report/preview.h"
#include "toolkit/widgets/db_grid.h"

#include <QTreeWidget>

using Newsam::TSamDlg;

namespace {

class EstimateBook : public Estimates {
protected:
    QString enabled() const
    {
        return QString("%1%2%3%4")
            .arg(frm->acNew->isEnabled() ? "N" : "-", frm->acEdit->isEnabled() ? "K" : "-",
                 frm->acDelete->isEnabled() ? "T" : "-", frm->acKor->isEnabled() ? "+" : "-");
    }
    void inDialog(QAction *action, std::function<void(TSamDlg &)> user)
    {
        OnNextDialog<TSamDlg> dialog(std::move(user));
        action->trigger();
    }
    void add(const QString &amount)
    {
        inDialog(frm->acNew, [&](TSamDlg &dialog) {
            type(edit(dialog, "SAM_SAMATA"), amount);
            pressButton(dialog, "Išsaugoti");
        });
    }
    static bool maySave(TSamDlg &dialog) { return dialog.findChild<QPushButton *>("Išsaugoti")->isEnabled(); }
    static bool isRed(TSamDlg &dialog)
    {
        return edit(dialog, "SAM_SAMATA")->palette().color(QPalette::Text) == QColor(Qt::red);
    }
    QStringList shown(int column)
    {
        QStringList texts;
        const QAbstractItemModel *model = frm->findChild<TDBGrid *>()->model();
        for (int row = 0; row < model->rowCount(); ++row)
            texts << model->index(row, column).data().toString();
        return texts;
    }
    // Of the list of the nodes below.
    QStringList cells(int row)
    {
        QStringList texts;
        for (int column = 1; column <= 5; ++column)
            texts << QString(frm->list()->topLevelItem(row)->text(column)).replace(',', '.');
        return texts;
    }
    void goTo(const Variant &period) { EXPECT_TRUE(frm->estimates().Locate("sam_perid", period)); }
};
ON_BOTH_ENGINES(EstimateBook);

} // namespace

TEST_P(EstimateBook, RowsAreAddedInTheOrderOfTheYearAndNoMoreThanFive)
{
    open();
    EXPECT_EQ(frm->windowTitle(), "Sąmatos");
    EXPECT_EQ(frm->findChild<QComboBox *>()->findText("2005 m."), -1) << "the first box is that of the books";
    inDialog(frm->acNew, [](TSamDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Nauja sąmata");
        auto *quarter = dialog.findChild<QComboBox *>("SAM_PERID");
        EXPECT_EQ(quarter->currentText(), "Metinė");
        EXPECT_FALSE(maySave(dialog));
        type(edit(dialog, "SAM_SAMATA"), "1000");
        pressButton(dialog, "Išsaugoti");
    });
    for (const char *amount : {"250", "250", "250", "250"})
        add(amount);
    EXPECT_EQ(stored(), QStringList({"1|2|101|1000|0", "2|2|102|250|0", "3|2|103|250|0", "4|2|104|250|0",
                                     "5|2|105|250|0"}));
    EXPECT_EQ(shown(0), Samform::quarterNames());
    EXPECT_EQ(enabled(), "-KT+");
}

TEST_P(EstimateBook, TheSumsStandInThePanels)
{
    estimate({1000, 250, 250.5});
    open();
    EXPECT_EQ(QString(frm->panel(1)).replace(',', '.'), "Sąmatos suma: 500.50");
    EXPECT_EQ(QString(frm->panel(2)).replace(',', '.'), "Metinės sąmatos suma: 1000.00");
}

TEST_P(EstimateBook, OnlyTheLastRowMayBeDeleted)
{
    estimate({1000, 250, 250});
    open();
    goTo(102);
    NextBoxes boxes{QMessageBox::Ok, QMessageBox::Yes};
    frm->acDelete->trigger();
    EXPECT_EQ(boxes.texts().last(), "Šis ketvirtis nėra paskutinis!");
    goTo(103);
    frm->acDelete->trigger();
    EXPECT_EQ(boxes.texts().last(), "Ar tikrai norite ištrinti?");
    EXPECT_EQ(stored(), QStringList({"20|2|101|1000|0", "21|2|102|250|0"}));
}

TEST_P(EstimateBook, QuartersMayReachTheYearAndNotExceedIt)
{
    estimate({1000, 250});
    open();
    inDialog(frm->acNew, [](TSamDlg &dialog) {
        type(edit(dialog, "SAM_SAMATA"), "750.0001");
        EXPECT_FALSE(maySave(dialog));
        EXPECT_TRUE(isRed(dialog));
        type(edit(dialog, "SAM_SAMATA"), "750");
        EXPECT_FALSE(isRed(dialog));
        EXPECT_TRUE(maySave(dialog));
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored().size(), 3);
    goTo(102);
    inDialog(frm->acEdit, [](TSamDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Keisti sąmatą");
        type(edit(dialog, "SAM_SAMATA"), "250.0001");
        EXPECT_FALSE(maySave(dialog));
        type(edit(dialog, "SAM_SAMATA"), "249");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored().value(1), "21|2|102|249|0");
}

TEST_P(EstimateBook, TheYearDoesNotFallBelowItsQuarters)
{
    estimate({1000, 250, 250});
    open();
    goTo(101);
    inDialog(frm->acEdit, [](TSamDlg &dialog) {
        type(edit(dialog, "SAM_SAMATA"), "499.9999");
        EXPECT_TRUE(isRed(dialog));
        EXPECT_FALSE(maySave(dialog));
        type(edit(dialog, "SAM_SAMATA"), "500");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored().first(), "20|2|101|500|0");
}

TEST_P(EstimateBook, AnEarlierYearIsOnlyLookedAt)
{
    estimate({1000});
    books().ExecSQL("insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata, sam_sam_kor) "
                    "values (1, 2, 1, 500, 0)");
    open();
    EXPECT_EQ(enabled(), "NKT+");
    chooseYear("2004 m.");
    EXPECT_EQ(QString(frm->panel(2)).replace(',', '.'), "Metinės sąmatos suma: 500.00");
    EXPECT_EQ(enabled(), "----");
}

TEST_P(EstimateBook, ANodeOfTheFirstLevelShowsItsNodesWithTheirSums)
{
    estimate({1000, 250});
    estimate({0, 5}, 3);
    open(1);
    QTreeWidget *children = frm->list();
    ASSERT_EQ(children->topLevelItemCount(), 2);
    EXPECT_EQ(cells(0), QStringList({"1000.00", "250.00", "", "", ""}));
    EXPECT_EQ(cells(1), QStringList({"", "5.00", "", "", ""})) << "nothing shows nothing";
    EXPECT_EQ(children->currentItem(), children->topLevelItem(0));
    EXPECT_EQ(frm->estimates().RecordCount(), 2) << "the rows of the last node";
    EXPECT_EQ(enabled(), "----");
    EXPECT_EQ(frm->panel(1), "");
}

TEST_P(EstimateBook, AnotherYearOfAFolderShowsNothingOfTheFormerOne)
{
    estimate({1000, 250});
    books().ExecSQL("insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata, sam_sam_kor) "
                    "values (1, 3, 1, 500, 0)");
    open(1);
    chooseYear("2004 m.");
    EXPECT_EQ(cells(0), QStringList({"", "", "", "", ""}));
    EXPECT_EQ(cells(1), QStringList({"500.00", "", "", "", ""}));
}

// The list of its nodes hides the rows of a folder of the first level; without nodes they are its own.
TEST_P(EstimateBook, AFolderOfTheFirstLevelWithDataOfItsOwnShowsItOnlyWithoutNodes)
{
    books().ExecSQL("update bd_jve set jve_duom = 1 where jve_id = 1");
    books().ExecSQL("insert into bd_jve (jve_id, jve_islid, jve_kodas, jve_pavad, jve_duom) "
                    "values (4, 1, '03', 'Turtas', 1)");
    estimate({700}, 1);
    estimate({300, 30}, 3);
    estimate({900}, 4);
    open(1);
    EXPECT_EQ(frm->list()->topLevelItemCount(), 2);
    EXPECT_EQ(frm->estimates().RecordCount(), 2) << "those of the last node";
    EXPECT_EQ(enabled(), "----");
    frm->SetJungId(4);
    EXPECT_EQ(frm->list()->topLevelItemCount(), 0);
    EXPECT_EQ(frm->estimates().FieldByName("sam_samata")->AsFloat(), 900);
    EXPECT_EQ(enabled(), "NKT+");
    add("90");
    EXPECT_EQ(stored().last(), "41|4|102|90|0");
}

TEST_P(EstimateBook, AYearWithoutItsQuartersTakesTheYearlyRowAlone)
{
    books().ExecSQL("delete from bd_period where per_id > 101");
    GetPeriod();
    open();
    add("1000");
    EXPECT_EQ(shown(0), QStringList("Metinė"));
    NextBoxes refused{QMessageBox::Ok};
    frm->acNew->trigger();
    EXPECT_EQ(refused.at(0).text, "Tarp 2005 m. periodų nėra eilutės \"Pirmas\"!");
    EXPECT_EQ(stored(), QStringList("1|2|101|1000|0"));
}

TEST_P(EstimateBook, ARowOfAnotherStationLeavesNoRoomForMine)
{
    estimate({1000, 250});
    open();
    inDialog(frm->acNew, [this](TSamDlg &dialog) {
        type(edit(dialog, "SAM_SAMATA"), "750");
        secondFin()->ExecSQL("update bd_samatos set sam_samata = 900 where sam_id = 20");
        pressButton(dialog, "Išsaugoti");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(isRed(dialog));
        pressButton(dialog, "Atšaukti");
    });
    EXPECT_EQ(stored().size(), 2);
}

TEST_P(EstimateBook, WhatAnotherStationDidIsSeenWithTheNextNodeAndWithARefresh)
{
    estimate({1000, 250});
    open(3);
    estimateElsewhere(2, 50);
    frm->SetJungId(2);
    EXPECT_EQ(shown(0), QStringList({"Metinė", "Pirmas", "Antras"}));
    goTo(102);
    estimateElsewhere(3, 60);
    frm->acRefresh->trigger();
    EXPECT_EQ(shown(0), QStringList({"Metinė", "Pirmas", "Antras", "Trečias"}));
    EXPECT_EQ(frm->estimates().FieldByName("sam_perid")->AsInteger(), 102) << "the current row stays";
    EXPECT_EQ(QString(frm->panel(1)).replace(',', '.'), "Sąmatos suma: 360.00");
}

TEST_P(EstimateBook, ANewRowStandsBehindThoseOfAnotherStation)
{
    estimate({1000});
    open();
    estimateElsewhere(1, 50);
    add("70");
    EXPECT_EQ(stored().last(), "92|2|103|70|0");
    secondFin()->ExecSQL("delete from bd_samatos where sam_perid = 103");
    add("80");
    EXPECT_EQ(stored().last(), "92|2|103|80|0") << "no quarter is skipped";
}

TEST_P(EstimateBook, TheLastRowThatAnotherStationAddedLeavesNothingToAdd)
{
    estimate({1000, 1, 2, 3});
    open();
    estimateElsewhere(4, 4);
    frm->acNew->trigger();
    EXPECT_EQ(enabled(), "-KT+");
    EXPECT_EQ(shown(0), Samform::quarterNames());
}

TEST_P(EstimateBook, ARowThatAnotherStationFollowedIsNotDeleted)
{
    estimate({1000, 250});
    open();
    goTo(102);
    estimateElsewhere(2, 50);
    NextBoxes told{QMessageBox::Ok};
    frm->acDelete->trigger();
    EXPECT_EQ(told.texts(), QStringList("Šis ketvirtis nėra paskutinis!"));
    goTo(103);
    OnNextDialog<QMessageBox> asked([this](QMessageBox &box) {
        estimateElsewhere(3, 60);
        pressButton(box, "Taip");
    });
    NextBoxes refused{QMessageBox::Ok};
    frm->acDelete->trigger();
    EXPECT_EQ(refused.texts(), QStringList("Šis ketvirtis nėra paskutinis!"));
    EXPECT_EQ(stored().size(), 4);
}

TEST_P(EstimateBook, ARowThatAnotherStationDeletedIsTold)
{
    estimate({1000, 250});
    open();
    for (QAction *action : {frm->acEdit, frm->acDelete, frm->acKor}) {
        goTo(102);
        secondFin()->ExecSQL("delete from bd_samatos where sam_perid = 102");
        NextBoxes told{QMessageBox::Ok};
        action->trigger();
        EXPECT_EQ(told.texts(), QStringList("Įrašas jau ištrintas kitoje darbo vietoje"));
        EXPECT_EQ(shown(0), QStringList("Metinė"));
        estimateElsewhere(1, 250);
        frm->acRefresh->trigger();
    }
}

TEST_P(EstimateBook, ARefusedDeleteLeavesTheRow)
{
    estimate({1000, 250});
    open();
    goTo(102);
    refuseDeleting("bd_samatos");
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    frm->acDelete->trigger();
    EXPECT_EQ(stored().size(), 2);
    EXPECT_EQ(shown(0), QStringList({"Metinė", "Pirmas"}));
    secondFin()->ExecSQL("update bd_samatos set sam_samata = 1");
    EXPECT_EQ(stored().last(), "21|2|102|1|0") << "nothing is held against another station";
}

TEST_P(EstimateBook, ARowWhosePeriodIsGoneIsNotDeleted)
{
    estimate({1000, 250});
    books().ExecSQL("delete from bd_period where per_id = 102");
    open();
    goTo(102);
    NextBoxes told{QMessageBox::Ok};
    frm->acDelete->trigger();
    EXPECT_EQ(told.texts(), QStringList("Negali surasti įrašo!"));
    EXPECT_EQ(stored().size(), 2);
}

TEST_P(EstimateBook, AYearOfNothingLeavesNoRoomForAQuarter)
{
    estimate({0});
    open();
    inDialog(frm->acNew, [](TSamDlg &dialog) {
        type(edit(dialog, "SAM_SAMATA"), "0.0001");
        EXPECT_TRUE(isRed(dialog));
        EXPECT_FALSE(maySave(dialog));
        type(edit(dialog, "SAM_SAMATA"), "0");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList({"20|2|101|0|0", "21|2|102|0|0"}));
}

TEST_P(EstimateBook, CtrlEnterGoesOnToTheNextQuarter)
{
    estimate({1000});
    open();
    OnNextDialog<TSamDlg> first([](TSamDlg &dialog) {
        type(edit(dialog, "SAM_SAMATA"), "900");
        QTest::keyClick(edit(dialog, "SAM_SAMATA"), Qt::Key_Return, Qt::ControlModifier);
    });
    OnNextDialog<TSamDlg> second([](TSamDlg &dialog) {
        EXPECT_EQ(dialog.findChild<QComboBox *>("SAM_PERID")->currentText(), "Pirmas");
        type(edit(dialog, "SAM_SAMATA"), "250");
        QTest::keyClick(edit(dialog, "SAM_SAMATA"), Qt::Key_Return, Qt::ControlModifier);
    });
    OnNextDialog<TSamDlg> third([](TSamDlg &dialog) {
        EXPECT_EQ(dialog.findChild<QComboBox *>("SAM_PERID")->currentText(), "Antras");
        pressButton(dialog, "Atšaukti");
    });
    frm->acEdit->trigger();
    EXPECT_EQ(stored(), QStringList({"20|2|101|900|0", "21|2|102|250|0"}));
}

TEST_P(EstimateBook, AYearThatCannotBeReadOffersNothing)
{
    estimate({1000});
    open();
    books().nativeExec("alter table bd_samatos rename to kita");
    OnNextDialog<QMessageBox> told([this](QMessageBox &box) {
        EXPECT_EQ(enabled(), "----");
        box.accept();
    });
    chooseYear("2004 m.");
    books().nativeExec("alter table kita rename to bd_samatos");
    chooseYear("2005 m.");
    EXPECT_EQ(enabled(), "NKT+");
}

TEST_P(EstimateBook, AYearClosedMeanwhileLeavesTheDialogAsItIs)
{
    estimate({1000});
    open();
    inDialog(frm->acNew, [this](TSamDlg &dialog) {
        type(edit(dialog, "SAM_SAMATA"), "250");
        books().ExecSQL("insert into bd_period values (200, 2006, 0, 0)");
        books().ExecSQL("insert into bd_period values (205, 2006, 1, 1)");
        GetPeriod();
        EXPECT_EQ(edit(dialog, "SAM_SAMATA")->text(), "250");
        pressButton(dialog, "Išsaugoti");
    });
    EXPECT_EQ(stored().last(), "21|2|102|250|0");
    EXPECT_EQ(enabled(), "N---") << "the new year is picked, and has nothing yet";
}

TEST_P(EstimateBook, AYearClosedWhileTheQuestionStandsLeavesTheRowThatIsMeant)
{
    estimate({1000, 250});
    open();
    goTo(102);
    OnNextDialog<QMessageBox> asked([this](QMessageBox &box) {
        books().ExecSQL("insert into bd_period values (200, 2006, 0, 0)");
        books().ExecSQL("insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata, sam_sam_kor) "
                        "values (50, 2, 200, 700, 0)");
        books().ExecSQL("insert into bd_period values (205, 2006, 1, 1)");
        GetPeriod();
        pressButton(box, "Taip");
    });
    frm->acDelete->trigger();
    EXPECT_EQ(stored(), QStringList({"20|2|101|1000|0", "50|2|200|700|0"}));
    EXPECT_EQ(frm->estimates().FieldByName("sam_id")->AsInteger(), 50) << "then the new year is shown";
}

TEST_P(EstimateBook, CancellingLeavesTheNodeAsItWas)
{
    estimate({1000});
    open();
    inDialog(frm->acNew, [](TSamDlg &dialog) { pressButton(dialog, "Atšaukti"); });
    EXPECT_EQ(frm->estimates().RecordCount(), 1);
    EXPECT_EQ(enabled(), "NKT+");
}

TEST_P(EstimateBook, AreReportedByTheHost)
{
    estimate({1000});
    open();
    QStringList texts;
    OnNextDialog<TReportPreview> preview([&texts](TReportPreview &shown) {
        for (const TReportPrimitive &primitive : shown.layout().page(0))
            texts << primitive.text;
        shown.close();
    });
    frm->acPrint->trigger();
    const TStoredReport *estimates = storedReport(86);
    EXPECT_TRUE(texts.contains(estimates->caption));
    for (const TTableColumn &column : estimates->columns)
        EXPECT_TRUE(texts.contains(column.title)) << qPrintable(column.title);
    EXPECT_TRUE(texts.contains("Darbo užmokestis"));
}

TEST_P(EstimateBook, WhoMayOnlyLookChangesNothing)
{
    estimate({1000});
    CurrentUser().viewOnly = true;
    open();
    EXPECT_FALSE(frm->acNew->isEnabled());
    EXPECT_FALSE(frm->acDelete->isEnabled());
    inDialog(frm->acEdit, [](TSamDlg &dialog) {
        EXPECT_FALSE(edit(dialog, "SAM_SAMATA")->isEnabled());
        EXPECT_FALSE(maySave(dialog));
        pressButton(dialog, "Atšaukti");
    });
}
