#include "host/app/help_viewer.h"
#include "host/common/help.h"
#include "tests/host/app/main_window.h"
#include "tests/support/message_box.h"
#include "toolkit/widgets/db_grid.h"
#include "toolkit/widgets/dialog.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Document windows inside the real main window, driven by keys.
class Documents : public MainWindow {
protected:
    void SetUp() override
    {
        MainWindow::SetUp();
        books().ExecSQL("insert into bd_period values (6, 2026, 1, 1)");
        GetPeriod();
        setHelpViewer([this](int topic) { helpShown << topic; });
        start();
    }
    void TearDown() override
    {
        setHelpViewer({});
        MainWindow::TearDown();
    }

    // The lists whose grid has the keyboard: at most one.
    QString listWithKeyboard() const
    {
        QCoreApplication::processEvents();
        QMdiSubWindow *active = window->documents()->activeSubWindow();
        const auto *grid = qobject_cast<TDBGrid *>(QApplication::focusWidget());
        return active && grid && active->isAncestorOf(grid) ? active->objectName() : QString();
    }
    QList<QMdiSubWindow *> open() const { return window->documents()->subWindowList(); }

    QList<int> helpShown;
};

// A document of a package yet to come: opens in two ways, and counts its calls.
struct TestScreen : QWidget {
    TestScreen()
    {
        auto *all = new QVBoxLayout(this);
        all->addWidget(new QLineEdit(this));
        all->addWidget(new QPushButton("Gerai", this));
        setWindowTitle("Formos");
    }
    QList<bool> initialized;
};

TPackageEntry testEntry(const QString &name, bool second)
{
    TPackageEntry entry{.name = name, .kind = TPackageEntry::Kind::ListScreen, .help = 33};
    entry.create = [](QWidget *) { return new TestScreen; };
    entry.opened = [second](QWidget *screen) { static_cast<TestScreen *>(screen)->initialized << second; };
    return entry;
}

} // namespace

TEST_F(Documents, TheListOpenedLastHasTheKeyboard)
{
    window->openEntry("TSasLikFrm");
    EXPECT_EQ(listWithKeyboard(), "TSasLikFrm");
    window->openEntry("TDbKrFrm");
    EXPECT_EQ(listWithKeyboard(), "TDbKrFrm");
    window->openEntry("TSasLikFrm");
    EXPECT_EQ(listWithKeyboard(), "TSasLikFrm");
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(listWithKeyboard(), "TDbKrFrm");
    press(Qt::Key_Escape);
    ASSERT_EQ(open().size(), 1);
    EXPECT_EQ(listWithKeyboard(), "TSasLikFrm");
    press(Qt::Key_Escape);
    EXPECT_TRUE(open().isEmpty());
}

TEST_F(Documents, HelpOfTheListInFrontOpensByItsKey)
{
    window->openEntry("TSasLikFrm");
    window->openEntry("TDbKrFrm");
    press(Qt::Key_F1);
    EXPECT_EQ(helpShown, QList<int>{9});
    press(Qt::Key_Escape);
    press(Qt::Key_F1);
    EXPECT_EQ(helpShown, (QList<int>{9, 17}));
    press(Qt::Key_Escape);
    press(Qt::Key_F1);
    EXPECT_EQ(helpShown, (QList<int>{9, 17, 129})) << "the home page is in front";
}

TEST_F(Documents, AScreenWithoutAKeyForHelpIsHelpedByTheMainWindow)
{
    window->documents()->open(testEntry("TBandFrm", false));
    press(Qt::Key_F1);
    EXPECT_EQ(helpShown, QList<int>{33});
}

TEST_F(Documents, OneClassOpensInTwoWaysInWindowsOfTheirOwn)
{
    for (int round = 0; round < 2; ++round)
        for (const bool second : {false, true})
            window->documents()->open(testEntry(second ? "TBandFrm2" : "TBandFrm", second));
    ASSERT_EQ(open().size(), 2);
    EXPECT_EQ(static_cast<TestScreen *>(open()[0]->widget())->initialized, QList<bool>{false});
    EXPECT_EQ(static_cast<TestScreen *>(open()[1]->widget())->initialized, QList<bool>{true});
}

TEST_F(Documents, AScreenWhoseOwnCallFailsIsGone)
{
    TPackageEntry entry = testEntry("TBandFrm", false);
    entry.opened = [](QWidget *) { throw Exception("neatsidaro"); };
    EXPECT_THROW(window->documents()->open(entry), Exception);
    EXPECT_TRUE(open().isEmpty());
}

TEST_F(Documents, ADocumentKeepsItsOwnLastFocus)
{
    window->documents()->open(testEntry("TBandFrm", false));
    QCoreApplication::processEvents();
    auto *button = open().first()->widget()->findChild<QPushButton *>();
    button->setFocus();
    window->openEntry("TSasLikFrm");
    EXPECT_EQ(listWithKeyboard(), "TSasLikFrm");
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), button);
}

TEST_F(Documents, NoneCoversAnotherExactly)
{
    const char *names[] = {"TBandFrm", "TBandFrm2", "TBandFrm3", "TBandFrm4"};
    for (const char *name : names) {
        window->documents()->open(testEntry(name, false));
        open().last()->setGeometry(0, 0, 300, 200); // where an earlier one was kept
        QCoreApplication::processEvents();
    }
    for (QMdiSubWindow *one : open())
        for (QMdiSubWindow *other : open())
            EXPECT_TRUE(one == other || one->pos() != other->pos());
}

TEST_F(Documents, NoneOpensBeyondAnEdge)
{
    const QRect room = window->documents()->viewport()->rect();
    const char *names[] = {"TBandFrm", "TBandFrm2", "TBandFrm3", "TBandFrm4"};
    for (const QSize size : {QSize(300, 200), room.size() * 2}) {
        for (const char *name : names) {
            window->documents()->open(testEntry(name, false));
            open().last()->setGeometry({room.center(), size}); // where an earlier one was kept
            QCoreApplication::processEvents();
            EXPECT_TRUE(room.contains(open().last()->geometry())) << name;
        }
        for (QMdiSubWindow *one : open())
            delete one;
    }
}

TEST_F(Documents, AListComesBackMaximised)
{
    window->openEntry("TSasLikFrm");
    QCoreApplication::processEvents();
    open().first()->showMaximized();
    press(Qt::Key_W, Qt::ControlModifier);
    ASSERT_TRUE(open().isEmpty());
    window->openEntry("TSasLikFrm");
    QCoreApplication::processEvents();
    EXPECT_TRUE(open().first()->isMaximized());
}

TEST_F(Documents, F10LeadsToTheMenuBar)
{
    window->openEntry("TSasLikFrm");
    ASSERT_EQ(window->menuBar()->activeAction(), nullptr);
    press(Qt::Key_F10);
    EXPECT_NE(window->menuBar()->activeAction(), nullptr);
}

TEST_F(Documents, AltAloneLeadsToTheMenuBar)
{
    window->openEntry("TSasLikFrm");
    ASSERT_EQ(window->menuBar()->activeAction(), nullptr);
    QWidget *focused = QApplication::focusWidget();
    // As the display tells it: the modifiers before the key.
    QTest::simulateEvent(focused, true, Qt::Key_Alt, Qt::NoModifier, {}, false);
    QTest::simulateEvent(focused, false, Qt::Key_Alt, Qt::AltModifier, {}, false);
    EXPECT_NE(window->menuBar()->activeAction(), nullptr);
    EXPECT_TRUE(window->menuBar()->hasFocus());
    QTest::keyClick(window->menuBar(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), focused);
}

TEST_F(Documents, AltWithALetterIsNoAltAlone)
{
    window->openEntry("TSasLikFrm");
    QWidget *focused = QApplication::focusWidget();
    QTest::simulateEvent(focused, true, Qt::Key_Alt, Qt::NoModifier, {}, false);
    QTest::simulateEvent(focused, true, Qt::Key_1, Qt::AltModifier, {}, false);
    QTest::simulateEvent(focused, false, Qt::Key_1, Qt::AltModifier, {}, false);
    QTest::simulateEvent(focused, false, Qt::Key_Alt, Qt::AltModifier, {}, false);
    EXPECT_EQ(window->menuBar()->activeAction(), nullptr);
}

TEST_F(Documents, ALetterWithoutAnOpenWindowRunsNothing)
{
    window->openEntry("TSasLikFrm");
    press(Qt::Key_Escape);
    for (int key = Qt::Key_A; key <= Qt::Key_Z; ++key) {
        press(Qt::Key(key));
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << char(key);
    }
    EXPECT_TRUE(open().isEmpty());
}

TEST_F(Documents, NoTwoAcceleratorsOfTheMenusAreAlike)
{
    window->openEntry("TSasLikFrm");
    const auto accelerators = [](const QList<QAction *> &actions) {
        QStringList found;
        for (const QAction *each : actions)
            if (const QKeySequence key = QKeySequence::mnemonic(each->text()); !key.isEmpty())
                found << key.toString();
        return found;
    };
    const auto expectNoneTwice = [](QStringList keys) {
        const QStringList all = keys;
        EXPECT_EQ(keys.removeDuplicates(), 0) << qPrintable(all.join(' '));
    };
    const QList<QAction *> bar = window->menuBar()->actions();
    EXPECT_EQ(accelerators(bar).size(), bar.size());
    expectNoneTwice(accelerators(bar));
    for (const QAction *title : bar) {
        emit title->menu()->aboutToShow();
        expectNoneTwice(accelerators(title->menu()->actions()));
    }
}

TEST_F(Documents, EscClosesTheHelp)
{
    THelpViewer viewer(window.get());
    viewer.showTopic(18);
    ASSERT_TRUE(viewer.isVisible());
    QTest::keyClick(&viewer, Qt::Key_Escape);
    EXPECT_FALSE(viewer.isVisible());
}

TEST_F(Documents, AMonthClosedAtAnotherStationIsSeenWhenAWindowBecomesActive)
{
    window->openEntry("TSasLikFrm");
    window->openEntry("TDbKrFrm");
    QCoreApplication::processEvents();
    TDatabase other(books().settings());
    other.Open();
    other.ExecSQL("insert into bd_period values (7, 2026, 1, 2)");
    EXPECT_EQ(panel("period"), "Periodas: 2026 m. sausis");
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(panel("period"), "Periodas: 2026 m. vasaris");

    other.ExecSQL("insert into bd_period values (8, 2026, 1, 3)");
    QWidget elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
    QCoreApplication::processEvents();
    EXPECT_EQ(panel("period"), "Periodas: 2026 m. kovas");
}

TEST_F(Documents, AfterASaveRefusedByAMonthClosedElsewhereStatusBarAndListFollow)
{
    for (const char *sql : {"insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) "
                            "values (1, '241', 'Bankas', 'D')",
                            "insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) "
                            "values (2, '401', 'Finansavimas', 'D')",
                            "insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) "
                            "values (1, 1, 6, 100, 0)",
                            "insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) "
                            "values (2, 2, 6, 0, 100)"})
        books().ExecSQL(sql);
    window->openEntry("TSasLikFrm");
    QCoreApplication::processEvents();
    QWidget *list = window->documents()->document("TSasLikFrm");
    ASSERT_TRUE(list->findChild<QAction *>("acNew")->isVisible());
    TDatabase other(books().settings());
    other.Open();
    OnNextDialog<TDialog> dialog([&](TDialog &shown) {
        auto *sum = shown.findChild<QLineEdit *>("SSL_SUM_DB");
        type(sum, "90");
        other.ExecSQL("call Close_Per()");
        {
            NextBoxes refused{QMessageBox::Ok};
            pressButton(shown, "&Išsaugoti");
            EXPECT_TRUE(refused.at(0).text.startsWith("2026 m. sausio mėnuo uždarytas"))
                << qPrintable(refused.at(0).text);
        }
        EXPECT_TRUE(QTest::qWaitFor([this] { return panel("period") == "Periodas: 2026 m. vasaris"; }));
        EXPECT_TRUE(sum->text().startsWith("90"));
        shown.reject();
    });
    press(Qt::Key_Return);
    EXPECT_EQ(list->findChild<QComboBox *>("PeriodBox")->currentText(), "2026 m. vasaris");
    EXPECT_FALSE(list->findChild<QAction *>("acNew")->isVisible());
}

// --- the institution's own record

TEST_F(Documents, TheNameOfTheInstitutionIsShownAsSoonAsItIsSaved)
{
    books().ExecSQL("insert into bd_org (org_pavad, org_adr, org_i_kod) values ('Šilo mokykla', 'Šilas', 1)");
    window->setLoggedIn(true);
    EXPECT_EQ(panel("institution"), "Šilo mokykla");
    window->openEntry("TOrgFrm");
    press(Qt::Key_F2);
    type(window->findChild<QLineEdit *>("org_pavad"), "Žolynų gimnazija");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(panel("institution"), "Žolynų gimnazija");
}

TEST_F(Documents, TheProgramIsNotLeftWhileAnInstitutionThatIsBeingChangedKeepsItsWindow)
{
    window->openEntry("TOrgFrm");
    press(Qt::Key_F2);
    NextBoxes asked{QMessageBox::Cancel};
    window->close();
    EXPECT_EQ(asked.at(0).kind, 99);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(open().size(), 1);
}
