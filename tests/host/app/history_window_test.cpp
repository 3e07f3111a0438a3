#include "host/app/history/history_frm.h"

#include "host/app/catalogues/sas_plan.h"
#include "host/data/login.h"
#include "tests/host/app/main_window.h"
#include "tests/host/books.h"
#include "tests/support/editor_hands.h"
#include "tests/support/message_box.h"
#include "toolkit/report/preview.h"
#include "toolkit/widgets/db_grid.h"

#include <QMdiSubWindow>

namespace {

// The history inside the real main window, after a login.
class HistoryWindow : public MainWindow, protected EditorHands {
protected:
    void SetUp() override
    {
        MainWindow::SetUp();
        addSmallChart(&books());
        books().ExecSQL("insert into bd_period values (6, 2026, 1, 1)");
        GetPeriod();
        ASSERT_TRUE(logIn(*MainDatas(), "ona", "x"));
    }
    // The columns person and change of what is listed.
    static QStringList told(THistoryFrm &frm)
    {
        frm.dataSet()->RecordCount();
        QCoreApplication::processEvents();
        QStringList lines;
        const QAbstractItemModel *shown = frm.grid()->model();
        for (int line = 0; line < shown->rowCount(); ++line)
            lines << shown->index(line, 1).data().toString() + ": " + shown->index(line, 6).data().toString();
        return lines;
    }
    THistoryFrm *opened()
    {
        window->openEntry("THistoryFrm");
        return window->findChild<THistoryFrm *>();
    }
};

} // namespace

TEST_F(HistoryWindow, CtrlHTellsWhatAnEditorChangedInTheRow)
{
    start();
    window->openEntry("TSasPlanFrm");
    auto *list = window->findChild<TSasPlanFrm *>();
    list->RefreshData(5);
    {
        OnNextDialog<TSasPlanDlg> editor([](TSasPlanDlg &dialog) {
            type(edit(dialog, "SAS_PAVAD"), "Bankas");
            save(dialog);
        });
        list->acEdit->trigger();
    }
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    list->grid()->setFocus();
    QStringList lines;
    OnNextDialog<THistoryFrm> history([&lines](THistoryFrm &frm) {
        lines = told(frm);
        frm.close();
    });
    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(lines, (QStringList{"ona: Pavadinimas: buvo „Pinigai“, yra „Bankas“"}));
}

TEST_F(HistoryWindow, WhoMayOnlyLookSeesItAndChangesNothing)
{
    books().ExecSQL("insert into bd_objektai values (1, 'Sandėlis')");
    CurrentUser().viewOnly = true;
    MainDatas()->makeReadOnly();
    start();
    THistoryFrm *frm = opened();
    const QStringList before = told(*frm);
    EXPECT_TRUE(before.contains("ona: Pavadinimas: „Sandėlis“"));
    frm->grid()->setFocus();
    for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete, Qt::Key_Return})
        press(key);
    EXPECT_EQ(told(*frm), before);
    EXPECT_THROW(books().nativeExec("delete from bd_istorija"), EDatabaseError);
}

TEST_F(HistoryWindow, IsPrintedAsItIsShown)
{
    books().ExecSQL("insert into bd_org (org_pavad) values ('Ežero mokykla')");
    books().ExecSQL("insert into bd_kasos values (4, 5, 'Didžioji kasa')");
    start();
    THistoryFrm *frm = opened();
    QString page;
    OnNextDialog<TReportPreview> preview([&page](TReportPreview &shown) {
        for (const TReportPrimitive &each : shown.layout().page(0))
            page += each.text + '|';
        shown.close();
    });
    frm->PrintBtnClick();
    for (const char *text : {"Pakeitimų istorija", "Ežero mokykla", "Kas pakeista", "ona", "Kasos", "Įrašyta",
                             "Sąskaita: „24 Pinigai“; Kasos pavadinimas: „Didžioji kasa“"})
        EXPECT_TRUE(page.contains(text)) << text << " in " << qPrintable(page);
}
