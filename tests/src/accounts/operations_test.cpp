#include "tests/src/accounts/operations.h"

#include "host/data/code_picker.h"

#include <QMenu>

ON_BOTH_ENGINES(Operations);

TEST_P(Operations, ShowsTheAccountsOfTheOperationThatIsCurrent)
{
    open();
    EXPECT_EQ(frm->windowTitle(), "Operacijos");
    EXPECT_EQ(Opr::OprFrm, frm);
    EXPECT_EQ(frm->findChild<QGroupBox *>()->title(), "Pirminis įrašas");
    EXPECT_EQ(shown(operations()), QStringList({"Gavimas", "Apmokėjimas", "Nurašymas"}));
    EXPECT_EQ(shown(debit()), QStringList("203  Sąskaita 203"));
    EXPECT_EQ(shown(credit()), QStringList("691  Sąskaita 691"));
    EXPECT_EQ(debit()->columnWidth(0), debit()->viewport()->width()) << "the account has all the room";
    press(Qt::Key_Down);
    EXPECT_EQ(shown(debit()), QStringList("691  Sąskaita 691"));
    EXPECT_EQ(shown(credit()), QStringList());
}

TEST_P(Operations, TheActionsAreThoseOfTheListThatHadTheKeyboardLast)
{
    open();
    EXPECT_EQ(enabled(), resting);
    go(debit());
    press(Qt::Key_Return);
    EXPECT_EQ(enabled(), changing);
    press(Qt::Key_Escape);
    EXPECT_EQ(enabled(), resting);
    press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(shown(debit()), QStringList());
    EXPECT_EQ(enabled(), QStringList({"acNew", "acRefresh"})) << "nothing is left to edit";
    go(operations());
    EXPECT_EQ(enabled(), resting);
}

TEST_P(Operations, TheirMenuHasTheSameActions)
{
    open();
    go(debit());
    emit debit()->customContextMenuRequested({});
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    for (QAction *action :
         {frm->acNew, frm->acEdit, frm->acDelete, frm->acRefresh, frm->acSave, frm->acCancel})
        EXPECT_TRUE(menu->actions().contains(action)) << action->text().toStdString();
    menu->close();
    EXPECT_EQ(frm->acNew->toolTip(), "Naujas įrašas (Ins)");
    EXPECT_EQ(frm->acClose->toolTip(), "Uždaryti langą (Ctrl+W)");
}

TEST_P(Operations, NeitherPartOfTheWindowCanBeDraggedAway)
{
    open();
    auto *parts = frm->findChild<QSplitter *>();
    for (const QList<int> &dragged : {QList{0, 1000}, QList{1000, 0}}) {
        parts->setSizes(dragged);
        EXPECT_EQ(parts->sizes().count(0), 0);
    }
}

TEST_P(Operations, ARowIsEditedInItsCellAndOnlyThen)
{
    open();
    keys("x");
    EXPECT_FALSE(operations()->cellEditing());
    EXPECT_FALSE(cell(operations()));
    press(Qt::Key_Return);
    EXPECT_TRUE(operations()->cellEditing());
    EXPECT_FALSE(debit()->cellEditing());
    EXPECT_EQ(cell(operations())->text(), "Gavimas");
    keys("Prekių gavimas");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(operations()->cellEditing());
    EXPECT_EQ(storedOperations().first(), "1|Prekių gavimas");
    EXPECT_EQ(enabled(), resting);
}

TEST_P(Operations, TheEntryIsShutWhileItsOperationIsEdited)
{
    open();
    auto *entry = frm->findChild<QGroupBox *>();
    press(Qt::Key_Return);
    EXPECT_FALSE(entry->isEnabled());
    press(Qt::Key_Escape);
    EXPECT_TRUE(entry->isEnabled());
    press(Qt::Key_Insert);
    EXPECT_FALSE(entry->isEnabled());
    EXPECT_EQ(shown(debit()), QStringList());
}

// --- operations

TEST_P(Operations, ANewOneGetsTheNumberAfterTheCurrentOneAndBecomesCurrent)
{
    open();
    press(Qt::Key_End);
    add("Inkasavimas");
    EXPECT_EQ(storedOperations(),
              QStringList({"1|Gavimas", "2|Apmokėjimas", "3|Nurašymas", "4|Inkasavimas"}));
    EXPECT_EQ(set(operations()).FieldByName("opr_id")->AsInteger(), 4);
    EXPECT_EQ(shown(debit()), QStringList());
}

TEST_P(Operations, TheFirstOneOfAllIsNumberOne)
{
    books().ExecSQL("delete from bd_opr");
    open();
    EXPECT_EQ(enabled(), QStringList({"acNew", "acRefresh"}));
    add("Pirma");
    EXPECT_EQ(storedOperations(), QStringList("1|Pirma"));
    go(credit());
    add("691");
    EXPECT_EQ(storedLines(), QStringList("1|691|K|1"));
}

TEST_P(Operations, AddedFromTheFirstOfThreeItIsRefusedAndTheNumberIsForgotten)
{
    open();
    press(Qt::Key_Insert);
    keys("Inkasavimas");
    EXPECT_EQ(refusal([this] { press(Qt::Key_S, Qt::ControlModifier); }),
              "Toks įrašas jau yra: Operacijos numeris „2“.");
    EXPECT_EQ(set(operations()).FieldByName("opr_pavad")->AsString(), "Inkasavimas")
        << "nothing typed is lost";
    EXPECT_EQ(enabled(), changing);
    press(Qt::Key_Escape);
    EXPECT_EQ(storedOperations(), QStringList({"1|Gavimas", "2|Apmokėjimas", "3|Nurašymas"}));
    press(Qt::Key_Return);
    keys("Gauta");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(storedOperations().first(), "1|Gauta") << "an edited one keeps its number";
}

TEST_P(Operations, LeavingTheListStoresTheOperation)
{
    open();
    press(Qt::Key_Return);
    keys("Pirkimas");
    press(Qt::Key_Tab);
    EXPECT_EQ(storedOperations().first(), "1|Pirkimas");
    EXPECT_EQ(QApplication::focusWidget(), debit());

    QLineEdit elsewhere(frm);
    elsewhere.show();
    go(operations());
    press(Qt::Key_Return);
    keys("Gavimas");
    go(&elsewhere);
    EXPECT_EQ(storedOperations().first(), "1|Gavimas");
}

TEST_P(Operations, ARefusedOneIsNotLeft)
{
    open();
    press(Qt::Key_Insert);
    keys("Inkasavimas");
    EXPECT_EQ(refusal([this] { press(Qt::Key_Tab); }), "Toks įrašas jau yra: Operacijos numeris „2“.");
    EXPECT_EQ(enabled(), changing);
    EXPECT_EQ(frm->focusWidget(), operations());
}

TEST_P(Operations, GoingToAnotherRowStoresTheOneThatWasTyped)
{
    open();
    press(Qt::Key_End);
    press(Qt::Key_Insert);
    keys("Inkasavimas");
    press(Qt::Key_Up);
    EXPECT_EQ(storedOperations().last(), "4|Inkasavimas");
    EXPECT_EQ(shown(operations()).last(), "Inkasavimas");
    EXPECT_EQ(operations()->currentIndex().row(), set(operations()).RecNo());
    EXPECT_EQ(enabled(), resting);
}

TEST_P(Operations, DeleteRemovesTheRowAtOnceWithItsAccounts)
{
    open();
    press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(storedOperations(), QStringList({"2|Apmokėjimas", "3|Nurašymas"}));
    EXPECT_EQ(storedLines(), QStringList("2|691|D|1"));
    EXPECT_EQ(shown(debit()), QStringList("691  Sąskaita 691"));
}

TEST_P(Operations, RefreshReadsThemAnewAndStaysWhereItWas)
{
    open();
    press(Qt::Key_Down);
    secondFin()->ExecSQL("insert into bd_opr values (9, 'Iš kitur')");
    secondFin()->ExecSQL("delete from bd_oprsaskor");
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(shown(operations()).contains("Iš kitur"));
    EXPECT_EQ(set(operations()).FieldByName("opr_id")->AsInteger(), 2);
    EXPECT_EQ(shown(debit()), QStringList());
    secondFin()->ExecSQL("delete from bd_opr");
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(shown(operations()), QStringList());
}

// --- accounts

TEST_P(Operations, AnAccountIsTypedByItsNumberAndGetsItsOperationAndSide)
{
    open();
    press(Qt::Key_Down);
    go(debit());
    add("2411");
    go(credit());
    add("203");
    EXPECT_EQ(storedLines(), QStringList({"1|203|D|1", "1|691|K|1", "2|2411|D|1", "2|691|D|1", "2|203|K|1"}));
    EXPECT_EQ(shown(credit()), QStringList("203  Sąskaita 203"));
    EXPECT_EQ(set(debit()).RecNo(), 1) << "the cursor is on the last row";
    EXPECT_EQ(enabled(), resting);
}

TEST_P(Operations, OnlyDigitsCanBeTyped)
{
    open();
    go(debit());
    press(Qt::Key_Insert);
    keys("x2 4-1ą1");
    EXPECT_EQ(cell(debit())->text(), "2411");
    press(Qt::Key_Backspace);
    EXPECT_EQ(cell(debit())->text(), "241");
}

TEST_P(Operations, AnAccountIsShownWhileItIsEditedUntilAnotherIsTyped)
{
    open();
    go(debit());
    press(Qt::Key_Return);
    EXPECT_EQ(cell(debit())->text(), "203  Sąskaita 203");
    keys("2411");
    EXPECT_EQ(cell(debit())->text(), "2411");
    press(Qt::Key_Return);
    EXPECT_EQ(shown(debit()), QStringList("2411  Sąskaita 2411"));
    EXPECT_EQ(enabled(), changing) << "Enter ends the typing, not the editing";
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(storedLines().first(), "1|2411|D|1");
}

TEST_P(Operations, WhatIsTypedEndsAtItsFirstBlank)
{
    open();
    go(debit());
    press(Qt::Key_Return);
    QApplication::clipboard()->setText("2411  Bankas");
    cell(debit())->selectAll();
    cell(debit())->paste();
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(storedLines().first(), "1|2411|D|1");
}

TEST_P(Operations, AnUnknownNumberLeavesTheCellAsItWasWithoutAWord)
{
    open();
    go(debit());
    press(Qt::Key_Return);
    keys("999");
    press(Qt::Key_Return);
    EXPECT_EQ(shown(debit()), QStringList("203  Sąskaita 203"));
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(storedLines().first(), "1|203|D|1");
    press(Qt::Key_Insert);
    keys("999");
    EXPECT_EQ(refusal([this] { press(Qt::Key_S, Qt::ControlModifier); }),
              "Laukas \"Sąskaita\" negali būti tuščias!");
}

TEST_P(Operations, TheSameAccountTwiceInAListIsRefused)
{
    open();
    go(debit());
    press(Qt::Key_Insert);
    keys("203");
    EXPECT_EQ(refusal([this] { press(Qt::Key_S, Qt::ControlModifier); }),
              "Neįmanoma įrašyti vienodų sąskaitų");
    EXPECT_EQ(enabled(), changing);
    EXPECT_EQ(shown(debit()).last(), "203  Sąskaita 203") << "what was typed stays";
    press(Qt::Key_Escape);
    EXPECT_EQ(shown(debit()).size(), 1);
    go(credit());
    add("203");
    EXPECT_EQ(storedLines().at(1), "1|203|K|1") << "on the other side it may stand";
}

TEST_P(Operations, AnotherRefusalKeepsItsOwnWords)
{
    open();
    go(debit());
    press(Qt::Key_Insert);
    keys("2411");
    press(Qt::Key_Return);
    secondFin()->ExecSQL("delete from bd_sasplan where sas_sasnr = '2411'");
    EXPECT_EQ(refusal([this] { press(Qt::Key_S, Qt::ControlModifier); }),
              "Įrašas susietas su kitais įrašais: nurodytas įrašas neegzistuoja arba jis naudojamas.");
}

TEST_P(Operations, TheButtonOfACellChoosesFromTheChart)
{
    open();
    go(debit());
    press(Qt::Key_Insert);
    {
        OnNextDialog<TCodePicker> picker([](TCodePicker &shown) {
            type(shown.findChild<QLineEdit *>(), "2411");
            QTest::keyClick(shown.findChild<QLineEdit *>(), Qt::Key_Return);
        });
        press(Qt::Key_F4);
    }
    EXPECT_EQ(cell(debit())->text(), "2411  Sąskaita 2411");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(rows(books(), "select osk_sasid from bd_oprsaskor where osk_oprid = 1 and osk_db_kr = 'D' "
                            "order by osk_sasid"),
              QStringList({QString::number(cash), QString::number(stock)}));
}

TEST_P(Operations, ThePickerThatIsCancelledLeavesWhatWasTyped)
{
    open();
    go(debit());
    press(Qt::Key_Return);
    {
        OnNextDialog<TCodePicker> picker([](TCodePicker &shown) { shown.reject(); });
        press(Qt::Key_F4);
    }
    EXPECT_EQ(cell(debit())->text(), "203  Sąskaita 203");
    keys("2411");
    {
        OnNextDialog<TCodePicker> picker([](TCodePicker &shown) { shown.reject(); });
        press(Qt::Key_F4);
    }
    EXPECT_EQ(cell(debit())->text(), "2411");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(storedLines().first(), "1|2411|D|1");
}

TEST_P(Operations, TheAccountThatIsChosenGoesOverWhatWasTyped)
{
    open();
    go(debit());
    press(Qt::Key_Return);
    keys("24");
    OnNextDialog<TCodePicker> picker([](TCodePicker &shown) {
        type(shown.findChild<QLineEdit *>(), "203");
        QTest::keyClick(shown.findChild<QLineEdit *>(), Qt::Key_Return);
    });
    press(Qt::Key_F4);
    EXPECT_EQ(cell(debit())->text(), "203  Sąskaita 203") << "the one that it had is one, too";
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(storedLines().first(), "1|203|D|1");
}

TEST_P(Operations, AnEmptiedCellKeepsItsAccount)
{
    open();
    go(debit());
    press(Qt::Key_Return);
    press(Qt::Key_Delete);
    EXPECT_EQ(cell(debit())->text(), "");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(storedLines().first(), "1|203|D|1");
    EXPECT_EQ(shown(debit()), QStringList("203  Sąskaita 203"));
}

TEST_P(Operations, EscTakesTheRowBackAtOnceAndThenCloses)
{
    open();
    for (const Qt::KeyboardModifiers modifiers : {Qt::NoModifier, Qt::AltModifier}) {
        go(debit());
        press(Qt::Key_Return);
        keys("2411");
        press(Qt::Key_Escape, modifiers);
        EXPECT_EQ(enabled(), resting);
        EXPECT_EQ(shown(debit()), QStringList("203  Sąskaita 203"));
        EXPECT_FALSE(cell(debit()));
    }
    EXPECT_EQ(storedLines().first(), "1|203|D|1");
    press(Qt::Key_Escape);
    EXPECT_FALSE(frm);
}

TEST_P(Operations, LeavingAListOfAccountsStoresWhatWasTypedAndDropsWhatWasNot)
{
    open();
    go(debit());
    press(Qt::Key_Insert);
    keys("2411");
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), credit());
    EXPECT_EQ(storedLines().at(1), "1|2411|D|1");
    press(Qt::Key_Insert);
    go(operations());
    EXPECT_EQ(shown(credit()), QStringList("691  Sąskaita 691"));
    EXPECT_EQ(enabled(), resting);
}

TEST_P(Operations, ALineBelongsToItsOperationWhereverTheCursorGoes)
{
    open();
    go(debit());
    press(Qt::Key_Insert);
    keys("2411");
    set(operations()).Next();
    settle();
    EXPECT_EQ(storedLines(), QStringList({"1|203|D|1", "1|2411|D|1", "1|691|K|1", "2|691|D|1"}));
    EXPECT_EQ(shown(debit()), QStringList("691  Sąskaita 691"));
}

TEST_P(Operations, ALineThatIsRefusedHoldsItsOperation)
{
    open();
    go(debit());
    press(Qt::Key_Insert);
    keys("203");
    press(Qt::Key_Return);
    EXPECT_EQ(refusal([this] {
                  set(operations()).Next();
                  settle();
              }),
              "Neįmanoma įrašyti vienodų sąskaitų");
    EXPECT_EQ(set(operations()).FieldByName("opr_id")->AsInteger(), 1);
    EXPECT_EQ(shown(debit()), QStringList({"203  Sąskaita 203", "203  Sąskaita 203"}));
    EXPECT_EQ(enabled(), changing);
}

// --- closing, other users and stations

TEST_P(Operations, ClosingStoresWhatIsBeingTyped)
{
    open();
    press(Qt::Key_Return);
    keys("Pirkimas");
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(frm);
    EXPECT_EQ(Opr::OprFrm, nullptr);
    EXPECT_EQ(storedOperations().first(), "1|Pirkimas");
}

TEST_P(Operations, WhereThatIsRefusedTheWindowStays)
{
    open();
    press(Qt::Key_Insert);
    keys("Inkasavimas");
    refusal([this] { press(Qt::Key_W, Qt::ControlModifier); });
    ASSERT_TRUE(frm && frm->isVisible());
    press(Qt::Key_Escape);
    press(Qt::Key_Insert);
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(frm) << "a row that nobody touched is dropped";
    EXPECT_EQ(storedOperations().size(), 3);
}

TEST_P(Operations, WhatAnotherStationChangedIsToldAndDecided)
{
    open();
    press(Qt::Key_Return);
    keys("Pirkimas");
    secondFin()->ExecSQL("update bd_opr set opr_pavad = 'Kitaip' where opr_id = 1");
    QString told;
    OnNextDialog<QMessageBox> box([&told](QMessageBox &shown) {
        told = shown.text();
        pressButton(shown, "&Palikti savo");
    });
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(told,
              "Kita darbo vieta tuo tarpu pakeitė: Operacijos pavadinimas: buvo „Gavimas“, dabar „Kitaip“.");
    EXPECT_EQ(storedOperations().first(), "1|Pirkimas");
    EXPECT_EQ(enabled(), resting);
}

TEST_P(Operations, ARowThatAnotherStationDeletedIsTold)
{
    open();
    secondFin()->ExecSQL("delete from bd_opr where opr_id = 1");
    EXPECT_EQ(refusal([this] { press(Qt::Key_Delete, Qt::ControlModifier); }),
              "Įrašas jau ištrintas kitoje darbo vietoje");
}

TEST_P(Operations, WhoMayOnlyLookChangesNothing)
{
    CurrentUser().viewOnly = true;
    MainDatas()->makeReadOnly();
    open();
    EXPECT_EQ(enabled(), QStringList("acRefresh"));
    press(Qt::Key_Return);
    keys("x");
    EXPECT_FALSE(operations()->cellEditing());
    go(debit());
    EXPECT_EQ(enabled(), QStringList("acRefresh"));
    EXPECT_EQ(shown(debit()), QStringList("203  Sąskaita 203"));
}
