#include "tests/src/organisation/organisation.h"
#include "tests/support/late_refusal.h"

using Orgatr::OrgFrm;

ON_BOTH_ENGINES(Organisation);

TEST_P(Organisation, ShowsTheRowAndLetsItBeChangedOnlyAfterEdit)
{
    open();
    EXPECT_EQ(frm->windowTitle(), "Organizacijos atributai");
    EXPECT_EQ(OrgFrm, frm);
    EXPECT_EQ(texts(),
              QStringList({"Šilo mokykla", "Šilo g. 7", "190000000", "LT19", "990", "13", "Registras"}));
    EXPECT_EQ(municipalities()->currentText(), "Vilniaus miesto savivaldybė");
    EXPECT_EQ(enabled(), QStringList("acEdit"));
    EXPECT_TRUE(line("org_pavad")->isReadOnly());
    frm->acEdit->trigger();
    EXPECT_EQ(enabled(), QStringList({"acSave", "acCancel", "mnOpen"}));
    EXPECT_FALSE(line("org_pavad")->isReadOnly());
    EXPECT_EQ(frm->focusWidget(), line("org_pavad"));
    press(Qt::Key_Escape);
    EXPECT_EQ(enabled(), QStringList("acEdit"));
}

TEST_P(Organisation, SavesEveryColumnThatItShowsAndTouchesNoOther)
{
    open();
    frm->acEdit->trigger();
    type(line("org_pavad"), "Žolynų gimnazija");
    type(line("org_adr"), "Žolynų g. 1");
    type(line("org_i_kod"), "99041723311");
    type(line("org_pvm_kod"), "LT990417233");
    type(line("ORG_DRAUD_KOD"), "9904172");
    type(line("Org_Savivaldybe"), "15");
    type(line("Org_RejNum"), "Šilinės skyrius");
    frm->acSave->trigger();
    EXPECT_EQ(stored(), QStringList("Žolynų gimnazija|Žolynų g. 1|99041723311|LT990417233|9904172|15|"
                                    "Šilinės skyrius|1|31|2|2030-01-01|3"));
    EXPECT_EQ(enabled(), QStringList("acEdit"));
    EXPECT_FALSE(books().InTransaction());
}

TEST_P(Organisation, TellsAtOnceThatTheNameIsAnotherOne)
{
    open();
    QStringList heard;
    const QObject context;
    QObject::connect(&organisationNotifier(), &TOrganisationNotifier::organisationChanged, &context,
                     [&heard] { heard << organisationName(); });
    frm->acEdit->trigger();
    type(line("org_pavad"), "Gimnazija");
    EXPECT_EQ(heard, QStringList());
    frm->acSave->trigger();
    EXPECT_EQ(heard, QStringList("Gimnazija"));
}

TEST_P(Organisation, ANameOfBlanksOnlyIsRefusedAsEmpty)
{
    open();
    frm->acEdit->trigger();
    type(line("org_pavad"), "   ");
    leave(line("org_pavad"));
    EXPECT_EQ(refusal(), "Neužpildytas įmonės pavadinimas!");
    EXPECT_EQ(frm->focusWidget(), line("org_pavad"));
    EXPECT_EQ(line("org_pavad")->text(), "   ");
    EXPECT_EQ(enabled().first(), "acSave") << "the row stays in edit";
    EXPECT_EQ(value(books(), "select org_pavad from bd_org"), "Šilo mokykla");
}

TEST_P(Organisation, TheAddressIsAskedForBeforeTheCompanyCode)
{
    open();
    frm->acEdit->trigger();
    for (const char *column : {"org_pavad", "org_adr", "org_i_kod"})
        type(line(column), "");
    EXPECT_EQ(refusal(), "Neužpildytas įmonės pavadinimas!");
    type(line("org_pavad"), "Gimnazija");
    EXPECT_EQ(refusal(), "Neužpildytas įmonės adresas!");
    type(line("org_adr"), " ");
    EXPECT_EQ(refusal(), "Neužpildytas įmonės adresas!");
    type(line("org_adr"), "Žolynų g. 1");
    EXPECT_EQ(refusal(), "Neužpildytas įmonės kodas!");
    type(line("org_i_kod"), "1");
    frm->acSave->trigger();
    EXPECT_EQ(value(books(), "select org_i_kod from bd_org"), "1");
}

TEST_P(Organisation, TheCompanyCodeTakesElevenDigits)
{
    open();
    frm->acEdit->trigger();
    type(line("org_i_kod"), "1a2345-678901234");
    EXPECT_EQ(line("org_i_kod")->text(), "12345678901");
    paste(line("org_i_kod"), "-5");
    EXPECT_EQ(refusal(), "Laukas \"Įmonės kodas\" turi būti nuo 1 iki 99999999999!");
    paste(line("org_i_kod"), "kodas");
    EXPECT_EQ(refusal(), "Laukas \"Įmonės kodas\": „kodas“ nėra skaičius.");
}

TEST_P(Organisation, TextThatTheBooksCannotHoldIsNamed)
{
    open();
    frm->acEdit->trigger();
    paste(line("org_adr"), "日");
    EXPECT_EQ(refusal(), "Laukas \"Adresas\": ženklo „日“ negalima įrašyti.");
}

TEST_P(Organisation, TheMunicipalityIsPickedFromItsListOrTypedAsItsCode)
{
    open();
    frm->acEdit->trigger();
    EXPECT_EQ(municipalities()->count(), 2);
    type(line("Org_Savivaldybe"), "15");
    leave(line("Org_Savivaldybe"));
    EXPECT_EQ(municipalities()->currentText(), "Druskininkų savivaldybė");
    municipalities()->setFocus();
    QTest::keyClick(municipalities(), Qt::Key_Down);
    EXPECT_EQ(line("Org_Savivaldybe")->text(), "13");
    QTest::keyClick(municipalities(), Qt::Key_Delete);
    EXPECT_EQ(line("Org_Savivaldybe")->text(), "");
    type(line("Org_Savivaldybe"), "99");
    EXPECT_EQ(refusal(), "Laukas \"Savivaldybės kodas\": savivaldybės, kurios kodas „99“, sąraše nėra.");
    type(line("Org_Savivaldybe"), "99999");
    EXPECT_EQ(refusal(), "Laukas \"Savivaldybės kodas\": savivaldybės, kurios kodas „99999“, sąraše nėra.")
        << "beyond what the column holds";
    EXPECT_EQ(line("Org_Savivaldybe")->text(), "99999");
    type(line("Org_Savivaldybe"), "");
    frm->acSave->trigger();
    EXPECT_EQ(value(books(), "select org_savivaldybe from bd_org"), "NULL");
}

TEST_P(Organisation, EscCancelsAtOnceWhateverIsBeingTypedAndThenCloses)
{
    open();
    frm->acEdit->trigger();
    type(line("org_adr"), "Kitur");
    press(Qt::Key_Escape);
    EXPECT_EQ(enabled(), QStringList("acEdit"));
    EXPECT_EQ(line("org_adr")->text(), "Šilo g. 7");
    press(Qt::Key_Escape);
    EXPECT_FALSE(frm);
    EXPECT_EQ(OrgFrm, nullptr);
}

TEST_P(Organisation, ClosingWhileEditingAsksAndYesSaves)
{
    open();
    edited();
    NextBoxes asked{QMessageBox::Yes};
    frm->acClose->trigger();
    EXPECT_EQ(asked.at(0).kind, 99);
    EXPECT_EQ(asked.at(0).text, "Jūs uždarote langą neišsaugojus informacija, ar išsaugoti dabar?");
    gone();
    EXPECT_EQ(value(books(), "select org_pavad from bd_org"), "Gimnazija");
}

TEST_P(Organisation, NoDiscardsAndCloses)
{
    open();
    edited();
    NextBoxes asked{QMessageBox::No};
    frm->acClose->trigger();
    gone();
    EXPECT_EQ(value(books(), "select org_pavad from bd_org"), "Šilo mokykla");
}

TEST_P(Organisation, CancelAndEscKeepTheWindowAsItIs)
{
    open();
    edited();
    NextBoxes asked{QMessageBox::Cancel};
    frm->acClose->trigger();
    EXPECT_TRUE(frm->isVisible());
    EXPECT_EQ(line("org_pavad")->text(), "Gimnazija");
    EXPECT_EQ(enabled().first(), "acSave");
}

TEST_P(Organisation, YesStaysOpenWhenTheSaveIsRefused)
{
    open();
    edited();
    type(line("org_adr"), "");
    NextBoxes asked{QMessageBox::Yes, QMessageBox::Ok};
    frm->acClose->trigger();
    EXPECT_EQ(asked.at(1).text, "Neužpildytas įmonės adresas!");
    EXPECT_TRUE(frm->isVisible());
    EXPECT_EQ(line("org_pavad")->text(), "Gimnazija");
}

TEST_P(Organisation, ClosedWhileOnlyLookedAtItAsksNothing)
{
    open();
    frm->acClose->trigger();
    gone();
}

TEST_P(Organisation, ASaveThatTheBooksRefuseLosesNothingAndMayBeRepeated)
{
    open();
    refuseUpdating();
    edited();
    EXPECT_EQ(enabled().first(), "acSave");
    {
        NextBoxes told{QMessageBox::Ok};
        frm->acSave->trigger();
    }
    EXPECT_EQ(enabled().first(), "acSave");
    EXPECT_EQ(line("org_pavad")->text(), "Gimnazija");
    EXPECT_FALSE(books().InTransaction());
    allowUpdating();
    frm->acSave->trigger();
    EXPECT_EQ(value(books(), "select org_pavad from bd_org"), "Gimnazija");
}

TEST_P(Organisation, ASaveThatIsRefusedAtItsVeryEndMayBeRepeated)
{
    open();
    refuseAtCommit(books(), "bd_org");
    edited();
    EXPECT_FALSE(refusal().isEmpty());
    EXPECT_EQ(enabled().first(), "acSave");
    EXPECT_EQ(value(books(), "select org_pavad from bd_org"), "Šilo mokykla");
    allowAtCommit(books());
    frm->acSave->trigger();
    EXPECT_EQ(value(books(), "select org_pavad from bd_org"), "Gimnazija");
}

// --- the row that is missing, and the other station

TEST_P(Organisation, AMissingRowIsToldAndWrittenByTheFirstSave)
{
    books().ExecSQL("delete from bd_org");
    open();
    EXPECT_TRUE(tells("Organizacijos atributai dar neįvesti."));
    EXPECT_EQ(texts().join(""), "");
    frm->acEdit->trigger();
    EXPECT_FALSE(tells("Organizacijos atributai dar neįvesti."));
    EXPECT_EQ(refusal(), "Neužpildytas įmonės pavadinimas!");
    press(Qt::Key_Escape);
    EXPECT_TRUE(tells("Organizacijos atributai dar neįvesti."));
    frm->acEdit->trigger();
    fillRequired();
    frm->acSave->trigger();
    EXPECT_EQ(stored(),
              QStringList("Gimnazija|Žolynų g. 1|190|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL"));
    EXPECT_FALSE(tells("Organizacijos atributai dar neįvesti."));
}

TEST_P(Organisation, ARowThatAnotherStationWroteFirstIsNotWrittenTwice)
{
    books().ExecSQL("delete from bd_org");
    open();
    frm->acEdit->trigger();
    fillRequired();
    secondFin()->ExecSQL("insert into bd_org (org_pavad) values ('Kita')");
    EXPECT_EQ(refusal(), "Kita darbo vieta tuo tarpu jau įrašė organizacijos atributus. Atšaukite savo "
                         "pakeitimus ir keiskite tai, kas įrašyta.");
    EXPECT_EQ(line("org_pavad")->text(), "Gimnazija");
    press(Qt::Key_Escape);
    EXPECT_EQ(line("org_pavad")->text(), "Kita");
}

TEST_P(Organisation, ARowThatAnotherStationDeletedIsTold)
{
    open();
    edited();
    secondFin()->ExecSQL("delete from bd_org");
    EXPECT_EQ(refusal(), "Įrašas jau ištrintas kitoje darbo vietoje");
    EXPECT_EQ(line("org_pavad")->text(), "Gimnazija");
    press(Qt::Key_Escape);
    EXPECT_TRUE(tells("Organizacijos atributai dar neįvesti."));
}

TEST_P(Organisation, EditStartsFromWhatIsStoredNow)
{
    open();
    secondFin()->ExecSQL("update bd_org set org_pavad = 'Kitaip'");
    frm->acEdit->trigger();
    EXPECT_EQ(line("org_pavad")->text(), "Kitaip");
}

TEST_P(Organisation, WhatAnotherStationChangedInOtherColumnsIsKept)
{
    open();
    edited();
    secondFin()->ExecSQL("update bd_org set org_adr = 'Kita g. 2'");
    frm->acSave->trigger();
    EXPECT_EQ(rows(books(), "select org_pavad, org_adr from bd_org"), QStringList("Gimnazija|Kita g. 2"));
    EXPECT_EQ(line("org_adr")->text(), "Kita g. 2");
}

TEST_P(Organisation, WhatBothChangedIsToldAndDecided)
{
    open();
    edited();
    secondFin()->ExecSQL("update bd_org set org_pavad = 'Kitaip'");
    EXPECT_EQ(conflict("&Grįžti"), "Kita darbo vieta tuo tarpu pakeitė: Pavadinimas: buvo „Šilo mokykla“, "
                                   "dabar „Kitaip“.");
    EXPECT_EQ(line("org_pavad")->text(), "Gimnazija");
    conflict("&Imti naują reikšmę");
    EXPECT_EQ(line("org_pavad")->text(), "Kitaip");
    EXPECT_EQ(enabled().first(), "acSave") << "taking a value is no saving";
    type(line("org_pavad"), "Gimnazija");
    secondFin()->ExecSQL("update bd_org set org_pavad = 'Dar kitaip'");
    conflict("&Palikti savo");
    EXPECT_EQ(value(books(), "select org_pavad from bd_org"), "Gimnazija");
    EXPECT_EQ(enabled(), QStringList("acEdit"));
}

TEST_P(Organisation, WhoMayOnlyLookCannotEdit)
{
    CurrentUser().viewOnly = true;
    MainDatas()->makeReadOnly();
    open();
    EXPECT_EQ(enabled(), QStringList());
    EXPECT_EQ(texts().first(), "Šilo mokykla");
    EXPECT_TRUE(line("org_pavad")->isReadOnly());
}

TEST_P(Organisation, TabGoesThroughTheFieldsInTheirOrder)
{
    open();
    frm->acEdit->trigger();
    QStringList order;
    for (int i = 0; i < 10; ++i) {
        order << frm->focusWidget()->objectName();
        QTest::keyClick(frm->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, QStringList({"org_pavad", "org_adr", "org_i_kod", "org_pvm_kod", "ORG_DRAUD_KOD",
                                  "SavivaldybeBox", "Org_Savivaldybe", "Org_RejNum", "mnOpenButton",
                                  "org_zenklas"}));
}
