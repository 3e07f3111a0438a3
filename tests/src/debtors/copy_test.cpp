#include "tests/src/debtors/debtors.h"

namespace {

class DebtorCopy : public Debtors {
protected:
    void SetUp() override
    {
        Debtors::SetUp();
        party(3, "A", "Pirmas");
        books().ExecSQL(
            "update bd_dbkrasm set dka_adr = 'Kaunas', dka_bank_kod = 70440, dka_bank_pav = 'SEB', "
            "dka_ein_sas = 'LT1', dka_pvm_kod = 'LT2', dka_klient_infsist = 'K'");
    }
    static bool copy(std::function<void(TCopyDbKrFrm &)> user, double &newId)
    {
        OnNextDialog<TCopyDbKrFrm> dialog(std::move(user));
        return Copydbkr::CopyData(AnsiString("Kopija"), 3, newId);
    }
    QString everythingBut(const QString &left, int id)
    {
        QStringList columns = {"dka_kod",      "dka_pavad",   "dka_adr",     "dka_tel",
                               "dka_i_kod",    "dka_pvm_kod", "dka_ein_sas", "dka_bank_kod",
                               "dka_bank_pav", "dka_sasid",   "dka_sasid_2", "dka_klient_infsist"};
        columns.removeAll(left);
        return rows(books(), "select " + columns.join(", ") + " from bd_dbkrasm where dka_id = :id",
                    {{"id", id}})
            .value(0);
    }
};
ON_BOTH_ENGINES(DebtorCopy);

} // namespace

TEST_P(DebtorCopy, WithAnotherCodeItIsASecondRowEqualInEveryOtherColumn)
{
    setUAB(true);
    books().ExecSQL("update bd_dbkrasm set dka_i_kod = 123456789");
    double newId = 0;
    EXPECT_TRUE(copy(
        [](TCopyDbKrFrm &dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Kopija");
            EXPECT_TRUE(dialog.findChild<QWidget *>("DKA_BANK_KOD")->isVisible());
            type(edit(dialog, "DKA_KOD"), "B");
            pressButton(dialog, "&Išsaugoti");
        },
        newId));
    EXPECT_EQ(newId, 4);
    EXPECT_EQ(everythingBut("dka_kod", 4), everythingBut("dka_kod", 3));
    EXPECT_EQ(value(books(), "select dka_kod from bd_dbkrasm where dka_id = 4"), "B");
}

TEST_P(DebtorCopy, AnEmptyCompanyCodeBecomesZero)
{
    double newId = 0;
    copy(
        [](TCopyDbKrFrm &dialog) {
            type(edit(dialog, "DKA_KOD"), "B");
            pressButton(dialog, "&Išsaugoti");
        },
        newId);
    EXPECT_EQ(rows(books(), "select dka_i_kod from bd_dbkrasm order by dka_id"), QStringList({"NULL", "0"}));
}

TEST_P(DebtorCopy, TheSourcesCodeIsRefused)
{
    double newId = 77;
    EXPECT_FALSE(copy(
        [](TCopyDbKrFrm &dialog) {
            EXPECT_EQ(edit(dialog, "DKA_KOD")->text(), "A");
            EXPECT_EQ(refusal(dialog), "Kodas \"A\" jau egzistuoja");
            pressButton(dialog, "&Atšaukti");
        },
        newId));
    EXPECT_EQ(newId, 77);
    EXPECT_EQ(stored().size(), 1);
    EXPECT_EQ(Copydbkr::CopyDbKrFrm, nullptr);
}

TEST_P(DebtorCopy, WithOneAccountThePayablesFollowIt)
{
    double newId = 0;
    copy(
        [](TCopyDbKrFrm &dialog) {
            EXPECT_FALSE(picker(dialog, "DKA_SASID_2")->isVisible());
            type(edit(dialog, "DKA_KOD"), "B");
            pressButton(dialog, "&Išsaugoti");
        },
        newId);
    EXPECT_EQ(stored(), QStringList({row(3, "A", "Pirmas", owed, owing), row(4, "B", "Pirmas", owed, owed)}));
}

TEST_P(DebtorCopy, OfARowThatIsGoneIsToldInsteadOfShown)
{
    double newId = 0;
    EXPECT_THROW(Copydbkr::CopyData(AnsiString("Kopija"), 99, newId), ERowGone);
}

TEST_P(DebtorCopy, ThereIsNoContractButton)
{
    double newId = 0;
    copy(
        [](TCopyDbKrFrm &dialog) {
            EXPECT_EQ(dialog.findChild<QWidget *>("Sutartis"), nullptr);
            pressButton(dialog, "&Atšaukti");
        },
        newId);
}
