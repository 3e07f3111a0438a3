#include "src/catalogues/Pajamurusiukodai.h"
#include "src/catalogues/Pajamurusiukodaiedit.h"
#include "tests/src/catalogue.h"

#include <QCheckBox>

using Pajamurusiukodaiedit::ShowPajamuRusiuKodaiEdit;
using Pajamurusiukodaiedit::TPajamuRusiuKodaiEditFrm;

namespace {

class IncomeCodes : public OnCatalogue<Pajamurusiukodai::PajamuRusiuKodaiFrm,
                                       Pajamurusiukodaiedit::PajamuRusiuKodaiEditFrm> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        books().ExecSQL("insert into bd_pajamurusiukodai (paj_kod, paj_pavad, paj_nedrbsant) "
                        "values ('01', 'Darbo užmokestis', 0)");
        open();
    }
    static void fill(TPajamuRusiuKodaiEditFrm &dialog, const QString &code, const QString &name)
    {
        type(edit(dialog, "Paj_Kod"), code);
        type(edit(dialog, "Paj_Pavad"), name);
    }
    QStringList stored() { return rows(books(), "select * from bd_pajamurusiukodai order by paj_kod"); }
};
ON_BOTH_ENGINES(IncomeCodes);

} // namespace

TEST_P(IncomeCodes, AreAddedChangedAndDeleted)
{
    EXPECT_EQ(list->windowTitle(), "Pajamų rūšių kodai");
    EXPECT_EQ(titles(), QStringList({"Kodas", "Pavadinimas", "Ne Drb.Sant."}));
    add([](TPajamuRusiuKodaiEditFrm &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Pajamų rūšies kodas");
        fill(dialog, "Šž'", "Nuoma 5 %");
        dialog.findChild<QCheckBox *>("Paj_NeDrbSant")->click();
        save(dialog);
    });
    EXPECT_EQ(list->currentKey().toString(), "Šž'");
    EXPECT_EQ(stored(), QStringList({"01|Darbo užmokestis|0", "Šž'|Nuoma 5 %|1"}));
    EXPECT_EQ(erase("Šž'"), QStringList("Ar tikrai norite ištrinti?"));
    EXPECT_EQ(stored().size(), 1);
}

TEST_P(IncomeCodes, AnEmptyNameIsRefusedInItsOwnWords)
{
    change("01", [](TPajamuRusiuKodaiEditFrm &dialog) {
        for (const char *nothing : {"", "   "}) {
            type(edit(dialog, "Paj_Pavad"), nothing);
            EXPECT_EQ(refusal(dialog), "Būtina įvesti pavadinimą!");
        }
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList("01|Darbo užmokestis|0"));
}

TEST_P(IncomeCodes, ACodeThatDiffersInCaseIsAnotherOneAndATakenOneIsRefused)
{
    add([](TPajamuRusiuKodaiEditFrm &dialog) {
        fill(dialog, "01", "Kitas");
        EXPECT_EQ(refusal(dialog), "Kodas \"01\" jau egzistuoja");
        fill(dialog, "ab", "Mažosios");
        save(dialog);
    });
    add([](TPajamuRusiuKodaiEditFrm &dialog) {
        fill(dialog, "AB", "Didžiosios");
        save(dialog);
    });
    EXPECT_EQ(stored().size(), 3);
}

TEST_P(IncomeCodes, ThreeSignsAreTheLongestCode)
{
    add([](TPajamuRusiuKodaiEditFrm &dialog) {
        paste(edit(dialog, "Paj_Kod"), "ĄČĘĖ");
        type(edit(dialog, "Paj_Pavad"), "Per ilgas");
        EXPECT_FALSE(refusal(dialog).isEmpty());
        paste(edit(dialog, "Paj_Kod"), "ĄČĘ");
        save(dialog);
    });
    EXPECT_EQ(stored().last(), "ĄČĘ|Per ilgas|0");
}

TEST_P(IncomeCodes, AreEditedByTheirStateToo)
{
    OnNextDialog<TPajamuRusiuKodaiEditFrm> editing([](TPajamuRusiuKodaiEditFrm &dialog) {
        EXPECT_EQ(edit(dialog, "Paj_Pavad")->text(), "Darbo užmokestis");
        type(edit(dialog, "Paj_Pavad"), "Atlyginimas");
        save(dialog);
    });
    EXPECT_TRUE(ShowPajamuRusiuKodaiEdit(AnsiString("01"), dsEdit));
    OnNextDialog<TPajamuRusiuKodaiEditFrm> adding([](TPajamuRusiuKodaiEditFrm &dialog) {
        EXPECT_EQ(edit(dialog, "Paj_Pavad")->text(), "");
        leaveUnsaved(dialog);
    });
    EXPECT_FALSE(ShowPajamuRusiuKodaiEdit(AnsiString("01"), dsInsert));
    EXPECT_EQ(stored(), QStringList("01|Atlyginimas|0"));
}
