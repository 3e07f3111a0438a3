#include "host/accounts/accounts.h"
#include "host/data/code_picker.h"
#include "tests/src/accounts/balance_form.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QSemaphore>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace Balans;

namespace {

class SavedBalanceForm : public BalanceForm {
protected:
    // Whole lines as another program would give them, below the given one.
    void pasteBelow(int number, const QStringList &texts)
    {
        goTo(number, editor().document()->findBlockByNumber(number - 1).length());
        QTest::keyClick(&editor(), Qt::Key_Return);
        QApplication::clipboard()->setText(texts.join(u'\n'));
        QTest::keyClick(&editor(), Qt::Key_V, Qt::ControlModifier);
    }
    // What the user is asked when another station has written meanwhile; he takes nothing back.
    QString questionOfSave()
    {
        const QStringList theirs = dump(books());
        NextBoxes box{QMessageBox::No};
        saveByKey();
        EXPECT_EQ(box.at(0).kind, 18);
        EXPECT_EQ(dump(books()), theirs);
        return box.at(0).text;
    }
    // Groups of one detail each with their totals at the foot, below the total of the side.
    void fillGroups(int count)
    {
        books().ExecSQL(u"delete from bd_baleil"_s);
        line(u"A0000"_s, u"TURTAS"_s);
        for (int i = 1; i <= count; ++i) {
            const QString group = u"A%1"_s.arg(i, 2, 10, QChar(u'0'));
            line(group + u"01"_s, u"Eilutė "_s, {1});
            line(group + u"AA"_s, u"Grupė"_s);
        }
    }
};
ON_BOTH_ENGINES(SavedBalanceForm);

} // namespace

TEST_P(SavedBalanceForm, SavesAllSidesAtOnce)
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

TEST_P(SavedBalanceForm, ARefusedSaveWritesNothingAndKeepsWhatIsTyped)
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

TEST_P(SavedBalanceForm, AnErrorOfTheDatabaseTakesTheSaveBack)
{
    open();
    const QStringList before = dump(books());
    refuseInserting(u"bd_balsas"_s, u"bss_sasid = 3"_s);
    EXPECT_TRUE(refusalOfSave().contains(u"sugadinta tyčia"));
    EXPECT_EQ(dump(books()), before);
}

TEST_P(SavedBalanceForm, AnEmptyEditorKeepsTheLinesOfItsSide)
{
    open();
    editor().selectAll();
    QTest::keyClick(&editor(), Qt::Key_Delete);
    EXPECT_EQ(editor().sheet(), TBalSheet());
    saveByKey();
    EXPECT_EQ(lines(u"A"_s).size(), 4);
}

TEST_P(SavedBalanceForm, AnAccountDeletedMeanwhileIsTold)
{
    open();
    books().ExecSQL(u"delete from bd_balsas where bss_sasid = 2"_s);
    books().ExecSQL(u"delete from bd_sasplan where sas_id = 2"_s);
    EXPECT_EQ(refusalOfSave(), u"Detali eilutė Nr: 2 neturi sąskaitos arba esama sąskaita neegzistuoja"_s);
}

TEST_P(SavedBalanceForm, AsksBeforeItReplacesWhatAnotherStationSaved)
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

TEST_P(SavedBalanceForm, OfTheSecondDatabaseIsSavedByTheKeyAlone)
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

TEST_P(SavedBalanceForm, AnAccountOfAnotherSideDeletedMeanwhileIsToldToo)
{
    const int deleted = account(u"443"_s);
    line(u"P0102"_s, u"Kitos"_s, {deleted});
    open();
    books().ExecSQL(u"delete from bd_balsas where bss_sasid = :id"_s, {{u"id"_s, deleted}});
    books().ExecSQL(u"delete from bd_sasplan where sas_id = :id"_s, {{u"id"_s, deleted}});
    const QStringList before = dump(books());
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    saveByKey();
    EXPECT_TRUE(boxes.at(0).text.contains(u"Pasyvas: „Kitos“")) << qPrintable(boxes.at(0).text);
    EXPECT_EQ(boxes.at(1).text, u"Detali eilutė Nr: 3 neturi sąskaitos arba esama sąskaita neegzistuoja"_s);
    EXPECT_EQ(dump(books()), before);
}

TEST_P(SavedBalanceForm, AsksWhenOnlyAccountsWereChangedElsewhere)
{
    open();
    secondFin()->ExecSQL(u"insert into bd_balsas values (NULL, 'A0102', 1, 'D')"_s);
    const QString asked = questionOfSave();
    EXPECT_TRUE(asked.contains(u"Aktyvas: „Kasa (262, 2411)“")) << qPrintable(asked);
}

TEST_P(SavedBalanceForm, TellsWhichLineIsGoneElsewhere)
{
    open();
    secondFin()->ExecSQL(u"delete from bd_baleil where bel_kod = 'A0101'"_s);
    QString asked = questionOfSave();
    EXPECT_TRUE(asked.contains(u"Aktyvas: nebėra „Bankas (2411, 2412)“")) << qPrintable(asked);
    close();
    open();
    secondFin()->ExecSQL(u"delete from bd_baleil where bel_kod = 'PPPPP'"_s);
    asked = questionOfSave();
    EXPECT_TRUE(asked.contains(u"Pasyvas: nebėra „IŠ VISO“")) << qPrintable(asked);
}

TEST_P(SavedBalanceForm, OfTwoStationsThatSaveAtOnceTheSecondIsAsked)
{
    open();
    TBalForm theirs = TBalStore(&books(), false).ReadList();
    theirs[0][0].text = u"VISAS TURTAS"_s;
    QSemaphore isWriting;
    const TSessionSettings settings = finSettings();
    const std::unique_ptr<QThread> other(QThread::create([&] {
        const auto station = OnOpenBooks::open(settings);
        TTransaction transaction(station.get());
        TBalStore(station.get(), false).SaveBal(theirs, TAccountIds(*station));
        isWriting.release();
        QThread::msleep(400);
        transaction.commit();
    }));
    other->start();
    isWriting.acquire();
    NextBoxes box{QMessageBox::No};
    saveByKey();
    other->wait();
    EXPECT_EQ(box.at(0).kind, 18);
    EXPECT_TRUE(box.at(0).text.contains(u"Aktyvas: „VISAS TURTAS“")) << qPrintable(box.at(0).text);
    EXPECT_EQ(TBalStore(&books(), false).ReadList(), theirs);
}

TEST_P(SavedBalanceForm, ShowsALineAsItWillComeBack)
{
    open();
    goTo(3, 11);
    QTest::keyClick(&editor(), Qt::Key_Backspace);
    QTest::keyClick(&editor(), Qt::Key_Backspace);
    OnNextDialog<TCodePicker> picker([](TCodePicker &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    QTest::keyClicks(&editor(), u"("_s);
    EXPECT_EQ(editor().sheet().at(2).text, u"Kasa(2411)"_s);
    pasteBelow(3, {u"Valiuta(2411,2412)"_s});
    goTo(3, 10);
    saveByKey();
    EXPECT_EQ(lines(u"A010"_s), (QStringList{u"A0101|Bankas "_s, u"A0102|Kasa"_s, u"A0103|Valiuta"_s}));
    const TBalSheet shown = editor().sheet();
    EXPECT_EQ(shown.at(2).text, u"Kasa (2411)"_s);
    EXPECT_EQ(shown.at(3).text, u"Valiuta (2411, 2412)"_s);
    EXPECT_EQ(frm->panel(0), u"Eilutė:   3   Kolonėlė:  11"_s) << "behind the account, as before";
    saveByKey();
    EXPECT_EQ(editor().sheet(), shown);
    close();
    open();
    EXPECT_EQ(editor().sheet(), shown);
}

TEST_P(SavedBalanceForm, RefusesTheHundredthGroup)
{
    fillGroups(99);
    open();
    const QStringList before = dump(books());
    pasteBelow(199, {u"Eilutė (2411)"_s, u"Grupė"_s});
    kinds().setCurrentIndex(1);
    frm->TypeBoxChange();
    EXPECT_EQ(refusalOfSave(), u"Balanso lape gali būti ne daugiau kaip 99 grupės (eilutė Nr: 200)"_s);
    EXPECT_EQ(editor().sheet().size(), 201U);
    EXPECT_EQ(dump(books()), before);
}

TEST_P(SavedBalanceForm, RefusesTheHundredthDetailOfAGroup)
{
    open();
    pasteBelow(3, QStringList(97, u"Eilutė (2411)"_s));
    saveByKey();
    EXPECT_EQ(lines(u"A0199"_s), QStringList{u"A0199|Eilutė "_s});
    const QStringList before = dump(books());
    pasteBelow(3, {u"Eilutė (2411)"_s});
    EXPECT_EQ(refusalOfSave(), u"Grupėje gali būti ne daugiau kaip 99 detalios eilutės (eilutė Nr: 101)"_s);
    EXPECT_EQ(dump(books()), before);
}

TEST_P(SavedBalanceForm, OfTheSecondDatabaseIsSavedAgainAsItIsTyped)
{
    open(true);
    QApplication::clipboard()->setText(u"Bankas (2411, 2412, 2413)\nGrupė\nTURTAS"_s);
    QTest::keyClick(&editor(), Qt::Key_V, Qt::ControlModifier);
    for (const int line : {2, 3}) {
        goTo(line);
        kinds().setCurrentIndex(3 - line);
        frm->TypeBoxChange();
    }
    const TBalSheet typed = editor().sheet();
    for (int i = 0; i < 2; ++i) {
        saveByKey();
        EXPECT_EQ(editor().sheet(), typed);
        EXPECT_EQ(
            rows(*MainDatas()->mnRavl(), u"select bss_balkod, bss_sasnr from bd_balsas order by bss_id"_s),
            (QStringList{u"A0101|2412, 2413"_s, u"A0101|2413"_s, u"A0101|2413"_s}));
    }
}

TEST_P(SavedBalanceForm, OfTenThousandLinesIsSavedInSeconds)
{
    TBalForm form;
    for (const TBalSide side : allSides) {
        TBalSheet sheet{{u"IŠ VISO"_s, TBalKind::SideTotal}};
        for (int group = 0; group < 67; ++group) {
            sheet.insert(sheet.end(), 49, {u"Eilutė (2411)"_s, TBalKind::Detail});
            sheet.push_back({u"Grupė"_s, TBalKind::GroupTotal});
        }
        form[std::size_t(side)] = encodeSheet(side, sheet, knowsAll);
    }
    {
        TTransaction transaction(&books());
        TBalStore(&books(), false).SaveBal(form, TAccountIds(books()));
        transaction.commit();
    }
    open();
    goTo(1, 8);
    QTest::keyClicks(&editor(), u" TURTO"_s);
    QElapsedTimer timer;
    timer.start();
    saveByKey();
    EXPECT_LT(timer.elapsed(), 10000);
    RecordProperty("saveMs", int(timer.elapsed()));
    form[0][0].text += u" TURTO"_s;
    EXPECT_EQ(TBalStore(&books(), false).ReadList(), form);
}
