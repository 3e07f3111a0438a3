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
    for (auto *box : frm->findChildren<QComboBox *>())
        if (box->findText("2004 m.") >= 0)
            box->setCurrentIndex(box->findText("2004 m."));
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
    const auto cells = [&](int row) {
        QStringList texts;
        for (int column = 1; column <= 5; ++column)
            texts << QString(children->topLevelItem(row)->text(column)).replace(',', '.');
        return texts;
    };
    EXPECT_EQ(cells(0), QStringList({"1000.00", "250.00", "", "", ""}));
    EXPECT_EQ(cells(1), QStringList({"", "5.00", "", "", ""})) << "nothing shows nothing";
    EXPECT_EQ(children->currentItem(), children->topLevelItem(0));
    EXPECT_EQ(frm->estimates().RecordCount(), 2) << "the rows of the last node";
    EXPECT_EQ(enabled(), "----");
    EXPECT_EQ(frm->panel(1), "");
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
    OnNextDialog<TReportPreview> preview([](TReportPreview &shown) { shown.close(); });
    frm->acPrint->trigger();
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
