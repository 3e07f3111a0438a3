#include "host/controls/list_finder.h"
#include "tests/host/controls/bankai_fixture.h"

namespace {
class BrowseFind : public Bankai {
protected:
    void waitForSearch()
    {
        QTest::qWait(300);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !frm->searching(); }, 20'000));
    }
    void typeInGrid(const QString &text)
    {
        activate();
        for (const QChar letter : text) {
            QKeyEvent typed(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
            QApplication::sendEvent(frm->grid(), &typed);
        }
        waitForSearch();
    }
    void goToColumn(int column) { frm->grid()->setCurrentIndex(frm->grid()->model()->index(0, column)); }
};
ON_BOTH_ENGINES(BrowseFind);
} // namespace

TEST_P(BrowseFind, TypingJumpsToTheRowWithoutRegardToCaseAndDiacritics)
{
    open();
    goToColumn(2);
    typeInGrid(u"siaul"_s);
    EXPECT_EQ(findEdit()->text(), u"siaul"_s);
    EXPECT_EQ(key(), 10);
    findEdit()->clear();
    typeInGrid(u"ąž"_s);
    EXPECT_EQ(key(), 20);
    EXPECT_EQ(frm->message(), QString());
}

TEST_P(BrowseFind, BackspaceInTheListTakesTheLastLetterBack)
{
    open();
    goToColumn(2);
    typeInGrid(u"citx\b"_s);
    EXPECT_EQ(findEdit()->text(), u"cit"_s);
    EXPECT_EQ(key(), 30);
}

TEST_P(BrowseFind, AnEmptyListIsSearchedByItsOrderToo)
{
    fin->nativeExec(u"delete from bd_bankai"_s);
    open();
    frm->OrderData(u"bnk_kodas"_s);
    EXPECT_EQ(findEdit()->accessibleName(), u"Ieškoti stulpelyje Kodas"_s);
    frm->OrderData(u"bnk_pavad"_s);
    EXPECT_EQ(findEdit()->accessibleName(), u"Ieškoti stulpelyje Pavadinimas"_s);
}

TEST_P(BrowseFind, FindsTheBeginningOfAnyWordAndNothingInside)
{
    open();
    goToColumn(2);
    typeInGrid(u"kred"_s);
    EXPECT_EQ(key(), 20);
    findEdit()->setText(u"tadel"_s);
    waitForSearch();
    EXPECT_EQ(frm->message(), u"Nerasta: tadel"_s);
    EXPECT_EQ(key(), 20);
}

TEST_P(BrowseFind, SearchesTheCurrentColumn)
{
    open();
    frm->grid()->setCurrentIndex(frm->grid()->model()->index(0, 0));
    typeInGrid(u"3"_s);
    EXPECT_EQ(key(), 30);
    EXPECT_EQ(frm->findChild<QLineEdit *>(u"FindEdit"_s)->accessibleName(), u"Ieškoti stulpelyje Kodas"_s);
}

TEST_P(BrowseFind, OrderingByAColumnMakesItTheOneToSearch)
{
    open();
    goToColumn(2);
    frm->OrderData(u"bnk_kodas"_s);
    EXPECT_EQ(findEdit()->accessibleName(), u"Ieškoti stulpelyje Kodas"_s);
}

TEST_P(BrowseFind, WhatWasTypedStaysWhenTheColumnChangesAndIsLookedForThere)
{
    open();
    goToColumn(2);
    typeInGrid(u"10"_s);
    EXPECT_EQ(frm->message(), u"Nerasta: 10"_s);
    goToColumn(0);
    waitForSearch();
    EXPECT_EQ(findEdit()->text(), u"10"_s);
    EXPECT_EQ(key(), 20) << "the row stays";
    press(Qt::Key_F3);
    waitForSearch();
    EXPECT_EQ(key(), 10);
    goToColumn(2);
    typeInGrid(u"cit"_s);
    EXPECT_EQ(findEdit()->text(), u"cit"_s) << "typing anew begins anew";
    EXPECT_EQ(key(), 30);
    frm->OrderData(u"bnk_kodas"_s);
    EXPECT_EQ(findEdit()->text(), u"cit"_s);
}

TEST_P(BrowseFind, NextGoesOnAndRoundTheEnd)
{
    addBank(40, u"Citadelė antroji"_s, 0);
    open();
    goToColumn(2);
    typeInGrid(u"cit"_s);
    EXPECT_EQ(key(), 30);
    press(Qt::Key_F3);
    waitForSearch();
    EXPECT_EQ(key(), 40);
    press(Qt::Key_F3);
    waitForSearch();
    EXPECT_EQ(key(), 30);
}

TEST_P(BrowseFind, SetFindStrSearchesTheGivenField)
{
    open();
    frm->SetFindStr(u"šiau"_s, frm->dataSet()->FieldByName(u"bnk_pavad"_s));
    waitForSearch();
    EXPECT_EQ(key(), 10);
    frm->SetFindStr(AnsiString(u"20"_s), frm->dataSet()->FieldByName(u"bnk_kodas"_s));
    waitForSearch();
    EXPECT_EQ(key(), 20);
}

TEST_P(BrowseFind, FindsARowThatIsNotHereYet)
{
    addManyBanks(3000);
    addBank(99999, u"Žemės ūkio bankas"_s, 0);
    open();
    goToColumn(2);
    ASSERT_FALSE(frm->dataSet()->fetchedAll());
    frm->SetFindStr(u"zemes"_s);
    waitForSearch();
    EXPECT_EQ(key(), 99999);
}

TEST_P(BrowseFind, EscapeStopsTheSearchAndTheListStaysOpen)
{
    addManyBanks(40'000);
    open();
    frm->SetFindStr(u"nėra tokio"_s, frm->dataSet()->FieldByName(u"bnk_pavad"_s));
    ASSERT_TRUE(frm->searching());
    press(Qt::Key_Escape);
    EXPECT_FALSE(frm->searching());
    EXPECT_EQ(frm->message(), u"Paieška nutraukta"_s);
    EXPECT_TRUE(frm->isVisible());
}

TEST_P(BrowseFind, EscapeClearsTheSearchFirstAndThenCloses)
{
    open();
    load();
    typeInGrid(u"cit"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(findEdit()->text(), QString());
    EXPECT_TRUE(frm->isVisible());
    press(Qt::Key_Escape);
    EXPECT_TRUE(frm.isNull() || !frm->isVisible());
}

TEST_P(BrowseFind, KeysLeadToTheSearchLineAndBack)
{
    open();
    press(Qt::Key_F7);
    EXPECT_EQ(QApplication::focusWidget(), findEdit());
    QTest::keyClick(findEdit(), Qt::Key_Return);
    EXPECT_TRUE(frm->grid()->hasFocus());
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), findEdit());
    // Delete in the search line deletes a character, not the row.
    findEdit()->setText(u"ab"_s);
    findEdit()->setCursorPosition(0);
    QTest::keyClick(findEdit(), Qt::Key_Delete);
    EXPECT_EQ(findEdit()->text(), u"b"_s);
    EXPECT_EQ(stored().size(), 3);
}

TEST_P(BrowseFind, TheFinderWorksInPiecesAndStopsWhenRowsCannotBeRead)
{
    addManyBanks(500);
    TQuery set(fin, u"select * from bd_bankai order by bnk_kodas"_s);
    set.readsAside = true;
    set.Open();
    TListFinder finder(&set);
    finder.start(u"Bankas 1499"_s, set.FieldByName(u"bnk_pavad"_s)->index(), 0);
    int pieces = 0;
    while (finder.step(0) == TListFinder::Outcome::Searching)
        ++pieces;
    EXPECT_EQ(set.index(finder.row(), 0).data().toInt(), 1499);
    EXPECT_GT(pieces, 100);
    finder.start(QString(), 0, 0);
    EXPECT_EQ(finder.step(10), TListFinder::Outcome::NotFound);
}
