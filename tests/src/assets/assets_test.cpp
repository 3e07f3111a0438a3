#include "src/assets/Editf.h"
#include "src/assets/Editpirktip.h"
#include "src/assets/Objektai.h"
#include "src/assets/Pardtip.h"
#include "src/assets/Pirktip.h"
#include "tests/src/catalogue.h"
#include "tests/support/uncommitted.h"

#include <QCheckBox>

using Editf::TFinEditDlg;
using Editpirktip::TPirkEditDlg;

namespace {

class Objects : public OnCatalogue<Objektai::ObjektFrm, Editf::FinEditDlg> {
protected:
    void named(const QString &name)
    {
        add([&](TFinEditDlg &dialog) {
            type(edit(dialog, "Name"), name);
            save(dialog);
        });
    }
    QStringList stored()
    {
        return rows(books(), "select obj_id, obj_pavad from bd_objektai order by obj_id");
    }
};
ON_BOTH_ENGINES(Objects);

class ObjectsOnServer : public Objects {};
ON_ENGINE(ObjectsOnServer, Engine::PostgreSql);

class Disposals : public OnCatalogue<Pardtip::PardTipFrm, Editf::FinEditDlg> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL("insert into it_pardtip (pat_id, pat_pav) values (4, 'Nurašyta')");
        open();
    }
    QStringList stored() { return rows(books(), "select pat_id, pat_pav from it_pardtip order by pat_id"); }
};
ON_BOTH_ENGINES(Disposals);

class Acquisitions : public OnCatalogue<Pirktip::PirkTipFrm, Editpirktip::PirkEditDlg> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL(
            "insert into it_pirktip (pit_id, pit_pav, pit_tipas, pit_pozymis) values (4, 'Pirkta', 3, 0)");
        open();
    }
    QStringList stored() { return rows(books(), "select * from it_pirktip order by pit_id"); }
    static QCheckBox *check(QWidget &dialog, const char *name) { return dialog.findChild<QCheckBox *>(name); }
};
ON_BOTH_ENGINES(Acquisitions);

} // namespace

// --- objects

TEST_P(Objects, AreAddedRenamedAndDeleted)
{
    open();
    EXPECT_EQ(list->windowTitle(), "Objektų sąrašas");
    EXPECT_EQ(titles(), QStringList("Pavadinimas"));
    add([](TFinEditDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujo objekto įvedimas");
        type(edit(dialog, "Name"), "Šiaurinis kiemas");
        save(dialog);
    });
    EXPECT_EQ(key(), 1) << "in an empty table";
    named("Dirbtuvės");
    EXPECT_EQ(key(), 2);
    change(1, [](TFinEditDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Objekto pavadinimo redagavimas");
        EXPECT_EQ(edit(dialog, "Name")->text(), "Šiaurinis kiemas");
        type(edit(dialog, "Name"), "Kiemas %s 'ą'");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList({"1|Kiemas %s 'ą'", "2|Dirbtuvės"}));
    EXPECT_EQ(erase(2), QStringList("Ar tikrai norite ištrinti?"));
    EXPECT_EQ(stored(), QStringList("1|Kiemas %s 'ą'"));
}

TEST_P(Objects, BlanksAreNoNameAndTheNameMayHaveAHundredLetters)
{
    open();
    add([](TFinEditDlg &dialog) {
        type(edit(dialog, "Name"), "   ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        type(edit(dialog, "Name"), "Kiemas Ж");
        EXPECT_FALSE(refusal(dialog).isEmpty());
        EXPECT_EQ(edit(dialog, "Name")->text(), "Kiemas Ж");
        paste(edit(dialog, "Name"), QString(101, u'ž'));
        EXPECT_EQ(edit(dialog, "Name")->text(), "Kiemas Ж") << "not taken in part";
        paste(edit(dialog, "Name"), QString(100, u'ž'));
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|" + QString(100, u'ž')));
}

TEST_P(Objects, WhatTheDatabaseRefusesIsAskedForAgainAsItWasTyped)
{
    open();
    refuseInserting("bd_objektai", "obj_pavad = 'Kiemas'");
    OnNextDialog<TFinEditDlg> first([](TFinEditDlg &dialog) {
        type(edit(dialog, "Name"), "Kiemas");
        save(dialog);
    });
    NextBoxes told{QMessageBox::Ok};
    OnNextDialog<TFinEditDlg> second([](TFinEditDlg &dialog) {
        EXPECT_EQ(edit(dialog, "Name")->text(), "Kiemas");
        type(edit(dialog, "Name"), "Sodas");
        save(dialog);
    });
    list->NewBtnClick();
    EXPECT_EQ(told.texts(), QStringList("Naujo objekto sukurti nepavyko"));
    EXPECT_EQ(stored(), QStringList("1|Sodas"));
}

TEST_P(Objects, AnObjectDeletedElsewhereIsToldWhenItsNameIsSaved)
{
    open();
    named("Kiemas");
    OnNextDialog<TFinEditDlg> renaming([this](TFinEditDlg &dialog) {
        secondFin()->ExecSQL("delete from bd_objektai");
        type(edit(dialog, "Name"), "Sodas");
        save(dialog);
    });
    NextBoxes told{QMessageBox::Ok};
    OnNextDialog<TFinEditDlg> again([](TFinEditDlg &dialog) { leaveUnsaved(dialog); });
    list->EditBtnClick();
    EXPECT_EQ(told.texts(), QStringList("Pakeitimų padaryti nepavyko"));
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(Objects, WhatAnotherStationChangedIsToldAndOnesOwnIsKeptByConfirmingAgain)
{
    open();
    named("Kiemas");
    OnNextDialog<TFinEditDlg> renaming([this](TFinEditDlg &dialog) {
        secondFin()->ExecSQL("update bd_objektai set obj_pavad = 'Jų kiemas'");
        type(edit(dialog, "Name"), "Mano kiemas");
        save(dialog);
    });
    NextBoxes told{QMessageBox::Ok};
    OnNextDialog<TFinEditDlg> again([this](TFinEditDlg &dialog) {
        EXPECT_EQ(stored(), QStringList("1|Jų kiemas")) << "nothing was written over";
        EXPECT_EQ(edit(dialog, "Name")->text(), "Mano kiemas");
        save(dialog);
    });
    list->EditBtnClick();
    EXPECT_EQ(
        told.texts(),
        QStringList("Kita darbo vieta tuo tarpu pakeitė: Pavadinimas: buvo „Kiemas“, dabar „Jų kiemas“."));
    EXPECT_EQ(stored(), QStringList("1|Mano kiemas"));
}

TEST_P(Objects, AnObjectOfAnAssetIsNotDeleted)
{
    open();
    named("Kiemas");
    books().ExecSQL("insert into it_turtas (tur_id, tur_objid) values (1, 1)");
    EXPECT_EQ(erase(1, {QMessageBox::Ok}), QStringList("Objektas \"Kiemas\" yra naudojamas!"));
    EXPECT_EQ(stored(), QStringList("1|Kiemas"));
}

TEST_P(ObjectsOnServer, AServerLostWhileSavingIsToldAsSuchAndTheNameAskedForAgain)
{
    open();
    OnNextDialog<TFinEditDlg> first([this](TFinEditDlg &dialog) {
        type(edit(dialog, "Name"), "Kiemas");
        secondFin()->nativeExec("select pg_terminate_backend(pid) from pg_stat_activity "
                                "where datname = current_database() and pid <> pg_backend_pid()");
        save(dialog);
    });
    NextBoxes told{QMessageBox::Ok};
    OnNextDialog<TFinEditDlg> second([](TFinEditDlg &dialog) {
        EXPECT_EQ(edit(dialog, "Name")->text(), "Kiemas");
        save(dialog);
    });
    list->NewBtnClick();
    EXPECT_TRUE(told.at(0).text.startsWith("Nutrūko ryšys")) << qPrintable(told.at(0).text);
    EXPECT_EQ(stored(), QStringList("1|Kiemas"));
}

TEST_P(ObjectsOnServer, TwoStationsThatDrawTheSameKeyNeverShareIt)
{
    open();
    const Uncommitted theirs(*secondFin(), "insert into bd_objektai (obj_id, obj_pavad) values (1, 'Jų')");
    OnNextDialog<TFinEditDlg> first([](TFinEditDlg &dialog) {
        type(edit(dialog, "Name"), "Mano");
        save(dialog);
    });
    NextBoxes told{QMessageBox::Ok};
    OnNextDialog<TFinEditDlg> second([](TFinEditDlg &dialog) {
        EXPECT_EQ(edit(dialog, "Name")->text(), "Mano");
        save(dialog);
    });
    list->NewBtnClick();
    EXPECT_EQ(told.texts(), QStringList("Naujo objekto sukurti nepavyko"));
    EXPECT_EQ(stored(), QStringList({"1|Jų", "2|Mano"}));
}

TEST_P(Objects, CtrlEnterAsksForTheNext)
{
    open();
    OnNextDialog<TFinEditDlg> first([](TFinEditDlg &dialog) {
        type(edit(dialog, "Name"), "Kiemas");
        QTest::keyClick(edit(dialog, "Name"), Qt::Key_Return, Qt::ControlModifier);
    });
    OnNextDialog<TFinEditDlg> second([](TFinEditDlg &dialog) {
        EXPECT_EQ(edit(dialog, "Name")->text(), "");
        leaveUnsaved(dialog);
    });
    list->NewBtnClick();
    EXPECT_EQ(stored(), QStringList("1|Kiemas"));
}

TEST_P(Objects, WhoMayOnlyLookSeesTheNameAndCannotSave)
{
    open();
    named("Kiemas");
    CurrentUser().viewOnly = true;
    change(1, [](TFinEditDlg &dialog) {
        EXPECT_EQ(edit(dialog, "Name")->text(), "Kiemas");
        EXPECT_FALSE(edit(dialog, "Name")->isEnabled());
        EXPECT_FALSE(saver(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
}

// --- disposal methods

TEST_P(Disposals, GetTheKeyThatTheGeneratorDraws)
{
    EXPECT_EQ(list->windowTitle(), "Ilgalaikio turto nurašymo-pardavimo būdų sąrašas");
    add([](TFinEditDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujo pardavimo būdo įvedimas");
        type(edit(dialog, "Name"), "Parduota");
        save(dialog);
    });
    EXPECT_EQ(key(), 5);
    change(4, [](TFinEditDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Pardavimo būdo redagavimas");
        type(edit(dialog, "Name"), "Nurašyta dėl amžiaus");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList({"4|Nurašyta dėl amžiaus", "5|Parduota"}));
}

TEST_P(Disposals, OneInUseByTheAssetsCannotBeDeletedAndTheRefusalNamesIt)
{
    books().ExecSQL("insert into it_turtas (tur_id, tur_patid) values (1, 4)");
    EXPECT_EQ(erase(4, {QMessageBox::Ok}),
              QStringList("Nurašymo-pardavimo būdas \"Nurašyta\" panaudotas turto apskaitoje!"));
    EXPECT_EQ(stored(), QStringList("4|Nurašyta"));
    books().ExecSQL("delete from it_turtas");
    EXPECT_EQ(erase(4), QStringList("Ar tikrai norite ištrinti?"));
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(Disposals, StayInTheirOrderWhenTheFirstIsRenamed)
{
    books().ExecSQL("insert into it_pardtip (pat_id, pat_pav) values (5, 'Parduota')");
    change(4, [](TFinEditDlg &dialog) {
        type(edit(dialog, "Name"), "Utilizuota");
        save(dialog);
    });
    EXPECT_EQ(shown(0), QStringList({"Utilizuota", "Parduota"}));
}

TEST_P(Disposals, TheNameIsExplainedByTheHelpOfItsList)
{
    change(4, [](TFinEditDlg &dialog) {
        EXPECT_EQ(dialog.helpTopic(), 67);
        leaveUnsaved(dialog);
    });
}

// Two stations add at the same moment.
TEST_P(Disposals, AKeyIsDrawnOnceForTwoStations)
{
    add([this](TFinEditDlg &dialog) {
        const QString next = "select GetNextTableColumnId('dba','it_pardTip','Pat_ID') from dummy";
        const int theirs = secondFin()->fieldResult(next).toInt();
        EXPECT_EQ(theirs, 5);
        secondFin()->ExecSQL("insert into it_pardtip (pat_id, pat_pav) values (5, 'Jų')");
        type(edit(dialog, "Name"), "Mano");
        save(dialog);
    });
    EXPECT_EQ(stored().mid(1), QStringList({"5|Jų", "6|Mano"}));
}

// --- acquisition methods

TEST_P(Acquisitions, HaveANameAndTwoSettings)
{
    EXPECT_EQ(list->windowTitle(), "Ilgalaikio turto įsigijimo būdų sąrašas");
    EXPECT_EQ(titles(), QStringList({"Pavadinimas", "Už įstaigos lėšas", "Parama"}));
    add([](TPirkEditDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujo įsigijimo būdo įvedimas");
        type(edit(dialog, "Name"), "Gauta");
        check(dialog, "Pozymis")->click();
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList({"4|Pirkta|3|0", "5|Gauta|0|1"}));
    EXPECT_EQ(shown(1), QStringList({"Taip", "Ne"}));
    EXPECT_EQ(shown(2), QStringList({"Ne", "Taip"}));
}

TEST_P(Acquisitions, ASettingThatIsNotTouchedKeepsItsNumber)
{
    change(4, [](TPirkEditDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Įsigijimo būdo redagavimas");
        EXPECT_TRUE(check(dialog, "Tipas")->isChecked());
        check(dialog, "Pozymis")->click();
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("4|Pirkta|3|1"));
    change(4, [](TPirkEditDlg &dialog) {
        check(dialog, "Tipas")->click();
        paste(edit(dialog, "Name"), QString(101, u'ž'));
        EXPECT_EQ(edit(dialog, "Name")->text(), "Pirkta") << "not taken in part";
        paste(edit(dialog, "Name"), QString(100, u'ž'));
        EXPECT_EQ(edit(dialog, "Name")->text(), QString(100, u'ž'));
        type(edit(dialog, "Name"), " ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        type(edit(dialog, "Name"), "Dovanota");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("4|Dovanota|0|1"));
}

TEST_P(Acquisitions, ASettingThatAnotherStationChangedIsToldAsTheListShowsIt)
{
    list->RefreshData(4);
    OnNextDialog<TPirkEditDlg> changing([this](TPirkEditDlg &dialog) {
        secondFin()->ExecSQL("update it_pirktip set pit_pozymis = 2");
        check(dialog, "Pozymis")->click();
        save(dialog);
    });
    NextBoxes told{QMessageBox::Ok};
    OnNextDialog<TPirkEditDlg> again([](TPirkEditDlg &dialog) { leaveUnsaved(dialog); });
    list->EditBtnClick();
    EXPECT_EQ(told.texts(),
              QStringList("Kita darbo vieta tuo tarpu pakeitė: Parama: buvo „Ne“, dabar „Taip“."));
    EXPECT_EQ(stored(), QStringList("4|Pirkta|3|2"));
}

TEST_P(Acquisitions, OneInUseByTheAssetsCannotBeDeletedAndTheRefusalNamesIt)
{
    books().ExecSQL("insert into it_turtas (tur_id, tur_pitid) values (1, 4)");
    EXPECT_EQ(erase(4, {QMessageBox::Ok}),
              QStringList("Įsigijimo būdas \"Pirkta\" panaudotas turto apskaitoje!"));
    EXPECT_EQ(stored(), QStringList("4|Pirkta|3|0"));
}
