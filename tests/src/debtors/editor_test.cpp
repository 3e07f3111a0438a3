#include "tests/src/debtors/debtors.h"

#include <QClipboard>
#include <QComboBox>

namespace {
class DebtorEditor : public Debtors {};
ON_BOTH_ENGINES(DebtorEditor);

QStringList items(QWidget &dialog, const QString &column)
{
    const auto *box = dialog.findChild<QComboBox *>(column);
    QStringList texts;
    for (int item = 0; item < box->count(); ++item)
        texts << box->itemText(item);
    return texts;
}
} // namespace

TEST_P(DebtorEditor, TheFirstRowGetsTheKeyOne)
{
    double id = 0;
    EXPECT_TRUE(add(
        [this](TEditDbKrDlg &dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Naujas");
            EXPECT_EQ(dialog.focusWidget(), edit(dialog, "DKA_PAVAD"));
            fill(dialog, "UAB Baldai", "B1", owed);
            pressButton(dialog, "&Išsaugoti");
        },
        &id));
    EXPECT_EQ(id, 1);
    EXPECT_EQ(stored(), QStringList(row(1, "B1", "UAB Baldai", owed, owed)));
    EXPECT_EQ(Chdbkr::EditDbKrDlg, nullptr);
}

TEST_P(DebtorEditor, WithOneAccountThePayablesFollowItWhateverWasStored)
{
    party(5, "B1", "Baldai");
    EXPECT_TRUE(change(5, [](TEditDbKrDlg &dialog) {
        EXPECT_FALSE(picker(dialog, "DKA_SASID_2")->isVisible());
        bool labelled = false;
        for (const QLabel *label : dialog.findChildren<QLabel *>())
            labelled |= label->isVisible() && QString(label->text()).remove(u'&') == "Sąskaitos";
        EXPECT_TRUE(labelled);
        type(edit(dialog, "DKA_ADR"), "Vilnius");
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored(), QStringList(row(5, "B1", "Baldai", owed, owed)));
}

TEST_P(DebtorEditor, ACompanyKeepsTwoAccounts)
{
    setUAB(true);
    EXPECT_TRUE(add([this](TEditDbKrDlg &dialog) {
        fill(dialog, "Baldai", "B1", owed);
        EXPECT_TRUE(picker(dialog, "DKA_SASID_2")->isVisible());
        EXPECT_EQ(refusal(dialog), "Laukas \"Mokėtinų sumų sąs. Nr\" negali būti tuščias!");
        picker(dialog, "DKA_SASID_2")->setValue(owing);
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored(), QStringList(row(1, "B1", "Baldai", owed, owing)));
}

TEST_P(DebtorEditor, WhetherThereAreTwoAccountsIsReadOnceForADialog)
{
    setUAB(true);
    EXPECT_TRUE(add([this](TEditDbKrDlg &dialog) {
        secondFin()->ExecSQL("update bd_org set org_tipas = 0");
        fill(dialog, "Baldai", "B1", owed);
        EXPECT_TRUE(picker(dialog, "DKA_SASID_2")->isVisible());
        picker(dialog, "DKA_SASID_2")->setValue(owing);
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored(), QStringList(row(1, "B1", "Baldai", owed, owing)));
}

TEST_P(DebtorEditor, WithOneAccountARefusalCallsItByItsLabel)
{
    EXPECT_FALSE(add([](TEditDbKrDlg &dialog) {
        type(edit(dialog, "DKA_PAVAD"), "Baldai");
        type(edit(dialog, "DKA_KOD"), "B1");
        EXPECT_EQ(refusal(dialog), "Laukas \"Sąskaitos\" negali būti tuščias!");
        pressButton(dialog, "&Atšaukti");
    }));
}

TEST_P(DebtorEditor, EveryFieldIsStored)
{
    EXPECT_TRUE(add([this](TEditDbKrDlg &dialog) {
        fill(dialog, "Baldai", "B1", owed);
        type(edit(dialog, "DKA_ADR"), "Gatve 1");
        type(edit(dialog, "DKA_TEL"), "+37060000000");
        type(edit(dialog, "DKA_I_KOD"), "12345678901");
        type(edit(dialog, "DKA_PVM_KOD"), "LT123456789");
        type(edit(dialog, "DKA_EIN_SAS"), "lt12 3000");
        type(edit(dialog, "DKA_KLIENT_INFSIST"), "K-7");
        type(edit(dialog, "DKA_BANK_PAV"), "Bankas");
        EXPECT_FALSE(dialog.findChild<QWidget *>("DKA_BANK_KOD")->isVisible());
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(rows(books(),
                   "select dka_adr, dka_tel, dka_i_kod, dka_pvm_kod, dka_ein_sas, dka_klient_infsist, "
                   "dka_bank_pav, dka_bank_kod from bd_dbkrasm"),
              QStringList("Gatve 1|+37060000000|12345678901|LT123456789|LT12 3000|K-7|Bankas|NULL"));
}

TEST_P(DebtorEditor, BankNamesAreOfferedOnce)
{
    party(1, "A", "A");
    party(2, "B", "B");
    party(3, "C", "C");
    books().ExecSQL("update bd_dbkrasm set dka_bank_pav = 'SEB', dka_bank_kod = 70440 where dka_id < 3");
    change(3, [](TEditDbKrDlg &dialog) {
        EXPECT_EQ(items(dialog, "DKA_BANK_PAV"), QStringList("SEB"));
        EXPECT_EQ(items(dialog, "DKA_BANK_KOD"), QStringList("70440"));
        EXPECT_EQ(edit(dialog, "DKA_BANK_PAV")->text(), "");
        pressButton(dialog, "&Atšaukti");
    });
}

// --- the code

TEST_P(DebtorEditor, ItsOwnUnchangedCodeIsNoDuplicate)
{
    party(1, "A", "Pirmas");
    EXPECT_TRUE(change(1, [](TEditDbKrDlg &dialog) {
        type(edit(dialog, "DKA_PAVAD"), "Kitas");
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored(), QStringList(row(1, "A", "Kitas", owed, owed)));
}

TEST_P(DebtorEditor, AnExistingCodeIsRefusedWithEverythingKept)
{
    for (const QString &code : {QString("A"), QString("O'B"), QString("50%"), QString("'; delete")}) {
        books().ExecSQL("delete from bd_dbkrasm");
        party(1, code, "Pirmas");
        add([&](TEditDbKrDlg &dialog) {
            fill(dialog, "Antras", code, owed);
            EXPECT_EQ(refusal(dialog), "Kodas \"" + code + "\" jau egzistuoja");
            EXPECT_EQ(edit(dialog, "DKA_PAVAD")->text(), "Antras");
            EXPECT_EQ(dialog.focusWidget(), edit(dialog, "DKA_KOD"));
            EXPECT_FALSE(books().InTransaction());
            pressButton(dialog, "&Atšaukti");
        });
        EXPECT_EQ(stored(), QStringList(row(1, code, "Pirmas", owed, owing)));
    }
}

TEST_P(DebtorEditor, APercentSignIsNoPattern)
{
    party(1, "ABC", "Pirmas");
    EXPECT_TRUE(add([this](TEditDbKrDlg &dialog) {
        fill(dialog, "Antras", "A%", owed);
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored().size(), 2);
}

// --- bad input

TEST_P(DebtorEditor, RequiredFieldsAreNamed)
{
    add([this](TEditDbKrDlg &dialog) {
        EXPECT_EQ(refusal(dialog), "Laukas \"Paieškos kodas\" negali būti tuščias!");
        type(edit(dialog, "DKA_KOD"), "A");
        EXPECT_EQ(refusal(dialog), "Laukas \"Pavadinimas\" negali būti tuščias!");
        type(edit(dialog, "DKA_PAVAD"), "Pirmas");
        EXPECT_EQ(refusal(dialog), "Laukas \"Sąskaitos\" negali būti tuščias!");
        picker(dialog)->setValue(owed);
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList(row(1, "A", "Pirmas", owed, owed)));
}

TEST_P(DebtorEditor, ANameThatIsTooLongIsNotTakenInPart)
{
    add([this](TEditDbKrDlg &dialog) {
        QLineEdit *name = edit(dialog, "DKA_PAVAD");
        type(name, "Trumpas");
        QApplication::clipboard()->setText(QString(151, u'x'));
        name->selectAll();
        name->paste();
        EXPECT_EQ(name->text(), "Trumpas");
        QApplication::clipboard()->setText(QString(150, u'x'));
        name->selectAll();
        name->paste();
        type(edit(dialog, "DKA_KOD"), "A");
        picker(dialog)->setValue(owed);
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList(row(1, "A", QString(150, u'x'), owed, owed)));
}

TEST_P(DebtorEditor, ACompanyCodeOfLettersIsRefusedAndStays)
{
    add([this](TEditDbKrDlg &dialog) {
        fill(dialog, "Pirmas", "A", owed);
        type(edit(dialog, "DKA_I_KOD"), "abc");
        EXPECT_EQ(refusal(dialog), "Laukas \"Įmonės kodas\": „abc“ nėra skaičius.");
        EXPECT_EQ(edit(dialog, "DKA_I_KOD")->text(), "abc");
        EXPECT_EQ(dialog.focusWidget(), edit(dialog, "DKA_I_KOD"));
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(DebtorEditor, AnAccountThatIsNoDetailAccountEmptiesTheColumn)
{
    add([this](TEditDbKrDlg &dialog) {
        fill(dialog, "Pirmas", "A", owed);
        EXPECT_THROW(picker(dialog)->setValue(summary), Exception);
        EXPECT_EQ(picker(dialog)->value(), 0);
        EXPECT_EQ(refusal(dialog), "Sąskaita „4“ yra suminė: pasirinkite detaliąją");
        picker(dialog)->setValue(0);
        EXPECT_EQ(refusal(dialog), "Laukas \"Sąskaitos\" negali būti tuščias!");
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(DebtorEditor, ThePickerOffersEveryAccountInAList)
{
    add([this](TEditDbKrDlg &dialog) {
        OnNextDialog<QDialog> tree([](QDialog &shown) {
            QTest::keyClicks(shown.focusWidget(), "431");
            QTest::qWait(400);
            QTest::keyClick(shown.focusWidget(), Qt::Key_Return);
        });
        QTest::keyClick(edit(dialog, "DKA_SASID"), Qt::Key_F4);
        EXPECT_EQ(picker(dialog)->value(), owing);
        pressButton(dialog, "&Atšaukti");
    });
}

// --- other stations

TEST_P(DebtorEditor, ARowDeletedMeanwhileIsToldAndNothingTypedIsLost)
{
    party(1, "A", "Pirmas");
    change(1, [this](TEditDbKrDlg &dialog) {
        type(edit(dialog, "DKA_PAVAD"), "Kitas");
        secondFin()->ExecSQL("delete from bd_dbkrasm");
        EXPECT_EQ(refusal(dialog), "Įrašas jau ištrintas kitoje darbo vietoje");
        EXPECT_EQ(edit(dialog, "DKA_PAVAD")->text(), "Kitas");
        EXPECT_FALSE(books().InTransaction());
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
}

// What another station saves between the check and the post.
TEST_P(DebtorEditor, ACodeTakenInTheLastMomentIsNamedAndAnotherOneIsSaved)
{
    add([this](TEditDbKrDlg &dialog) {
        fill(dialog, "Antras", "A", owed);
        dialog.findChild<TQuery *>()->describe("DKA_SASID_2", [this](TField &field) {
            field.OnChange = [this](TField &changed) {
                changed.OnChange = {};
                secondFin()->ExecSQL(
                    "insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) "
                    "values (9, 'A', 'Pirmas', :a, :a)",
                    {{"a", owed}});
            };
        });
        EXPECT_EQ(refusal(dialog), "Kodas \"A\" jau egzistuoja");
        EXPECT_EQ(edit(dialog, "DKA_PAVAD")->text(), "Antras");
        EXPECT_FALSE(books().InTransaction());
        type(edit(dialog, "DKA_KOD"), "B");
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList({row(9, "A", "Pirmas", owed, owed), row(10, "B", "Antras", owed, owed)}));
}

TEST_P(DebtorEditor, AKeyThatAnotherStationTookMeanwhileIsNotDrawnAgain)
{
    add([this](TEditDbKrDlg &dialog) {
        fill(dialog, "Antras", "B", owed);
        secondFin()->ExecSQL("insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) "
                             "values (1, 'A', 'Pirmas', :a, :a)",
                             {{"a", owed}});
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList({row(1, "A", "Pirmas", owed, owed), row(2, "B", "Antras", owed, owed)}));
}

TEST_P(DebtorEditor, AFailureOfTheDatabaseIsRolledBackWithTheDialogOpen)
{
    refuseInserting("bd_dbkrasm", "dka_id = 1");
    add([this](TEditDbKrDlg &dialog) {
        fill(dialog, "Antras", "B", owed);
        EXPECT_TRUE(refusal(dialog).contains("sugadinta tyčia"));
        EXPECT_FALSE(books().InTransaction());
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(DebtorEditor, AViewOnlyUserMayOnlyLookAndSeeTheContract)
{
    party(1, "A", "Pirmas");
    CurrentUser().viewOnly = true;
    change(1, [](TEditDbKrDlg &dialog) {
        EXPECT_FALSE(edit(dialog, "DKA_PAVAD")->isEnabled());
        EXPECT_FALSE(picker(dialog)->isEnabled() && edit(dialog, "DKA_SASID")->isEnabled());
        OnNextDialog<TDbKrSutart> contract([](TDbKrSutart &shown) {
            EXPECT_FALSE(edit(shown, "DKS_NR")->isEnabled());
            pressButton(shown, "&Atsisakyti");
        });
        pressButton(dialog, "&Sutartis");
        pressButton(dialog, "&Atšaukti");
    });
}

// --- rewriting a row under another code

TEST_P(DebtorEditor, RewritingEmptiesCodeAndReceivablesAndKeepsTheRow)
{
    setUAB(true);
    party(1, "A", "Pirmas");
    double newId = 0;
    OnNextDialog<TEditDbKrDlg> dialog([this](TEditDbKrDlg &shown) {
        EXPECT_EQ(edit(shown, "DKA_KOD")->text(), "");
        EXPECT_EQ(picker(shown)->value(), 0);
        EXPECT_EQ(picker(shown, "DKA_SASID_2")->value(), owing);
        type(edit(shown, "DKA_KOD"), "Z");
        picker(shown)->setValue(owing);
        pressButton(shown, "&Išsaugoti");
    });
    EXPECT_TRUE(Chdbkr::CopyDbKr(AnsiString("Kopija"), 1, newId));
    EXPECT_EQ(newId, 1);
    EXPECT_EQ(stored(), QStringList(row(1, "Z", "Pirmas", owing, owing)));
}
