#include "tests/host/app/institutions.h"

#include "host/app/login_dialog.h"
#include "host/app/new_books_dialog.h"
#include "tests/host/books_settings.h"
#include "tests/support/engines.h"
#include "tests/support/refusal.h"

#include <QRadioButton>
#include <QStandardPaths>

namespace {

class FirstBooks : public Workstation {
protected:
    std::optional<TBooksSettings> start(const TOptions &options = {})
    {
        return openFirstBooks(options, nullptr);
    }
    void giveUpAfter(const QStringList &rows, const std::function<void()> &action)
    {
        OnNextDialog<TInstitutionsDlg> asked([&rows](TInstitutionsDlg &dialog) {
            EXPECT_EQ(shownRows(dialog), rows);
            dialog.reject();
        });
        action();
    }
};

class OpenedElsewhere : public OnBothEngines {
protected:
    void SetUp() override
    {
        OnBothEngines::SetUp();
        books = settingsOf(finSettings(), ravlSettings(), folder());
        if (engine() == Engine::PostgreSql)
            books.connection += " password=slapta";
        writeKnownBooks(institutionsFile(), {{.name = "Mokykla", .books = books}});
    }
    void TearDown() override
    {
        setProgramStarter({});
        setMainDatas(nullptr);
        QFile::remove(institutionsFile());
        OnBothEngines::TearDown();
    }

    TBooksSettings books;
};
ON_BOTH_ENGINES(OpenedElsewhere);

} // namespace

TEST_F(FirstBooks, OneKnownInstitutionOpensUnasked)
{
    know({books("a", "Mokykla")});
    ASSERT_TRUE(start());
    EXPECT_EQ(organisationName(), "Mokykla");
}

TEST_F(FirstBooks, SeveralAreOfferedAndTheChosenOneOpens)
{
    know({books("a", "Mokykla"), books("b", "Gimnazija")});
    OnNextDialog<TInstitutionsDlg> asked([](TInstitutionsDlg &dialog) {
        EXPECT_EQ(shownRows(dialog), QStringList({"*Mokykla", "Gimnazija"}));
        QTest::keyClick(dialog.findChild<QLineEdit *>("FilterEdit"), Qt::Key_Down);
        pressButton(dialog, "&Atidaryti");
    });
    const auto opened = start();
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->folder, folder("b"));
    EXPECT_EQ(organisationName(), "Gimnazija");
}

TEST_F(FirstBooks, TheCommandLineAndTheSettingsFileGoFirst)
{
    const TKnownBooks other = books("c", "Darželis");
    know({books("a", "Mokykla"), books("b", "Gimnazija")});
    ASSERT_TRUE(start({.data = folder("c")}));
    EXPECT_EQ(organisationName(), "Darželis");
    ASSERT_TRUE(start({.known = keyOf(readKnownBooks(institutionsFile()).at(1).books)}));
    EXPECT_EQ(organisationName(), "Gimnazija");
    writeBooksSettings(QFileInfo(institutionsFile()).path() + "/knygos.ini", other.books);
    ASSERT_TRUE(start());
    EXPECT_EQ(organisationName(), "Darželis");
}

TEST_F(FirstBooks, ASingleOneThatDoesNotOpenIsToldAndNoOtherTakesItsPlace)
{
    const QByteArray gone = R"({"name":"Mokykla","folder":")" + folder("nera").toUtf8() + "\"}\n";
    for (const QByteArray &line :
         {gone, QByteArray(R"({"name":"Mokykla","server":"host=/nera port=1 user=x"})"),
          QByteArray(R"({"name":"Mokykla","folder":"/kny)")}) {
        QDir().mkpath(QFileInfo(institutionsFile()).path());
        writeFile(institutionsFile(), line);
        NextBoxes told{QMessageBox::Ok};
        giveUpAfter({line.endsWith("kny") ? "*(sugadintas įrašas)" : "*Mokykla"},
                    [this] { EXPECT_FALSE(start()); });
        EXPECT_FALSE(told.at(0).text.isEmpty());
        EXPECT_EQ(MainDatas(), nullptr);
    }
    EXPECT_FALSE(QDir(folder("nera")).exists());
}

TEST_F(FirstBooks, AListThatCannotBeReadIsToldAndOpensNothing)
{
    QDir().mkpath(institutionsFile());
    EXPECT_TRUE(refusalOf<EConvertError>([this] { start(); }).contains("istaigos.jsonl"));
    EXPECT_EQ(MainDatas(), nullptr);
}

TEST_F(FirstBooks, WhereNoneIsKnownTheUsualFolderIsAskedAbout)
{
    OnNextDialog<TNewBooksDlg> asked([](TNewBooksDlg &dialog) { dialog.reject(); });
    EXPECT_FALSE(start());
    EXPECT_TRUE(asked.came());
}

TEST_F(FirstBooks, BooksThatAreElsewhereAlreadyCanBeAddedInsteadOfNewOnes)
{
    OnNextDialog<TNewBooksDlg> asked([](TNewBooksDlg &dialog) {
        dialog.findChild<QRadioButton *>("ExistingRadio")->setChecked(true);
        pressButton(dialog, "&Sukurti");
    });
    giveUpAfter({}, [this] { EXPECT_FALSE(start()); });
    EXPECT_TRUE(asked.came());
}

TEST_F(FirstBooks, AnInstitutionThatIsNoLongerOnTheListIsNotReplaced)
{
    know({books("a", "Mokykla")});
    EXPECT_TRUE(refusalOf<EConvertError>([this] { start({.known = "nera"}); }).contains("nebėra"));
    EXPECT_EQ(MainDatas(), nullptr);
}

TEST_F(FirstBooks, OtherBooksReplaceTheOpenOnesOnlyWhenTheyOpen)
{
    know({books("a", "Mokykla")});
    ASSERT_TRUE(start());
    know({books("b", "Gimnazija"), readKnownBooks(institutionsFile()).first()});
    giveUpAfter({"*Gimnazija", "Mokykla"}, [] { EXPECT_FALSE(openOtherBooks(nullptr)); });
    EXPECT_EQ(organisationName(), "Mokykla");
    OnNextDialog<TInstitutionsDlg> chosen(
        [](TInstitutionsDlg &dialog) { pressButton(dialog, "&Atidaryti"); });
    EXPECT_EQ(openOtherBooks(nullptr)->folder, folder("b"));
    EXPECT_EQ(organisationName(), "Gimnazija");
}

TEST_F(FirstBooks, TheOpenBooksAreRememberedUnderTheirPresentName)
{
    know({books("b", "Gimnazija"), books("a", "Mokykla")});
    const auto opened = start({.data = folder("a")});
    MainDatas()->mnFin_Db()->ExecSQL("update bd_org set org_pavad = 'Progimnazija'");
    rememberInstitution(*opened);
    EXPECT_EQ(knownNames(), QStringList({"Progimnazija", "Gimnazija"}));
}

TEST_F(FirstBooks, TheLoginLeadsToAnotherInstitution)
{
    know({books("a", "Mokykla")});
    ASSERT_TRUE(start());
    TLoginPatience patience;
    TLoginDlg login(*MainDatas(), "ona", patience, nullptr);
    login.show();
    pressButton(login, "&Kita įstaiga…");
    EXPECT_EQ(login.result(), TLoginDlg::OtherBooks);
}

// Other people of the machine see the command line.
TEST_P(OpenedElsewhere, IsStartedAsAProcessWithoutAPasswordInItsArguments)
{
    QStringList said;
    setProgramStarter([&said](const QStringList &arguments) {
        said = arguments;
        return true;
    });
    OnNextDialog<TInstitutionsDlg> chosen(
        [](TInstitutionsDlg &dialog) { pressButton(dialog, "&Atidaryti"); });
    openOtherWindow(nullptr);
    ASSERT_EQ(said.size(), 2);
    EXPECT_FALSE(said.join(' ').contains("slapta"));
    EXPECT_EQ(said.first(), engine() == Engine::Sqlite ? "--data" : "--known");

    // The other process finds the same books by what was said.
    const auto opened = openFirstBooks(readOptions(QStringList{"velmora-host"} + said), nullptr);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->folder, books.folder);
    EXPECT_EQ(opened->connection, books.connection);
}

TEST_P(OpenedElsewhere, IsSaidWhenItCannotBeStarted)
{
    setProgramStarter([](const QStringList &) { return false; });
    OnNextDialog<TInstitutionsDlg> chosen([](TInstitutionsDlg &dialog) {
        NextBoxes told{QMessageBox::Ok};
        pressButton(dialog, "&Atidaryti");
        EXPECT_EQ(told.at(0).text, "Nepavyko paleisti programos kitai įstaigai.");
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    openOtherWindow(nullptr);
}
