#include "tests/src/debtors/debtors.h"
#include "toolkit/report/preview.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QPushButton>

namespace {

class Register : public Debtors {
protected:
    void SetUp() override
    {
        Debtors::SetUp();
        party(1, "C", "Ceris");
        party(2, "A", "Arklys");
        party(3, "B", "Baldai");
    }
    void TearDown() override
    {
        close();
        Debtors::TearDown();
    }
    void open()
    {
        frm = createForm<TDbKrFrm>(nullptr);
        frm->show();
    }
    void close()
    {
        if (frm)
            frm->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QStringList shown(int column)
    {
        frm->dataSet()->RecordCount();
        QCoreApplication::processEvents();
        QStringList texts;
        for (int row = 0; row < frm->grid()->model()->rowCount(); ++row)
            texts << frm->grid()->model()->index(row, column).data().toString();
        return texts;
    }
    int key() const { return frm->currentKey().toInt(); }
    void erase(int id)
    {
        frm->RefreshData(id);
        NextBoxes box{QMessageBox::Yes};
        frm->DelBtnClick();
        EXPECT_EQ(box.at(0).text, "Ar tikrai norite ištrinti?");
    }

    QPointer<TDbKrFrm> frm;
};
ON_BOTH_ENGINES(Register);

} // namespace

TEST_P(Register, ListsCounterpartiesByCodeWithBothAccounts)
{
    open();
    EXPECT_EQ(frm->windowTitle(), "Debitoriai ir kreditoriai");
    EXPECT_EQ(shown(0), QStringList({"A", "B", "C"}));
    EXPECT_EQ(shown(1).first(), "221  Sąskaita 221");
    EXPECT_EQ(shown(10).first(), "431  Sąskaita 431");
    EXPECT_EQ(Dbkr::DbKrFrm, frm);
    close();
    EXPECT_EQ(Dbkr::DbKrFrm, nullptr);
}

TEST_P(Register, ACounterpartyWithoutAnAccountIsNotListed)
{
    books().ExecSQL("update bd_dbkrasm set dka_sasid_2 = 999 where dka_id = 2");
    open();
    EXPECT_EQ(shown(0), QStringList({"B", "C"}));
}

TEST_P(Register, ANewCounterpartyBecomesCurrent)
{
    open();
    OnNextDialog<TEditDbKrDlg> dialog([this](TEditDbKrDlg &editor) {
        EXPECT_EQ(editor.windowTitle(), "Naujas debitorius ar kreditorius");
        fill(editor, "Naujas", "AB", owed);
        pressButton(editor, "&Išsaugoti");
    });
    frm->NewBtnClick();
    EXPECT_EQ(key(), 4);
    EXPECT_EQ(shown(0), QStringList({"A", "AB", "B", "C"}));
}

TEST_P(Register, AnEditedCounterpartyStaysCurrentWhereItsCodePutsIt)
{
    open();
    OnNextDialog<TEditDbKrDlg> dialog([](TEditDbKrDlg &editor) {
        EXPECT_EQ(editor.windowTitle(), "Koreguojamas debitorius ar kreditorius");
        type(edit(editor, "DKA_KOD"), "Z");
        pressButton(editor, "&Išsaugoti");
    });
    frm->EditBtnClick();
    EXPECT_EQ(key(), 2);
    EXPECT_EQ(frm->dataSet()->RecNo(), 2);
}

TEST_P(Register, ACopyBecomesCurrent)
{
    open();
    EXPECT_TRUE(frm->acCopyData->toolTip().startsWith("Kopijuoti duomenis"));
    OnNextDialog<TCopyDbKrFrm> dialog([](TCopyDbKrFrm &copy) {
        EXPECT_EQ(copy.windowTitle(), "Naujas debitorius ar kreditorius");
        type(edit(copy, "DKA_KOD"), "A2");
        pressButton(copy, "&Išsaugoti");
    });
    frm->acCopyData->trigger();
    EXPECT_EQ(key(), 4);
    EXPECT_EQ(shown(2), QStringList({"Arklys", "Arklys", "Baldai", "Ceris"}));
}

TEST_P(Register, ACopySavedByCtrlEnterBeginsTheNextNewOne)
{
    open();
    OnNextDialog<TCopyDbKrFrm> dialog([](TCopyDbKrFrm &copy) {
        EXPECT_TRUE(copy.findChild<QPushButton *>("Išsaugoti")->toolTip().contains("Ctrl+Enter"));
        type(edit(copy, "DKA_KOD"), "A2");
        QTest::keyClick(edit(copy, "DKA_KOD"), Qt::Key_Return, Qt::ControlModifier);
    });
    OnNextDialog<TEditDbKrDlg> next([](TEditDbKrDlg &editor) {
        EXPECT_EQ(edit(editor, "DKA_KOD")->text(), "");
        pressButton(editor, "&Atšaukti");
    });
    frm->acCopyData->trigger();
    EXPECT_EQ(stored().size(), 4);
}

TEST_P(Register, AContractGoesOnToNothing)
{
    open();
    OnNextDialog<TEditDbKrDlg> dialog([](TEditDbKrDlg &editor) {
        OnNextDialog<TDbKrSutart> contract([](TDbKrSutart &shownContract) {
            EXPECT_EQ(shownContract.findChild<QPushButton *>("Išsaugoti")->toolTip(), "");
            QTest::keyClick(edit(shownContract, "DKS_NR"), Qt::Key_Return, Qt::ControlModifier);
            EXPECT_TRUE(shownContract.isVisible());
            pressButton(shownContract, "&Išsaugoti");
        });
        pressButton(editor, "&Sutartis");
        pressButton(editor, "&Išsaugoti");
    });
    frm->EditBtnClick();
    EXPECT_EQ(value(books(), "select count(*) from bd_dbkrsut"), "1");
}

TEST_P(Register, ARowDeletedElsewhereIsToldBeforeItIsCopied)
{
    open();
    secondFin()->ExecSQL("delete from bd_dbkrasm where dka_id = 2");
    NextBoxes told{QMessageBox::Ok};
    frm->acCopyData->trigger();
    EXPECT_EQ(told.at(0).text, "Įrašas jau ištrintas kitoje darbo vietoje");
    EXPECT_EQ(shown(2), QStringList({"Baldai", "Ceris"}));
}

TEST_P(Register, DeletingComesBackToTheNeighbour)
{
    open();
    erase(3);
    EXPECT_EQ(key(), 2);
    erase(2);
    EXPECT_EQ(key(), 1);
    erase(1);
    EXPECT_TRUE(frm->currentKey().isNull());
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(Register, ACounterpartyInUseIsAskedForAndThenRefusedByName)
{
    startOfWork(2026, 1, 1);
    books().ExecSQL("insert into bd_dbkrlik (dkl_id, dkl_dkaid, dkl_perid, dkl_sum_db, dkl_sum_kr) "
                    "values (1, 2, 6, 1, 0)");
    open();
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    frm->acDelete->trigger();
    EXPECT_EQ(boxes.texts(),
              QStringList({"Ar tikrai norite ištrinti?", "Db Kr \"Arklys\" dalyvauja ūkinėse operacijose!"}));
    EXPECT_EQ(stored().size(), 3);
}

TEST_P(Register, ACounterpartysOwnContractIsNoUseAndGoesWithIt)
{
    books().ExecSQL("insert into bd_dbkrsut (dks_id, dks_dkaid) values (1, 2)");
    open();
    erase(2);
    EXPECT_EQ(value(books(), "select count(*) from bd_dbkrsut"), "0");
}

TEST_P(Register, PrintsTheHostsReport)
{
    open();
    int pages = 0;
    OnNextDialog<TReportPreview> preview([&pages](TReportPreview &shownReport) {
        pages = shownReport.layout().pageCount();
        shownReport.close();
    });
    frm->acPrint->trigger();
    EXPECT_EQ(pages, 1);
}

TEST_P(Register, AViewOnlyUserCannotCopy)
{
    CurrentUser().viewOnly = true;
    open();
    EXPECT_FALSE(frm->acCopyData->isEnabled());
    EXPECT_FALSE(frm->acNew->isEnabled());
    EXPECT_TRUE(frm->acEdit->isEnabled());
}
