#include "host/app/login_dialog.h"
#include "host/app/new_books_dialog.h"
#include "host/app/startup.h"
#include "host/data/main_datas.h"
#include "tests/support/files.h"
#include "tests/support/message_box.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

class FirstStart : public testing::Test {
protected:
    void TearDown() override { setMainDatas(nullptr); }

    QTemporaryDir root{scratchRoot() + "/velmora-XXXXXX"};
    QString folder() const { return root.filePath("knygos"); }
};

// Types name and password into a login dialog and presses Enter; true when the user was let in.
bool tryToLogIn(const QString &name, const QString &password)
{
    TLoginPatience patience;
    TLoginDlg dialog(*MainDatas(), {}, patience, nullptr);
    dialog.show();
    dialog.findChild<QLineEdit *>("NameEdit")->setText(name);
    dialog.findChild<QLineEdit *>("PassEdit")->setText(password);
    pressButton(dialog, "&Prisijungti");
    return !dialog.isVisible() && dialog.result() == QDialog::Accepted;
}

QString refusalOf(TNewBooksDlg &dialog)
{
    NextBoxes refused{QMessageBox::Ok};
    pressButton(dialog, "&Sukurti");
    EXPECT_TRUE(dialog.isVisible());
    return refused.at(0).text;
}

} // namespace

TEST_F(FirstStart, EmptyBooksLetTheirFirstAdministratorIn)
{
    createEmptyBooks(folder(), "ona", "Žąsis 1");
    openEmbeddedBooks(folder());
    EXPECT_FALSE(tryToLogIn("ona", "žąsis 1"));
    EXPECT_TRUE(tryToLogIn("ona", "Žąsis 1"));
    EXPECT_TRUE(CurrentUser().userAdmin);
    EXPECT_FALSE(CurrentUser().viewOnly);
    EXPECT_EQ(EinPer_Id(), 0);
}

TEST_F(FirstStart, DemonstrationBooksStandInJuly2026)
{
    createDemonstrationBooks(folder());
    openEmbeddedBooks(folder());
    EXPECT_EQ(EinPer_Date().date(), QDate(2026, 7, 1));
    EXPECT_FALSE(QDir(folder() + ".kuriama").exists());
}

TEST_F(FirstStart, DemonstrationBooksNeverReplaceWhatIsInTheFolder)
{
    QDir().mkpath(folder());
    writeFile(folder() + "/svarbu.txt", "mano");
    EXPECT_THROW(createDemonstrationBooks(folder()), Exception);
    EXPECT_EQ(contentOf(folder() + "/svarbu.txt"), "mano");
}

TEST_F(FirstStart, AViewOnlyUserGetsSessionsThatCannotWrite)
{
    createDemonstrationBooks(folder());
    openEmbeddedBooks(folder());
    ASSERT_TRUE(tryToLogIn("ziurovas", "Langas3"));
    EXPECT_TRUE(CurrentUser().viewOnly);
    MainDatas()->makeReadOnly();
    EXPECT_THROW(MainDatas()->mnFin_Db()->ExecSQL("delete from bd_period"), EDatabaseError);
    EXPECT_THROW(MainDatas()->mnRavl()->ExecSQL("delete from bd_usr"), EDatabaseError);
}

TEST_F(FirstStart, AWrongPasswordIsToldAndTheDialogStays)
{
    createEmptyBooks(folder(), "ona", "Slaptas1");
    openEmbeddedBooks(folder());
    TLoginPatience patience;
    TLoginDlg dialog(*MainDatas(), "ona", patience, nullptr);
    dialog.show();
    dialog.findChild<QLineEdit *>("PassEdit")->setText("kitas");
    pressButton(dialog, "&Prisijungti");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(
        dialog.findChild<QLabel *>("refusal")->text().startsWith("Neteisingas vardas arba slaptažodis."));
    EXPECT_EQ(dialog.findChild<QLineEdit *>("NameEdit")->text(), "ona");
}

TEST_F(FirstStart, EnterInTheNameGoesToThePassword)
{
    createEmptyBooks(folder(), "ona", "Slaptas1");
    openEmbeddedBooks(folder());
    TLoginPatience patience;
    TLoginDlg dialog(*MainDatas(), {}, patience, nullptr);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    for (const char *text : {"ona", "Slaptas1"}) {
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClicks(dialog.focusWidget(), text);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    }
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(FirstStart, AfterEachWrongPasswordTheNextTryWaitsLonger)
{
    createEmptyBooks(folder(), "ona", "Slaptas1");
    openEmbeddedBooks(folder());
    TLoginPatience patience;
    TLoginDlg dialog(*MainDatas(), "ona", patience, nullptr);
    dialog.show();
    auto *password = dialog.findChild<QLineEdit *>("PassEdit");
    auto *button = dialog.findChild<QPushButton *>("OkBtn");
    const auto refused = [&] { return dialog.findChild<QLabel *>("refusal")->text(); };
    password->setText("kitas");
    pressButton(dialog, "&Prisijungti");
    EXPECT_TRUE(refused().endsWith("galima po 1 s.")) << qPrintable(refused());

    // While it waits, Enter does nothing and typing goes on.
    password->setText("Slaptas1");
    QTest::keyClick(password, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(button->isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([button] { return button->isEnabled(); }, 3000));

    password->setText("vis kitas");
    pressButton(dialog, "&Prisijungti");
    EXPECT_TRUE(refused().endsWith("galima po 2 s.")) << qPrintable(refused());
    ASSERT_TRUE(QTest::qWaitFor([button] { return button->isEnabled(); }, 5000));
    password->setText("Slaptas1");
    QTest::keyClick(password, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST(NewBooks, AsksForTheAdministratorOfEmptyBooks)
{
    TNewBooksDlg dialog("/tmp/knygos", nullptr);
    dialog.show();
    const auto edits = dialog.findChildren<QLineEdit *>();
    ASSERT_EQ(edits.size(), 3);
    EXPECT_FALSE(edits[0]->isEnabled());
    dialog.findChild<QRadioButton *>("EmptyRadio")->setChecked(true);
    EXPECT_TRUE(edits[0]->isEnabled());
    EXPECT_EQ(refusalOf(dialog), "Neįvestas administratoriaus vardas");

    edits[0]->setText("ona");
    EXPECT_EQ(refusalOf(dialog), "Neįvestas slaptažodis");
    EXPECT_EQ(dialog.focusWidget(), edits[1]);

    edits[1]->setText("vienas");
    edits[2]->setText("kitas");
    EXPECT_EQ(refusalOf(dialog), "Slaptažodžiai nesutampa");

    edits[1]->setText("Ω");
    edits[2]->setText("Ω");
    EXPECT_EQ(refusalOf(dialog), "Simbolio „Ω“ čia naudoti negalima");

    edits[1]->setText("vienas");
    edits[2]->setText("vienas");
    pressButton(dialog, "&Sukurti");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.demonstration());
    EXPECT_EQ(dialog.administrator(), "ona");
}

TEST(NewBooks, ThoseOfANewInstitutionAskForNothingHere)
{
    TNewBooksDlg dialog("/tmp/knygos", nullptr);
    dialog.show();
    dialog.findChild<QRadioButton *>("NewRadio")->setChecked(true);
    EXPECT_FALSE(dialog.findChild<QLineEdit *>("NameEdit")->isEnabled());
    pressButton(dialog, "&Sukurti");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_TRUE(dialog.newInstitution());
}

TEST(NewBooks, EnterGoesToTheNextFieldUntilAllIsThere)
{
    TNewBooksDlg dialog("/tmp/knygos", nullptr);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    dialog.findChild<QRadioButton *>("EmptyRadio")->setChecked(true);
    dialog.findChild<QLineEdit *>("NameEdit")->setFocus();
    for (const char *text : {"ona", "vienas", "vienas"}) {
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClicks(dialog.focusWidget(), text);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    }
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.administrator(), "ona");
    EXPECT_EQ(dialog.password(), "vienas");
}
