#include "host/data/drb_klas.h"
#include "src/people/Drbklasred.h"
#include "src/people/Drbklassar.h"
#include "src/people/Editprg.h"
#include "src/people/Pareig.h"
#include "src/people/Vtarn.h"
#include "src/people/Vtarnnew.h"
#include "tests/src/catalogue.h"
#include "tests/support/uncommitted.h"

#include <QCheckBox>

using Drbklasred::TDrbKlasRedFrm;
using Editprg::TEditPrgDlg;
using Vtarnnew::TVTarnDlg;

namespace {

class Categories : public OnCatalogue<Vtarn::VTarnFrm, Vtarnnew::VTarnDlg> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        for (const int id : {1, 2, 3, 99, 100})
            books().ExecSQL("insert into bd_tarn (trn_id, trn_pavad, trn_koef) values (:id, :pavad, 1.5)",
                            {{"id", id}, {"pavad", QString("Kategorija %1").arg(id)}});
        open();
    }
    QStringList keys() { return rows(books(), "select trn_id from bd_tarn order by trn_id"); }
};
ON_BOTH_ENGINES(Categories);

class Positions : public OnCatalogue<Pareig::PareigFrm, Editprg::EditPrgDlg> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        for (const char *sql : {"insert into bd_tarn (trn_id, trn_pavad) values (3, 'Patarėjas')",
                                "insert into du_drbklas (kla_kodas, kla_pavad) values (47, 'Mokytojai')",
                                "insert into bd_prg (prg_id, prg_pavad, prg_subord, prg_mokgyd) "
                                "values (5, 'Direktorius', 1, 0)"})
            books().ExecSQL(sql);
        open();
    }
    QStringList stored()
    {
        return rows(books(), "select prg_id, prg_pavad, prg_subord, prg_kla_kod, prg_mokgyd, prg_trnid "
                             "from bd_prg order by prg_id");
    }
};
ON_BOTH_ENGINES(Positions);

class Groups : public OnCatalogue<Drbklassar::DrbKlasFrm, Drbklasred::DrbKlasRedFrm> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL("insert into du_drbklas (kla_kodas, kla_pavad) values (23, 'Mokymas')");
        open();
    }
    static void fill(TDrbKlasRedFrm &dialog, const QString &name, const QString &kind, const QString &code)
    {
        type(edit(dialog, "kla_pavad"), name);
        type(edit(dialog, "Tipas"), kind);
        type(edit(dialog, "Kodas"), code);
    }
    QStringList stored() { return rows(books(), "select * from du_drbklas order by kla_kodas"); }
};
ON_BOTH_ENGINES(Groups);

class GroupsOnServer : public Groups {};
ON_ENGINE(GroupsOnServer, Engine::PostgreSql);

} // namespace

// --- civil-servant categories

TEST_P(Categories, OneTwoAndAHundredStayAndTheOthersMayGo)
{
    for (const int id : {1, 2, 100})
        EXPECT_EQ(erase(id, {QMessageBox::Ok}), QStringList("Šių įrašų trinti negalima!")) << id;
    for (const int id : {3, 99})
        EXPECT_EQ(erase(id), QStringList("Ar tikrai norite ištrinti?")) << id;
    EXPECT_EQ(keys(), QStringList({"1", "2", "100"}));
}

TEST_P(Categories, OneOfAPositionIsNotDeleted)
{
    books().ExecSQL("insert into bd_prg (prg_id, prg_pavad, prg_trnid) values (1, 'Patarėjas', 3)");
    EXPECT_EQ(erase(3, {QMessageBox::Ok}), QStringList("Kategorija \"Kategorija 3\" yra naudojama!"));
}

TEST_P(Categories, AreAddedUnderADrawnKeyAndStayInTheList)
{
    add([](TVTarnDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Valstybės tarnautojo kategorija");
        type(edit(dialog, "TRN_PAVAD"), "Nauja");
        type(edit(dialog, "TRN_KOEF"), "0,5");
        save(dialog);
    });
    EXPECT_EQ(key(), 101);
    EXPECT_EQ(shown(1).last(), "Nauja");
    EXPECT_EQ(rows(books(), "select * from bd_tarn where trn_id = 101"), QStringList("101|Nauja|0.5"));
}

TEST_P(Categories, BlanksAreNoName)
{
    change(3, [](TVTarnDlg &dialog) {
        type(edit(dialog, "TRN_PAVAD"), "  ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(rows(books(), "select trn_pavad from bd_tarn where trn_id = 3"), QStringList("Kategorija 3"));
}

TEST_P(Categories, ACoefficientThatIsNoneIsRefusedInWords)
{
    change(3, [](TVTarnDlg &dialog) {
        for (const auto &[typed, why] :
             {std::pair("-1", "Laukas \"Koeficientas\" turi būti nuo 0 iki 1000!"),
              std::pair("1e400", "Laukas \"Koeficientas\": „1e400“ nėra skaičius."),
              std::pair("du", "Laukas \"Koeficientas\": „du“ nėra skaičius.")}) {
            type(edit(dialog, "TRN_KOEF"), typed);
            EXPECT_EQ(refusal(dialog), why) << typed;
            EXPECT_EQ(edit(dialog, "TRN_KOEF")->text(), typed);
        }
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(rows(books(), "select trn_koef from bd_tarn where trn_id = 3"), QStringList("1.5"));
}

TEST_P(Categories, OtherScreensSeeTheChange)
{
    MainDatas()->Tarn()->Open();
    change(3, [](TVTarnDlg &dialog) {
        type(edit(dialog, "TRN_PAVAD"), "Pervardyta");
        save(dialog);
    });
    EXPECT_TRUE(MainDatas()->Tarn()->Locate("trn_pavad", "Pervardyta"));
    erase(3);
    EXPECT_FALSE(MainDatas()->Tarn()->Locate("trn_id", 3));
    EXPECT_TRUE(MainDatas()->Tarn()->Active());
}

// --- positions

TEST_P(Positions, AreAddedWithTheLargestKeyPlusOne)
{
    EXPECT_EQ(titles(), QStringList({"Pareigybės", "Subordinacija", "Klas.", "Mok.Gyd.", "Valst. Tarn."}));
    add([](TEditPrgDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Nauja pareigybė");
        EXPECT_EQ(dialog.focusWidget(), edit(dialog, "PRG_SUBORD"));
        type(edit(dialog, "PRG_SUBORD"), "2");
        type(edit(dialog, "PRG_PAVAD"), "Mokytojas");
        EXPECT_EQ(items(dialog, "PRG_TRNID"), QStringList("Patarėjas"));
        choose(dialog, "PRG_TRNID", "Patarėjas");
        dialog.findChild<TDrbKlasFra *>("PRG_KLA_KOD")->p_kodas(47);
        dialog.findChild<QCheckBox *>("PRG_MOKGYD")->click();
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList({"5|Direktorius|1|NULL|0|NULL", "6|Mokytojas|2|47|1|3"}));
    EXPECT_EQ(key(), 6);
    EXPECT_EQ(shown(3), QStringList({"Ne", "Taip"}));
    EXPECT_EQ(shown(4), QStringList({"", "3  Patarėjas"}));
}

TEST_P(Positions, ACategoryAddedElsewhereIsOfferedTheNextTime)
{
    change(5, [](TEditPrgDlg &dialog) {
        EXPECT_EQ(items(dialog, "PRG_TRNID"), QStringList("Patarėjas"));
        leaveUnsaved(dialog);
    });
    secondFin()->ExecSQL("insert into bd_tarn (trn_id, trn_pavad) values (4, 'Vedėjas')");
    change(5, [](TEditPrgDlg &dialog) {
        EXPECT_EQ(items(dialog, "PRG_TRNID"), QStringList({"Patarėjas", "Vedėjas"}));
        leaveUnsaved(dialog);
    });
}

TEST_P(Positions, ABlankNameAndASubordinationThatIsNoneAreRefused)
{
    change(5, [](TEditPrgDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Koreguojama pareigybė");
        type(edit(dialog, "PRG_PAVAD"), "  ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pareigybė\" negali būti tuščias!");
        type(edit(dialog, "PRG_PAVAD"), "Vadovas");
        paste(edit(dialog, "PRG_SUBORD"), "40000");
        EXPECT_EQ(refusal(dialog), "Laukas \"Subordinacija\" turi būti nuo 0 iki 32767!");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList("5|Direktorius|1|NULL|0|NULL"));
    EXPECT_EQ(shown(0), QStringList("Direktorius")) << "what was held is dropped";
}

TEST_P(Positions, OneOfAPersonIsNotDeleted)
{
    books().ExecSQL("insert into bd_atsasm (ats_id, ats_pav, ats_prgid) values (1, 'Ona', 5)");
    EXPECT_EQ(erase(5, {QMessageBox::Ok}), QStringList("Pareigybė \"Direktorius\" yra naudojama!"));
}

TEST_P(Positions, ARefusedSaveLeavesTheRowInEditAndGivesTheKeyBack)
{
    refuseInserting("bd_prg", "prg_pavad = 'Draudžiama'");
    add([](TEditPrgDlg &dialog) {
        type(edit(dialog, "PRG_PAVAD"), "Draudžiama");
        EXPECT_FALSE(refusal(dialog).isEmpty());
        EXPECT_EQ(edit(dialog, "PRG_PAVAD")->text(), "Draudžiama");
        type(edit(dialog, "PRG_PAVAD"), "Leidžiama");
        save(dialog);
    });
    EXPECT_EQ(stored().value(1), "6|Leidžiama|NULL|NULL|0|NULL");
}

TEST_P(Positions, TwoStationsThatDrawTheSameKeyNeverShareIt)
{
    addWhileItsKeyIsTaken("PRG_ID", "insert into bd_prg (prg_id, prg_pavad) values (6, 'Jų')",
                          "Toks įrašas jau yra.",
                          [](TEditPrgDlg &dialog) { type(edit(dialog, "PRG_PAVAD"), "Mano"); });
    EXPECT_EQ(rows(books(), "select prg_pavad from bd_prg where prg_id > 5 order by prg_id"),
              engine() == Engine::PostgreSql ? QStringList({"Jų", "Mano"}) : QStringList("Mano"));
}

TEST_P(Positions, WhoMayOnlyLookSeesThemAndCannotSave)
{
    CurrentUser().viewOnly = true;
    change(5, [](TEditPrgDlg &dialog) {
        EXPECT_FALSE(edit(dialog, "PRG_PAVAD")->isEnabled());
        EXPECT_FALSE(saver(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
}

// --- professional groups

TEST_P(Groups, TypeFourWithCodeSevenIsStoredAsFortySevenAndShownAgainInParts)
{
    EXPECT_EQ(titles(), QStringList({"Tipas", "Kodas", "Pavadinimas"}));
    add([](TDrbKlasRedFrm &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Nauja profesinė grupė");
        fill(dialog, "Mokytojai", "4", "7");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList({"23|Mokymas", "47|Mokytojai"}));
    EXPECT_EQ(key(), 47);
    change(47, [](TDrbKlasRedFrm &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Profesinės grupės redagavimas");
        EXPECT_EQ(edit(dialog, "Tipas")->text(), "4");
        EXPECT_EQ(edit(dialog, "Kodas")->text(), "7");
        leaveUnsaved(dialog);
    });
}

TEST_P(Groups, AnotherCodeMovesTheGroupAndItsPositions)
{
    books().ExecSQL("insert into bd_prg (prg_id, prg_pavad, prg_kla_kod) values (1, 'Ona', 23)");
    change(23, [](TDrbKlasRedFrm &dialog) {
        type(edit(dialog, "Kodas"), "4");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("24|Mokymas"));
    EXPECT_EQ(key(), 24);
    EXPECT_EQ(rows(books(), "select prg_kla_kod from bd_prg"), QStringList("24"));
}

TEST_P(Groups, ACodeOfTwoDigitsATakenOneAndNoneAreRefused)
{
    add([](TDrbKlasRedFrm &dialog) {
        fill(dialog, "Mokytojai", "4", "12");
        EXPECT_EQ(refusal(dialog), "Laukas \"Kodas\" turi būti nuo 0 iki 9!");
        fill(dialog, "Mokytojai", "2", "3");
        EXPECT_EQ(refusal(dialog), "Kodas \"23\" jau egzistuoja");
        fill(dialog, "Mokytojai", "", "3");
        EXPECT_EQ(refusal(dialog), "Laukas \"Tipas\" negali būti tuščias!");
        fill(dialog, "  ", "4", "7");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList("23|Mokymas"));
}

TEST_P(Groups, ACodeThatAnotherStationComposedMeanwhileIsRefused)
{
    add([this](TDrbKlasRedFrm &dialog) {
        fill(dialog, "Mokytojai", "4", "7");
        secondFin()->ExecSQL("insert into du_drbklas (kla_kodas, kla_pavad) values (47, 'Jų')");
        EXPECT_EQ(refusal(dialog), "Kodas \"47\" jau egzistuoja");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList({"23|Mokymas", "47|Jų"}));
}

TEST_P(GroupsOnServer, ACodeThatAnotherStationComposedInTheSameMomentIsNamedAndTheRowStays)
{
    add([this](TDrbKlasRedFrm &dialog) {
        fill(dialog, "Mokytojai", "4", "7");
        {
            const Uncommitted theirs(*secondFin(),
                                     "insert into du_drbklas (kla_kodas, kla_pavad) values (47, 'Jų')");
            EXPECT_EQ(refusal(dialog), "Kodas \"47\" jau egzistuoja");
        }
        EXPECT_EQ(edit(dialog, "kla_pavad")->text(), "Mokytojai");
        type(edit(dialog, "Kodas"), "8");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList({"23|Mokymas", "47|Jų", "48|Mokytojai"}));
}

TEST_P(Groups, OneOfAPositionIsNotDeleted)
{
    books().ExecSQL("insert into bd_prg (prg_id, prg_pavad, prg_kla_kod) values (1, 'Ona', 23)");
    EXPECT_EQ(erase(23, {QMessageBox::Ok}), QStringList("Profesinė grupė \"Mokymas\" yra naudojama!"));
    books().ExecSQL("delete from bd_prg");
    EXPECT_EQ(erase(23), QStringList("Ar tikrai norite ištrinti?"));
    EXPECT_EQ(stored(), QStringList());
}
