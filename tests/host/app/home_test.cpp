#include "host/app/home/home_page.h"

#include "database/history.h"
#include "database/seals.h"
#include "host/app/close_check/roll_back_frm.h"
#include "host/app/history/history_frm.h"
#include "host/app/home/screen_use.h"
#include "host/controls/browse_frm.h"
#include "tests/host/app/home.h"
#include "tests/host/books.h"
#include "tests/support/message_box.h"
#include "toolkit/report/preview.h"
#include "toolkit/widgets/db_grid.h"

#include <algorithm>

TEST_F(Home, TellsInstitutionMonthAndWhatTheCheckFound)
{
    entry(1, 5, 0);
    start();
    EXPECT_TRUE(comes("homeChecks", "Mėnesio įrašai: 1"));
    EXPECT_EQ(panel("homeInstitution"), "Ežero mokykla");
    EXPECT_EQ(panel("homePeriod"), "2026 m. vasaris");
    EXPECT_TRUE(lines("homeClosed").contains("Paskutinis uždarytas mėnuo: 2026 m. sausis"));
}

TEST_F(Home, CountsFindingsThatAreNotToldOneByOneToo)
{
    for (int id = 1; id <= 60; ++id)
        entry(id, 5, 0);
    start();
    EXPECT_TRUE(comes("homeChecks", "Mėnesio įrašai: 60"));
}

TEST_F(Home, TheKeyboardGoesThroughThePageInItsOrder)
{
    countUse(books(), *findEntry(window->allEntries(), "TDbKrFrm"));
    entry(1, 5, 0);
    start();
    ASSERT_TRUE(comes("homeChecks", "Mėnesio įrašai: 1"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !lines("homeChecks").contains("Tikrinama…"); }));
    QStringList way;
    for (int step = 0; step < 4; ++step) {
        press(step < 2 ? Qt::Key_Tab : Qt::Key_Down);
        const auto *link = qobject_cast<TLink *>(QApplication::focusWidget());
        way << (link ? link->text() : QString());
    }
    EXPECT_EQ(way, (QStringList{"Mėnesio įrašai: 1", "Atsarginė kopija: Nėra nė vienos atsarginės kopijos.",
                                "Visas tikrinimas", "Debitoriai ir kreditoriai"}));
}

TEST_F(Home, ReadsNothingBeforeItIsSeen)
{
    window->setLoggedIn(true);
    QTest::qWait(100);
    EXPECT_EQ(panel("homePeriod"), QString());
    window->show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel("homePeriod") == "2026 m. vasaris"; }));
}

TEST_F(Home, StandsThereWhileNoDocumentIsOpenAndFollowsThePeriod)
{
    start();
    EXPECT_TRUE(home()->isVisible());
    window->openEntry("TSasPlanFrm");
    EXPECT_FALSE(home()->isVisible());
    books().ExecSQL("insert into bd_period values (8, 2026, 1, 3)");
    GetPeriod();
    press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return home()->isVisible(); }));
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel("homePeriod") == "2026 m. kovas"; }));
}

TEST_F(Home, ALinkLeadsByKeyToTheCheckAndEnterToTheEntry)
{
    entry(1, 5, 0);
    entry(2, 5, 5);
    entry(3, 0, 1);
    start();
    ASSERT_TRUE(comes("homeChecks", "Mėnesio įrašai: 2"));
    follow("Mėnesio įrašai: 2");
    EXPECT_EQ(active(), "TCloseCheckFrm");
    EXPECT_TRUE(QTest::qWaitFor([this] { return currentLine() == "2026.02.03  D-1"; }));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(active(), "TIrasaiFrm");
    EXPECT_EQ(window->findChild<TBrowseFrm *>("TIrasaiFrm")->currentKey().toInt(), 3);
}

TEST_F(Home, AUserWhoMayOnlyLookChecksTooAndIsLedToNothingThatWrites)
{
    entry(1, 5, 0);
    CurrentUser().viewOnly = true;
    countUse(books(), *findEntry(window->allEntries(), "StartPerClose"));
    countUse(books(), *findEntry(window->allEntries(), "TDbKrFrm"));
    MainDatas()->makeReadOnly();
    start();
    EXPECT_TRUE(comes("homeChecks", "Mėnesio įrašai: 1"));
    EXPECT_FALSE(lines("homeUsed").contains("Periodo uždarymas"));
    EXPECT_TRUE(lines("homeUsed").contains("Debitoriai ir kreditoriai"));
    window->openEntry("TCloseCheckFrm");
    EXPECT_TRUE(checked()->headline().contains("rasta, kas trukdo uždaryti"));
}

TEST_F(Home, ChecksAndRollBackArePrintedAsTheyAreShown)
{
    entry(1, 5, 0);
    start();
    const auto printed = [](TSheetFrm &frm) {
        QStringList texts;
        OnNextDialog<TReportPreview> preview([&texts](TReportPreview &shown) {
            for (const TReportPrimitive &each : shown.layout().page(0))
                texts << each.text;
            shown.close();
        });
        frm.PrintBtnClick();
        return texts.join('|');
    };
    window->openEntry("TCloseCheckFrm");
    const QString checks = printed(*checked());
    for (const char *text : {"Ežero mokykla", "2026 m. vasaris", "Mėnesio įrašai  Rasta: 1",
                             "2026.02.03  D-1", "Dokumento debetas 5.00 nelygus kreditui 0.00."})
        EXPECT_TRUE(checks.contains(text)) << text << " in " << qPrintable(checks);
    window->openEntry("TRollBackFrm");
    const QString rolledBack = printed(*window->findChild<TRollBackFrm *>());
    EXPECT_TRUE(rolledBack.contains("Sąskaitų likučiai")) << qPrintable(rolledBack);
}

TEST_F(Home, TheLastSealSaysWhoClosedAndWhen)
{
    keepHistory(books(), {"ona", "stotis"});
    appendSeal(books(), TSealEvent::Close, 6);
    start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return lines("homeClosed").size() > 3; }));
    const QString told = lines("homeClosed").at(2);
    EXPECT_TRUE(told.startsWith("Paskutinis įvykis: uždarymas (2026 m. sausis), ") && told.endsWith(", ona"))
        << qPrintable(told);
}

TEST_F(Home, VeryLargeBooksAreNotCheckedUnasked)
{
    entry(1, 5, 0);
    books().nativeExec("insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_pavad, dkl_sum_db, dkl_sum_kr) "
                       "with recursive n (i) as (select 1 union all select i + 1 from n where i < 200000) "
                       "select i, 7, 'Ežeras', 0, 0 from n");
    start();
    EXPECT_TRUE(comes("homeChecks", "Šį mėnesį įrašų ir likučių labai daug, todėl nepaprašius netikrinama."));
    QTest::qWait(300);
    EXPECT_FALSE(lines("homeChecks").contains("Mėnesio įrašai: 1"));
    follow("Visas tikrinimas");
    EXPECT_EQ(active(), "TCloseCheckFrm");
    checked();
    press(Qt::Key_Escape);
    EXPECT_TRUE(comes("homeChecks", "Mėnesio įrašai: 1")) << "what the window found is told here too";
}

TEST_F(Home, TheLastChangesAreToldAsPeopleReadThem)
{
    keepHistory(books(), {"ona", "stotis"});
    books().ExecSQL("update bd_org set org_adr = 'Ežero g. 1'");
    for (int id : {1, 2, 3})
        entry(id, 1, 1);
    start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return lines("homeChanges").size() > 2; }));
    const QStringList told = lines("homeChanges");
    ASSERT_EQ(told.size(), 4) << "what is alike stands there once";
    EXPECT_TRUE(told.at(0).endsWith("  ona: Įrašai „D-3“ ir dar 2 – įrašyta")) << qPrintable(told.at(0));
    EXPECT_TRUE(told.at(1).endsWith("  ona: Organizacijos atributai „Ežero mokykla“ – pakeista"))
        << qPrintable(told.at(1));
    EXPECT_EQ(told.at(2), "Visi pakeitimai");
}

TEST_F(Home, ALastChangeLeadsToTheChangesOfItsRow)
{
    keepHistory(books(), {"ona", "stotis"});
    books().ExecSQL("update bd_sasplan set sas_pavad = 'Bankas' where sas_id = 1");
    books().ExecSQL("update bd_sasplan set sas_tip = 'S' where sas_id = 2");
    start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return lines("homeChanges").size() > 2; }));
    QStringList shown;
    OnNextDialog<THistoryFrm> history([&shown](THistoryFrm &frm) {
        for (int line = 0; line < frm.grid()->model()->rowCount(); ++line)
            shown << frm.grid()->model()->index(line, 6).data().toString();
        frm.close();
    });
    follow(lines("homeChanges").first());
    EXPECT_EQ(shown, (QStringList{"Tipas: buvo „D“, yra „S“"}));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    follow("Visi pakeitimai");
    EXPECT_EQ(active(), "THistoryFrm");
}

TEST_F(Home, WhatIsNotReadYetSaysSo)
{
    window->setLoggedIn(true);
    window->show();
    for (const char *each : {"homeChecks", "homeUsed", "homeClosed", "homeChanges"})
        EXPECT_TRUE(lines(each).contains("Skaitoma…")) << each;
    EXPECT_TRUE(comes("homeChanges", "Pakeitimų dar nėra."));
}

TEST_F(Home, NothingIsReadWhileOneOfTheBooksIsAtWork)
{
    MainDatas()->mnRavl()->StartTransaction();
    start();
    QTest::qWait(400);
    EXPECT_EQ(panel("homePeriod"), QString());
    MainDatas()->mnRavl()->Rollback();
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel("homePeriod") == "2026 m. vasaris"; }));
}

TEST_F(Home, ACheckThatDidNotSucceedIsNoLeaveToClose)
{
    backUp();
    start();
    EXPECT_TRUE(comes("homeChecks", "Niekas netrukdo uždaryti."));
    books().nativeExec("drop table bd_samatos");
    window->openEntry("TSasPlanFrm");
    press(Qt::Key_Escape);
    EXPECT_TRUE(comes("homeChecks", "Nepatikrinta: 1"));
    EXPECT_FALSE(lines("homeChecks").contains("Niekas netrukdo uždaryti."));
}

TEST_F(Home, TheScreensOpenedMostStandFirst)
{
    start();
    EXPECT_TRUE(comes("homeUsed", "Čia rasite langus, kuriuos atveriate dažniausiai."));
    for (const char *name : {"TSasPlanFrm", "TDbKrFrm", "TDbKrFrm"}) {
        window->openEntry(name);
        window->documents()->closeAllSubWindows();
    }
    ASSERT_TRUE(comes("homeUsed", "Sąskaitų planas"));
    EXPECT_EQ(lines("homeUsed").first(2), (QStringList{"Debitoriai ir kreditoriai", "Sąskaitų planas"}));
    follow("Sąskaitų planas");
    EXPECT_EQ(active(), "TSasPlanFrm");
}

namespace {

// The page by itself, on a server that goes away.
using HomeOnServer = WithMainDatas;
ON_ENGINE(HomeOnServer, Engine::PostgreSql);

} // namespace

TEST_P(HomeOnServer, ALostServerIsToldInWordsAndNoBoxComes)
{
    fin->ExecSQL("insert into bd_period values (1, 2026, 0, 0), (2, 2026, 1, 0), (6, 2026, 1, 1)");
    GetPeriod();
    const TPackageEntries none;
    THomePage page(none, nullptr);
    page.begin();
    page.show();
    const auto shows = [&page](const QString &text) {
        return QTest::qWaitFor(
            [&] {
                return std::ranges::any_of(page.findChildren<QLabel *>(), [&text](const QLabel *label) {
                    return label->isVisible() && label->text().contains(text);
                });
            },
            5000);
    };
    ASSERT_TRUE(shows("Niekas netrukdo uždaryti."));
    page.hide();
    secondFin()->nativeExec("select pg_terminate_backend(pid) from pg_stat_activity "
                            "where datname = current_database() and pid <> pg_backend_pid()");
    page.show();
    EXPECT_TRUE(shows("Nutrūko ryšys"));
    page.hide();
    page.show();
    EXPECT_TRUE(shows("2026 m. sausis")) << "the next reading reaches the server again";
    EXPECT_TRUE(shows("Niekas netrukdo uždaryti."));
}
