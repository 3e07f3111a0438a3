#include "host/accounts/accounts.h"
#include "host/data/code_picker.h"
#include "src/accounts/Balans.h"
#include "src/accounts/Checksas.h"
#include "src/accounts/balance_editor.h"
#include "tests/src/accounts/sheets.h"
#include "tests/src/open_books.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/db_grid.h"

#include <QAction>
#include <QTest>
#include <QTextBlock>

using namespace Qt::StringLiterals;
using namespace Balans;

namespace {

class BalanceForm : public OnOpenBooks {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        for (const QString &number : {u"2411"_s, u"2412"_s, u"262"_s})
            account(number);
        line(u"A0000"_s, u"TURTAS"_s);
        line(u"A0101"_s, u"Bankas"_s, {1, 2});
        line(u"A0102"_s, u"Kasa"_s, {3});
        line(u"A01AA"_s, u"Iš viso"_s);
        line(u"P0100"_s, u"Skolos"_s);
        line(u"P0101"_s, u"Tiekėjams"_s, {3});
        line(u"PPPPP"_s, u"IŠ VISO"_s);
    }
    void TearDown() override
    {
        close();
        CurrentUser() = {};
        OnOpenBooks::TearDown();
    }
    void close()
    {
        if (frm)
            frm->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TBalFrm &open(bool second = false)
    {
        frm = createForm<TBalFrm>(nullptr);
        frm->InitializeBal(second);
        frm->show();
        bringToFront();
        return *frm;
    }
    TBalEdit &editor() { return *frm->findChild<TBalEdit *>(u"BalList"_s); }
    QComboBox &sides() { return *frm->findChild<QComboBox *>(u"ActBox"_s); }
    QComboBox &kinds() { return *frm->findChild<QComboBox *>(u"TypeBox"_s); }
    QPushButton &top() { return *frm->findChild<QPushButton *>(u"TopBtn"_s); }
    QPushButton &bottom() { return *frm->findChild<QPushButton *>(u"BottomBtn"_s); }
    void bringToFront()
    {
        frm->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(frm));
        editor().setFocus();
    }
    void saveByKey()
    {
        bringToFront(); // a box was before it, perhaps
        QTest::keyClick(frm, Qt::Key_N, Qt::AltModifier);
    }
    QString refusalOfSave()
    {
        NextBoxes box{QMessageBox::Ok};
        saveByKey();
        return box.at(0).text;
    }

    void line(const QString &code, const QString &name, const QList<int> &accounts = {})
    {
        books().ExecSQL(u"insert into bd_baleil (bel_kod, bel_pavad) values (:kod, :pavad)"_s,
                        {{u"kod"_s, code}, {u"pavad"_s, name}});
        for (const int id : accounts)
            books().ExecSQL(u"insert into bd_balsas values (NULL, :kod, :id, 'D')"_s,
                            {{u"kod"_s, code}, {u"id"_s, id}});
    }
    void secondLine(const QString &code, const QString &name, const QString &account = {})
    {
        TDatabase &db = *MainDatas()->mnRavl();
        db.ExecSQL(u"insert into bd_baleil (bel_kod, bel_pavad) values (:kod, :pavad)"_s,
                   {{u"kod"_s, code}, {u"pavad"_s, name}});
        if (!account.isEmpty())
            db.ExecSQL(u"insert into bd_balsas values (NULL, :kod, :nr, 'D')"_s,
                       {{u"kod"_s, code}, {u"nr"_s, account}});
    }
    QStringList lines(const QString &side)
    {
        return rows(books(), u"select bel_kod, bel_pavad from bd_baleil where bel_kod like '%1%' order by "
                             "bel_kod"_s.arg(side));
    }
    void goTo(int number, int column = 1)
    {
        QTextCursor caret(editor().document()->findBlockByNumber(number - 1));
        caret.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column - 1);
        editor().setTextCursor(caret);
    }

    QPointer<TBalFrm> frm;
};
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

TEST_P(BalanceForm, SavesAllSidesAtOnce)
{
    open();
    goTo(3);
    QTest::keyClicks(&editor(), u"Grynieji: "_s);
    sides().setCurrentIndex(1);
    EXPECT_EQ(editor().sheet().front().text, u"Skolos"_s);
    goTo(1, 7);
    QTest::keyClicks(&editor(), u" kitiems"_s);
    frm->findChild<QAction *>(u"acSave"_s)->trigger();
    EXPECT_EQ(lines(u"A"_s), (QStringList{u"A0000|TURTAS"_s, u"A0101|Bankas "_s, u"A0102|Grynieji: Kasa "_s,
                                          u"A01AA|Iš viso"_s}));
    EXPECT_EQ(lines(u"P"_s),
              (QStringList{u"P0100|Skolos kitiems"_s, u"P0101|Tiekėjams "_s, u"PPPPP|IŠ VISO"_s}));
    EXPECT_EQ(rows(books(), u"select bss_balkod, bss_sasid from bd_balsas order by bss_balkod, bss_sasid"_s),
              (QStringList{u"A0101|1"_s, u"A0101|2"_s, u"A0102|3"_s, u"P0101|3"_s}));
    EXPECT_FALSE(books().InTransaction());
}

TEST_P(BalanceForm, ARefusedSaveWritesNothingAndKeepsWhatIsTyped)
{
    open();
    const QStringList before = dump(books());
    goTo(4, 8);
    QTest::keyClick(&editor(), Qt::Key_Return);
    QTest::keyClicks(&editor(), u"Valiuta"_s);
    EXPECT_EQ(refusalOfSave(), u"Detali eilutė Nr: 5 neturi sąskaitos arba esama sąskaita neegzistuoja"_s);
    EXPECT_EQ(editor().sheet().back().text, u"Valiuta"_s);
    EXPECT_EQ(dump(books()), before);
    EXPECT_FALSE(books().InTransaction());
}

TEST_P(BalanceForm, AnErrorOfTheDatabaseTakesTheSaveBack)
{
    open();
    const QStringList before = dump(books());
    refuseInserting(u"bd_balsas"_s, u"bss_sasid = 3"_s);
    EXPECT_TRUE(refusalOfSave().contains(u"sugadinta tyčia"));
    EXPECT_EQ(dump(books()), before);
}

TEST_P(BalanceForm, AnEmptyEditorKeepsTheLinesOfItsSide)
{
    open();
    editor().selectAll();
    QTest::keyClick(&editor(), Qt::Key_Delete);
    EXPECT_EQ(editor().sheet(), TBalSheet());
    saveByKey();
    EXPECT_EQ(lines(u"A"_s).size(), 4);
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

TEST_P(BalanceForm, AnAccountDeletedMeanwhileIsTold)
{
    open();
    books().ExecSQL(u"delete from bd_balsas where bss_sasid = 2"_s);
    books().ExecSQL(u"delete from bd_sasplan where sas_id = 2"_s);
    EXPECT_EQ(refusalOfSave(), u"Detali eilutė Nr: 2 neturi sąskaitos arba esama sąskaita neegzistuoja"_s);
}

TEST_P(BalanceForm, AsksBeforeItReplacesWhatAnotherStationSaved)
{
    open();
    secondFin()->ExecSQL(u"update bd_baleil set bel_pavad = 'Kasos' where bel_kod = 'A0102'"_s);
    const QStringList theirs = dump(books());
    {
        NextBoxes box{QMessageBox::No};
        saveByKey();
        EXPECT_EQ(box.at(0).kind, 18);
        EXPECT_TRUE(box.at(0).text.contains(u"Aktyvas: „Kasos (262)“")) << qPrintable(box.at(0).text);
        EXPECT_EQ(dump(books()), theirs);
    }
    NextBoxes box{QMessageBox::Yes};
    saveByKey();
    EXPECT_EQ(box.count(), 1);
    EXPECT_EQ(lines(u"A010"_s), (QStringList{u"A0101|Bankas "_s, u"A0102|Kasa "_s}));
    saveByKey();
}

TEST_P(BalanceForm, OfTheSecondDatabaseIsSavedByTheKeyAlone)
{
    secondLine(u"A0101"_s, u"Kasa"_s, u"2412"_s);
    secondLine(u"A01AA"_s, u"Iš viso"_s);
    secondLine(u"AAAAA"_s, u"TURTAS"_s);
    open(true);
    EXPECT_EQ(editor().sheet().front().text, u"Kasa (2412)"_s);
    const auto *save = frm->findChild<QAction *>(u"acSave"_s);
    EXPECT_FALSE(save->isVisible() || save->isEnabled());
    goTo(1, 11);
    OnNextDialog<TCodePicker> picker([](TCodePicker &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    QTest::keyClicks(&editor(), u","_s);
    goTo(2);
    QTest::keyClick(&editor(), Qt::Key_Return);
    goTo(2);
    QTest::keyClicks(&editor(), u"Be saskaitos"_s);
    const QStringList main = dump(books());
    saveByKey();
    TDatabase &db = *MainDatas()->mnRavl();
    EXPECT_EQ(
        rows(db, u"select bel_kod, bel_pavad from bd_baleil order by bel_kod"_s),
        (QStringList{u"A0101|Kasa "_s, u"A0102|Be saskaitos"_s, u"A01AA|Iš viso"_s, u"AAAAA|TURTAS"_s}));
    EXPECT_EQ(rows(db, u"select bss_balkod, bss_sasnr, bss_tip from bd_balsas order by bss_id"_s),
              (QStringList{u"A0101|2411|D"_s, u"A0101|2411|D"_s}));
    EXPECT_EQ(dump(books()), main);
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
