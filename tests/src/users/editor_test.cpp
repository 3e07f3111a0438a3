#include "host/data/login.h"
#include "tests/src/users/users.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QScreen>

namespace {
class UserEditor : public Users {};
ON_BOTH_ENGINES(UserEditor);

// The file of an embedded database has one writer at a time anyway.
class UserEditorOnServer : public Users {};
ON_ENGINE(UserEditorOnServer, Engine::PostgreSql);

const QString noAdministrator = "Nors vienas vartotojas turi turėti teises administruoti vartotojus!";
} // namespace

TEST_P(UserEditor, ANewUserIsWrittenWithHisRights)
{
    EXPECT_TRUE(add(7, [](TEditUserDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Vartotojo informacija");
        EXPECT_EQ(dialog.focusWidget(), dialog.LogNameEdit);
        EXPECT_EQ(Usersch::Usr_Id, 0);
        fill(dialog, "jonas");
        EXPECT_FALSE(dialog.OkBtn->isEnabled());
        tick(dialog, {1, 3});
        selectSources(dialog, {0, 1});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        dialog.cb_userAdmin->setChecked(true);
        EXPECT_TRUE(dialog.OkBtn->isEnabled());
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(storedUsers(), QStringList("7|jonas|Jonas|Jonaitis||0|1"));
    EXPECT_EQ(storedRights(), QStringList({"7|1|5", "7|2|5"}));
    EXPECT_EQ(Usersch::EditUserDlg, nullptr);
}

TEST_P(UserEditor, AChangedUserLosesHisOldRights)
{
    user(3, "ona", true, 9);
    EXPECT_TRUE(change(3, [](TEditUserDlg &dialog) {
        EXPECT_EQ(Usersch::Usr_Id, 3);
        EXPECT_EQ(dialog.LogNameEdit->text(), "ona");
        EXPECT_EQ(dialog.PassEdit->text(), "slapta");
        EXPECT_EQ(dialog.PassEdit->echoMode(), QLineEdit::Password);
        EXPECT_TRUE(dialog.cb_userAdmin->isChecked());
        EXPECT_EQ(tree(dialog), "Biudžetas=9(Buhalterija,Virtuvė)");
        dialog.cb_tikPerz->setChecked(true);
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(0));
        QTest::keyClick(dialog.RightsTree, Qt::Key_Delete);
        tick(dialog, {2});
        selectSources(dialog, {1});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(storedUsers(), QStringList("3|ona|Ona|Onaitė|slapta|1|1"));
    EXPECT_EQ(storedRights(), QStringList("3|2|2"));
}

TEST_P(UserEditor, CancelChangesNothing)
{
    user(3, "ona", true);
    const QStringList before = dump(budget());
    EXPECT_FALSE(change(3, [](TEditUserDlg &dialog) {
        type(dialog.NameEdit, "Kita");
        pressButton(dialog, "&Atšaukti");
    }));
    EXPECT_EQ(dump(budget()), before);
}

TEST_P(UserEditor, EscLeavesWithoutSavingAndF1ShowsItsHelp)
{
    user(3, "ona", true);
    const QStringList before = dump(budget());
    int topic = 0;
    TDialog::setHelpDisplay([&topic](int shownTopic) { topic = shownTopic; });
    EXPECT_FALSE(change(3, [](TEditUserDlg &dialog) {
        type(dialog.NameEdit, "Kita");
        QTest::keyClick(dialog.NameEdit, Qt::Key_F1);
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(dialog.NameEdit, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    }));
    TDialog::setHelpDisplay({});
    EXPECT_EQ(topic, 2);
    EXPECT_EQ(dump(budget()), before);
}

TEST_P(UserEditor, AUserWithoutRightsShowsEmptyFields)
{
    user(3, "ona", true, 0);
    change(3, [](TEditUserDlg &dialog) {
        EXPECT_EQ(dialog.LogNameEdit->text(), "");
        EXPECT_EQ(dialog.NameEdit->text(), "");
        EXPECT_FALSE(dialog.OkBtn->isEnabled());
        pressButton(dialog, "&Atšaukti");
    });
}

// --- the save button

TEST_P(UserEditor, SaveWaitsForNamesAndForAWorkPlaceAtEverySource)
{
    add(1, [](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        selectSources(dialog, {0});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        EXPECT_EQ(tree(dialog), "Biudžetas=0()");
        EXPECT_FALSE(dialog.OkBtn->isEnabled());
        tick(dialog, {1});
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(0));
        QTest::keyClick(dialog.KDVCheckList, Qt::Key_Insert);
        EXPECT_TRUE(dialog.OkBtn->isEnabled());
        for (QLineEdit *edit : {dialog.LogNameEdit, dialog.NameEdit, dialog.PavardeEdit}) {
            const QString text = edit->text();
            type(edit, "   ");
            EXPECT_FALSE(dialog.OkBtn->isEnabled()) << qPrintable(edit->objectName());
            type(edit, text);
            EXPECT_TRUE(dialog.OkBtn->isEnabled());
        }
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(UserEditor, DeletingTheLastNodeLeavesTheSaveButtonAsItWas)
{
    add(1, [](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        giveRight(dialog);
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(0));
        EXPECT_TRUE(dialog.OkBtn->isEnabled());
        QTest::keyClick(dialog.RightsTree, Qt::Key_Delete);
        EXPECT_EQ(tree(dialog), "");
        EXPECT_TRUE(dialog.OkBtn->isEnabled());
        tick(dialog, {1}); // the tick is taken back
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        EXPECT_EQ(tree(dialog), "Biudžetas=0()");
        EXPECT_FALSE(dialog.OkBtn->isEnabled());
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(0));
        QTest::keyClick(dialog.RightsTree, Qt::Key_Delete);
        EXPECT_FALSE(dialog.OkBtn->isEnabled());
        pressButton(dialog, "&Atšaukti");
    });
}

// --- administrators

TEST_P(UserEditor, TheFirstUserMustAdministerUsers)
{
    add(1, [](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        giveRight(dialog);
        NextBoxes box{QMessageBox::Ok};
        pressButton(dialog, "Iš&saugoti");
        EXPECT_EQ(box.at(0).kind, 49);
        EXPECT_EQ(box.at(0).text, noAdministrator);
        EXPECT_TRUE(dialog.isVisible());
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(storedUsers(), QStringList());
}

TEST_P(UserEditor, OneOfTwoAdministratorsMayGiveUpButNotTheOnlyOne)
{
    user(1, "ona", true);
    user(2, "ada", true);
    const auto giveUp = [](TEditUserDlg &dialog) {
        dialog.cb_userAdmin->setChecked(false);
        pressButton(dialog, "Iš&saugoti");
    };
    EXPECT_TRUE(change(1, giveUp));
    EXPECT_FALSE(change(2, [](TEditUserDlg &dialog) {
        dialog.cb_userAdmin->setChecked(false);
        EXPECT_EQ(refusal(dialog), noAdministrator);
        pressButton(dialog, "&Atšaukti");
    }));
    EXPECT_EQ(value(budget(), "select count(*) from bd_usr where usr_user_admin = 1"), "1");
}

TEST_P(UserEditor, WhoMayNotAdministerOnlyLooks)
{
    user(1, "ona", true, 5);
    CurrentUser().userAdmin = false;
    const QStringList before = dump(budget());
    change(1, [](TEditUserDlg &dialog) {
        EXPECT_EQ(dialog.LogNameEdit->text(), "ona");
        for (QWidget *input :
             {static_cast<QWidget *>(dialog.LogNameEdit), static_cast<QWidget *>(dialog.PassEdit),
              static_cast<QWidget *>(dialog.cb_tikPerz), static_cast<QWidget *>(dialog.OkBtn)})
            EXPECT_FALSE(input->isEnabled()) << qPrintable(input->objectName());
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(0)->child(0));
        QTest::keyClick(dialog.RightsTree, Qt::Key_Delete);
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        EXPECT_EQ(tree(dialog), "Biudžetas=5(Buhalterija,Sandėlis)");
        EXPECT_FALSE(dialog.OkBtn->isEnabled());
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(dump(budget()), before);
}

TEST_P(UserEditor, OnesOwnFlagsChangeAtTheNextLogin)
{
    user(1, "ona", true, 1);
    user(2, "ada", true, 1);
    ASSERT_TRUE(logIn(*MainDatas(), "ona", "slapta"));
    EXPECT_TRUE(change(1, [](TEditUserDlg &dialog) {
        dialog.cb_userAdmin->setChecked(false);
        dialog.cb_tikPerz->setChecked(true);
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_TRUE(CurrentUser().userAdmin);
    EXPECT_FALSE(CurrentUser().viewOnly);
    ASSERT_TRUE(logIn(*MainDatas(), "ona", "slapta"));
    EXPECT_FALSE(CurrentUser().userAdmin);
    EXPECT_TRUE(CurrentUser().viewOnly);
}

// --- keys

TEST_P(UserEditor, AltWithALetterMovesTheFocus)
{
    add(1, [](TEditUserDlg &dialog) {
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        const std::pair<Qt::Key, QWidget *> keys[] = {
            {Qt::Key_D, dialog.KDVCheckList}, {Qt::Key_F, dialog.FinList},  {Qt::Key_L, dialog.PassEdit},
            {Qt::Key_P, dialog.PavardeEdit},  {Qt::Key_R, dialog.NameEdit}, {Qt::Key_T, dialog.RightsTree},
            {Qt::Key_V, dialog.LogNameEdit},
        };
        for (const auto &[key, widget] : keys) {
            QTest::keyClick(dialog.focusWidget(), key, Qt::AltModifier);
            EXPECT_EQ(dialog.focusWidget(), widget) << QKeySequence(key).toString().toStdString();
        }
        pressButton(dialog, "&Atšaukti");
    });
}

// --- bad input

TEST_P(UserEditor, ALoginNameThatIsTooLongIsNotTakenInPart)
{
    add(1, [](TEditUserDlg &dialog) {
        type(dialog.LogNameEdit, "jonas");
        QApplication::clipboard()->setText("ABCDEFGHIJK");
        dialog.LogNameEdit->selectAll();
        dialog.LogNameEdit->paste();
        EXPECT_EQ(dialog.LogNameEdit->text(), "jonas");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(UserEditor, LettersOutsideTheCodePageAreNamedAndNothingIsWritten)
{
    add(1, [](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        giveRight(dialog);
        dialog.cb_userAdmin->setChecked(true);
        const std::pair<QLineEdit *, QString> fields[] = {{dialog.NameEdit, "Vartotojo vardas"},
                                                          {dialog.PavardeEdit, "Vartotojo pavardė"},
                                                          {dialog.LogNameEdit, "Prisijungimo vardas"},
                                                          {dialog.PassEdit, "Prisijungimo slaptažodis"}};
        for (const auto &[edit, label] : fields) {
            const QString typed = edit->text();
            edit->setText("Жан");
            EXPECT_EQ(refusal(dialog), QString("Laukas \"%1\": ženklo „Ж“ negalima įrašyti.").arg(label));
            EXPECT_EQ(edit->text(), "Жан") << "and no password was asked for";
            edit->setText(typed);
        }
        EXPECT_EQ(storedUsers(), QStringList());
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(UserEditor, QuotesAndSemicolonsAreOrdinaryLetters)
{
    EXPECT_TRUE(add(1, [](TEditUserDlg &dialog) {
        type(dialog.LogNameEdit, "o'b;--");
        type(dialog.NameEdit, "'); delete");
        type(dialog.PavardeEdit, "\"x\";");
        type(dialog.PassEdit, "' or 1=1");
        giveRight(dialog);
        dialog.cb_userAdmin->setChecked(true);
        OnNextDialog<TConfPassFrm> confirm([](TConfPassFrm &shown) {
            type(shown.ConfEdit, "' or 1=1");
            pressButton(shown, "&Gerai");
        });
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(storedUsers(), QStringList("1|o'b;--|'); delete|\"x\";|' or 1=1|0|1"));
}

TEST_P(UserEditor, ASourceDeletedMeanwhileStopsTheSaveBeforeAnythingIsWritten)
{
    user(1, "ona", true, 0);
    add(2, [](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        tick(dialog, {1});
        selectSources(dialog, {0, 1});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        budget().ExecSQL("delete from bd_fin where fin_id = 2");
        EXPECT_EQ(refusal(dialog),
                  "Finansavimo šaltinis „Fondas“ jau ištrintas: pašalinkite jį iš vartotojo teisių.");
        EXPECT_EQ(value(budget(), "select count(*) from bd_usr"), "1");
        dialog.RightsTree->setCurrentItem(dialog.RightsTree->topLevelItem(1));
        QTest::keyClick(dialog.RightsTree, Qt::Key_Delete);
        pressButton(dialog, "Iš&saugoti");
    });
    EXPECT_EQ(storedRights(), QStringList("2|1|1"));
}

TEST_P(UserEditor, AUserDeletedMeanwhileIsToldAndNothingTypedIsLost)
{
    user(1, "ona", true);
    user(2, "ada", true);
    change(2, [](TEditUserDlg &dialog) {
        type(dialog.NameEdit, "Adele");
        budget().ExecSQL("delete from bd_usrkdv where udv_usrid = 2");
        budget().ExecSQL("delete from bd_usr where usr_id = 2");
        EXPECT_EQ(refusal(dialog), "Vartotojo jau nėra: jį ištrynė kitas administratorius.");
        EXPECT_EQ(dialog.NameEdit->text(), "Adele");
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(value(budget(), "select count(*) from bd_usr"), "1");
}

TEST_P(UserEditor, OfTwoAdministratorsTheLastOneWinsWithAllHisRights)
{
    user(1, "ona", true, 1);
    change(1, [this](TEditUserDlg &dialog) {
        type(dialog.NameEdit, "Antroji");
        secondRavl()->ExecSQL("update bd_usr set usr_vardas = 'Pirmoji' where usr_id = 1");
        secondRavl()->ExecSQL("insert into bd_usrkdv values (1, 2, 8)");
        pressButton(dialog, "Iš&saugoti");
    });
    EXPECT_EQ(value(budget(), "select usr_vardas from bd_usr"), "Antroji");
    EXPECT_EQ(storedRights(), QStringList("1|1|1"));
}

TEST_P(UserEditor, AnIdTakenMeanwhileIsTold)
{
    user(1, "ona", true);
    add(1, [](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        giveRight(dialog);
        EXPECT_EQ(refusal(dialog),
                  "Numeriu 1 kitas administratorius ką tik įvedė kitą vartotoją. Uždarykite šį "
                  "langą ir kurkite vartotoją iš naujo.");
        EXPECT_EQ(dialog.LogNameEdit->text(), "jonas");
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(storedUsers(), QStringList("1|ona|Ona|Onaitė|slapta|0|1"));
}

TEST_P(UserEditor, ALoginNameInUseIsRefusedWhateverItsCase)
{
    user(1, "Šarūnė ", true);
    user(2, "ada", false);
    const QString taken = "Prisijungimo vardas „Šarūnė“ jau naudojamas: parinkite kitą.";
    add(3, [&taken](TEditUserDlg &dialog) {
        fill(dialog, "sarune");
        dialog.LogNameEdit->setText("ŠARŪNĖ");
        giveRight(dialog);
        EXPECT_EQ(refusal(dialog), taken);
        EXPECT_EQ(dialog.focusWidget(), dialog.LogNameEdit);
        pressButton(dialog, "&Atšaukti");
    });
    change(2, [&taken](TEditUserDlg &dialog) {
        dialog.LogNameEdit->setText(" šarūnė");
        EXPECT_EQ(refusal(dialog), taken);
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_TRUE(change(1, [](TEditUserDlg &dialog) {
        dialog.LogNameEdit->setText("šarūnė");
        pressButton(dialog, "Iš&saugoti");
    })) << "his own name is no other's";
    EXPECT_EQ(value(budget(), "select count(*) from bd_usr"), "2");
}

// A key that no label owns would be shown as a raw sign, and read out as one.
// Both were asked for a name that nobody had yet; the second is refused when it writes.
TEST_P(UserEditor, ALoginNameTakenWhileThePasswordIsConfirmedIsRefused)
{
    user(1, "ona", true);
    add(2, [this](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        type(dialog.PassEdit, "Nauja");
        giveRight(dialog);
        OnNextDialog<TConfPassFrm> meanwhile([this](TConfPassFrm &shown) {
            secondRavl()->ExecSQL("insert into bd_usr values (3, 'JONAS', 'J', 'J', '', 0, 0)");
            type(shown.ConfEdit, "Nauja");
            pressButton(shown, "&Gerai");
        });
        EXPECT_EQ(refusal(dialog), "Prisijungimo vardas „JONAS“ jau naudojamas: parinkite kitą.");
        EXPECT_EQ(dialog.focusWidget(), dialog.LogNameEdit);
        EXPECT_EQ(dialog.storedByHalf(), QString());
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(value(budget(), "select count(*) from bd_usr"), "2");
}

// What the one has begun to write, the other waits for.
TEST_P(UserEditorOnServer, ASaveWaitsForTheOneThatIsUnderWay)
{
    user(1, "ona", true);
    add(2, [this](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        giveRight(dialog);
        TTransaction otherSave(secondRavl());
        secondRavl()->ExecSQL("insert into bd_usr values (3, 'Jonas', 'J', 'J', '', 0, 0)");
        budget().nativeExec("set lock_timeout = '200ms'");
        {
            NextBoxes waited{QMessageBox::Ok};
            pressButton(dialog, "Iš&saugoti");
            EXPECT_EQ(waited.count(), 1) << "nothing is written beside a save that is under way";
        }
        budget().nativeExec("set lock_timeout = 0");
        otherSave.commit();
        EXPECT_EQ(refusal(dialog), "Prisijungimo vardas „Jonas“ jau naudojamas: parinkite kitą.");
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(value(budget(), "select count(*) from bd_usr"), "2");
}

TEST_P(UserEditor, EveryMarkedLabelLeadsToItsField)
{
    add(1, [](TEditUserDlg &dialog) {
        for (const QLabel *label : dialog.findChildren<QLabel *>())
            EXPECT_TRUE(!label->text().contains('&') || label->buddy()) << qPrintable(label->text());
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(UserEditor, WithALargeFontItStaysOnTheScreenWithItsButtons)
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(28);
    QApplication::setFont(large);
    add(1, [](TEditUserDlg &dialog) {
        const QRect screen = dialog.screen()->availableGeometry();
        EXPECT_TRUE(screen.contains(dialog.frameGeometry()));
        for (const QPushButton *each : dialog.findChildren<QPushButton *>())
            EXPECT_TRUE(screen.contains(QRect(each->mapToGlobal(QPoint()), each->size())))
                << qPrintable(each->text());
        pressButton(dialog, "&Atšaukti");
    });
    QApplication::setFont(usual);
}

TEST_P(UserEditor, WhoMayNotAdministerTicksNothing)
{
    user(1, "ona", true);
    CurrentUser().userAdmin = false;
    change(1, [](TEditUserDlg &dialog) {
        tick(dialog, {2});
        for (int i = 0; i < dialog.KDVCheckList->count(); ++i)
            EXPECT_EQ(dialog.KDVCheckList->item(i)->checkState(), Qt::Unchecked);
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(UserEditor, ASoleAdministratorWhoMayOnlyLookTakesThatBackHimself)
{
    user(1, "ona", true);
    ASSERT_TRUE(logIn(*MainDatas(), "ona", "slapta"));
    EXPECT_TRUE(change(1, [](TEditUserDlg &dialog) {
        dialog.cb_tikPerz->setChecked(true);
        pressButton(dialog, "Iš&saugoti");
    }));
    ASSERT_TRUE(logIn(*MainDatas(), "ona", "slapta"));
    ASSERT_TRUE(CurrentUser().viewOnly);
    MainDatas()->makeReadOnly();
    EXPECT_THROW(books().ExecSQL("delete from bd_saslik"), EDatabaseError);
    EXPECT_TRUE(change(1, [](TEditUserDlg &dialog) {
        dialog.cb_tikPerz->setChecked(false);
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(storedUsers(), QStringList("1|ona|Ona|Onaitė|slapta|0|1"));
}

TEST_P(UserEditor, AnUnknownUserIsNeverMadeByChanging)
{
    user(1, "ona", true);
    change(0, [](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        giveRight(dialog);
        EXPECT_EQ(refusal(dialog), "Vartotojo jau nėra: jį ištrynė kitas administratorius.");
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(storedUsers(), QStringList("1|ona|Ona|Onaitė|slapta|0|1"));
}
