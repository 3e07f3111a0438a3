#include "host/data/catalogue_edit.h"
#include "src/money/Bankai.h"
#include "src/money/Bankaied.h"
#include "tests/src/catalogue.h"

using Bankaied::TBankaiDlg;

namespace {

class Banks : public OnCatalogue<Bankai::BankaiFrm, Bankaied::BankaiDlg> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL(
            "insert into bd_bankai (bnk_kodas, bnk_pavad, bnk_rink) values (70100, 'Žemės bankas', 0.5)");
        open();
    }
    static TCatalogueEdit *central(QWidget &dialog)
    {
        return dialog.findChild<TCatalogueEdit *>("BNK_BNKKODAS");
    }
    static void fill(TBankaiDlg &dialog, const QString &code, const QString &name)
    {
        type(edit(dialog, "BNK_KODAS"), code);
        type(edit(dialog, "BNK_PAVAD"), name);
    }
    QStringList stored() { return rows(books(), "select * from bd_bankai order by bnk_kodas"); }
};
ON_BOTH_ENGINES(Banks);

} // namespace

TEST_P(Banks, AreAddedWithTheirCentralBankByItsCode)
{
    EXPECT_EQ(titles(), QStringList({"Kodas", "Centrinio banko kodas", "Pavadinimas", "Rinkliava"}));
    add([](TBankaiDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Bankas");
        fill(dialog, "70110", "O'Šilo %s bankas");
        type(edit(dialog, "BNK_BNKKODAS"), "70100");
        type(edit(dialog, "BNK_RINK"), "0,25");
        save(dialog);
    });
    EXPECT_EQ(key(), 70110);
    EXPECT_EQ(stored(), QStringList({"70100|NULL|Žemės bankas|0.5", "70110|70100|O'Šilo %s bankas|0.25"}));
    change(70110, [](TBankaiDlg &dialog) {
        EXPECT_TRUE(central(dialog)->GetText().contains("70100"));
        central(dialog)->setValue(0);
        save(dialog);
    });
    EXPECT_EQ(stored().last(), "70110|NULL|O'Šilo %s bankas|0.25");
}

TEST_P(Banks, AreFoundByTheNameOfTheCentralBank)
{
    add([](TBankaiDlg &dialog) {
        fill(dialog, "70110", "Filialas");
        type(edit(dialog, "BNK_BNKKODAS"), "zemes");
        save(dialog);
    });
    EXPECT_EQ(stored().last(), "70110|70100|Filialas|NULL");
}

TEST_P(Banks, ABankIsNotItsOwnCentralBankAndOthersMustExist)
{
    change(70100, [](TBankaiDlg &dialog) {
        central(dialog)->setValue(70100);
        EXPECT_EQ(refusal(dialog), "Bankas negali būti pats sau centrinis bankas!");
        type(edit(dialog, "BNK_BNKKODAS"), "123");
        EXPECT_EQ(refusal(dialog), "Banko „123“ nėra");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList("70100|NULL|Žemės bankas|0.5"));
}

TEST_P(Banks, ATakenCodeNoneAndAChargeThatIsNoneAreRefused)
{
    add([](TBankaiDlg &dialog) {
        fill(dialog, "70100", "Kitas");
        EXPECT_EQ(refusal(dialog), "Kodas \"70100\" jau egzistuoja");
        fill(dialog, "", "Kitas");
        EXPECT_EQ(refusal(dialog), "Laukas \"Banko kodas\" negali būti tuščias!");
        fill(dialog, "70110", "  ");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        fill(dialog, "0", "Kitas");
        EXPECT_EQ(refusal(dialog), "Laukas \"Banko kodas\" turi būti nuo 1 iki 999999999!");
        fill(dialog, "70110", "Kitas");
        type(edit(dialog, "BNK_RINK"), "-1");
        EXPECT_EQ(refusal(dialog), "Laukas \"Rinkliava (%)\" turi būti nuo 0 iki 100!");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored().size(), 1);
}

TEST_P(Banks, TwoStationsAddingTheSameCodeEndWithOneBankAndAMessage)
{
    add([this](TBankaiDlg &dialog) {
        fill(dialog, "70110", "Mano");
        secondFin()->ExecSQL("insert into bd_bankai (bnk_kodas, bnk_pavad) values (70110, 'Jų')");
        EXPECT_EQ(refusal(dialog), "Kodas \"70110\" jau egzistuoja");
        EXPECT_EQ(edit(dialog, "BNK_PAVAD")->text(), "Mano");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored().last(), "70110|NULL|Jų|NULL");
}

TEST_P(Banks, ANewCodeGoesAlongWithTheBanksBelow)
{
    books().ExecSQL("insert into bd_bankai (bnk_kodas, bnk_bnkkodas, bnk_pavad) values (70110, 70100, 'B')");
    change(70100, [](TBankaiDlg &dialog) {
        type(edit(dialog, "BNK_KODAS"), "70200");
        save(dialog);
    });
    EXPECT_EQ(key(), 70200);
    EXPECT_EQ(stored(), QStringList({"70110|70200|B|NULL", "70200|NULL|Žemės bankas|0.5"}));
}

TEST_P(Banks, ABankWithANewCodeIsNotItsOwnCentralBankByTheFormerOne)
{
    change(70100, [](TBankaiDlg &dialog) {
        type(edit(dialog, "BNK_KODAS"), "70200");
        central(dialog)->setValue(70100);
        EXPECT_EQ(refusal(dialog), "Bankas negali būti pats sau centrinis bankas!");
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList("70100|NULL|Žemės bankas|0.5"));
}

TEST_P(Banks, ACentralBankAndOneOfACounterpartyAreNotDeleted)
{
    books().ExecSQL("insert into bd_bankai (bnk_kodas, bnk_bnkkodas, bnk_pavad) values (70110, 70100, 'B')");
    EXPECT_EQ(erase(70100, {QMessageBox::Ok}), QStringList("Bankas \"Žemės bankas\" yra naudojamas!"));
    EXPECT_EQ(erase(70110), QStringList("Ar tikrai norite ištrinti?"));
    EXPECT_EQ(stored().size(), 1);
}
