#include "tests/src/people/people.h"
#include "tests/support/refusal.h"

namespace {

class Responsible : public People<Matasm::MatAsmFrm, Chmatasm::EditMatAsmDlg> {
protected:
    void person(int id, const QString &name, int position = 7)
    {
        books().ExecSQL("insert into bd_matasm (mat_id, mat_pavad, mat_asm_kod, mat_padid, mat_prgid) "
                        "values (:id, :pav, '48001010000', 4, :prg)",
                        {{"id", id}, {"pav", name}, {"prg", position}});
    }
    static void fill(TEditMatAsmDlg &dialog, const QString &name)
    {
        type(edit(dialog, "MAT_PAVAD"), name);
        type(edit(dialog, "MAT_ASM_KOD"), "39001010000");
    }
    QStringList stored()
    {
        return rows(books(), "select mat_id, mat_pavad, mat_asm_kod, mat_padid, mat_prgid from bd_matasm "
                             "order by mat_id");
    }
    QStringList keys() { return rows(books(), "select mat_id from bd_matasm order by mat_id"); }
    // Presses the merge button and answers its question.
    QString merge(QMessageBox::StandardButton answer)
    {
        NextBoxes asked{answer};
        list->acMerge->trigger();
        EXPECT_EQ(asked.at(0).kind, mkQuestion);
        return asked.at(0).text;
    }
};
ON_BOTH_ENGINES(Responsible);

} // namespace

TEST_P(Responsible, AreListedWithDepartmentAndPosition)
{
    person(1, "Rūta Žukaitė");
    books().ExecSQL("insert into bd_matasm (mat_id, mat_pavad, mat_prgid) values (2, 'Be Skyriaus', 5)");
    open();
    EXPECT_EQ(list->windowTitle(), "Materialiai atsakingi asmenys");
    EXPECT_EQ(titles(), QStringList({"Asmens kodas", "Vardas, Pavardė", "Skyrius", "Pareigybė"}));
    EXPECT_EQ(shown(1), QStringList("Rūta Žukaitė")) << "without a department a person is not listed";
    EXPECT_EQ(shown(2) + shown(3), QStringList({"Šokių salė", "Ūkvedys"}));
    EXPECT_EQ(Matasm::MatAsmFrm, list);
}

TEST_P(Responsible, ANewOneHasTheFirstDepartmentAndTheFirstPosition)
{
    open();
    add([](TEditMatAsmDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujas materialiai atsakingas asmuo");
        EXPECT_EQ(box(dialog, "MAT_PADID")->currentText(), "Mokykla");
        EXPECT_EQ(box(dialog, "MAT_PRGID")->currentText(), "Direktorius");
        EXPECT_FALSE(saver(dialog)->isEnabled());
        fill(dialog, "O'Ąžuolas 5 %");
        save(dialog);
    });
    EXPECT_EQ(key(), 1);
    EXPECT_EQ(stored(), QStringList("1|O'Ąžuolas 5 %|39001010000|3|5"));
}

TEST_P(Responsible, AChangedOneKeepsItsKey)
{
    person(1, "Ona");
    open();
    change(1, [](TEditMatAsmDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Koreguojamas materialiai atsakingas asmuo");
        EXPECT_EQ(box(dialog, "MAT_PADID")->currentText(), "Šokių salė");
        type(edit(dialog, "MAT_PAVAD"), " ");
        EXPECT_FALSE(saver(dialog)->isEnabled());
        type(edit(dialog, "MAT_PAVAD"), "Rūta");
        choose(dialog, "MAT_PADID", "Mokykla");
        type(edit(dialog, "MAT_ASM_KOD"), "4x8");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|Rūta|48|3|7"));
}

TEST_P(Responsible, ADepartmentDeletedMeanwhileIsRefusedInTheFixedWords)
{
    open();
    add([this](TEditMatAsmDlg &dialog) {
        fill(dialog, "Ona");
        secondFin()->ExecSQL("delete from bd_pad where pad_id = 3");
        EXPECT_EQ(refusal(dialog), "Šiuo metu lentelę \"BD_MATASM\" koreguoti negalima");
        choose(dialog, "MAT_PADID", "Šokių salė");
        save(dialog);
    });
    EXPECT_EQ(stored(), QStringList("1|Ona|39001010000|4|5"));
}

TEST_P(Responsible, TwoStationsThatDrawTheSameKeyNeverShareIt)
{
    open();
    addWhileItsKeyIsTaken("MAT_ID", "insert into bd_matasm (mat_id, mat_pavad) values (1, 'Jų')",
                          Chmatasm::NoEdit, [](TEditMatAsmDlg &dialog) { fill(dialog, "Ona"); });
    EXPECT_EQ(rows(books(), "select mat_pavad from bd_matasm order by mat_id"),
              engine() == Engine::PostgreSql ? QStringList({"Jų", "Ona"}) : QStringList("Ona"));
}

TEST_P(Responsible, ARowThatCannotBeReadRaisesItsOwnError)
{
    books().nativeExec("alter table bd_matasm rename to bd_kita");
    double id = 1;
    const auto edit = [&] { Chmatasm::EditMatAsm(AnsiString("Koreguojamas"), false, id); };
    EXPECT_EQ(refusalOf<Chmatasm::EErrorNoOpen>(edit), Chmatasm::NoEdit);
    EXPECT_EQ(Chmatasm::EditMatAsmDlg, nullptr);
}

TEST_P(Responsible, OneInUseIsAskedForAndThenRefusedByName)
{
    person(1, "Rūta");
    person(2, "Ona");
    books().ExecSQL("insert into it_turtas (tur_id, tur_matid) values (1, 1)");
    open();
    EXPECT_EQ(erase(1, {QMessageBox::Yes, QMessageBox::Ok}),
              QStringList({"Ar tikrai norite ištrinti?",
                           "Materialiai atsakingas asmuo \"Rūta\" dalyvauja ūkinėse operacijose!"}));
    erase(2);
    EXPECT_EQ(keys(), QStringList("1"));
    EXPECT_EQ(key(), 1);
}

// --- merging

TEST_P(Responsible, ThoseWhoDifferInCaseAndOuterBlanksOnlyAreMergedIntoTheFirst)
{
    person(1, "Kita Šarūnė");
    person(2, "Šarūnė Žąsytė");
    person(3, "  ŠARŪNĖ ŽĄSYTĖ ");
    person(4, "Šarūnė Žąsytė", 5);
    books().ExecSQL("insert into it_turtas (tur_id, tur_matid) values (1, 3)");
    open();
    list->RefreshData(3);
    EXPECT_EQ(merge(QMessageBox::Yes),
              "Ar tikrai norite apjungti vienodus materialiai atsakingus asmenis?\n"
              "(Prieš atliekant apjungimą patartina padaryti duomenų bazės kopiją.)");
    EXPECT_EQ(keys(), QStringList({"1", "2", "4"}));
    EXPECT_EQ(value(books(), "select tur_matid from it_turtas"), "2");
    EXPECT_EQ(shown(1).size(), 3);
    EXPECT_EQ(list->dataSet()->RecNo(), 0) << "the list is read anew from its first row";
}

TEST_P(Responsible, WithoutAYesNobodyIsMerged)
{
    person(1, "Ona");
    person(2, "ONA");
    open();
    EXPECT_TRUE(list->acMerge->toolTip().startsWith("MAA apjungimas"));
    merge(QMessageBox::No);
    EXPECT_EQ(keys().size(), 2);
}

TEST_P(Responsible, AMergeThatTheDatabaseRefusesChangesNothing)
{
    person(1, "Ona");
    person(2, "ONA");
    books().ExecSQL("insert into it_turtas (tur_id, tur_matid) values (1, 2)");
    refuseDeleting("bd_matasm");
    open();
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    list->acMerge->trigger();
    EXPECT_EQ(boxes.count(), 2);
    EXPECT_FALSE(books().InTransaction());
    EXPECT_EQ(value(books(), "select tur_matid from it_turtas"), "2");
    EXPECT_EQ(keys().size(), 2);
}

TEST_P(Responsible, AViewOnlyUserMergesNobody)
{
    person(1, "Ona");
    CurrentUser().viewOnly = true;
    open();
    EXPECT_FALSE(list->acMerge->isEnabled());
    change(1, [](TEditMatAsmDlg &dialog) {
        EXPECT_FALSE(edit(dialog, "MAT_PAVAD")->isEnabled());
        EXPECT_FALSE(saver(dialog)->isEnabled());
        leaveUnsaved(dialog);
    });
}
