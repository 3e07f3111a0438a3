#include "host/data/dka_combo.h"
#include "src/balances/Dkalik.h"
#include "src/balances/Dkaliked.h"
#include "tests/src/catalogue.h"
#include "tests/support/refusal.h"

#include <QRadioButton>

using Dkalik::TDKALikFrm;
using Dkaliked::TDKALikDlg;

namespace {

// Work began in January 2004; the counterparty 1 owes on the account 226, and there is a second account.
class PartyBalances : public OnCatalogue<Dkalik::DKALikFrm, Dkaliked::DKALikDlg> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        startOfWork(2004, 1, 1);
        owed = account("226");
        other = account("241");
        books().ExecSQL("insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_i_kod, dka_sasid, "
                        "dka_sasid_2) values (1, 'K1', 'Žąsų ūkis', 300000001, :sas, :sas)",
                        {{"sas", owed}});
        books().ExecSQL("insert into bd_pad (pad_id, pad_pavad) values (3, 'Mokykla')");
    }
    void nextMonth()
    {
        books().ExecSQL("insert into bd_period values (7, 2004, 1, 2)");
        GetPeriod();
    }
    // A balance that was typed in free.
    void balanceOf(int id, int period, double debitSum, double creditSum)
    {
        books().ExecSQL("insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_sasid, dkl_pavad, dkl_sum_db, "
                        "dkl_sum_kr) values (:id, :per, :sas, :pavad, :db, :kr)",
                        {{"id", id},
                         {"per", period},
                         {"sas", other},
                         {"pavad", QString("Laisvas %1").arg(id)},
                         {"db", debitSum},
                         {"kr", creditSum}});
    }
    static QRadioButton *radio(QWidget &dialog, const char *name)
    {
        return dialog.findChild<QRadioButton *>(name);
    }
    static void chooseCredit(QWidget &dialog) { radio(dialog, "KredRadio")->click(); }
    static QPushButton *ok(QWidget &dialog) { return dialog.findChild<QPushButton *>("Gerai"); }
    static void confirm(QWidget &dialog) { pressButton(dialog, "Gerai"); }
    static QString refused(QWidget &dialog)
    {
        NextBoxes told{QMessageBox::Ok};
        confirm(dialog);
        EXPECT_TRUE(dialog.isVisible());
        return told.at(0).text;
    }
    // Name, account and amount of a free-typed counterparty.
    void fillFree(TDKALikDlg &dialog, const QString &name, const QString &sum)
    {
        type(edit(dialog, "DKL_PAVAD"), name);
        picker(dialog, "DKL_SASID")->setValue(other);
        type(edit(dialog, "DKL_SUM_DB"), sum);
    }
    QStringList stored()
    {
        return rows(books(), "select dkl_id, dkl_perid, dkl_dkaid, dkl_sasid, dkl_i_kod, dkl_pavad, "
                             "dkl_sum_db, dkl_sum_kr, dkl_padid from bd_dbkrlik order by dkl_id");
    }

    int owed = 0, other = 0;
};
ON_BOTH_ENGINES(PartyBalances);

const QString recalculate =
    "Vykdant likučių perskaičiavimą bus ištrinti visi dabartiniai likučiai. Ar tikrai "
    "norite perskaičiuoti?";

} // namespace

// --- the list

TEST_P(PartyBalances, AreListedByNameWithTheTotalsOfThePeriod)
{
    balanceOf(1, 6, 1520.4, 0);
    books().ExecSQL("insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_dkaid, dkl_sum_db, dkl_sum_kr, "
                    "dkl_padid) values (2, 6, 1, 0, 20, 3)");
    open();
    EXPECT_EQ(list->windowTitle(), "Debitorių-Kreditorių likučiai");
    EXPECT_EQ(titles(),
              QStringList({"Įmonės kodas", "Pavadinimas", "Debetas", "Kreditas", "Sąskaita", "Skyrius"}));
    EXPECT_EQ(shown(0), QStringList({"", "300000001"}));
    EXPECT_EQ(shown(1), QStringList({"Laisvas 1", "Žąsų ūkis"}));
    EXPECT_EQ(shown(4), QStringList({"241 Sąskaita 241", "226 Sąskaita 226"}));
    EXPECT_EQ(shown(5), QStringList({"", "Mokykla"}));
    EXPECT_EQ(list->panel(0), "Įrašų kiekis: 2");
    EXPECT_EQ(QString(list->panel(1)).replace(',', '.'), "Debetas: 1520.40");
    EXPECT_EQ(QString(list->panel(2)).replace(',', '.'), "Kreditas: 20.00");
}

TEST_P(PartyBalances, WithoutARowTheTotalsAreNothing)
{
    open();
    EXPECT_EQ(QString(list->panel(1)).replace(',', '.'), "Debetas: 0.00");
    EXPECT_EQ(QString(list->panel(2)).replace(',', '.'), "Kreditas: 0.00");
}

TEST_P(PartyBalances, WithoutAMonthTheScreenRefusesToOpen)
{
    books().ExecSQL("delete from bd_period");
    GetPeriod();
    EXPECT_EQ(refusalOf([this] { open(); }), "Darbo pradžios periodas nenustatitas!");
}

TEST_P(PartyBalances, ARowOfAnEarlierPeriodShutsTheList)
{
    nextMonth();
    balanceOf(1, 6, 5, 0);
    open();
    EXPECT_FALSE(list->Editable());
    EXPECT_FALSE(list->acCalc->isVisible());
    EXPECT_TRUE(list->acDelAll->isEnabled());
}

TEST_P(PartyBalances, DeleteAllAsksNothingAndOpensTheListAgain)
{
    nextMonth();
    balanceOf(1, 6, 5, 0);
    balanceOf(2, 7, 5, 0);
    open();
    list->acDelAll->trigger();
    EXPECT_EQ(stored(), QStringList());
    EXPECT_TRUE(list->Editable());
    EXPECT_TRUE(list->acCalc->isVisible());
}

TEST_P(PartyBalances, AFailedDeleteAllLeavesTheTableAsItWas)
{
    balanceOf(1, 6, 5, 0);
    open();
    refuseDeleting("bd_dbkrlik");
    NextBoxes told{QMessageBox::Ok};
    list->acDelAll->trigger();
    EXPECT_EQ(stored().size(), 1);
}

TEST_P(PartyBalances, OnlyTheNewestPeriodIsCalculated)
{
    nextMonth();
    open();
    auto *period = list->findChild<TPeriodBox *>();
    EXPECT_EQ(period->itemText(0), "2004 m. vasaris");
    EXPECT_TRUE(list->acCalc->isEnabled());
    period->setCurrentIndex(1);
    EXPECT_FALSE(list->acCalc->isEnabled());
}

TEST_P(PartyBalances, CalculatingAsksWhereThereAreRowsAndTakesTheEntries)
{
    open();
    list->acCalc->trigger(); // nothing to lose, nothing asked
    EXPECT_EQ(stored(), QStringList());
    balanceOf(1, 6, 5, 0);
    list->RefreshData(1);
    NextBoxes asked{QMessageBox::No};
    list->acCalc->trigger();
    EXPECT_EQ(asked.texts(), QStringList(recalculate));
    EXPECT_EQ(stored().size(), 1);
}

TEST_P(PartyBalances, ACalculationThatFailsChangesNothing)
{
    books().ExecSQL("insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_dkaid, irs_sum_db) "
                    "values (1, 6, :sas, 1, 100)",
                    {{"sas", owed}});
    nextMonth();
    balanceOf(1, 7, 5, 0);
    open();
    refuseInserting("bd_dbkrlik", "dkl_perid = 7");
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    list->acCalc->trigger();
    EXPECT_EQ(stored(), QStringList(QString("1|7|NULL|%1|NULL|Laisvas 1|5|0|NULL").arg(other)));
    for (QWidget *window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->isVisible() && window->windowModality() != Qt::NonModal)
            << "the animation stays";
}

TEST_P(PartyBalances, WhoMayOnlyLookChangesNothing)
{
    balanceOf(1, 6, 5, 0);
    CurrentUser().viewOnly = true;
    open();
    for (const QAction *action : {list->acNew, list->acDelete, list->acDelAll, list->acCalc})
        EXPECT_FALSE(action->isEnabled()) << qPrintable(action->text());
    change(1, [](TDKALikDlg &dialog) {
        EXPECT_FALSE(edit(dialog, "DKL_PAVAD")->isEnabled());
        EXPECT_FALSE(ok(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
}

// --- the dialog

TEST_P(PartyBalances, AFreeCounterpartyWithANameAndNoCodeIsSavedUnderTheCurrentPeriod)
{
    nextMonth();
    open();
    list->findChild<TPeriodBox *>()->setCurrentIndex(1);
    add([this](TDKALikDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Debitorių-Kreditorių likučiai");
        EXPECT_TRUE(radio(dialog, "DebRadio")->isChecked());
        fillFree(dialog, "Jonas 'O' Žukas", "-5,5");
        choose(dialog, "DKL_PADID", "Mokykla");
        confirm(dialog);
    });
    EXPECT_EQ(stored(), QStringList(QString("1|7|NULL|%1|NULL|Jonas 'O' Žukas|-5.5|0|3").arg(other)));
    EXPECT_EQ(shown(1), QStringList()) << "the older period is still the one shown";
}

TEST_P(PartyBalances, ACounterpartyOfTheRegisterIsSavedWithoutAnAccount)
{
    open();
    add([this](TDKALikDlg &dialog) {
        picker(dialog, "DKL_SASID")->setValue(other);
        type(edit(dialog, "DKL_I_KOD"), "300000001");
        type(edit(dialog, "DKL_SUM_DB"), "7");
        confirm(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|6|1|NULL|NULL|NULL|7|0|NULL"));
    change(1, [this](TDKALikDlg &dialog) {
        EXPECT_EQ(picker(dialog, "DKL_SASID")->value(), owed) << "the account of the counterparty is shown";
        EXPECT_FALSE(picker(dialog, "DKL_SASID")->isEnabled());
        EXPECT_EQ(edit(dialog, "DKL_PAVAD")->text(), "Žąsų ūkis");
        leaveUnsaved(dialog);
    });
}

TEST_P(PartyBalances, TheChecksComeInTheirOrder)
{
    open();
    add([this](TDKALikDlg &dialog) {
        EXPECT_EQ(refused(dialog), "Nėra įmonės duomenų!");
        type(edit(dialog, "DKL_PAVAD"), "Jonas");
        EXPECT_EQ(refused(dialog), "Nenurodyta sąskaita!");
        picker(dialog, "DKL_SASID")->setValue(other);
        EXPECT_EQ(refused(dialog), "Debeto suma negali būti lygi nuliui!");
        chooseCredit(dialog);
        EXPECT_EQ(refused(dialog), "Kredito suma negali būti lygi nuliui!");
        EXPECT_TRUE(edit(dialog, "DKL_SUM_KR")->isVisible());
        EXPECT_FALSE(edit(dialog, "DKL_SUM_DB")->isVisible());
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(PartyBalances, AnotherSideLeavesNothingOnTheFirst)
{
    balanceOf(1, 6, 0, 50);
    open();
    change(1, [](TDKALikDlg &dialog) {
        EXPECT_TRUE(radio(dialog, "KredRadio")->isChecked());
        radio(dialog, "DebRadio")->click();
        type(edit(dialog, "DKL_SUM_DB"), "60");
        confirm(dialog);
    });
    EXPECT_EQ(stored(), QStringList(QString("1|6|NULL|%1|NULL|Laisvas 1|60|0|NULL").arg(other)));
    change(1, [](TDKALikDlg &dialog) {
        EXPECT_TRUE(radio(dialog, "DebRadio")->isChecked());
        chooseCredit(dialog);
        type(edit(dialog, "DKL_SUM_KR"), "70");
        confirm(dialog);
    });
    EXPECT_EQ(stored(), QStringList(QString("1|6|NULL|%1|NULL|Laisvas 1|0|70|NULL").arg(other)));
}

TEST_P(PartyBalances, TheAccountOfTheCounterpartyIsShownAsSoonAsItsCodeIsTyped)
{
    books().ExecSQL("insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_i_kod, dka_sasid, dka_sasid_2) "
                    "values (2, 'K2', 'Antis', 300000002, :sas, :sas)",
                    {{"sas", other}});
    open();
    add([this](TDKALikDlg &dialog) {
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        const auto typeCode = [&dialog](const QString &code) {
            type(edit(dialog, "DKL_I_KOD"), code);
            leave(edit(dialog, "DKL_I_KOD"));
        };
        typeCode("300000001");
        EXPECT_EQ(picker(dialog, "DKL_SASID")->value(), owed);
        typeCode("300000002");
        EXPECT_EQ(picker(dialog, "DKL_SASID")->value(), other);
        typeCode("5");
        EXPECT_EQ(picker(dialog, "DKL_SASID")->value(), 0);
        EXPECT_TRUE(picker(dialog, "DKL_SASID")->isEnabled());
        leaveUnsaved(dialog);
    });
}

TEST_P(PartyBalances, OnlyADetailAccountIsTaken)
{
    const int group = account("24");
    books().ExecSQL("update bd_sasplan set sas_tip = 'S' where sas_id = :id", {{"id", group}});
    const int above = account("25");
    const int below = account("251");
    books().ExecSQL("update bd_sasplan set sas_tevid = :above where sas_id = :below",
                    {{"above", above}, {"below", below}});
    open();
    add([](TDKALikDlg &dialog) {
        type(edit(dialog, "DKL_PAVAD"), "Jonas");
        type(edit(dialog, "DKL_SUM_DB"), "5");
        for (const char *number : {"24", "25"}) {
            type(edit(dialog, "DKL_SASID"), number);
            EXPECT_EQ(refused(dialog), "Sąskaita negali būti suminė!");
            EXPECT_EQ(edit(dialog, "DKL_SASID")->text(), number);
        }
        type(edit(dialog, "DKL_SASID"), "251");
        confirm(dialog);
    });
    EXPECT_EQ(stored(), QStringList(QString("1|6|NULL|%1|NULL|Jonas|5|0|NULL").arg(below)));
}

TEST_P(PartyBalances, AnAccountThatTheRegisterLostHoldsNothingUp)
{
    open();
    add([this](TDKALikDlg &dialog) {
        type(edit(dialog, "DKL_I_KOD"), "300000001");
        type(edit(dialog, "DKL_SUM_DB"), "7");
        books().ExecSQL("delete from bd_sasplan where sas_id = :id", {{"id", owed}});
        confirm(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|6|1|NULL|NULL|NULL|7|0|NULL"));
}

TEST_P(PartyBalances, WithoutACurrentPeriodNothingIsSavedAndNothingTypedIsLost)
{
    open();
    add([this](TDKALikDlg &dialog) {
        fillFree(dialog, "Jonas", "5");
        books().ExecSQL("delete from bd_period");
        {
            NextBoxes told{QMessageBox::Ok}; // the list has nothing to show
            GetPeriod();
        }
        EXPECT_EQ(refused(dialog), "Darbo pradžios periodas nenustatitas!");
        EXPECT_EQ(edit(dialog, "DKL_PAVAD")->text(), "Jonas");
        startOfWork(2005, 1, 1);
        confirm(dialog);
    });
    EXPECT_EQ(stored(), QStringList(QString("1|6|NULL|%1|NULL|Jonas|5|0|NULL").arg(other)));
}

TEST_P(PartyBalances, AMonthClosedMeanwhileTakesTheNewRow)
{
    open();
    add([this](TDKALikDlg &dialog) {
        fillFree(dialog, "Jonas", "5");
        nextMonth();
        confirm(dialog);
    });
    EXPECT_EQ(stored(), QStringList(QString("1|7|NULL|%1|NULL|Jonas|5|0|NULL").arg(other)));
}

TEST_P(PartyBalances, TheLastSaveWinsWithBothSides)
{
    balanceOf(1, 6, 50, 0);
    open();
    change(1, [this](TDKALikDlg &dialog) {
        secondFin()->ExecSQL("update bd_dbkrlik set dkl_sum_db = 0, dkl_sum_kr = 70");
        type(edit(dialog, "DKL_SUM_DB"), "60");
        confirm(dialog);
    });
    EXPECT_EQ(stored(), QStringList(QString("1|6|NULL|%1|NULL|Laisvas 1|60|0|NULL").arg(other)));
}

TEST_P(PartyBalances, AfterAFailedSaveTheNextTryTakesAFreshKey)
{
    open();
    refuseInserting("bd_dbkrlik", "dkl_pavad = 'Draudžiamas'");
    add([this](TDKALikDlg &dialog) {
        fillFree(dialog, "Draudžiamas", "5");
        EXPECT_FALSE(refused(dialog).isEmpty());
        EXPECT_EQ(edit(dialog, "DKL_PAVAD")->text(), "Draudžiamas");
        balanceOf(1, 6, 1, 0);
        type(edit(dialog, "DKL_PAVAD"), "Leidžiamas");
        confirm(dialog);
    });
    EXPECT_EQ(stored().last(), QString("2|6|NULL|%1|NULL|Leidžiamas|5|0|NULL").arg(other));
}

TEST_P(PartyBalances, TooLongANameAndTooLongACodeAreRefusedInWords)
{
    open();
    add([this](TDKALikDlg &dialog) {
        fillFree(dialog, QString(151, u'ž'), "5");
        EXPECT_EQ(refused(dialog), "Laukas \"Pavadinimas\": tekstas per ilgas, daugiausia 150 ženklų.");
        type(edit(dialog, "DKL_PAVAD"), QString(150, u'ž'));
        type(edit(dialog, "DKL_I_KOD"), "12345678901234567890");
        EXPECT_EQ(refused(dialog), "Laukas \"Kodas\": skaičius per didelis.");
        leaveUnsaved(dialog);
    });
}

TEST_P(PartyBalances, ACounterpartyDeletedMeanwhileIsRefusedByTheBooks)
{
    open();
    add([this](TDKALikDlg &dialog) {
        type(edit(dialog, "DKL_I_KOD"), "300000001");
        type(edit(dialog, "DKL_SUM_DB"), "7");
        leave(edit(dialog, "DKL_SUM_DB"));
        secondFin()->ExecSQL("delete from bd_dbkrasm");
        EXPECT_FALSE(refused(dialog).isEmpty());
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList());
}
