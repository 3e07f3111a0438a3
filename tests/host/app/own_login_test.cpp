// The way into books of a server where each person has a login of his own.

#include "host/app/institutions.h"
#include "host/app/login.h"
#include "host/app/login_dialog.h"
#include "host/app/main_window.h"
#include "host/app/options.h"
#include "host/data/known_books.h"
#include "host/data/own_login.h"
#include "tests/support/files.h"
#include "tests/support/message_box.h"
#include "tests/support/own_logins.h"

#include <QDir>
#include <QLabel>

namespace {

class EnteringByOwnLogin : public WithOwnLogins<OnBothEngines> {
protected:
    void SetUp() override
    {
        OnBothEngines::SetUp();
        CurrentUser() = {};
        forgetKnown();
        mnFin_Db->ExecSQL("insert into bd_org (org_pavad) values ('Mokykla')");
        person(1, "adm", false, true);
        person(2, "ziu", true, false);
        giveLogins();
    }
    void TearDown() override
    {
        window.reset();
        package.reset();
        setMainDatas(nullptr);
        CurrentUser() = {};
        forgetKnown();
        WithOwnLogins::TearDown();
    }

    static void forgetKnown() { QDir(QFileInfo(institutionsFile()).path()).removeRecursively(); }
    static void tries(TLoginDlg &dialog, const QString &name, const QString &password)
    {
        dialog.findChild<QLineEdit *>("NameEdit")->setText(name);
        dialog.findChild<QLineEdit *>("PassEdit")->setText(password);
        pressButton(dialog, "&Prisijungti");
    }
    bool enter() { return enterBooks(*window, {.server = books().connection}); }

    std::unique_ptr<TLoadedPackage> package =
        std::make_unique<TLoadedPackage>(buildFolder() + "/lib/libvelmora.so");
    std::unique_ptr<TMainWindow> window = std::make_unique<TMainWindow>(*package);
};
ON_ENGINE(EnteringByOwnLogin, Engine::PostgreSql);

} // namespace

TEST_P(EnteringByOwnLogin, TheDialogsNameAndPasswordAreThoseOfTheServer)
{
    OnNextDialog<TLoginDlg> comes([](TLoginDlg &dialog) { tries(dialog, login("adm"), "slapta"); });
    ASSERT_TRUE(enter());
    EXPECT_EQ(CurrentUser().name, login("adm"));
    EXPECT_TRUE(hasOwnLogin());
    EXPECT_EQ(window->windowTitle(), "Mokykla – Velmora");
    const QList<TKnownBooks> known = readKnownBooks(institutionsFile());
    ASSERT_EQ(known.size(), 1);
    EXPECT_EQ(known.first().name, "Mokykla");
    EXPECT_EQ(known.first().books.connection, books().connection) << "no password is kept";
}

TEST_P(EnteringByOwnLogin, AWrongOrExpiredPasswordIsToldAndTheDialogStays)
{
    postgresExec(QString("alter role %1 valid until '2020-01-01'").arg(login("ziu")));
    OnNextDialog<TLoginDlg> comes([](TLoginDlg &dialog) {
        tries(dialog, login("ziu"), "slapta");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(dialog.findChild<QLabel *>("refusal")->text().contains(
            "Neteisingas vardas arba slaptažodis, arba slaptažodžio galiojimo laikas baigėsi."));
        EXPECT_EQ(dialog.findChild<QLineEdit *>("NameEdit")->text(), login("ziu"));
        dialog.reject();
    });
    EXPECT_FALSE(enter());
    EXPECT_FALSE(MainDatas());
}

TEST_P(EnteringByOwnLogin, WhoHasNoRightsIsToldAndTheDialogStays)
{
    const QString role = login("s");
    postgresExec(QString("create role %1 login password 'slapta'").arg(role));
    const auto goes = qScopeGuard([&role] { postgresExec("drop role " + role); });
    OnNextDialog<TLoginDlg> comes([&role](TLoginDlg &dialog) {
        NextBoxes told{QMessageBox::Ok};
        tries(dialog, role, "slapta");
        EXPECT_TRUE(told.at(0).text.contains("teisių dirbti su šiomis knygomis neturite"));
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.findChild<QLineEdit *>("PassEdit")->text(), "slapta");
        dialog.reject();
    });
    EXPECT_FALSE(enter());
}

TEST_P(EnteringByOwnLogin, WhoMayOnlyLookIsLetInToLook)
{
    OnNextDialog<TLoginDlg> comes([](TLoginDlg &dialog) { tries(dialog, login("ziu"), "slapta"); });
    NextBoxes told{QMessageBox::Ok};
    ASSERT_TRUE(enter());
    EXPECT_TRUE(CurrentUser().viewOnly);
    EXPECT_TRUE(MainDatas()->mnFin_Db()->settings().readOnly);
}
