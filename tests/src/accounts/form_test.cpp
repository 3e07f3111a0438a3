#include "src/accounts/Checksas.h"
#include "tests/src/accounts/balance_form.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>

using namespace Qt::StringLiterals;
using namespace Balans;

namespace {

ON_BOTH_ENGINES(BalanceForm);

} // namespace

TEST_P(BalanceForm, ShowsTheAssetsWithTheirAccounts)
{
    open();
    EXPECT_EQ(editor().sheet(), (TBalSheet{{u"TURTAS"_s, TBalKind::SideTotal},
                                           {u"Bankas (2411, 2412)"_s, TBalKind::Detail},
                                           {u"Kasa (262)"_s, TBalKind::Detail},
                                           {u"Iš viso"_s, TBalKind::GroupTotal}}));
    EXPECT_EQ(frm->windowTitle(), u"Balanso forma"_s);
    EXPECT_EQ(frm->panel(0), u"Eilutė:   1   Kolonėlė:   1"_s);
    EXPECT_EQ(BalFrm, frm);
    close();
    EXPECT_EQ(BalFrm, nullptr);
}

TEST_P(BalanceForm, TheTabulatorLeavesTheEditor)
{
    open();
    QTest::keyClick(&editor(), Qt::Key_Tab);
    EXPECT_FALSE(editor().hasFocus());
    EXPECT_EQ(editor().sheet().front().text, u"TURTAS"_s);
}

TEST_P(BalanceForm, TheBarFollowsTheLineOfTheCaret)
{
    open();
    EXPECT_EQ(kinds().currentText(), u"Aktyvo/Pasyvo suminė eilutė"_s);
    EXPECT_TRUE(kinds().isEnabled() && top().isEnabled() && bottom().isEnabled());
    goTo(2, 5);
    EXPECT_EQ(frm->panel(0), u"Eilutė:   2   Kolonėlė:   5"_s);
    EXPECT_EQ(kinds().currentText(), u"Detali eilutė"_s);
    EXPECT_FALSE(kinds().isEnabled() || top().isEnabled() || bottom().isEnabled());
    goTo(4);
    EXPECT_EQ(kinds().currentText(), u"Grupės suminė eilutė"_s);
    EXPECT_TRUE(kinds().isEnabled() && top().isEnabled() && bottom().isEnabled());
    kinds().setCurrentIndex(2);
    frm->TypeBoxChange();
    EXPECT_TRUE(kinds().isEnabled()) << "a detail without accounts";
    EXPECT_FALSE(top().isEnabled());
    kinds().setCurrentIndex(0);
    frm->TypeBoxChange();
    EXPECT_EQ(kinds().currentText(), u"Detali eilutė"_s) << "there is a side total";
}

TEST_P(BalanceForm, ASideThatCannotBeCodedIsNotLeft)
{
    open();
    goTo(1);
    kinds().setCurrentIndex(1);
    frm->TypeBoxChange();
    NextBoxes box{QMessageBox::Ok};
    sides().setCurrentIndex(1);
    EXPECT_EQ(box.at(0).text, u"Truksta lapo suminės eilutes!"_s);
    EXPECT_EQ(sides().currentText(), u"Aktyvas"_s);
    EXPECT_EQ(editor().sheet().front().text, u"TURTAS"_s);
}

TEST_P(BalanceForm, AUserWhoMayOnlyLookChangesNothing)
{
    CurrentUser().viewOnly = true;
    line(u"U0101"_s, u"Be sąskaitos"_s);
    open();
    const QStringList before = dump(books());
    goTo(1, 7);
    QTest::keyClicks(&editor(), u"x("_s);
    QTest::keyClick(&editor(), Qt::Key_Backspace);
    EXPECT_EQ(editor().sheet().front().text, u"TURTAS"_s);
    EXPECT_FALSE(kinds().isEnabled() || top().isEnabled() || bottom().isEnabled());
    EXPECT_FALSE(frm->findChild<QAction *>(u"acSave"_s)->isEnabled());
    saveByKey();
    EXPECT_EQ(dump(books()), before);
    sides().setCurrentIndex(2);
    EXPECT_EQ(editor().sheet().front().text, u"Be sąskaitos"_s);
    sides().setCurrentIndex(0);
    EXPECT_EQ(editor().sheet().front().text, u"TURTAS"_s);
}

TEST_P(BalanceForm, TheCheckListsDetailAccountsThatNoLineClaims)
{
    open();
    account(u"203"_s);
    account(u"9"_s);
    books().ExecSQL(u"update bd_sasplan set sas_tip = 'S' where sas_sasnr = '9'"_s);
    OnNextDialog<Checksas::TCheckSasDlg> dialog([](Checksas::TCheckSasDlg &shown) {
        EXPECT_EQ(shown.windowTitle(), u"Sąskaitos, neįtrauktos į balansą"_s);
        auto *grid = shown.findChild<TDBGrid *>();
        ASSERT_EQ(grid->model()->rowCount(), 1);
        EXPECT_EQ(grid->columns().size(), 1);
        EXPECT_EQ(shown.accounts().FieldByName(u"saskaita"_s)->AsString(), u"203  Sąskaita 203"_s);
        pressButton(shown, u"&Uždaryti"_s);
    });
    frm->findChild<QAction *>(u"acCheck"_s)->trigger();
}

TEST_P(BalanceForm, TheCheckSaysWhenAllAccountsAreClaimed)
{
    NextBoxes box{QMessageBox::Ok};
    Checksas::OpenSasChecker();
    EXPECT_EQ(box.at(0).kind, 33);
    EXPECT_EQ(box.at(0).text, u"Visos sąskaitos įtrauktos į balanso forma"_s);
}
