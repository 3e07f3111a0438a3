#include "src/catalogues/Nuom.h"
#include "src/catalogues/Nuomedit.h"
#include "tests/src/catalogue.h"

using Nuom::TNuomFrm;
using Nuomedit::TNuomDlg;

namespace {

class Tenants : public OnCatalogue<Nuom::NuomFrm, Nuomedit::NuomDlg> {
protected:
    void SetUp() override
    {
        OnCatalogue::SetUp();
        rent = account("2260003");
        deposit = account("7400004");
    }
    void tenant(int id, const QString &code, const QString &name, const Variant &first = {},
                const Variant &second = {})
    {
        books().ExecSQL("insert into bd_nuomasm (nuom_id, nuom_kod, nuom_pavad, nuom_sasid, nuom_sasid2) "
                        "values (:id, :kod, :pavad, :a, :b)",
                        {{"id", id}, {"kod", code}, {"pavad", name}, {"a", first}, {"b", second}});
    }
    static void fill(TNuomDlg &dialog, const QString &code, const QString &name)
    {
        type(edit(dialog, "NUOM_PAVAD"), name);
        type(edit(dialog, "NUOM_KOD"), code);
    }
    QStringList stored()
    {
        return rows(books(), "select nuom_id, nuom_kod, nuom_pavad from bd_nuomasm order by nuom_id");
    }

    int rent = 0, deposit = 0;
};
ON_BOTH_ENGINES(Tenants);

} // namespace

TEST_P(Tenants, AreListedByCodeWithBothAccounts)
{
    tenant(1, "N2", "Šokių būrelis", rent, deposit);
    tenant(2, "N1", "Kepykla", rent, rent);
    open();
    EXPECT_EQ(list->windowTitle(), "Nuomininkai");
    EXPECT_EQ(shown(0), QStringList({"N1", "N2"}));
    EXPECT_EQ(shown(2).last(), "2260003  Sąskaita 2260003");
    EXPECT_EQ(shown(3).last(), "7400004  Sąskaita 7400004");
    EXPECT_EQ(Nuom::NuomFrm, list);
    close();
    EXPECT_EQ(Nuom::NuomFrm, nullptr);
}

TEST_P(Tenants, OneWithoutAccountsIsSavedAndStaysInTheList)
{
    tenant(1, "N1", "Kepykla", rent);
    open();
    add([](TNuomDlg &dialog) {
        fill(dialog, "N0", "Be sąskaitų");
        save(dialog);
    });
    EXPECT_EQ(key(), 2);
    EXPECT_EQ(shown(0), QStringList({"N0", "N1"}));
    EXPECT_EQ(shown(2), QStringList({"", "2260003  Sąskaita 2260003"}));
    EXPECT_EQ(shown(3), QStringList({"", ""}));
}

TEST_P(Tenants, EveryFieldIsStored)
{
    open();
    add([this](TNuomDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujas nuomininkas");
        EXPECT_EQ(dialog.focusWidget(), edit(dialog, "NUOM_PAVAD"));
        fill(dialog, "N1", "UAB „Ąžuolas“");
        type(edit(dialog, "NUOM_ADR"), "Pušyno g. 3");
        type(edit(dialog, "NUOM_TEL"), "+37060099100");
        type(edit(dialog, "NUOM_I_KOD"), "12345678901");
        type(edit(dialog, "NUOM_PVM_KOD"), "LT123456789");
        type(edit(dialog, "NUOM_EIN_SAS"), "LT000990010000000100");
        type(edit(dialog, "NUOM_BANK_PAV"), "Bankas");
        picker(dialog, "NUOM_SASID")->setValue(rent);
        picker(dialog, "NUOM_SASID2")->setValue(deposit);
        save(dialog);
    });
    EXPECT_EQ(rows(books(), "select * from bd_nuomasm"),
              QStringList(QString("1|%1|N1|UAB „Ąžuolas“|Pušyno g. 3|+37060099100|12345678901|LT123456789|"
                                  "LT000990010000000100|Bankas|%2")
                              .arg(rent)
                              .arg(deposit)));
}

// --- the code

TEST_P(Tenants, OnesOwnCodeIsKeptAndAnothersRefused)
{
    tenant(1, "N1", "Pirmas");
    tenant(2, "N2", "Antras");
    open();
    change(2, [](TNuomDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Koreguojamas nuomininkas");
        type(edit(dialog, "NUOM_KOD"), "N1");
        EXPECT_EQ(refusal(dialog), "Kodas \"N1\" jau egzistuoja");
        fill(dialog, "N2", "Kitaip");
        save(dialog);
    });
    EXPECT_EQ(key(), 2);
    EXPECT_EQ(stored(), QStringList({"1|N1|Pirmas", "2|N2|Kitaip"}));
}

TEST_P(Tenants, CodesOfQuotesPercentSignsAndLithuanianLettersAreComparedAsTheyAre)
{
    tenant(1, "O'Ž%", "Pirmas");
    open();
    add([](TNuomDlg &dialog) {
        fill(dialog, "O'Ž%", "Antras");
        EXPECT_EQ(refusal(dialog), "Kodas \"O'Ž%\" jau egzistuoja");
        EXPECT_EQ(edit(dialog, "NUOM_PAVAD")->text(), "Antras");
        type(edit(dialog, "NUOM_KOD"), "o'ž%");
        save(dialog);
    });
    EXPECT_EQ(stored().last(), "2|o'ž%|Antras") << "a code in small letters is another one";
}

TEST_P(Tenants, ACodeTakenElsewhereInTheLastMomentIsNamed)
{
    open();
    add([this](TNuomDlg &dialog) {
        fill(dialog, "N1", "Mano");
        whenKeyIsDrawn(dialog, "NUOM_ID", [this] {
            elsewhere([](TDatabase &station) {
                station.ExecSQL("insert into bd_nuomasm (nuom_id, nuom_kod) values (7, 'N1')");
            });
        });
        if (engine() == Engine::PostgreSql) {
            EXPECT_EQ(refusal(dialog), "Kodas \"N1\" jau egzistuoja");
            type(edit(dialog, "NUOM_KOD"), "N2");
        }
        save(dialog);
    });
    EXPECT_EQ(stored().last(), engine() == Engine::PostgreSql ? "8|N2|Mano" : "1|N1|Mano");
}

// --- bad input

TEST_P(Tenants, BlanksAreNoNameAndNoCode)
{
    open();
    add([](TNuomDlg &dialog) {
        fill(dialog, "N1", "  ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        fill(dialog, "  ", "Kepykla");
        EXPECT_EQ(refusal(dialog), "Laukas \"Kodas\" negali būti tuščias!");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(Tenants, TheLongestCodeIsTakenWholeAndOneLetterMoreNotAtAll)
{
    open();
    add([](TNuomDlg &dialog) {
        fill(dialog, "N1", "Kepykla");
        paste(edit(dialog, "NUOM_KOD"), "12345678");
        EXPECT_EQ(edit(dialog, "NUOM_KOD")->text(), "N1");
        paste(edit(dialog, "NUOM_KOD"), "ŠŽ34567");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|ŠŽ34567|Kepykla"));
}

TEST_P(Tenants, ACompanyCodeOfLettersAndASummaryAccountAreRefused)
{
    books().ExecSQL("update bd_sasplan set sas_tip = 'S' where sas_id = :id", {{"id", deposit}});
    open();
    add([this](TNuomDlg &dialog) {
        fill(dialog, "N1", "Kepykla");
        type(edit(dialog, "NUOM_I_KOD"), "-1e5");
        EXPECT_EQ(edit(dialog, "NUOM_I_KOD")->text(), "15") << "digits alone are typed";
        paste(edit(dialog, "NUOM_I_KOD"), "abc");
        EXPECT_EQ(refusal(dialog), "Laukas \"Įmonės kodas\": „abc“ nėra skaičius.");
        for (const char *pasted : {"-5", "1e5", "0"}) {
            paste(edit(dialog, "NUOM_I_KOD"), pasted);
            EXPECT_EQ(refusal(dialog), "Laukas \"Įmonės kodas\" turi būti nuo 1 iki 99999999999!") << pasted;
        }
        type(edit(dialog, "NUOM_I_KOD"), "");
        for (const char *column : {"NUOM_SASID", "NUOM_SASID2"}) {
            EXPECT_THROW(picker(dialog, column)->setValue(deposit), Exception);
            EXPECT_EQ(refusal(dialog), "Sąskaita „7400004“ yra suminė: pasirinkite detaliąją");
            picker(dialog, column)->setValue(0);
        }
        save(dialog);
    });
    EXPECT_EQ(stored().size(), 1);
}

// --- the rest

TEST_P(Tenants, AreDeletedAfterAYes)
{
    tenant(1, "N1", "Pirmas");
    tenant(2, "N2", "Antras");
    open();
    erase(1, {QMessageBox::No});
    EXPECT_EQ(erase(1), QStringList("Ar tikrai norite ištrinti?"));
    EXPECT_EQ(stored(), QStringList("2|N2|Antras"));
    EXPECT_EQ(key(), 2);
}

TEST_P(Tenants, AViewOnlyUserMayOnlyLook)
{
    tenant(1, "N1", "Pirmas");
    CurrentUser().viewOnly = true;
    open();
    EXPECT_FALSE(list->acNew->isEnabled() || list->acDelete->isEnabled());
    change(1, [](TNuomDlg &dialog) {
        EXPECT_FALSE(edit(dialog, "NUOM_KOD")->isEnabled());
        EXPECT_FALSE(saver(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
}
