#include "host/app/close_check/close_check_frm.h"

#include "host/classifier/book_frm.h"
#include "host/controls/browse_frm.h"
#include "tests/host/app/home.h"
#include "tests/host/books.h"
#include "tests/support/message_box.h"
#include "tests/support/unguarded.h"
#include "toolkit/widgets/db_grid.h"

namespace {

// The window of checks inside the real main window.
class CheckWindow : public Home {
protected:
    void openChecks()
    {
        start();
        window->openEntry("TCloseCheckFrm");
    }
    // Stands on the first finding of a check and presses Enter.
    void enterOn(const QString &check)
    {
        checked()->showCheck(check);
        checked()->lines()->setFocus();
        press(Qt::Key_Return);
    }
    // Two nodes of a book; what the second had spent by the end of January is carried with a cent too much.
    void expenses()
    {
        takeGuardsAway(books());
        for (const char *sql :
             {"insert into bd_asgisl values (1, 'Biudžetas')",
              "insert into bd_jve (jve_id, jve_islid, jve_kodas, jve_pavad, jve_duom) values "
              "(10, 1, '2.1', 'Darbo užmokestis', 1), (11, 1, '2.2', 'Prekės', 1)",
              "insert into bd_samatos (sam_id, sam_jveid, sam_perid, sam_samata) values (1, 10, 1, 100), "
              "(2, 11, 1, 20)",
              "insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_kas_db) values (1, 6, 10, 5), "
              "(2, 6, 11, 7), (3, 7, 10, 5), (4, 7, 11, 7.01)"})
            books().ExecSQL(sql);
    }
    QTreeWidgetItem *head(const QString &check) const
    {
        return window->findChild<TCloseCheckFrm *>()->lines()->findItems(check, Qt::MatchExactly).value(0);
    }
};

} // namespace

TEST_F(CheckWindow, ShowsAtOnceWhatThePageFoundAndChecksItAgain)
{
    entry(1, 5, 0);
    start();
    ASSERT_TRUE(comes("homeChecks", "Mėnesio įrašai: 1"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !lines("homeChecks").contains("Tikrinama…"); }));
    books().ExecSQL("update bd_irasai set irs_sum_kr = 5");
    window->openEntry("TCloseCheckFrm");
    ASSERT_TRUE(head("Mėnesio įrašai"));
    EXPECT_EQ(head("Mėnesio įrašai")->text(1), "Rasta: 1, tikrinama iš naujo…");
    ASSERT_EQ(head("Mėnesio įrašai")->childCount(), 1);
    EXPECT_EQ(head("Mėnesio įrašai")->child(0)->text(0), "2026.02.03  D-1");
    checked();
    EXPECT_EQ(head("Mėnesio įrašai")->text(1), "Tvarkoje");
    EXPECT_EQ(head("Mėnesio įrašai")->childCount(), 0);
}

TEST_F(CheckWindow, CheckedAgainTheLineStaysThatTheUserStandsOn)
{
    entry(1, 5, 0);
    entry(2, 5, 0);
    openChecks();
    checked()->showCheck("Mėnesio įrašai");
    checked()->lines()->setFocus();
    press(Qt::Key_Down);
    ASSERT_EQ(currentLine(), "2026.02.03  D-2");
    press(Qt::Key_F5);
    EXPECT_EQ(currentLine(), "2026.02.03  D-2");
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    press(Qt::Key_F5);
    EXPECT_EQ(currentLine(), "Mėnesio įrašai") << "nobody is moved off a check that he stands on";
}

TEST_F(CheckWindow, CheckedAgainItIsOfTheMonthThatAnotherStationMadeCurrent)
{
    openChecks();
    EXPECT_TRUE(checked()->headline().startsWith("2026 m. vasaris"));
    books().ExecSQL("insert into bd_period values (8, 2026, 1, 3)");
    checked()->lines()->setFocus();
    press(Qt::Key_F5);
    EXPECT_TRUE(checked()->headline().startsWith("2026 m. kovas")) << qPrintable(checked()->headline());
}

TEST_F(CheckWindow, ADifferenceBelowACentIsSeenInTheEntriesToo)
{
    entry(1, 5.0001, 5);
    openChecks();
    enterOn("Mėnesio įrašai");
    ASSERT_EQ(active(), "TIrasaiFrm");
    const QAbstractItemModel *shown = window->findChild<TBrowseFrm *>("TIrasaiFrm")->grid()->model();
    QStringList amounts;
    for (int column = 0; column < shown->columnCount(); ++column)
        amounts << shown->index(0, column).data().toString();
    EXPECT_TRUE(amounts.contains("5.0001") && amounts.contains("5.00")) << qPrintable(amounts.join('|'));
}

TEST_F(CheckWindow, EnterOnAMiscarriedBalanceStandsOnItsRow)
{
    takeGuardsAway(books());
    books().ExecSQL("insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) values "
                    "(1, 1, 6, 5, 0), (2, 2, 6, 0, 5), (3, 1, 7, 5, 0), (4, 2, 7, 0, 5.01)");
    start();
    window->openEntry("TCloseCheckFrm");
    checked()->showCheck("Kontrolinės sumos");
    EXPECT_EQ(currentLine(), "43  Skolos");
    NextBoxes unequal{QMessageBox::Ok, QMessageBox::Ok}; // the list tells it whenever it is read
    checked()->lines()->setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(active(), "TSasLikFrm");
    EXPECT_EQ(window->findChild<TBrowseFrm *>("TSasLikFrm")->currentKey().toInt(), 4);
}

TEST_F(CheckWindow, EnterOnMiscarriedExpensesStandsOnTheirNode)
{
    expenses();
    openChecks();
    enterOn("Kontrolinės sumos");
    EXPECT_EQ(currentLine(), "2.2  Prekės");
    EXPECT_EQ(active(), "TIslFrm");
    EXPECT_EQ(dynamic_cast<TBookFrm *>(window->documents()->document("TIslFrm"))->JungId(), 11);
}

TEST_F(CheckWindow, EnterOnAnEstimateThatIsOverrunStandsOnItsNode)
{
    expenses();
    books().ExecSQL(
        "insert into bd_irasai (irs_id, irs_perid, irs_jveid, irs_kas_db) values (1, 7, 11, 20.01)");
    openChecks();
    enterOn("Sąmatos");
    EXPECT_EQ(active(), "TSamFrm");
    EXPECT_EQ(dynamic_cast<TBookFrm *>(window->documents()->document("TSamFrm"))->JungId(), 11);
}

TEST_F(CheckWindow, WhatHasNoScreenIsToldWhole)
{
    start();
    window->openEntry("TCloseCheckFrm");
    EXPECT_EQ(checked()->headline(), "2026 m. vasaris: rasta, kas trukdo uždaryti: 1. Nepatikrinta: 2.");
    checked()->showCheck("Atsarginė kopija");
    NextBoxes told{QMessageBox::Ok};
    checked()->lines()->setFocus();
    press(Qt::Key_Return);
    EXPECT_TRUE(told.at(0).text.contains("Nėra nė vienos atsarginės kopijos."));
}

namespace {

// The window by itself, on a server that goes away while it checks.
using CheckWindowOnServer = WithMainDatas;
ON_ENGINE(CheckWindowOnServer, Engine::PostgreSql);

} // namespace

TEST_P(CheckWindowOnServer, AServerLostMidwayIsAskedNothingMoreAndToldAtEveryCheckThatIsLeft)
{
    fin->ExecSQL("insert into bd_period values (1, 2026, 0, 0), (2, 2026, 1, 0), (6, 2026, 1, 1)");
    GetPeriod();
    const std::unique_ptr<TCloseCheckFrm> frm(createForm<TCloseCheckFrm>(nullptr));
    frm->show();
    const auto stateOf = [&frm](int check) { return frm->lines()->topLevelItem(check)->text(1); };
    int made = 0;
    QObject::connect(TCloseCheckRun::ofOpenBooks().get(), &TCloseCheckRun::checked, frm.get(), [&] {
        if (++made == 3)
            secondFin()->nativeExec("select pg_terminate_backend(pid) from pg_stat_activity "
                                    "where datname = current_database() and pid <> pg_backend_pid()");
    });
    const auto over = [&frm] { return frm->lines()->findItems("ikrinama", Qt::MatchContains, 1).isEmpty(); };
    ASSERT_TRUE(QTest::qWaitFor(over, 30'000));
    EXPECT_EQ(stateOf(0), "Tvarkoje");
    const QTreeWidgetItem *last = frm->lines()->topLevelItem(frm->lines()->topLevelItemCount() - 1);
    EXPECT_EQ(last->text(1), "Nepatikrinta");
    ASSERT_EQ(last->childCount(), 1);
    EXPECT_TRUE(last->child(0)->text(1).contains("Nutrūko ryšys")) << qPrintable(last->child(0)->text(1));
    EXPECT_FALSE(frm->headline().contains("Niekas netrukdo")) << qPrintable(frm->headline());
    frm->acRefresh->trigger();
    ASSERT_TRUE(QTest::qWaitFor(over, 30'000));
    EXPECT_TRUE(frm->headline().contains("Niekas netrukdo uždaryti.")) << qPrintable(frm->headline());
}
