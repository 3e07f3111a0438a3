#include "host/app/login.h"
#include "host/app/login_dialog.h"
#include "host/app/main_window.h"
#include "host/data/organisation.h"
#include "tests/host/app/institutions.h"

namespace {

class Entering : public Workstation {
protected:
    void TearDown() override
    {
        window.reset();
        package.reset();
        Workstation::TearDown();
    }

    // The user in the login of this institution.
    OnNextDialog<TLoginDlg> atLoginOf(const QString &institution,
                                      const std::function<void(TLoginDlg &)> &does) const
    {
        return OnNextDialog<TLoginDlg>([this, institution, does](TLoginDlg &login) {
            EXPECT_EQ(window->windowTitle(), institution + " – Velmora");
            EXPECT_TRUE(login.findChild<QLabel *>()->text().contains(institution));
            does(login);
        });
    }
    static void asksForOther(TLoginDlg &login) { pressButton(login, "&Kita įstaiga…"); }
    static void logsIn(TLoginDlg &login)
    {
        login.findChild<QLineEdit *>("NameEdit")->setText("ona");
        login.findChild<QLineEdit *>("PassEdit")->setText("x");
        pressButton(login, "&Prisijungti");
    }
    bool enter() { return enterBooks(*window, {}); }

    std::unique_ptr<TLoadedPackage> package =
        std::make_unique<TLoadedPackage>(buildFolder() + "/lib/libvelmora.so");
    std::unique_ptr<TMainWindow> window = std::make_unique<TMainWindow>(*package);
};

} // namespace

TEST_F(Entering, TheLoginLeadsToAnotherInstitutionAndBack)
{
    know({books("a", "Mokykla")});
    const TKnownBooks other = books("b", "Gimnazija");
    const auto first = atLoginOf("Mokykla", [&](TLoginDlg &login) {
        rememberBooks(institutionsFile(), other);
        asksForOther(login);
    });
    OnNextDialog<TInstitutionsDlg> givesUp([](TInstitutionsDlg &dialog) { dialog.reject(); });
    const auto again = atLoginOf("Mokykla", asksForOther);
    OnNextDialog<TInstitutionsDlg> opens([](TInstitutionsDlg &dialog) {
        EXPECT_EQ(shownRows(dialog), QStringList({"*Gimnazija", "Mokykla"}));
        pressButton(dialog, "&Atidaryti");
    });
    const auto last = atLoginOf("Gimnazija", logsIn);
    EXPECT_TRUE(enter());
    EXPECT_EQ(window->windowTitle(), "Gimnazija – Velmora");
    EXPECT_EQ(knownNames(), QStringList({"Gimnazija", "Mokykla"}));
}

TEST_F(Entering, TheWaitAfterAWrongPasswordIsNotShortenedByAskingForOtherBooks)
{
    know({books("a", "Mokykla")});
    const auto wrongly = [](TLoginDlg &login) {
        login.findChild<QLineEdit *>("NameEdit")->setText("ona");
        login.findChild<QLineEdit *>("PassEdit")->setText("kitas");
        pressButton(login, "&Prisijungti");
        return login.findChild<QLabel *>("refusal")->text();
    };
    const auto first = atLoginOf("Mokykla", [&wrongly](TLoginDlg &login) {
        EXPECT_TRUE(wrongly(login).endsWith("galima po 1 s."));
        asksForOther(login);
    });
    OnNextDialog<TInstitutionsDlg> givesUp([](TInstitutionsDlg &dialog) { dialog.reject(); });
    const auto again = atLoginOf("Mokykla", [&wrongly](TLoginDlg &login) {
        auto *button = login.findChild<QPushButton *>("OkBtn");
        ASSERT_TRUE(QTest::qWaitFor([button] { return button->isEnabled(); }, 30'000));
        EXPECT_EQ(login.findChild<QLabel *>("refusal")->text(), "") << "this one has refused nobody";
        const QString told = wrongly(login);
        EXPECT_TRUE(told.endsWith("galima po 2 s.")) << qPrintable(told);
        login.reject();
    });
    EXPECT_FALSE(enter());
}

TEST_F(Entering, AWaitThatIsNotOverHoldsTheNextLoginToo)
{
    const TBooksSettings known = books("a", "Mokykla").books;
    TLoginPatience patience;
    for (int tries = 0; tries < 6; ++tries)
        patience.refused();
    TLoginDlg dialog(known, "Mokykla", "ona", patience, nullptr);
    EXPECT_FALSE(dialog.findChild<QPushButton *>("OkBtn")->isEnabled());
    EXPECT_TRUE(dialog.findChild<QLabel *>("refusal")->text().startsWith("Kitą kartą bandyti galima po "));
}

TEST_F(Entering, OnlyWhereSomebodyLoggedInIsRemembered)
{
    books("a", "Mokykla");
    const auto login = atLoginOf("Mokykla", [](TLoginDlg &dialog) { dialog.reject(); });
    EXPECT_FALSE(enterBooks(*window, {.data = folder("a")}));
    EXPECT_EQ(knownNames(), QStringList());
}

TEST_F(Entering, AnInstitutionThatIsRenamedIsKnownByItsNewName)
{
    know({books("a", "Mokykla")});
    const auto login = atLoginOf("Mokykla", logsIn);
    ASSERT_TRUE(enter());
    MainDatas()->mnFin_Db()->ExecSQL("update bd_org set org_pavad = 'Progimnazija'");
    OrganisationChanged();
    EXPECT_EQ(knownNames(), QStringList{"Progimnazija"});
    EXPECT_EQ(window->windowTitle(), "Progimnazija – Velmora");
}

TEST_F(Entering, WhoMayOnlyLookComesToOtherInstitutionsToo)
{
    const TKnownBooks school = books("a", "Mokykla");
    {
        TDatabase ravl(school.books.books().ravl);
        ravl.Open();
        ravl.ExecSQL("update bd_usr set usr_perziurai = 1, usr_user_admin = 0");
    }
    know({books("b", "Gimnazija"), school});
    OnNextDialog<TInstitutionsDlg> opens([](TInstitutionsDlg &dialog) {
        QTest::keyClick(dialog.findChild<QLineEdit *>("FilterEdit"), Qt::Key_Down);
        pressButton(dialog, "&Atidaryti");
    });
    const auto login = atLoginOf("Mokykla", logsIn);
    NextBoxes told{QMessageBox::Ok};
    ASSERT_TRUE(enter());
    EXPECT_EQ(knownNames(), QStringList({"Mokykla", "Gimnazija"}));

    OnNextDialog<TInstitutionsDlg> elsewhere([](TInstitutionsDlg &dialog) {
        dialog.findChild<QLineEdit *>("FilterEdit")->setText("gimn");
        pressButton(dialog, "&Atidaryti");
    });
    QStringList said;
    setProgramStarter([&said](const QStringList &arguments) {
        said = arguments;
        return true;
    });
    window->findChild<QAction *>("acOtherInstitution")->trigger();
    EXPECT_EQ(said, QStringList({"--data", folder("b")}));
    EXPECT_EQ(organisationName(), "Mokykla");
}

TEST_F(Entering, AListThatCannotBeWrittenKeepsNobodyOut)
{
    books("a", "Mokykla");
    QDir().mkpath(institutionsFile());
    const auto login = atLoginOf("Mokykla", logsIn);
    NextBoxes told{QMessageBox::Ok};
    EXPECT_TRUE(enterBooks(*window, {.data = folder("a")}));
    EXPECT_TRUE(told.at(0).text.contains("istaigos.jsonl")) << qPrintable(told.at(0).text);
}
