#include "tests/host/controls/bankai_fixture.h"
#include "toolkit/text/format.h"

namespace {
class BrowseCycle : public Bankai {};
ON_BOTH_ENGINES(BrowseCycle);
} // namespace

TEST_P(BrowseCycle, OpensOrderedAsItsStatementSaysAndCountsItsRows)
{
    open();
    EXPECT_EQ(names(), (QStringList{u"Ąžuolo kreditas"_s, u"Citadelė"_s, u"Šiaulių bankas"_s}));
    EXPECT_EQ(frm->panel(0), u"Įrašų kiekis: 3"_s);
    EXPECT_EQ(frm->windowTitle(), u"Bankai"_s);
    EXPECT_EQ(key(), 20);
    EXPECT_EQ(shown(2, 3), QString(u"0%1"_s.arg(FormatSettings().DecimalSeparator) + u"25"_s));
}

TEST_P(BrowseCycle, ItsGlobalNamesTheOpenScreen)
{
    EXPECT_EQ(BankaiFrm, nullptr);
    open();
    EXPECT_EQ(BankaiFrm, frm);
    frm->close();
    EXPECT_EQ(BankaiFrm, nullptr);
}

TEST_P(BrowseCycle, ItsGlobalIsNullAlsoWhenTheWindowIsSimplyDestroyed)
{
    open();
    delete frm;
    EXPECT_EQ(BankaiFrm, nullptr);
}

TEST_P(BrowseCycle, NewRefreshesOnTheKeyThatTheEditorGives)
{
    open();
    QString caption;
    bankEditor = [&](const QString &title, bool isNew, Variant &newKey) {
        EXPECT_TRUE(isNew);
        caption = title;
        addBank(25, u"Medicinos bankas"_s, 0);
        newKey = 25.0;
        return true;
    };
    press(Qt::Key_Insert);
    EXPECT_EQ(caption, u"Naujas bankas"_s);
    EXPECT_EQ(key(), 25);
    EXPECT_EQ(names().size(), 4);
    EXPECT_EQ(frm->panel(0), u"Įrašų kiekis: 4"_s);
}

TEST_P(BrowseCycle, NewThatIsCancelledLeavesTheListAlone)
{
    open();
    frm->NextBtnClick();
    const int before = key();
    frm->NewBtnClick();
    EXPECT_EQ(key(), before);
}

TEST_P(BrowseCycle, EnterAndDoubleClickEditTheCurrentRow)
{
    open();
    frm->LastBtnClick();
    QList<int> edited;
    bankEditor = [&](const QString &caption, bool isNew, Variant &current) {
        EXPECT_FALSE(isNew);
        EXPECT_EQ(caption, u"Bankas"_s);
        edited << current.toInt();
        fin->ExecSQL(u"update bd_bankai set bnk_pavad = 'Antras' where bnk_kodas = 10"_s);
        return true;
    };
    press(Qt::Key_Return);
    EXPECT_EQ(edited, QList<int>{10});
    EXPECT_EQ(key(), 10);
    EXPECT_EQ(names().first(), u"Antras"_s);
    const QRect cell = frm->grid()->visualRect(frm->grid()->model()->index(1, 2));
    QTest::mouseClick(frm->grid()->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseDClick(frm->grid()->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(edited, (QList<int>{10, 20}));
}

TEST_P(BrowseCycle, DeleteAsksAndKeepsTheRowOnNo)
{
    open();
    NextBoxes boxes{QMessageBox::No};
    press(Qt::Key_Delete);
    EXPECT_EQ(boxes.at(0).kind, 18);
    EXPECT_EQ(boxes.at(0).text, u"Ar tikrai norite ištrinti?"_s);
    EXPECT_EQ(stored().size(), 3);
    EXPECT_EQ(key(), 20);
}

TEST_P(BrowseCycle, DeletingALaterRowGoesToTheRowBefore)
{
    open();
    frm->LastBtnClick();
    NextBoxes boxes{QMessageBox::Yes};
    press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(stored(), (QStringList{u"20"_s, u"30"_s}));
    EXPECT_EQ(key(), 30);
    EXPECT_FALSE(fin->InTransaction());
}

TEST_P(BrowseCycle, DeletingTheFirstRowGoesToTheNext)
{
    open();
    NextBoxes boxes{QMessageBox::Yes};
    frm->DelBtnClick();
    EXPECT_EQ(stored(), (QStringList{u"10"_s, u"30"_s}));
    EXPECT_EQ(key(), 30);
}

TEST_P(BrowseCycle, DeletingTheOnlyRowLeavesAnEmptyList)
{
    fin->ExecSQL(u"delete from bd_bankai where bnk_kodas <> 10"_s);
    open();
    NextBoxes boxes{QMessageBox::Yes};
    frm->DelBtnClick();
    EXPECT_TRUE(stored().isEmpty());
    EXPECT_TRUE(frm->currentKey().isNull());
    EXPECT_EQ(frm->panel(0), u"Įrašų kiekis: 0"_s);
    EXPECT_FALSE(frm->acEdit->isEnabled());
    EXPECT_FALSE(frm->acDelete->isEnabled());
    EXPECT_TRUE(frm->acNew->isEnabled());
}

TEST_P(BrowseCycle, ARowInUseIsRefusedByNameAndStays)
{
    fin->ExecSQL(u"update bd_bankai set bnk_bnkkodas = 20 where bnk_kodas = 10"_s);
    open();
    NextBoxes boxes{QMessageBox::Ok};
    press(Qt::Key_Delete);
    EXPECT_EQ(boxes.at(0).text, u"Bankas \"Ąžuolo kreditas\" naudojamas!"_s);
    EXPECT_EQ(stored().size(), 3);
}

TEST_P(BrowseCycle, ARowDeletedAtAnotherStationIsToldAndGone)
{
    open();
    load();
    secondFin()->ExecSQL(u"delete from bd_bankai where bnk_kodas = 20"_s);
    {
        NextBoxes boxes{QMessageBox::Yes};
        frm->DelBtnClick();
    }
    EXPECT_EQ(frm->message(), u"Įrašas jau buvo ištrintas kitoje darbo vietoje"_s);
    EXPECT_EQ(names().size(), 2);
    secondFin()->ExecSQL(u"delete from bd_bankai where bnk_kodas = 30"_s);
    ASSERT_EQ(key(), 30);
    NextBoxes boxes{QMessageBox::Ok};
    press(Qt::Key_Return);
    EXPECT_EQ(boxes.at(0).text, u"Įrašas jau ištrintas kitoje darbo vietoje"_s);
    EXPECT_EQ(names(), QStringList{u"Šiaulių bankas"_s});
}

TEST_P(BrowseCycle, RefreshSeesOtherStationsAndStaysOnItsRow)
{
    open();
    frm->LastBtnClick();
    addBank(15, u"AB Ūkio"_s, 0, secondFin());
    press(Qt::Key_F5);
    EXPECT_EQ(names().first(), u"AB Ūkio"_s);
    EXPECT_EQ(key(), 10);
}

TEST_P(BrowseCycle, RefreshOnAKeyThatIsGoneStandsOnTheFirstRow)
{
    open();
    frm->RefreshData(999);
    EXPECT_EQ(key(), 20);
}

TEST_P(BrowseCycle, AViewOnlyUserOpensTheEditorButNeitherAddsNorDeletes)
{
    CurrentUser().viewOnly = true;
    open();
    bool opened = false;
    bankEditor = [&](const QString &, bool, Variant &) {
        opened = true;
        return false;
    };
    EXPECT_FALSE(frm->acNew->isEnabled());
    EXPECT_FALSE(frm->acDelete->isEnabled());
    EXPECT_EQ(frm->acEdit->text(), u"&Peržiūrėti"_s);
    press(Qt::Key_Delete);
    press(Qt::Key_Insert);
    EXPECT_FALSE(opened);
    press(Qt::Key_Return);
    EXPECT_TRUE(opened);
    EXPECT_EQ(stored().size(), 3);
}

TEST_P(BrowseCycle, AListThatIsNotEditableHidesItsActionsAndTheirKeysDoNothing)
{
    open();
    bool opened = false;
    bankEditor = [&](const QString &, bool, Variant &) { return opened = true, false; };
    frm->SetEditable(false);
    EXPECT_FALSE(frm->acNew->isVisible());
    EXPECT_FALSE(frm->acEdit->isVisible());
    EXPECT_FALSE(frm->acDelete->isVisible());
    for (const Qt::Key each : {Qt::Key_Insert, Qt::Key_Return, Qt::Key_Delete})
        press(each);
    EXPECT_FALSE(opened);
    frm->SetEditable(true);
    EXPECT_TRUE(frm->acNew->isVisible());
}

TEST_P(BrowseCycle, AFailingDeleteRollsBackAndShowsTheError)
{
    open();
    fin->ExecSQL(u"update bd_bankai set bnk_bnkkodas = 20 where bnk_kodas = 30"_s);
    struct NoCheck : TBankaiFrm {
        using TBankaiFrm::TBankaiFrm;
        void CheckUsed() override {}
        using TBrowseFrm::DeleteRecord;
    };
    close();
    auto *bare = createForm<NoCheck>(nullptr);
    frm = bare;
    NextBoxes boxes{QMessageBox::Yes};
    EXPECT_THROW(bare->DeleteRecord(), EDatabaseError);
    EXPECT_FALSE(fin->InTransaction());
    EXPECT_EQ(stored().size(), 3);
    EXPECT_EQ(key(), 20);
}

TEST_P(BrowseCycle, AScreenThatCannotOpenIsGone)
{
    struct Failing : TBankaiFrm {
        using TBankaiFrm::TBankaiFrm;
        void FormCreate() override { throw Exception(u"Darbo pradžios periodas nenustatitas!"_s); }
    };
    EXPECT_THROW(createForm<Failing>(nullptr), Exception);
    EXPECT_EQ(BankaiFrm, nullptr);
}

TEST_P(BrowseCycle, TheModalListReturnsWhenItIsClosed)
{
    frm = createForm<TBankaiFrm>(nullptr);
    OnNextDialog<TBankaiFrm> user([](TBankaiFrm &list) {
        EXPECT_TRUE(list.isModal());
        EXPECT_TRUE(QTest::qWaitForWindowActive(&list));
        QTest::keyClick(list.grid(), Qt::Key_Escape);
    });
    frm->ShowModal();
    EXPECT_TRUE(frm.isNull());
}
