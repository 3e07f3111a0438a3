#include "tests/src/balances/balances.h"

namespace {
class BalanceDialog : public Balances {};
ON_BOTH_ENGINES(BalanceDialog);

// Only a server can be lost.
class BalanceDialogOnServer : public Balances {};
ON_ENGINE(BalanceDialogOnServer, Engine::PostgreSql);

const QString debitTooSmall = "Laukas \"Debetinis likutis\" turi būti didesnis už 0!";
const QString creditTooSmall = "Laukas \"Kreditinis likutis\" turi būti didesnis už 0!";
} // namespace

TEST_P(BalanceDialog, ANewRowGoesToTheDebitSideOfTheStartOfWorkPeriod)
{
    EXPECT_TRUE(addBalance([this](TSasLikDlg &dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Naujas likutis");
        EXPECT_TRUE(debit(dialog)->isChecked());
        EXPECT_EQ(amount(dialog)->text(), "0.00");
        chooseAccount(dialog, bank);
        type(amount(dialog), "1250,75");
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored(), QStringList(row(1, bank, "1250.75", "0")));
}

TEST_P(BalanceDialog, TheKeyIsOneMoreThanTheLargest)
{
    books().ExecSQL("insert into bd_saslik values (41, :id, 7, 1, 0)", {{"id", bank}});
    double id = 0;
    OnNextDialog<TSasLikDlg> dialog([this](TSasLikDlg &shown) {
        chooseAccount(shown, cash);
        type(amount(shown), "5");
        pressButton(shown, "&Išsaugoti");
    });
    EXPECT_TRUE(Saslikedit::EditLik(false, id));
    EXPECT_EQ(id, 42);
    EXPECT_EQ(stored().last(), row(42, cash, "5", "0"));
}

TEST_P(BalanceDialog, TheSavedRowsKeyComesBackAndACancelledOneDoesNot)
{
    double id = 77;
    OnNextDialog<TSasLikDlg> cancelled([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, bank);
        type(amount(dialog), "5");
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_FALSE(Saslikedit::EditLik(false, id));
    EXPECT_EQ(id, 77);
    EXPECT_EQ(stored(), QStringList());
    EXPECT_EQ(Saslikedit::SasLikDlg, nullptr);
}

TEST_P(BalanceDialog, ASecondBalanceOfAnAccountIsAccepted)
{
    balance(bank, 10, 0);
    EXPECT_TRUE(addBalance([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, bank);
        type(amount(dialog), "5");
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored(), QStringList({row(1, bank, "10", "0"), row(2, bank, "5", "0")}));
}

TEST_P(BalanceDialog, AChangeShowsTheStoredSideAndAccount)
{
    balance(capital, 0, 300);
    double id = 1;
    OnNextDialog<TSasLikDlg> dialog([](TSasLikDlg &shown) {
        EXPECT_EQ(shown.windowTitle(), "Keisti sąskaitos likutį");
        EXPECT_TRUE(credit(shown)->isChecked());
        EXPECT_EQ(amount(shown)->text(), "300.00");
        EXPECT_EQ(shown.findChild<TSasEdit *>()->GetText(), "401");
        type(amount(shown), "301.5");
        pressButton(shown, "&Išsaugoti");
    });
    EXPECT_TRUE(Saslikedit::EditLik(true, id));
    EXPECT_EQ(stored(), QStringList(row(1, capital, "0", "301.5")));
}

TEST_P(BalanceDialog, ARowThatIsGoneIsToldAndNotOpened)
{
    double id = 5;
    EXPECT_THROW(Saslikedit::EditLik(true, id), Exception);
}

TEST_P(BalanceDialog, TheFirstFocusIsTheAccount)
{
    addBalance([](TSasLikDlg &dialog) {
        EXPECT_TRUE(dialog.findChild<TSasEdit *>()->isAncestorOf(dialog.focusWidget()));
        pressButton(dialog, "&Atšaukti");
    });
}

// --- the sides

TEST_P(BalanceDialog, TheAmountGoesWithTheSideThereAndBack)
{
    EXPECT_TRUE(addBalance([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, bank);
        type(amount(dialog), "12.50");
        QTest::mouseClick(credit(dialog), Qt::LeftButton);
        EXPECT_EQ(amount(dialog)->objectName(), "SSL_SUM_KR");
        EXPECT_EQ(amount(dialog)->text(), "12.50");
        QTest::mouseClick(debit(dialog), Qt::LeftButton);
        EXPECT_EQ(amount(dialog)->objectName(), "SSL_SUM_DB");
        EXPECT_EQ(amount(dialog)->text(), "12.50");
        QTest::mouseClick(credit(dialog), Qt::LeftButton);
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored(), QStringList(row(1, bank, "0", "12.5")));
}

TEST_P(BalanceDialog, AStoredAmountWithPartsOfACentGoesToTheOtherSideWhole)
{
    balance(bank, 10.005, 0);
    double id = 1;
    OnNextDialog<TSasLikDlg> dialog([](TSasLikDlg &shown) {
        QTest::mouseClick(credit(shown), Qt::LeftButton);
        EXPECT_EQ(amount(shown)->objectName(), "SSL_SUM_KR");
        pressButton(shown, "&Išsaugoti");
    });
    EXPECT_TRUE(Saslikedit::EditLik(true, id));
    EXPECT_EQ(stored(), QStringList(row(1, bank, "0", "10.005")));
}

TEST_P(BalanceDialog, ASwitchLetsSaveOnlyWithAnAmountAndAnAccount)
{
    addBalance([this](TSasLikDlg &dialog) {
        EXPECT_TRUE(maySave(dialog));
        credit(dialog)->click();
        EXPECT_TRUE(maySave(dialog)) << "nothing was moved";
        type(amount(dialog), "5");
        debit(dialog)->click();
        EXPECT_FALSE(maySave(dialog));
        typeKeys(dialog.findChild<TSasEdit *>()->findChild<QLineEdit *>(), "241");
        EXPECT_TRUE(maySave(dialog)) << "while the account is typed";
        chooseAccount(dialog, bank);
        credit(dialog)->click();
        EXPECT_TRUE(maySave(dialog));
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(BalanceDialog, AnAmountThatIsNoneKeepsItsSideBeforeTheUsersEyes)
{
    addBalance([](TSasLikDlg &dialog) {
        type(amount(dialog), "abc");
        {
            NextBoxes shown{QMessageBox::Ok};
            credit(dialog)->click();
            EXPECT_EQ(shown.at(0).text, "Laukas \"Debetinis likutis\" turi būti suma, o ne „abc“!");
        }
        EXPECT_TRUE(debit(dialog)->isChecked());
        EXPECT_EQ(amount(dialog)->objectName(), "SSL_SUM_DB");
        EXPECT_EQ(amount(dialog)->text(), "abc");
        pressButton(dialog, "&Atšaukti");
    });
}

TEST_P(BalanceDialog, AccountSideAmountEnterSavesInTheOrderOfTheFields)
{
    EXPECT_TRUE(addBalance([this](TSasLikDlg &dialog) {
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        auto *account = dialog.findChild<TSasEdit *>()->findChild<QLineEdit *>();
        account->setFocus();
        QTest::keyClicks(account, "241");
        QTest::keyClick(account, Qt::Key_Tab);
        credit(dialog)->setFocus();
        QTest::keyClick(credit(dialog), Qt::Key_Space);
        auto *sum = amount(dialog);
        sum->setFocus();
        QTest::keyClicks(sum, "7,25");
        QTest::keyClick(sum, Qt::Key_Return);
    }));
    EXPECT_EQ(stored(), QStringList(row(1, bank, "0", "7.25")));
}

// --- the rules

TEST_P(BalanceDialog, AnAccountThatWasNotChosenIsRefused)
{
    addBalance([](TSasLikDlg &dialog) {
        type(amount(dialog), "5");
        EXPECT_EQ(refusal(dialog), "Laukas \"Sąskaita\" negali būti tuščias!");
        EXPECT_EQ(amount(dialog)->text(), "5.00");
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(BalanceDialog, ASummaryAccountIsRefusedAndStaysToBeCorrected)
{
    addBalance([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, bank);
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        auto *account = dialog.findChild<TSasEdit *>();
        type(account->findChild<QLineEdit *>(), "24");
        {
            NextBoxes told{QMessageBox::Ok};
            leave(account->findChild<QLineEdit *>());
            QCoreApplication::processEvents();
            EXPECT_EQ(told.at(0).text, "Sąskaita negali būti suminė!");
        }
        EXPECT_TRUE(account->isAncestorOf(dialog.focusWidget()));
        EXPECT_EQ(account->invalidReason(), "Sąskaita negali būti suminė!");
        EXPECT_EQ(account->value(), bank);
        EXPECT_EQ(refusal(dialog), "Sąskaita negali būti suminė!");
        EXPECT_EQ(account->GetText(), "24");
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(BalanceDialog, TheAccountBeingTypedIsSavedByEnter)
{
    EXPECT_TRUE(addBalance([this](TSasLikDlg &dialog) {
        type(amount(dialog), "5");
        type(dialog.findChild<TSasEdit *>()->findChild<QLineEdit *>(), "262");
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored(), QStringList(row(1, cash, "5", "0")));
}

TEST_P(BalanceDialog, ThePickersAccountIsTaken)
{
    EXPECT_TRUE(addBalance([this](TSasLikDlg &dialog) {
        OnNextDialog<QDialog> picker([](QDialog &shown) {
            QTest::keyClicks(shown.focusWidget(), "262");
            QTest::qWait(400);
            QTest::keyClick(shown.focusWidget(), Qt::Key_Return);
        });
        QTest::keyClick(dialog.findChild<TSasEdit *>()->findChild<QLineEdit *>(), Qt::Key_F4);
        EXPECT_EQ(dialog.findChild<TSasEdit *>()->value(), cash);
        type(amount(dialog), "5");
        pressButton(dialog, "&Išsaugoti");
    }));
    EXPECT_EQ(stored(), QStringList(row(1, cash, "5", "0")));
}

TEST_P(BalanceDialog, ANewRowWithoutAnAmountIsRefusedOnEitherSide)
{
    addBalance([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, bank);
        EXPECT_EQ(refusal(dialog), debitTooSmall);
        type(amount(dialog), "7");
        credit(dialog)->click();
        type(amount(dialog), "0");
        EXPECT_EQ(refusal(dialog), creditTooSmall);
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(BalanceDialog, WhatIsNoAmountIsRefusedAndStaysAsTyped)
{
    const QList<std::pair<QString, QString>> refused = {
        {"abc", "Laukas \"Debetinis likutis\" turi būti suma, o ne „abc“!"},
        {"1e400", "Laukas \"Debetinis likutis\" turi būti suma, o ne „1e400“!"},
        {"-5", debitTooSmall},
        {"0", debitTooSmall},
        {"", "Laukas \"Debetinis likutis\" negali būti tuščias!"},
        {"12345678901234567890", "Laukas \"Debetinis likutis\": skaičius per didelis."},
        {"12.345", "Laukas \"Debetinis likutis\" gali turėti tik du skaitmenis po kablelio!"},
        {"0.001", "Laukas \"Debetinis likutis\" gali turėti tik du skaitmenis po kablelio!"},
    };
    addBalance([&](TSasLikDlg &dialog) {
        chooseAccount(dialog, bank);
        for (const auto &[text, message] : refused) {
            type(amount(dialog), text);
            EXPECT_EQ(refusal(dialog), message) << qPrintable(text);
            EXPECT_EQ(amount(dialog)->text(), text);
            EXPECT_EQ(dialog.focusWidget(), amount(dialog));
        }
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(stored(), QStringList());
}

TEST_P(BalanceDialog, AnAmountIsReadWithCommaPointAndGroups)
{
    const QStringList texts = {"1 000,50", "1000.50", "1000,5"};
    for (const QString &text : texts)
        EXPECT_TRUE(addBalance([&](TSasLikDlg &dialog) {
            chooseAccount(dialog, bank);
            type(amount(dialog), text);
            pressButton(dialog, "&Išsaugoti");
        }));
    EXPECT_EQ(stored(), QStringList({row(1, bank, "1000.5", "0"), row(2, bank, "1000.5", "0"),
                                     row(3, bank, "1000.5", "0")}));
}

// --- other stations, a refusing database, a server that goes away

TEST_P(BalanceDialog, AnAccountDeletedMeanwhileIsToldAndNothingIsLost)
{
    addBalance([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, cash);
        type(amount(dialog), "5");
        secondFin()->ExecSQL("delete from bd_sasplan where sas_id = :id", {{"id", cash}});
        EXPECT_EQ(refusal(dialog), "Įrašas susietas su kitais įrašais: nurodytas įrašas neegzistuoja arba "
                                   "jis naudojamas.");
        EXPECT_EQ(amount(dialog)->text(), "5.00");
        EXPECT_FALSE(books().InTransaction());
        chooseAccount(dialog, bank);
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList(row(1, bank, "5", "0")));
}

TEST_P(BalanceDialog, BothSidesAreTakenOrKeptTogether)
{
    const auto changed = [this](const char *answer, std::function<void(TSasLikDlg &)> then) {
        books().ExecSQL("delete from bd_saslik");
        balance(capital, 100, 0);
        double id = 1;
        OnNextDialog<TSasLikDlg> dialog([&](TSasLikDlg &shown) {
            secondFin()->ExecSQL("update bd_saslik set ssl_sum_db = 0, ssl_sum_kr = 70");
            type(amount(shown), "120");
            {
                OnNextDialog<QMessageBox> told([answer](QMessageBox &box) {
                    EXPECT_TRUE(box.text().contains("Debetinis likutis: buvo „100.00“, dabar „0.00“; "
                                                    "Kreditinis likutis: buvo „0.00“, dabar „70.00“"))
                        << qPrintable(box.text());
                    pressButton(box, answer);
                });
                pressButton(shown, "&Išsaugoti");
            }
            then(shown);
        });
        Saslikedit::EditLik(true, id);
    };
    changed("Palikti savo", [](TSasLikDlg &) {});
    EXPECT_EQ(stored(), QStringList(row(1, capital, "120", "0")));
    changed("Imti naują reikšmę", [](TSasLikDlg &shown) {
        EXPECT_TRUE(credit(shown)->isChecked());
        EXPECT_EQ(amount(shown)->text(), "70.00");
        pressButton(shown, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList(row(1, capital, "0", "70")));
}

TEST_P(BalanceDialog, AConflictIsToldInAccountsAndEnterGoesBack)
{
    balance(capital, 100, 0);
    double id = 1;
    OnNextDialog<TSasLikDlg> dialog([this](TSasLikDlg &shown) {
        secondFin()->ExecSQL("update bd_saslik set ssl_sasid = :id", {{"id", cash}});
        chooseAccount(shown, bank);
        {
            OnNextDialog<QMessageBox> told([](QMessageBox &box) {
                EXPECT_TRUE(
                    box.text().contains("Sąskaita: buvo „401  Sąskaita 401“, dabar „262  Sąskaita 262“"))
                    << qPrintable(box.text());
                QTest::keyClick(&box, Qt::Key_Return);
            });
            pressButton(shown, "&Išsaugoti");
        }
        EXPECT_TRUE(shown.isVisible());
        EXPECT_EQ(shown.findChild<TSasEdit *>()->GetText(), "241");
        pressButton(shown, "&Atšaukti");
    });
    EXPECT_FALSE(Saslikedit::EditLik(true, id));
    EXPECT_EQ(stored(), QStringList(row(1, cash, "100", "0")));
}

// Books from elsewhere may have them.
TEST_P(BalanceDialog, ARowWithBothSidesIsShownAsItIsStored)
{
    balance(capital, 5, 10);
    double id = 1;
    OnNextDialog<TSasLikDlg> dialog([](TSasLikDlg &shown) {
        EXPECT_TRUE(credit(shown)->isChecked());
        EXPECT_EQ(amount(shown)->text(), "10.00");
        pressButton(shown, "&Išsaugoti");
    });
    EXPECT_TRUE(Saslikedit::EditLik(true, id));
    EXPECT_EQ(stored(), QStringList(row(1, capital, "0", "10")));
}

TEST_P(BalanceDialog, AKeyThatAnotherStationTookMeanwhileIsNotDrawnAgain)
{
    addBalance([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, bank);
        type(amount(dialog), "5");
        secondFin()->ExecSQL("insert into bd_saslik values (1, :id, 6, 9, 0)", {{"id", cash}});
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList({row(1, cash, "9", "0"), row(2, bank, "5", "0")}));
}

TEST_P(BalanceDialog, WhatIsTypedWhileAnotherStationClosesTheMonthIsRefusedAndKept)
{
    balance(bank, 10, 0);
    balance(capital, 0, 10);
    addBalance([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, cash);
        type(amount(dialog), "5");
        secondFin()->ExecSQL("call Close_Per()");
        EXPECT_EQ(refusal(dialog),
                  "2004 m. sausio mėnuo uždarytas: jo įrašai ir sąskaitų likučiai nekeičiami.");
        EXPECT_EQ(amount(dialog)->text(), "5.00");
        EXPECT_EQ(dialog.findChild<TSasEdit *>()->GetText(), "262");
        EXPECT_FALSE(books().InTransaction());
        EXPECT_EQ(value(books(), "select count(*) from bd_saslik where ssl_perid = 6"), "2");
        secondFin()->ExecSQL("call Back_Per()");
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored().last(), row(3, cash, "5", "0"));
}

TEST_P(BalanceDialog, ABalanceOfAMonthThatAnotherStationClosedIsNotChanged)
{
    balance(bank, 10, 0);
    double id = 1;
    OnNextDialog<TSasLikDlg> dialog([this](TSasLikDlg &shown) {
        type(amount(shown), "11");
        secondFin()->ExecSQL("call Close_Per()");
        EXPECT_TRUE(refusal(shown).startsWith("2004 m. sausio mėnuo uždarytas"));
        EXPECT_EQ(amount(shown)->text(), "11.00");
        pressButton(shown, "&Atšaukti");
    });
    EXPECT_FALSE(Saslikedit::EditLik(true, id));
    EXPECT_EQ(value(books(), "select ssl_sum_db from bd_saslik where ssl_perid = 6"), "10");
}

TEST_P(BalanceDialog, AFailureOfTheDatabaseIsRolledBackWithTheDialogOpen)
{
    refuseInserting("bd_saslik", "ssl_sum_db > 0");
    addBalance([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, bank);
        type(amount(dialog), "5");
        EXPECT_TRUE(refusal(dialog).contains("sugadinta tyčia"));
        EXPECT_FALSE(books().InTransaction());
        QTest::mouseClick(credit(dialog), Qt::LeftButton);
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList(row(1, bank, "0", "5")));
}

TEST_P(BalanceDialogOnServer, AServerLostWhileSavingIsToldAndTheNextSaveReachesIt)
{
    addBalance([this](TSasLikDlg &dialog) {
        chooseAccount(dialog, bank);
        type(amount(dialog), "5");
        secondFin()->nativeExec("select pg_terminate_backend(pid) from pg_stat_activity "
                                "where datname = current_database() and pid <> pg_backend_pid()");
        EXPECT_TRUE(refusal(dialog).startsWith("Nutrūko ryšys su duomenų bazės serveriu."));
        EXPECT_EQ(amount(dialog)->text(), "5.00");
        pressButton(dialog, "&Išsaugoti");
    });
    EXPECT_EQ(stored(), QStringList(row(1, bank, "5", "0")));
}

TEST_P(BalanceDialog, AViewOnlyUserSeesItAllAndChangesNothing)
{
    balance(capital, 0, 300);
    CurrentUser().viewOnly = true;
    double id = 1;
    OnNextDialog<TSasLikDlg> dialog([](TSasLikDlg &shown) {
        EXPECT_EQ(amount(shown)->text(), "300.00");
        EXPECT_FALSE(amount(shown)->isEnabled());
        EXPECT_FALSE(credit(shown)->isEnabled());
        EXPECT_FALSE(maySave(shown));
        pressButton(shown, "&Atšaukti");
    });
    EXPECT_FALSE(Saslikedit::EditLik(true, id));
}
