#include "src/money/Kasnew.h"
#include "src/money/Kasosform.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using Kasnew::TKasNewFrm;
using Kasosform::KasosFrm;
using Kasosform::TKasosFrm;

namespace {

class CashDesks : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        account("241");
        account("242");
        books().ExecSQL("insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) "
                        "values (3, '24', 'Pinigai', 'S')");
        books().ExecSQL("insert into bd_kasos (kas_id, kas_sasid, kas_pavad) values (1, 1, 'Pagrindinė')");
        list.reset(createForm<TKasosFrm>(nullptr));
        list->show();
    }
    void TearDown() override
    {
        list.reset();
        EXPECT_EQ(KasosFrm, nullptr);
        OnOpenBooks::TearDown();
    }

    QStringList stored()
    {
        return rows(*secondFin(), "select kas_id, kas_sasid, kas_pavad from bd_kasos order by kas_id");
    }
    QString shown(int row, int column) { return list->grid()->model()->index(row, column).data().toString(); }
    static QLineEdit *name(QWidget &dialog) { return dialog.findChild<QLineEdit *>("KAS_PAVAD"); }
    static QLineEdit *desksAccount(QWidget &dialog)
    {
        return dialog.findChild<QWidget *>("KAS_SASID")->findChild<QLineEdit *>();
    }
    static void chooseAccount(QWidget &dialog, const char *number)
    {
        type(desksAccount(dialog), number);
        leave(desksAccount(dialog));
    }
    static bool maySave(QWidget &dialog) { return dialog.findChild<QPushButton *>("Išsaugoti")->isEnabled(); }
    static void save(QWidget &dialog) { pressButton(dialog, "Išsaugoti"); }
    static void cancel(QWidget &dialog) { pressButton(dialog, "Atšaukti"); }
    static QString refusal(QWidget &dialog)
    {
        NextBoxes told{QMessageBox::Ok};
        save(dialog);
        EXPECT_TRUE(dialog.isVisible());
        return told.at(0).text;
    }
    // What the user does in the dialog that comes to the front.
    static std::function<void(TKasNewFrm &)> inFront(std::function<void(TKasNewFrm &)> user)
    {
        return [user = std::move(user)](TKasNewFrm &dialog) {
            dialog.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
            user(dialog);
        };
    }
    void add(std::function<void(TKasNewFrm &)> user)
    {
        OnNextDialog<TKasNewFrm> dialog(inFront(std::move(user)));
        list->NewBtnClick();
    }
    void change(std::function<void(TKasNewFrm &)> user)
    {
        OnNextDialog<TKasNewFrm> dialog(inFront(std::move(user)));
        list->EditBtnClick();
    }

    std::unique_ptr<TKasosFrm> list;
};
ON_BOTH_ENGINES(CashDesks);

} // namespace

TEST_P(CashDesks, AreListedAddedChangedAndDeleted)
{
    EXPECT_EQ(list->windowTitle(), "Kasos");
    EXPECT_EQ(shown(0, 1), "241  Sąskaita 241");
    add([](TKasNewFrm &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Nauja kasa");
        type(name(dialog), "O'Kasa 5 %");
        chooseAccount(dialog, "242");
        save(dialog);
    });
    EXPECT_EQ(stored().last(), "2|2|O'Kasa 5 %");
    EXPECT_EQ(list->currentKey().toInt(), 2);
    EXPECT_EQ(shown(1, 1), "242  Sąskaita 242");
    change([](TKasNewFrm &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Redaguojama kasa");
        EXPECT_EQ(desksAccount(dialog)->text(), "242");
        chooseAccount(dialog, "241");
        save(dialog);
    });
    EXPECT_EQ(shown(1, 1), "241  Sąskaita 241");
    NextBoxes asked{QMessageBox::Yes};
    list->DelBtnClick();
    EXPECT_EQ(stored(), QStringList("1|1|Pagrindinė"));
}

TEST_P(CashDesks, EditingDrawsANewKeyAndStoresTheRowUnderItsOldOne)
{
    change([](TKasNewFrm &dialog) {
        type(name(dialog), "Kita");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|1|Kita"));
    EXPECT_EQ(list->currentKey().toInt(), 1);
    EXPECT_EQ(shown(0, 1), "241  Sąskaita 241");
    const QString next = "select GetNextTableColumnId('dba','bd_kasos','kas_id') from dummy";
    EXPECT_EQ(books().fieldResult(next).toInt(), 3);
}

TEST_P(CashDesks, ANameOfOneCharacterAndAnAccountEnableSaving)
{
    add([](TKasNewFrm &dialog) {
        EXPECT_FALSE(maySave(dialog));
        type(name(dialog), "K");
        EXPECT_FALSE(maySave(dialog));
        chooseAccount(dialog, "241");
        EXPECT_TRUE(maySave(dialog));
        type(name(dialog), "");
        EXPECT_FALSE(maySave(dialog));
        type(name(dialog), "K");
        chooseAccount(dialog, "");
        EXPECT_FALSE(maySave(dialog));
        cancel(dialog);
    });
}

TEST_P(CashDesks, ABlankNameIsRefusedInWords)
{
    change([](TKasNewFrm &dialog) {
        type(name(dialog), "  ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Kasos pavadinimas\" negali būti tuščias!");
        cancel(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|1|Pagrindinė"));
}

TEST_P(CashDesks, ASummaryAccountAndAnUnknownOneAreNone)
{
    change([](TKasNewFrm &dialog) {
        for (const char *number : {"24", "999"}) {
            chooseAccount(dialog, number);
            EXPECT_FALSE(maySave(dialog)) << number;
        }
        cancel(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|1|Pagrindinė"));
}

TEST_P(CashDesks, CancellingDropsTheRowAndWhatIsHeld)
{
    refuseInserting("bd_kasos", "kas_pavad = 'X'");
    add([](TKasNewFrm &dialog) {
        type(name(dialog), "X");
        chooseAccount(dialog, "241");
        EXPECT_TRUE(refusal(dialog).contains("sugadinta tyčia"));
        EXPECT_EQ(name(dialog)->text(), "X");
        EXPECT_TRUE(dialog.rowKey().isNull());
        cancel(dialog);
    });
    EXPECT_FALSE(list->dataSet()->editing());
    EXPECT_FALSE(list->dataSet()->UpdatesPending());
    EXPECT_EQ(list->dataSet()->RecordCount(), 1);
}

TEST_P(CashDesks, OneInUseIsNotDeletedAndIsNamed)
{
    books().ExecSQL("insert into bd_org (org_pavad, org_tipas) values ('Mokykla', 0)");
    startOfWork(2026, 1, 1);
    books().ExecSQL("insert into bd_irasai (irs_id, irs_perid, irs_data, irs_sasid, irs_kasid) "
                    "values (1, 6, '2026-01-05', 1, 1)");
    NextBoxes refused{QMessageBox::Ok};
    list->acDelete->trigger();
    EXPECT_EQ(refused.at(0).text, "Kasa \"Pagrindinė\" yra naudojama!");
}

TEST_P(CashDesks, TheAccountIsComputedAndFollowsARefresh)
{
    const TField *account = list->dataSet()->FieldByName("SAS_NR");
    EXPECT_TRUE(account->isCalculated());
    EXPECT_EQ(account->DisplayLabel, "Sąskaitos Nr.");
    secondFin()->ExecSQL("update bd_sasplan set sas_pavad = :name where sas_id = 1",
                         {{"name", QString(100, u'ž')}});
    list->RefreshBtnClick();
    EXPECT_EQ(shown(0, 1), "241  " + QString(75, u'ž'));
}

TEST_P(CashDesks, OneThatAnotherStationDeletedIsToldWithTheDialogOpen)
{
    change([this](TKasNewFrm &dialog) {
        secondFin()->ExecSQL("delete from bd_kasos where kas_id = 1");
        type(name(dialog), "Mano");
        EXPECT_EQ(refusal(dialog), "Įrašas jau ištrintas kitoje darbo vietoje");
        EXPECT_EQ(name(dialog)->text(), "Mano");
        cancel(dialog);
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(CashDesks, WhoMayOnlyLookChangesNothing)
{
    CurrentUser().viewOnly = true;
    list->CheckToolButtons();
    change([](TKasNewFrm &dialog) {
        EXPECT_FALSE(name(dialog)->isEnabled());
        EXPECT_FALSE(maySave(dialog));
        cancel(dialog);
    });
}

TEST_P(CashDesks, TheDialogStandsOnTheRowOfItsListAlone)
{
    EXPECT_THROW(Kasnew::ShowKasa(AnsiString("Nauja kasa"), true), Exception);
}
