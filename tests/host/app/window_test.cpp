#include "host/app/help_viewer.h"
#include "host/app/login.h"
#include "host/app/login_dialog.h"
#include "host/common/help.h"
#include "host/data/organisation.h"
#include "tests/host/app/main_window.h"
#include "tests/support/message_box.h"
#include "tests/support/refusal.h"

#include <QDir>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>

namespace {

// Months closed after the start of work, with balances of theirs.
void closeMonths(TDatabase &books)
{
    for (const char *sql : {"insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) "
                            "values (1, '24', 'Pinigai', 'D')",
                            "insert into bd_period values (6, 2026, 1, 1)",
                            "insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid) values (1, 1, 6)",
                            "insert into bd_period values (7, 2026, 1, 2)",
                            "insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid) values (2, 1, 7)",
                            "insert into bd_period values (8, 2026, 1, 3)",
                            "insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid) values (3, 1, 8)"})
        books.ExecSQL(sql);
    GetPeriod();
}

QStringList backupsIn(const QString &folder)
{
    return QDir(folder + "/atsargines").entryList({"*-pradzia.velmora"}, QDir::Files);
}

} // namespace

TEST_F(MainWindow, TheStartOfWorkIsNotSetAnewByEnterWhileMonthsAreClosed)
{
    closeMonths(books());
    NextBoxes asked{QMessageBox::No};
    window->openEntry("TPeriodDlg");
    EXPECT_EQ(asked.at(0).kind, 18);
    EXPECT_TRUE(
        asked.at(0).text.contains("Mėnesių, kurie bus ištrinti: 2\nLikučių, kurie liks be periodo: 2"))
        << qPrintable(asked.at(0).text);
    EXPECT_EQ(EinPer_Id(), 8);
    EXPECT_TRUE(backupsIn(root.filePath("knygos")).isEmpty());
}

TEST_F(MainWindow, AMonthClosedElsewhereStopsTheStartOfWorkThatStandsOpen)
{
    books().ExecSQL("insert into bd_period values (6, 2026, 1, 1)");
    GetPeriod();
    start();
    OnNextDialog<TDialog> dialog([this](TDialog &shown) {
        books().ExecSQL("insert into bd_period values (7, 2026, 1, 2)");
        NextBoxes told{QMessageBox::Ok};
        pressButton(shown, "&Taip");
        EXPECT_TRUE(told.at(0).text.contains("kita darbo vieta")) << qPrintable(told.at(0).text);
        shown.reject();
    });
    window->openEntry("TPeriodDlg");
    EXPECT_EQ(books().fieldResult("select count(*) from bd_period").toInt(), 2);
}

TEST_F(MainWindow, BeforeTheStartOfWorkIsSetAnewTheBooksAreBackedUp)
{
    closeMonths(books());
    NextBoxes asked{QMessageBox::Yes};
    OnNextDialog<TDialog> dialog([](TDialog &shown) { pressButton(shown, "&Ne"); });
    window->openEntry("TPeriodDlg");
    const QStringList backups = backupsIn(root.filePath("knygos"));
    ASSERT_EQ(backups.size(), 1);
    EXPECT_TRUE(asked.at(0).text.contains(root.filePath("knygos/atsargines")));
    EXPECT_TRUE(
        contentOf(root.filePath("knygos/atsargines/") + backups.first()).startsWith("VELMORA-ATSARGA"));
    EXPECT_EQ(EinPer_Id(), 8);
}

TEST_F(MainWindow, WithoutABackupTheStartOfWorkIsNotTouched)
{
    closeMonths(books());
    // Where the copy is to stand there is no room for it.
    QDir().rename(root.filePath("knygos"), root.filePath("dingo"));
    NextBoxes asked{QMessageBox::Yes, QMessageBox::No};
    window->openEntry("TPeriodDlg");
    EXPECT_TRUE(asked.at(1).text.contains("kopijos padaryti nepavyko")) << qPrintable(asked.at(1).text);
    EXPECT_EQ(EinPer_Id(), 8);
}

TEST_F(MainWindow, WhatOnlyWritesIsShutForAUserWhoMayOnlyLook)
{
    CurrentUser().viewOnly = true;
    window->setLoggedIn(true);
    for (const char *writing : {"TPeriodDlg", "StartPerClose", "PeriodBack"}) {
        EXPECT_FALSE(action(writing)->isEnabled()) << writing;
        EXPECT_THROW(window->openEntry(writing), Exception) << writing;
    }
    EXPECT_TRUE(action("TSasLikFrm")->isEnabled());
    CurrentUser().viewOnly = false;
    window->setLoggedIn(true);
    EXPECT_TRUE(action("StartPerClose")->isEnabled());
}

TEST(Shipped, NothingThatIsInstalledLinksATestLibraryButTheTour)
{
    QProcess elf;
    for (const QString file : {"bin/velmora-host", "bin/velmora-db", "lib/libvelmora.so",
                               "lib/libvelmora_app.so", "lib/libvelmora_tour.so"}) {
        elf.start("ldd", {buildFolder() + '/' + file});
        ASSERT_TRUE(elf.waitForFinished());
        const QByteArray libraries = elf.readAllStandardOutput();
        EXPECT_TRUE(libraries.contains("libQt6Core")) << qPrintable(file);
        EXPECT_EQ(libraries.contains("libQt6Test"), file.contains("tour")) << qPrintable(file);
    }
}

TEST_F(MainWindow, HasAMenuLineForEverythingThatOpens)
{
    for (const TPackageEntry &entry : window->allEntries()) {
        if (entry.kind == TPackageEntry::Kind::Editor) {
            EXPECT_EQ(action(entry.name), nullptr) << qPrintable(entry.name);
            continue;
        }
        ASSERT_NE(action(entry.name), nullptr) << qPrintable(entry.name);
        EXPECT_EQ(action(entry.name)->text(), entry.caption);
    }
}

TEST_F(MainWindow, KeepsItsMenusShutUntilSomebodyLogsIn)
{
    const auto enabled = [this] {
        return qobject_cast<QMenu *>(action("StartPerClose")->parent())->isEnabled();
    };
    EXPECT_FALSE(enabled());
    window->setLoggedIn(true);
    EXPECT_TRUE(enabled());
}

TEST_F(MainWindow, ItAndTheHelpStandOnASmallScreenWhole)
{
    const QRect screen = window->screen()->availableGeometry();
    ASSERT_LT(screen.width(), 1100) << "a control: the window would like to be wider";
    window->show();
    EXPECT_TRUE(screen.contains(window->geometry()));
    THelpViewer viewer(window.get());
    viewer.showTopic(18);
    EXPECT_TRUE(screen.contains(viewer.geometry()));
}

TEST_F(MainWindow, ShowsThePeriodAndFollowsIt)
{
    window->setLoggedIn(true);
    EXPECT_EQ(panel("period"), "Darbo pradžios periodas nenustatytas");
    MainDatas()->mnFin_Db()->ExecSQL("insert into bd_period values (6, 2026, 2, 3)");
    GetPeriod();
    EXPECT_EQ(panel("period"), "Periodas: 2026 m. birželis");
    EXPECT_EQ(panel("engine"), "Įterptinė duomenų bazė");
}

TEST_F(MainWindow, ItsTitleIsTheInstitutionAndFollowsIt)
{
    EXPECT_EQ(window->windowTitle(), "Velmora");
    window->setLoggedIn(true);
    EXPECT_EQ(window->windowTitle(), "Velmora");
    books().ExecSQL("insert into bd_org (org_pavad) values ('Šilo mokykla')");
    OrganisationChanged();
    EXPECT_EQ(window->windowTitle(), "Šilo mokykla – Velmora");
}

TEST_F(MainWindow, OpensADialogByItsName)
{
    bool seen = false;
    OnNextDialog<QDialog> dialog([&seen](QDialog &shown) {
        seen = shown.windowTitle() == "Darbo pradžios periodas";
        pressButton(shown, "&Taip");
    });
    window->openEntry("tperioddlg");
    EXPECT_TRUE(seen);
    EXPECT_EQ(EinPer_Id(), 6);
}

TEST_F(MainWindow, TellsANameThatIsNone)
{
    EXPECT_TRUE(refusalOf([this] { window->openEntry("TNeraTokio"); }).contains("TNeraTokio"));
}

TEST_F(MainWindow, HasAHelpTopicForEveryScreen)
{
    for (const TPackageEntry &entry : window->allEntries())
        EXPECT_TRUE(QFile::exists(QString(":/help/%1.md").arg(entry.help, 2, 10, QChar(u'0'))))
            << qPrintable(entry.name);
}

TEST(Help, EveryLinkLeadsToATopic)
{
    const QStringList topics = QDir(":/help").entryList({"*.md"});
    EXPECT_GE(topics.size(), 4);
    const QRegularExpression link(R"(\]\(([^)]+)\))");
    for (const QString &topic : topics) {
        const QString text = QString::fromUtf8(contentOf(":/help/" + topic));
        for (auto links = link.globalMatch(text); links.hasNext();)
            EXPECT_TRUE(topics.contains(links.next().captured(1))) << qPrintable(topic);
    }
}

TEST(Help, ATopicThatIsNotWrittenShowsTheContents)
{
    QWidget owner;
    THelpViewer viewer(&owner);
    viewer.showTopic(77);
    EXPECT_TRUE(viewer.toPlainText().startsWith("Pagalba"));
    viewer.showTopic(18);
    EXPECT_TRUE(viewer.toPlainText().startsWith("Periodo uždarymas"));
}

TEST(Tour, WalksThroughThePeriodAndPicturesEveryStep)
{
    const QTemporaryDir folder;
    QProcess host;
    host.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    host.start(buildFolder() + "/bin/velmora-host", {"--tour", folder.path()});
    ASSERT_TRUE(host.waitForFinished(120000));
    EXPECT_EQ(host.exitCode(), 0);
    const QString index = QString::fromUtf8(contentOf(folder.filePath("index.html")));
    const int pictures = int(QDir(folder.path()).entryList({"*.png"}).size());
    EXPECT_GE(pictures, 15);
    EXPECT_EQ(index.count("<img "), pictures);
    EXPECT_TRUE(index.contains("Mėnuo uždarytas"));
    EXPECT_TRUE(index.contains("Paskutinis uždarymas atšauktas"));
    EXPECT_TRUE(index.contains("Santrauka: iki šiol dar nieko neįrašyta"));
}

TEST_F(MainWindow, AListOpensOnceAndClosesByItsKey)
{
    MainDatas()->mnFin_Db()->ExecSQL("insert into bd_period values (6, 2026, 1, 1)");
    window->setLoggedIn(true);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    for (int press = 0; press < 2; ++press)
        window->openEntry("TSasLikFrm");
    const QList<QMdiSubWindow *> lists = window->documents()->subWindowList();
    ASSERT_EQ(lists.size(), 1);
    QTest::keyClick(lists.first()->focusWidget(), Qt::Key_W, Qt::ControlModifier);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window->documents()->subWindowList().isEmpty());
}

TEST_F(MainWindow, AViewOnlyUserIsToldAtLoginThatNothingCanBeChanged)
{
    MainDatas()->mnRavl()->ExecSQL("update bd_usr set usr_perziurai = 1, usr_user_admin = 0");
    OnNextDialog<TLoginDlg> login([](TLoginDlg &dialog) {
        dialog.findChild<QLineEdit *>("NameEdit")->setText("ona");
        dialog.findChild<QLineEdit *>("PassEdit")->setText("x");
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    NextBoxes told{QMessageBox::Ok};
    TLoginPatience patience;
    EXPECT_EQ(logInAt(*window, {}, patience), TLoginEnd::LoggedIn);
    EXPECT_EQ(told.at(0).kind, 33);
    EXPECT_EQ(told.at(0).text,
              "Jums leista duomenis tik peržiūrėti: nė viename lange nieko pakeisti negalėsite.");
    for (TDatabase *session : {MainDatas()->mnFin_Db(), MainDatas()->mnRavl()})
        EXPECT_THROW(session->nativeExec("create table t (i integer)"), EDatabaseError);
}
