#include "host/app/login_dialog.h"
#include "host/app/new_books_dialog.h"
#include "host/app/setup/setup_dialog.h"
#include "host/app/startup.h"
#include "tests/host/books.h"
#include "tests/support/files.h"
#include "tests/support/message_box.h"
#include "toolkit/text/datetime.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QLockFile>
#include <QPushButton>
#include <QTest>

namespace {

// The set-up of new books, driven as a user does.
class SetUpHands {
public:
    explicit SetUpHands(TSetUpDlg &driven) : dialog(driven) {}

    QString heading() const { return dialog.findChild<QLabel *>("heading")->text(); }
    QString summary() const { return dialog.findChild<QLabel *>("summary")->text(); }
    QLineEdit *edit(const QString &name) const { return dialog.findChild<QLineEdit *>(name); }
    void fill(std::initializer_list<std::pair<const char *, const char *>> fields) const
    {
        for (const auto &[name, text] : fields)
            edit(name)->setText(text);
    }
    void goOn() const { pressButton(dialog, "&Toliau"); }
    void goBack() const { pressButton(dialog, "Atga&l"); }
    // What the page refuses; it stays.
    QString refusal() const
    {
        const QString before = heading();
        NextBoxes told{QMessageBox::Ok};
        goOn();
        EXPECT_EQ(heading(), before);
        return told.at(0).text;
    }
    void fillInstitution() const
    {
        fill({{"PavadEdit", "Žąsų mokykla"}, {"AdrEdit", "Ežero g. 1"}, {"KodasEdit", "190000000"}});
        dialog.findChild<QComboBox *>("SavBox")->setCurrentText("Birštono savivaldybė");
    }
    void fillAdministrator() const
    {
        fill({{"NameEdit", "ona"}, {"PassEdit", "Žąsis 1"}, {"RepeatEdit", "Žąsis 1"}});
    }
    void goToSummary() const
    {
        while (!heading().contains("Santrauka") && !testing::Test::HasFailure())
            goOn();
    }

private:
    TSetUpDlg &dialog;
};

class SetUpDialog : public testing::Test {
protected:
    void SetUp() override { dialog.show(); }

    struct MarchClock {
        MarchClock() { setClock(QDateTime(QDate(2026, 3, 15), QTime(12, 0))); }
        ~MarchClock() { setClock({}); }
    } clock;
    QList<TSetUp> written;
    TSetUpDlg dialog{{}, [this](const TSetUp &chosen) { written << chosen; }, nullptr};
    SetUpHands hands{dialog};
};

} // namespace

TEST_F(SetUpDialog, WritesEverythingOnceAndNotBeforeTheLastPage)
{
    hands.fillInstitution();
    hands.goOn();
    hands.fillAdministrator();
    hands.goToSummary();
    EXPECT_TRUE(written.isEmpty());
    EXPECT_TRUE(hands.summary().contains("Žąsų mokykla")) << qPrintable(hands.summary());
    EXPECT_TRUE(hands.summary().contains("2026 m. kovas")) << qPrintable(hands.summary());
    pressButton(dialog, "Į&rašyti");
    ASSERT_EQ(written.size(), 1);
    const TSetUp &all = written.first();
    EXPECT_EQ(all.institution->adr, "Ežero g. 1");
    EXPECT_EQ(all.institution->kodas, 190000000);
    EXPECT_EQ(all.institution->savivaldybe, 12);
    EXPECT_EQ(all.administrator->name, "ona");
    EXPECT_EQ(all.administrator->password, "Žąsis 1");
    EXPECT_EQ(all.standard.size(), 7);
    EXPECT_EQ(all.startOfWork, QDate(2026, 3, 1));
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(SetUpDialog, APageMayBeLeftEmptyAndComeBackTo)
{
    hands.goOn();
    hands.fillAdministrator();
    hands.goOn();
    dialog.findChild<QCheckBox *>("Step3")->setChecked(false);
    hands.goOn();
    dialog.findChild<QCheckBox *>("StartCheck")->setChecked(false);
    hands.goOn();
    EXPECT_TRUE(hands.summary().startsWith(stepName(SetUpStep::Institution) + ": vėliau"));
    for (int page = 4; page > 0; --page)
        hands.goBack();
    hands.fillInstitution();
    hands.goToSummary();
    pressButton(dialog, "Į&rašyti");
    ASSERT_EQ(written.size(), 1);
    EXPECT_TRUE(written.first().institution);
    EXPECT_FALSE(written.first().standard.contains(SetUpStep::Accounts));
    EXPECT_FALSE(written.first().startOfWork);
}

TEST_F(SetUpDialog, AHalfFilledInstitutionIsRefusedWhereItIsTyped)
{
    hands.fill({{"AdrEdit", "Ežero g. 1"}});
    EXPECT_EQ(hands.refusal(), "Neužpildytas įmonės pavadinimas!");
    hands.fill({{"PavadEdit", "Mokykla Ω"}});
    EXPECT_EQ(hands.refusal(), "Neužpildytas įmonės kodas!");
    hands.fill({{"KodasEdit", "190000000"}});
    EXPECT_EQ(hands.refusal(), "Simbolio „Ω“ čia naudoti negalima");
    EXPECT_EQ(dialog.focusWidget(), hands.edit("PavadEdit"));
    hands.fill({{"PavadEdit", "   "}});
    EXPECT_EQ(hands.refusal(), "Neužpildytas įmonės pavadinimas!");
    EXPECT_EQ(hands.edit("AdrEdit")->text(), "Ežero g. 1");
}

TEST_F(SetUpDialog, AMunicipalityAloneIsNoInstitution)
{
    dialog.findChild<QComboBox *>("SavBox")->setCurrentIndex(3);
    EXPECT_EQ(hands.refusal(), "Neužpildytas įmonės pavadinimas!");
}

TEST_F(SetUpDialog, WithoutAnAdministratorItDoesNotGoOn)
{
    hands.goOn();
    EXPECT_EQ(hands.refusal(), "Neįvestas administratoriaus vardas");
    hands.fill({{"NameEdit", "ona"}});
    EXPECT_EQ(hands.refusal(), "Neįvestas slaptažodis");
    hands.fill({{"PassEdit", "vienas"}, {"RepeatEdit", "kitas"}});
    EXPECT_EQ(hands.refusal(), "Slaptažodžiai nesutampa");
    EXPECT_EQ(dialog.focusWidget(), hands.edit("RepeatEdit"));
}

TEST_F(SetUpDialog, AYearOutsideTheProgramsIsRefused)
{
    hands.goOn();
    hands.fillAdministrator();
    hands.goOn();
    hands.goOn();
    for (const char *year : {"1996", "2101", ""}) {
        hands.fill({{"YearEdit", year}});
        EXPECT_EQ(hands.refusal(), "Metai turi būti nuo 1997 iki 2100");
    }
    hands.fill({{"YearEdit", "2100"}});
    hands.goOn();
    EXPECT_TRUE(hands.heading().contains("Santrauka"));
}

TEST_F(SetUpDialog, TheMonthIsChosenWhileItIsWanted)
{
    hands.goOn();
    hands.fillAdministrator();
    hands.goOn();
    hands.goOn();
    auto *wanted = dialog.findChild<QCheckBox *>("StartCheck");
    auto *month = dialog.findChild<QComboBox *>("MonthBox");
    EXPECT_TRUE(wanted->isChecked());
    EXPECT_TRUE(month->isEnabled());
    QTest::keyClick(month, Qt::Key_Home);
    EXPECT_EQ(dialog.setUp().startOfWork, QDate(2026, 1, 1));
    wanted->click();
    EXPECT_FALSE(month->isEnabled());
    EXPECT_FALSE(dialog.setUp().startOfWork);
}

TEST_F(SetUpDialog, EnterLeadsToTheEndAndEscWritesNothing)
{
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    hands.fillAdministrator();
    for (int page = 0; page < 3; ++page)
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(hands.heading().contains("Santrauka"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(written.isEmpty());
    EXPECT_FALSE(dialog.isVisible());
}

namespace {

class SetUpOfOpenBooks : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        GetPeriod();
    }
    qlonglong rows(TDatabase *db, const QString &table)
    {
        return db->fieldResult("select count(*) from " + table).toLongLong();
    }
    // The whole set-up; true when it wrote.
    bool setUp(const std::function<void(const SetUpHands &)> &atTheEnd = {})
    {
        OnNextDialog<TSetUpDlg> driven([&](TSetUpDlg &dialog) {
            const SetUpHands hands(dialog);
            hands.fillInstitution();
            hands.goOn();
            hands.fillAdministrator();
            hands.goToSummary();
            if (atTheEnd)
                atTheEnd(hands);
            pressButton(dialog, "Į&rašyti");
            if (dialog.isVisible())
                dialog.reject();
        });
        return setUpOpenBooks(nullptr);
    }
};
ON_BOTH_ENGINES(SetUpOfOpenBooks);

} // namespace

TEST_P(SetUpOfOpenBooks, LetsTheAdministratorInAndBooksBeBegun)
{
    EXPECT_FALSE(haveUsers());
    EXPECT_TRUE(setUp());
    EXPECT_TRUE(haveUsers());
    EXPECT_EQ(organisationName(), "Žąsų mokykla");
    EXPECT_EQ(EinPer_Id(), startOfWorkPeriod);
    EXPECT_GT(rows(fin, "bd_sasplan where sas_tip = 'D'"), 100);
    EXPECT_GT(rows(fin, "bd_jve where jve_duom = 1"), 20);
    TLoginPatience patience;
    TLoginDlg login(*MainDatas(), "ona", patience, nullptr);
    login.show();
    login.findChild<QLineEdit *>("PassEdit")->setText("Žąsis 1");
    pressButton(login, "&Prisijungti");
    EXPECT_EQ(login.result(), QDialog::Accepted);
    EXPECT_TRUE(CurrentUser().userAdmin);
    EXPECT_NE(CurrentUser().workPlaces, 0);
}

TEST_P(SetUpOfOpenBooks, OffersOnlyWhatTheBooksDoNotHave)
{
    ravl->ExecSQL(
        "insert into bd_usr (usr_id, usr_name, usr_pasw, usr_user_admin) values (1, 'ona', 'x', 1)");
    addSmallChart(fin);
    OnNextDialog<TSetUpDlg> driven([](TSetUpDlg &dialog) {
        const SetUpHands hands(dialog);
        EXPECT_FALSE(dialog.findChild<QCheckBox *>("Step3")->isEnabled());
        EXPECT_TRUE(dialog.findChild<QCheckBox *>("Step4")->isEnabled());
        hands.goOn();
        EXPECT_FALSE(hands.edit("NameEdit")->isEnabled());
        hands.goToSummary();
        EXPECT_TRUE(hands.summary().contains(stepName(SetUpStep::Accounts) + ": jau yra"));
        pressButton(dialog, "Į&rašyti");
    });
    EXPECT_TRUE(setUpOpenBooks(nullptr));
    EXPECT_EQ(rows(ravl, "bd_usr"), 1);
    EXPECT_GT(rows(fin, "bd_jve"), 20);
    EXPECT_EQ(rows(fin, "bd_org"), 0);
}

TEST_P(SetUpOfOpenBooks, BooksThatHaveEverythingAreToldSo)
{
    EXPECT_TRUE(setUp());
    NextBoxes told{QMessageBox::Ok};
    EXPECT_FALSE(setUpOpenBooks(nullptr));
    EXPECT_EQ(told.at(0).kind, 33);
}

TEST_P(SetUpOfOpenBooks, WhatAnotherStationWroteMeanwhileIsNeitherChangedNorHalfWritten)
{
    NextBoxes told{QMessageBox::Ok};
    EXPECT_FALSE(setUp([this](const SetUpHands &) {
        secondFin()->ExecSQL("insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) "
                             "values (1, '24', 'Pinigai', 'D')");
    }));
    EXPECT_TRUE(told.at(0).text.contains(stepName(SetUpStep::Accounts))) << qPrintable(told.at(0).text);
    EXPECT_EQ(rows(fin, "bd_sasplan"), 1);
    EXPECT_FALSE(haveUsers());
    EXPECT_EQ(rows(fin, "bd_org"), 0);
    EXPECT_FALSE(fin->InTransaction());
    EXPECT_FALSE(ravl->InTransaction());
}

// Sources that are written later give the administrator his rights, and he has them at once.
TEST_P(SetUpOfOpenBooks, RightsThatCameAreThereWithoutANewLogin)
{
    ravl->ExecSQL(
        "insert into bd_usr (usr_id, usr_name, usr_pasw, usr_user_admin) values (1, 'ona', 'x', 1)");
    CurrentUser().id = 1;
    OnNextDialog<TSetUpDlg> driven([](TSetUpDlg &dialog) {
        SetUpHands(dialog).goToSummary();
        pressButton(dialog, "Į&rašyti");
    });
    EXPECT_TRUE(setUpOpenBooks(nullptr));
    EXPECT_EQ(CurrentUser().workPlaces & 1, 1);
}

TEST_F(SetUpDialog, TheInstitutionsMunicipalityBringsTheOthers)
{
    hands.fillInstitution();
    hands.goOn();
    hands.fillAdministrator();
    dialog.findChild<QCheckBox *>("Step2")->setChecked(false);
    hands.goToSummary();
    EXPECT_TRUE(hands.summary().contains("Savivaldybės: bus įrašyta")) << qPrintable(hands.summary());
}

namespace {

class SetUpOfNewBooks : public testing::Test {
protected:
    void TearDown() override { setMainDatas(nullptr); }
    QString refusal(const QString &inFolder)
    {
        try {
            createSetUpBooks(inFolder, {.administrator = TAdministrator{"ona", {}, {}, "x"}});
        } catch (const Exception &error) {
            return error.message();
        }
        return {};
    }

    const QTemporaryDir root{scratchRoot() + "/velmora-XXXXXX"};
    const QString folder = root.filePath("knygos");
};

} // namespace

TEST_F(SetUpOfNewBooks, TakeNoFolderWithOtherFiles)
{
    QDir().mkpath(folder);
    writeFile(folder + "/svarbu.txt", "mano");
    EXPECT_TRUE(refusal(folder).contains("jau yra kitų failų")) << qPrintable(refusal(folder));

    // The user is told before he fills in the pages.
    OnNextDialog<TNewBooksDlg> choice([](TNewBooksDlg &dialog) {
        dialog.findChild<QRadioButton *>("NewRadio")->setChecked(true);
        pressButton(dialog, "&Sukurti");
    });
    EXPECT_THROW(openBooks(TBooksSettings::embedded(folder), nullptr), Exception);
    EXPECT_EQ(contentOf(folder + "/svarbu.txt"), "mano");
}

TEST_F(SetUpOfNewBooks, TakeAFolderInWhichAnotherStartLeftHalfAFile)
{
    QDir().mkpath(folder);
    writeFile(folder + "/velmora_fin.db.new", "pusė");
    EXPECT_EQ(refusal(folder + '/'), QString());
    EXPECT_TRUE(embeddedBooksExist(folder));
}

TEST_F(SetUpOfNewBooks, AreMadeByOneProgramAtATime)
{
    QLockFile other(folder + ".kuriama.lock");
    ASSERT_TRUE(other.lock());
    QDir().mkpath(folder + ".kuriama");
    EXPECT_TRUE(refusal(folder).contains("kuria kita programa")) << qPrintable(refusal(folder));
    EXPECT_TRUE(QDir(folder + ".kuriama").exists());
}

// New books of a folder are there as a whole or not at all.
TEST_F(SetUpOfNewBooks, StandWholeOrNotAtAll)
{
    TSetUp setUp{.administrator = TAdministrator{"ona", {}, {}, "x"},
                 .standard = {SetUpStep::Accounts},
                 .startOfWork = QDate(1900, 1, 1)};
    EXPECT_THROW(createSetUpBooks(folder, setUp), Exception);
    EXPECT_FALSE(QDir(folder).exists());
    EXPECT_FALSE(QDir(folder + ".kuriama").exists()); // a password may stand in it
    setUp.startOfWork = QDate(2026, 5, 17);
    createSetUpBooks(folder, setUp);
    openEmbeddedBooks(folder);
    EXPECT_EQ(EinPer_Date().date(), QDate(2026, 5, 1));
    EXPECT_TRUE(haveUsers());
}
