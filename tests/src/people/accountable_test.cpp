#include "tests/src/people/people.h"
#include "tests/support/refusal.h"
#include "toolkit/report/preview.h"

namespace {

class Accountable : public People<Atsasmlist::AtsAsmFrm, Chatasm::EditAtAsmDlg> {
protected:
    void person(int id, const QString &name, const Variant &position = 7)
    {
        insert(books(), id, name, position);
    }
    void insert(TDatabase &station, int id, const QString &name, const Variant &position = 7)
    {
        station.ExecSQL("insert into bd_atsasm (ats_id, ats_pav, ats_asm_kod, ats_sasid, ats_prgid) "
                        "values (:id, :pav, '48001010000', :sas, :prg)",
                        {{"id", id}, {"pav", name}, {"sas", advances}, {"prg", position}});
    }
    void fill(TEditAtAsmDlg &dialog, const QString &name)
    {
        type(edit(dialog, "ATS_PAV"), name);
        type(edit(dialog, "ATS_ASM_KOD"), "39001010000");
        picker(dialog, "ATS_SASID")->setValue(advances);
    }
    QStringList stored()
    {
        return rows(books(), "select ats_id, ats_pav, ats_asm_kod, ats_sasid, ats_prgid from bd_atsasm "
                             "order by ats_id");
    }
    QStringList names() { return rows(books(), "select ats_pav from bd_atsasm order by ats_id"); }
};
ON_BOTH_ENGINES(Accountable);

const QString refusedSave = "Šiuo metu koreguoti lentelės \"BD_ATSASM\" negalima";

} // namespace

TEST_P(Accountable, AreListedWithAccountAndPosition)
{
    person(1, "Rūta Žukaitė");
    person(2, "Be Pareigybės", Variant());
    open();
    EXPECT_EQ(list->windowTitle(), "Atskaitingi asmenys");
    EXPECT_EQ(titles(), QStringList({"Vardas, Pavardė", "Asmens kodas", "Sąskaita", "Pareigybė"}));
    EXPECT_EQ(shown(0), QStringList("Rūta Žukaitė")) << "without a position a person is not listed";
    EXPECT_EQ(shown(2), QStringList("2290001  Sąskaita 2290001"));
    EXPECT_EQ(shown(3), QStringList("Ūkvedys"));
    EXPECT_EQ(Atsasmlist::AtsAsmFrm, list);
    close();
    EXPECT_EQ(Atsasmlist::AtsAsmFrm, nullptr);
}

TEST_P(Accountable, TheFirstOneGetsTheKeyOneAndTheFirstPosition)
{
    open();
    add([this](TEditAtAsmDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujas atskaitingas asmuo");
        EXPECT_EQ(dialog.focusWidget(), edit(dialog, "ATS_PAV"));
        EXPECT_EQ(box(dialog, "ATS_PRGID")->currentText(), "Direktorius");
        fill(dialog, "O'Ąžuolas %s 5 %");
        save(dialog);
    });
    EXPECT_EQ(key(), 1);
    EXPECT_EQ(stored(), QStringList(QString("1|O'Ąžuolas %s 5 %|39001010000|%1|5").arg(advances)));
    EXPECT_EQ(Chatasm::EditAtAsmDlg, nullptr);
}

TEST_P(Accountable, AChangedOneKeepsItsKeyAndBecomesCurrent)
{
    person(1, "Pirmas");
    person(2, "Antras");
    open();
    change(2, [](TEditAtAsmDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Koreguojamas atskaitingas asmuo");
        EXPECT_EQ(box(dialog, "ATS_PRGID")->currentText(), "Ūkvedys");
        EXPECT_FALSE(saver(dialog)->isEnabled()) << "nothing was changed yet";
        choose(dialog, "ATS_PRGID", "Direktorius");
        EXPECT_TRUE(saver(dialog)->isEnabled());
        save(dialog);
    });
    EXPECT_EQ(key(), 2);
    EXPECT_EQ(stored().last(), QString("2|Antras|48001010000|%1|5").arg(advances));
}

TEST_P(Accountable, TheSaveButtonWaitsForEveryField)
{
    open();
    add([this](TEditAtAsmDlg &dialog) {
        EXPECT_FALSE(saver(dialog)->isEnabled());
        fill(dialog, "Ona");
        EXPECT_TRUE(saver(dialog)->isEnabled());
        for (const char *column : {"ATS_PAV", "ATS_ASM_KOD"}) {
            type(edit(dialog, column), "");
            EXPECT_FALSE(saver(dialog)->isEnabled()) << column;
            paste(edit(dialog, column), "   ");
            EXPECT_FALSE(saver(dialog)->isEnabled()) << "blanks are nothing: " << column;
            type(edit(dialog, column), "1");
            EXPECT_TRUE(saver(dialog)->isEnabled()) << column;
        }
        picker(dialog, "ATS_SASID")->setValue(0);
        EXPECT_FALSE(saver(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(Accountable, WithoutPositionsNobodyIsAdded)
{
    books().ExecSQL("delete from bd_prg");
    open();
    add([this](TEditAtAsmDlg &dialog) {
        fill(dialog, "Ona");
        EXPECT_FALSE(saver(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
}

TEST_P(Accountable, LettersAreNotTypedIntoTheCodeButPasted)
{
    open();
    add([this](TEditAtAsmDlg &dialog) {
        fill(dialog, "Ona");
        type(edit(dialog, "ATS_ASM_KOD"), "4a8-0ė1 0");
        EXPECT_EQ(edit(dialog, "ATS_ASM_KOD")->text(), "48010");
        paste(edit(dialog, "ATS_ASM_KOD"), "LT-48001010");
        EXPECT_EQ(edit(dialog, "ATS_ASM_KOD")->text(), "LT-48001010");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList(QString("1|Ona|LT-48001010|%1|5").arg(advances)));
}

TEST_P(Accountable, TheLongestNameIsTakenWholeAndOneLetterMoreNotAtAll)
{
    open();
    add([this](TEditAtAsmDlg &dialog) {
        fill(dialog, "Ona");
        paste(edit(dialog, "ATS_PAV"), QString(51, u'Ž'));
        EXPECT_EQ(edit(dialog, "ATS_PAV")->text(), "Ona");
        paste(edit(dialog, "ATS_PAV"), QString(50, u'Ž'));
        save(dialog);
    });
    EXPECT_EQ(names(), QStringList(QString(50, u'Ž')));
}

TEST_P(Accountable, TheAccountIsPickedFromTheListAndMustBeADetailOne)
{
    const int summary = account("229");
    books().ExecSQL("update bd_sasplan set sas_tip = 'S' where sas_id = :id", {{"id", summary}});
    open();
    add([&](TEditAtAsmDlg &dialog) {
        fill(dialog, "Ona");
        const auto pick = [&dialog](const QString &number) {
            OnNextDialog<QDialog> chart([&number](QDialog &shown) {
                QTest::keyClicks(shown.focusWidget(), number);
                QTest::qWait(400);
                QTest::keyClick(shown.focusWidget(), Qt::Key_Return);
            });
            QTest::keyClick(edit(dialog, "ATS_SASID"), Qt::Key_F4);
        };
        {
            NextBoxes told{QMessageBox::Ok};
            pick("229");
            EXPECT_EQ(told.at(0).text, "Sąskaita „229“ yra suminė: pasirinkite detaliąją");
        }
        EXPECT_FALSE(saver(dialog)->isEnabled());
        pick("2290001");
        EXPECT_EQ(picker(dialog, "ATS_SASID")->value(), advances);
        save(dialog);
    });
    EXPECT_EQ(names(), QStringList("Ona"));
}

// --- deleting

TEST_P(Accountable, DeletingGoesToTheOneBeforeAndFromTheFirstToTheNext)
{
    for (int id = 1; id <= 3; ++id)
        person(id, QString("Asmuo %1").arg(id));
    open();
    EXPECT_EQ(erase(3), QStringList("Ar tikrai norite ištrinti?"));
    EXPECT_EQ(key(), 2);
    erase(1);
    EXPECT_EQ(key(), 2);
    erase(2);
    EXPECT_TRUE(list->currentKey().isNull());
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(Accountable, OneInUseIsAskedForAndThenRefusedByName)
{
    person(1, "Rūta „%s“ O'Ara");
    books().ExecSQL("insert into bd_irasai (irs_id, irs_perid, irs_atsid) values (1, 6, 1)");
    open();
    EXPECT_EQ(erase(1, {QMessageBox::Yes, QMessageBox::Ok}),
              QStringList({"Ar tikrai norite ištrinti?",
                           "Atskaitingas asmuo \"Rūta „%s“ O'Ara\" dalyvauja ūkinėse operacijose!"}));
    EXPECT_EQ(erase(1, {QMessageBox::No}).size(), 1) << "not checked before the answer";
    EXPECT_EQ(names().size(), 1);
}

// --- what the database refuses

TEST_P(Accountable, ASaveThatTheDatabaseRefusesIsToldInTheFixedWords)
{
    refuseInserting("bd_atsasm", "ats_id = 1");
    open();
    add([this](TEditAtAsmDlg &dialog) {
        fill(dialog, "Ona");
        EXPECT_EQ(refusal(dialog), refusedSave);
        EXPECT_EQ(edit(dialog, "ATS_PAV")->text(), "Ona");
        EXPECT_FALSE(books().InTransaction());
        leaveUnsaved(dialog);
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(Accountable, ARowThatCannotBeReadIsToldInTheFixedWords)
{
    books().nativeExec("alter table bd_atsasm rename to bd_kita");
    double id = 1;
    EXPECT_EQ(refusalOf([&] { Chatasm::ChAtsAsm(AnsiString("Koreguojamas"), id, false); }),
              "Šiuo metu lentelės \"BD_ATSASM\" atidaryti negalima");
}

// An embedded database lets the other station wait for the save; a server refuses who comes second.
TEST_P(Accountable, TwoStationsThatDrawTheSameKeyNeverShareIt)
{
    open();
    add([this](TEditAtAsmDlg &dialog) {
        fill(dialog, "Ona");
        bool taken = false;
        whenKeyIsDrawn(dialog, "ATS_ID",
                       [&] { taken = elsewhere([&](TDatabase &other) { insert(other, 1, "Kitas"); }); });
        if (engine() == Engine::PostgreSql) {
            EXPECT_EQ(refusal(dialog), refusedSave);
        }
        save(dialog);
        EXPECT_EQ(taken, engine() == Engine::PostgreSql);
    });
    EXPECT_EQ(names(), engine() == Engine::PostgreSql ? QStringList({"Kitas", "Ona"}) : QStringList("Ona"));
}

TEST_P(Accountable, OneDeletedElsewhereIsToldInItsOwnWords)
{
    person(1, "Ona");
    open();
    change(1, [this](TEditAtAsmDlg &dialog) {
        secondFin()->ExecSQL("delete from bd_atsasm");
        type(edit(dialog, "ATS_PAV"), "Rūta");
        EXPECT_EQ(refusal(dialog), "Įrašas jau ištrintas kitoje darbo vietoje");
        EXPECT_EQ(edit(dialog, "ATS_PAV")->text(), "Rūta");
        leaveUnsaved(dialog);
    });
}

// --- the rest

TEST_P(Accountable, TheEndOfTheListEndsTheReportsToo)
{
    books().ExecSQL("insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) "
                    "values (1, 'A', 'B', :a, :a)",
                    {{"a", advances}});
    open();
    bool closed = false;
    OnNextDialog<TReportPreview> preview([&](TReportPreview &report) {
        delete list;
        closed = !report.isVisible();
        report.close();
    });
    OpenReports(AnsiString("/DBN=mnFin_Db /RPTID=81"));
    EXPECT_TRUE(closed);
}

TEST_P(Accountable, AViewOnlyUserMayOnlyLook)
{
    person(1, "Ona");
    CurrentUser().viewOnly = true;
    open();
    EXPECT_FALSE(list->acNew->isEnabled() || list->acDelete->isEnabled());
    change(1, [](TEditAtAsmDlg &dialog) {
        EXPECT_FALSE(edit(dialog, "ATS_PAV")->isEnabled());
        EXPECT_FALSE(saver(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
}
