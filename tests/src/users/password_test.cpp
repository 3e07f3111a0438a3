#include "host/data/login.h"
#include "tests/src/users/users.h"

#include <QLineEdit>
#include <QStyle>

namespace {
class UserPassword : public Users {};
ON_BOTH_ENGINES(UserPassword);
} // namespace

TEST_P(UserPassword, AnUnchangedPasswordIsNotAskedForAgain)
{
    user(1, "ona", true);
    EXPECT_TRUE(change(1, [](TEditUserDlg &dialog) {
        type(dialog.NameEdit, "Kita");
        pressButton(dialog, "Iš&saugoti");
    }));
}

TEST_P(UserPassword, AChangedPasswordIsConfirmedOrNothingIsSaved)
{
    user(1, "ona", true);
    EXPECT_TRUE(change(1, [](TEditUserDlg &dialog) {
        type(dialog.PassEdit, "Nauja ");
        {
            OnNextDialog<TConfPassFrm> mistyped([](TConfPassFrm &shown) {
                EXPECT_EQ(shown.windowTitle(), "Patvirtinkite slaptažodį");
                EXPECT_EQ(shown.ConfEdit->echoMode(), QLineEdit::Password);
                type(shown.ConfEdit, "nauja ");
                pressButton(shown, "&Gerai");
            });
            pressButton(dialog, "Iš&saugoti");
        }
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(storedUsers(), QStringList("1|ona|Ona|Onaitė|slapta|0|1"));
        OnNextDialog<TConfPassFrm> right([](TConfPassFrm &shown) {
            type(shown.ConfEdit, "Nauja ");
            QTest::keyClick(&shown, Qt::Key_Escape);
        });
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(storedUsers(), QStringList("1|ona|Ona|Onaitė|Nauja |0|1"));
}

TEST_P(UserPassword, OnlyTheTypedTextConfirmsAPassword)
{
    const auto confirmedBy = [](const QString &typed, const QString &password) {
        OnNextDialog<TConfPassFrm> asked([&typed](TConfPassFrm &shown) {
            type(shown.ConfEdit, typed);
            pressButton(shown, "&Gerai");
        });
        return Confpas::ShowPass(AnsiString(password));
    };
    EXPECT_TRUE(confirmedBy("Slapta ", "Slapta "));
    EXPECT_FALSE(confirmedBy("Slapta", "Slapta "));
    EXPECT_FALSE(confirmedBy("slapta ", "Slapta "));
    EXPECT_TRUE(confirmedBy("", ""));
    EXPECT_EQ(Confpas::ConfPassFrm, nullptr);
}

TEST_P(UserPassword, APasswordSavedWithTrailingBlanksLetsInWithThemOnly)
{
    EXPECT_TRUE(add(1, [](TEditUserDlg &dialog) {
        fill(dialog, "jonas");
        giveRight(dialog);
        dialog.cb_userAdmin->setChecked(true);
        type(dialog.PassEdit, "raktas  ");
        OnNextDialog<TConfPassFrm> confirm([](TConfPassFrm &shown) {
            type(shown.ConfEdit, "raktas  ");
            pressButton(shown, "&Gerai");
        });
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_FALSE(logIn(*MainDatas(), "jonas", "raktas"));
    EXPECT_FALSE(logIn(*MainDatas(), "jonas", "raktas "));
    EXPECT_TRUE(logIn(*MainDatas(), "jonas", "raktas  "));
    EXPECT_EQ(CurrentUser().workPlaces, 1);
    EXPECT_TRUE(CurrentUser().userAdmin);
}

TEST_P(UserPassword, SavingAUserWithoutRightsKeepsHisPassword)
{
    user(3, "ona", true, 0);
    EXPECT_TRUE(change(3, [](TEditUserDlg &dialog) {
        fill(dialog, "ona");
        giveRight(dialog);
        dialog.cb_userAdmin->setChecked(true);
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(storedUsers(), QStringList("3|ona|Jonas|Jonaitis|slapta|0|1"));
}

TEST_P(UserPassword, APasswordTakenAwayIsGone)
{
    user(3, "ona", true);
    EXPECT_TRUE(change(3, [](TEditUserDlg &dialog) {
        type(dialog.PassEdit, "");
        OnNextDialog<TConfPassFrm> confirm([](TConfPassFrm &shown) { pressButton(shown, "&Gerai"); });
        pressButton(dialog, "Iš&saugoti");
    }));
    EXPECT_EQ(value(budget(), "select usr_pasw from bd_usr"), "");
}

TEST_P(UserPassword, PasswordsAreShownAsStars)
{
    add(1, [](TEditUserDlg &dialog) {
        EXPECT_EQ(dialog.PassEdit->style()->styleHint(QStyle::SH_LineEdit_PasswordCharacter, nullptr,
                                                      dialog.PassEdit),
                  '*');
        pressButton(dialog, "&Atšaukti");
    });
}
