// Books on a server where each person has a login of his own: what the editor and the list do to the logins.

#include "host/data/login.h"
#include "host/data/own_login.h"
#include "tests/src/users/users.h"
#include "tests/support/own_logins.h"

namespace {

class UsersWithLogins : public WithOwnLogins<Users> {
protected:
    void SetUp() override
    {
        Users::SetUp();
        person(1, "adm", false, true);
        person(2, "buh", false, false);
        owner = open(ravlSettings());
        owner->nativeExec("insert into bd_usrkdv values (1, 1, 65535), (2, 1, 1)");
        giveLogins();
        ASSERT_TRUE(logIn(WithOwnLogins::books(), login("adm"), "slapta"));
    }
    void TearDown() override
    {
        owner.reset();
        setMainDatas(nullptr);
        WithOwnLogins::TearDown();
    }

    static void confirms(const QString &password)
    {
        type(Confpas::ConfPassFrm->ConfEdit, password);
        pressButton(*Confpas::ConfPassFrm, "&Gerai");
    }
    static void save(TEditUserDlg &dialog, const QString &password = {})
    {
        std::optional<OnNextDialog<TConfPassFrm>> asked;
        if (!password.isEmpty()) {
            type(dialog.PassEdit, password);
            asked.emplace([password](TConfPassFrm &) { confirms(password); });
        }
        pressButton(dialog, "Iš&saugoti");
    }
    void addRasa()
    {
        EXPECT_TRUE(add(9, [](TEditUserDlg &dialog) {
            fill(dialog, login("r"));
            giveRight(dialog);
            save(dialog, "raktas");
        }));
    }
    bool canLogIn(const QString &name, const QString &password)
    {
        TSessionSettings settings = booksAs(WithOwnLogins::books(), name, password).books().fin;
        try {
            TDatabase(settings).Open();
            return true;
        } catch (const EDatabaseError &) {
            return false;
        }
    }

    std::unique_ptr<TDatabase> owner;
};
ON_ENGINE(UsersWithLogins, Engine::PostgreSql);

} // namespace

TEST_P(UsersWithLogins, ANewUserCanLogInAtOnce)
{
    addRasa();
    EXPECT_EQ(groupsOf(login("r")), "buhalteriai");
    EXPECT_TRUE(canLogIn(login("r"), "raktas"));
}

TEST_P(UsersWithLogins, TheLoginFollowsNamePasswordAndFlags)
{
    addRasa();
    EXPECT_TRUE(change(9, [](TEditUserDlg &dialog) {
        type(dialog.LogNameEdit, login("n"));
        dialog.cb_tikPerz->setChecked(true);
        save(dialog, "naujas");
    }));
    EXPECT_EQ(groupsOf(login("r")), "nėra");
    EXPECT_EQ(groupsOf(login("n")), "ziurovai");
    EXPECT_TRUE(canLogIn(login("n"), "naujas"));
    EXPECT_FALSE(canLogIn(login("n"), "raktas"));

    TUsersFrm *list = createForm<TUsersFrm>(nullptr);
    list->RefreshData(9);
    NextBoxes sure{QMessageBox::Yes};
    list->findChild<QAction *>("acDelete")->trigger();
    EXPECT_EQ(groupsOf(login("n")), "nėra");
    list->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_P(UsersWithLogins, ASaveThatFailsLeavesNeitherRowNorLogin)
{
    owner->nativeExec(
        "create function f_fail() returns trigger language plpgsql as "
        "$$ begin raise exception 'sugadinta tyčia'; end $$;"
        "create trigger t_fail before insert on bd_usrkdv for each row execute function f_fail()");
    EXPECT_TRUE(add(9, [this](TEditUserDlg &dialog) {
        fill(dialog, login("r"));
        giveRight(dialog);
        NextBoxes shown{QMessageBox::Ok};
        save(dialog);
        EXPECT_EQ(shown.at(0).text, "sugadinta tyčia");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.LogNameEdit->text(), login("r"));
        EXPECT_EQ(storedUsers().size(), 2);
        EXPECT_EQ(groupsOf(login("r")), "nėra");
        owner->nativeExec("drop trigger t_fail on bd_usrkdv");
        save(dialog);
    }));
    EXPECT_EQ(groupsOf(login("r")), "buhalteriai");
    EXPECT_EQ(storedRights().constLast(), "9|1|1");
}

TEST_P(UsersWithLogins, ALoginThatSomebodyElseHasIsRefusedAndTheEditorStays)
{
    EXPECT_FALSE(add(9, [](TEditUserDlg &dialog) {
        fill(dialog, "postgres");
        giveRight(dialog);
        EXPECT_EQ(refusal(dialog), "Prisijungimo vardas „postgres“ serveryje jau užimtas: parinkite kitą.");
        EXPECT_EQ(storedUsers().size(), 2);
        pressButton(dialog, "&Atšaukti");
    }));
}

TEST_P(UsersWithLogins, ABookkeeperSeesTheUsersWithoutTheirPasswords)
{
    ASSERT_TRUE(logIn(WithOwnLogins::books(), login("buh"), "slapta"));
    CurrentUser().workPlaces = 0xFFFF;
    TUsersFrm *list = createForm<TUsersFrm>(nullptr);
    EXPECT_EQ(list->dataSet()->RecordCount(), 2);
    EXPECT_FALSE(list->dataSet()->FindField("usr_pasw"));
    list->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    change(1, [](TEditUserDlg &dialog) {
        EXPECT_EQ(dialog.LogNameEdit->text(), login("adm"));
        EXPECT_EQ(dialog.PassEdit->text(), QString());
        EXPECT_FALSE(dialog.OkBtn->isEnabled());
        pressButton(dialog, "&Atšaukti");
    });
}
