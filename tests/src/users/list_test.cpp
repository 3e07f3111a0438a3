#include "tests/src/users/users.h"

#include <QAction>

namespace {

class UserList : public Users {
protected:
    void TearDown() override
    {
        close();
        Users::TearDown();
    }
    void open()
    {
        frm = createForm<TUsersFrm>(nullptr);
        frm->show();
    }
    void close()
    {
        if (frm)
            frm->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QStringList shown() const
    {
        QStringList texts;
        for (int row = 0; row < frm->dataSet()->RecordCount(); ++row)
            texts << frm->dataSet()
                         ->index(row, frm->dataSet()->FieldByName("usr_name")->index())
                         .data()
                         .toString();
        return texts;
    }

    QPointer<TUsersFrm> frm;
};
ON_BOTH_ENGINES(UserList);

} // namespace

TEST_P(UserList, TheFirstNewUserGetsTheIdOneAndBecomesCurrent)
{
    open();
    EXPECT_EQ(frm->windowTitle(), "Vartotojai");
    EXPECT_EQ(Userslist::UsersFrm, frm);
    OnNextDialog<TEditUserDlg> dialog([](TEditUserDlg &editor) {
        fill(editor, "jonas");
        giveRight(editor);
        editor.cb_userAdmin->setChecked(true);
        pressButton(editor, "Iš&saugoti");
    });
    frm->NewBtnClick();
    EXPECT_EQ(frm->currentKey().toInt(), 1);
    EXPECT_EQ(shown(), QStringList("jonas"));
}

TEST_P(UserList, AnEditedUserIsNotReadAgain)
{
    user(1, "ona", true);
    open();
    OnNextDialog<TEditUserDlg> dialog([](TEditUserDlg &editor) {
        type(editor.LogNameEdit, "kita");
        pressButton(editor, "Iš&saugoti");
    });
    frm->EditBtnClick();
    EXPECT_EQ(shown(), QStringList("ona"));
    frm->RefreshBtnClick();
    EXPECT_EQ(shown(), QStringList("kita"));
}

TEST_P(UserList, DeletingTakesTheRightsAlongEvenOfTheLastAdministrator)
{
    user(1, "ona", true);
    user(2, "ada", false);
    open();
    NextBoxes box{QMessageBox::Yes};
    frm->DelBtnClick();
    EXPECT_EQ(box.at(0).kind, 18);
    EXPECT_EQ(box.at(0).text, "Ar tikrai norite ištrinti?");
    EXPECT_EQ(shown(), QStringList("ada"));
    EXPECT_EQ(storedRights(), QStringList("2|1|1"));
    EXPECT_FALSE(frm->acDelete->isEnabled()) << "one user is left";
}

TEST_P(UserList, ADeleteThatFailsIsRolledBackWhole)
{
    user(1, "ona", true);
    user(2, "ada", true);
    const bool isFile = engine() == Engine::Sqlite;
    budget().nativeExec(isFile ? "create trigger t_fail before delete on bd_usr begin "
                                 "select raise(abort, 'sugadinta tyčia'); end"
                               : "create function f_fail() returns trigger language plpgsql as "
                                 "$$ begin raise exception 'sugadinta tyčia'; end $$;"
                                 "create trigger t_fail before delete on bd_usr for each row "
                                 "execute function f_fail()");
    open();
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    frm->acDelete->trigger();
    EXPECT_TRUE(boxes.at(1).text.contains("sugadinta tyčia"));
    EXPECT_FALSE(budget().InTransaction());
    EXPECT_EQ(storedRights(), QStringList({"1|1|1", "2|1|1"}));
}

TEST_P(UserList, WhoMayNotAdministerMayOnlyOpen)
{
    user(1, "ona", true);
    user(2, "ada", true);
    CurrentUser().userAdmin = false;
    open();
    EXPECT_FALSE(frm->acNew->isEnabled());
    EXPECT_FALSE(frm->acDelete->isEnabled());
    EXPECT_TRUE(frm->acEdit->isEnabled());
}

TEST_P(UserList, WhoMayAdministerIsOfferedToChangeThoughHeMayOnlyLook)
{
    user(1, "ona", true);
    CurrentUser().viewOnly = true;
    open();
    EXPECT_EQ(frm->acEdit->text(), "&Keisti");
    CurrentUser().userAdmin = false;
    frm->RefreshBtnClick();
    EXPECT_EQ(frm->acEdit->text(), "&Peržiūrėti");
}

TEST_P(UserList, AUserDeletedElsewhereIsToldBeforeAnythingIsTyped)
{
    user(1, "ona", true, 0);
    user(2, "ada", true);
    open();
    frm->RefreshData(1);
    secondRavl()->ExecSQL("delete from bd_usr where usr_id = 1");
    NextBoxes told{QMessageBox::Ok};
    frm->acEdit->trigger();
    EXPECT_EQ(told.at(0).text, "Įrašas jau ištrintas kitoje darbo vietoje");
    EXPECT_EQ(shown(), QStringList("ada"));
}

TEST_P(UserList, CtrlEnterSavesAndBeginsTheNextUser)
{
    open();
    OnNextDialog<TEditUserDlg> first([](TEditUserDlg &editor) {
        fill(editor, "jonas");
        giveRight(editor);
        editor.cb_userAdmin->setChecked(true);
        QTest::keyClick(&editor, Qt::Key_Return, Qt::ControlModifier);
    });
    OnNextDialog<TEditUserDlg> next([](TEditUserDlg &editor) {
        EXPECT_EQ(editor.LogNameEdit->text(), "");
        fill(editor, "petras");
        giveRight(editor);
        pressButton(editor, "Iš&saugoti");
    });
    frm->NewBtnClick();
    EXPECT_EQ(shown(), QStringList({"jonas", "petras"}));
    EXPECT_EQ(storedRights(), QStringList({"1|1|1", "2|1|1"}));
}
