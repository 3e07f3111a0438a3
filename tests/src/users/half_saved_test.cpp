// A save that fails among the rights, after the user himself is written.

#include "tests/src/users/users.h"

namespace {

class HalfSavedUser : public Users {
protected:
    // A new administrator with rights to both sources, of which the database refuses the second.
    void fillTwoRights(TEditUserDlg &dialog)
    {
        refuseRights("insert", "new.udv_finid = 2");
        fill(dialog, "jonas");
        tick(dialog, {1});
        selectSources(dialog, {0, 1});
        QTest::keyClick(dialog.FinList, Qt::Key_Insert);
        dialog.cb_userAdmin->setChecked(true);
    }
};
ON_BOTH_ENGINES(HalfSavedUser);

const QString oneOfTwo = "Vartotojo duomenys įrašyti, bet teisių įrašyta tik 1 iš 2.";
const QString oldRights = "Vartotojo duomenys įrašyti, bet jo teisės liko senos.";

} // namespace

TEST_P(HalfSavedUser, TellsWhatIsStoredAndCanBeSavedAgain)
{
    EXPECT_TRUE(add(1, [this](TEditUserDlg &dialog) {
        fillTwoRights(dialog);
        NextBoxes shown{QMessageBox::Ok};
        pressButton(dialog, "Iš&saugoti");
        EXPECT_TRUE((shown.at(0).text + shown.at(0).details).contains("sugadinta tyčia"));
        EXPECT_TRUE(shown.at(0).text.contains(oneOfTwo + " Išsaugokite dar kartą."))
            << qPrintable(shown.at(0).text);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(storedUsers().size(), 1);
        EXPECT_EQ(storedRights(), QStringList("1|1|1"));
        allowRights();
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(storedRights(), QStringList({"1|1|1", "1|2|1"}));
}

TEST_P(HalfSavedUser, IsNotOneOfTheOthersWhoMayAdminister)
{
    NextBoxes toldWhenLeft{QMessageBox::Ok};
    add(1, [this](TEditUserDlg &dialog) {
        fillTwoRights(dialog);
        EXPECT_TRUE(refusal(dialog).contains(oneOfTwo));
        allowRights();
        dialog.cb_userAdmin->setChecked(false);
        EXPECT_EQ(refusal(dialog), "Nors vienas vartotojas turi turėti teises administruoti vartotojus!");
        pressButton(dialog, "&Atšaukti");
    });
    EXPECT_EQ(value(budget(), "select usr_user_admin from bd_usr"), "1");
}

TEST_P(HalfSavedUser, LeavingTellsThatItIsStored)
{
    NextBoxes told{QMessageBox::Ok, QMessageBox::Ok};
    EXPECT_TRUE(add(1, [this](TEditUserDlg &dialog) {
        fillTwoRights(dialog);
        pressButton(dialog, "Iš&saugoti");
        pressButton(dialog, "&Atšaukti");
    })) << "the list shows him";
    EXPECT_EQ(told.at(1).kind, 49);
    EXPECT_EQ(told.at(1).text, oneOfTwo);
}

TEST_P(HalfSavedUser, OldRightsThatStillStandAreSaidToStand)
{
    user(1, "ona", true, 5);
    refuseRights("delete", "1 = 1");
    NextBoxes told{QMessageBox::Ok, QMessageBox::Ok};
    EXPECT_TRUE(change(1, [](TEditUserDlg &dialog) {
        type(dialog.NameEdit, "Kita");
        pressButton(dialog, "Iš&saugoti");
        pressButton(dialog, "&Atšaukti");
    }));
    EXPECT_TRUE(told.at(0).text.contains(oldRights)) << qPrintable(told.at(0).text);
    EXPECT_EQ(told.at(1).text, oldRights);
    EXPECT_EQ(storedRights(), QStringList("1|1|5"));
    EXPECT_EQ(value(budget(), "select usr_vardas from bd_usr"), "Kita");
}
