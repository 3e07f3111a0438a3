#include "host/app/backups/backups_dialog.h"
#include "host/app/backups/making.h"
#include "host/app/backups/tool.h"
#include "host/app/login_dialog.h"
#include "host/data/backups.h"
#include "tests/host/app/main_window.h"
#include "tests/host/books.h"
#include "tests/support/message_box.h"

#include <QDesktopServices>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>

namespace {

// The demonstration books, with their backups beside them.
class Backups : public MainWindow {
protected:
    void SetUp() override
    {
        settingsStore().clear();
        createDemonstrationBooks(root.filePath("knygos"));
        openEmbeddedBooks(root.filePath("knygos"));
        package = std::make_unique<TLoadedPackage>(buildFolder() + "/lib/libvelmora.so");
        window = std::make_unique<TMainWindow>(*package);
        CurrentUser().name = "admin";
        setBackupMaker(backUpOrAsk);
        start();
    }
    void TearDown() override
    {
        setToolProgram({});
        setBackupMaker({});
        MainWindow::TearDown();
    }

    static QString month() { return EinPer_Date().date().toString("yyyy-MM"); }
    static QList<TBackup> made() { return backupsIn(backupFolder()); }

    // The boxes that come meanwhile are set up before; the first one asks whether he is sure.
    void close(std::function<void(QDialog &)> after = {})
    {
        NextWindow dialog([&](QDialog &close) {
            pressButton(close, "Pradėti");
            if (after)
                after(close);
        });
        window->openEntry("StartPerClose");
    }

    // The dialog of the close, whose class is the package's own.
    class NextWindow : public NextDialog {
    public:
        explicit NextWindow(std::function<void(QDialog &)> user)
            : NextDialog([](QWidget *widget) { return widget->windowTitle() == "Periodo uždarymas"; },
                         [user](QWidget *widget) { user(*qobject_cast<QDialog *>(widget)); })
        {
        }
    };
};

} // namespace

TEST_F(Backups, AreMadeBeforeACloseAndBeforeARollBack)
{
    const QString closed = month();
    NextBoxes closing{QMessageBox::Yes, QMessageBox::Ok};
    close();
    ASSERT_EQ(made().size(), 1);
    EXPECT_EQ(made().at(0).kind, BackupKind::Close);
    EXPECT_EQ(made().at(0).holds.month, closed);
    EXPECT_NE(month(), closed);
    const QString open = month();
    NextBoxes answers{QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
    window->openEntry("PeriodBack");
    ASSERT_EQ(made().size(), 2);
    EXPECT_EQ(made().at(0).kind, BackupKind::RollBack);
    EXPECT_EQ(made().at(0).holds.month, open);
    EXPECT_EQ(month(), closed);
    ASSERT_TRUE(lastBackup());
    EXPECT_EQ(lastBackup()->file, made().at(0).file);
}

TEST_F(Backups, AFailureIsToldAndNothingIsClosedUnlessTheUserGoesOn)
{
    const QString open = month();
    setToolProgram(root.filePath("nera"));
    {
        NextBoxes asked{QMessageBox::Yes, QMessageBox::No};
        close([](QDialog &dialog) {
            EXPECT_TRUE(dialog.isVisible());
            dialog.reject();
        });
        EXPECT_EQ(asked.at(1).kind, 18); // Enter answers no
        EXPECT_TRUE(asked.at(1).text.contains("Nepavyko paleisti programos")) << qPrintable(asked.at(1).text);
    }
    EXPECT_EQ(month(), open);
    NextBoxes asked{QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
    close();
    EXPECT_NE(month(), open);
    EXPECT_EQ(made().size(), 0);
}

TEST_F(Backups, WhoMayOnlyLookMakesNone)
{
    CurrentUser().viewOnly = true;
    EXPECT_TRUE(backUpOrAsk(BackupKind::Close));
    EXPECT_FALSE(QFileInfo::exists(backupFolder()));
    TBackupsDlg dialog(nullptr);
    for (const char *name : {"MakeBtn", "RestoreBtn", "VerifyBtn"})
        EXPECT_FALSE(dialog.findChild<QPushButton *>(name)->isEnabled()) << name;
}

TEST_F(Backups, TheDayHasOneMadeInTheBackground)
{
    for (int start = 0; start < 2; ++start) {
        startDailyBackup(window.get());
        EXPECT_TRUE(QTest::qWaitFor([] { return made().size() == 1; }, 60'000));
        QTest::qWait(2500);
        waitForDailyBackup();
    }
    ASSERT_EQ(made().size(), 1);
    EXPECT_EQ(made().at(0).kind, BackupKind::Day);
}

TEST_F(Backups, ADailyOneThatFailsIsTold)
{
    QFile(backupFolder()).open(QIODevice::WriteOnly);
    NextBoxes told{QMessageBox::Ok};
    startDailyBackup(window.get());
    EXPECT_TRUE(QTest::qWaitFor([&told] { return told.count() == 1; }, 60'000));
    EXPECT_TRUE(told.at(0).text.contains("atsargines")) << qPrintable(told.at(0).text);
    EXPECT_TRUE(told.at(0).text.contains("Šios dienos")) << qPrintable(told.at(0).text);
}

TEST_F(Backups, TheWindowMakesVerifiesAndShows)
{
    TBackupsDlg dialog(nullptr);
    const auto *list = dialog.findChild<QTreeWidget *>("List");
    EXPECT_FALSE(dialog.findChild<QPushButton *>("RestoreBtn")->isEnabled());
    pressButton(dialog, "&Kurti dabar");
    ASSERT_EQ(list->topLevelItemCount(), 1);
    const QTreeWidgetItem *row = list->currentItem();
    ASSERT_TRUE(row);
    EXPECT_EQ(row->text(1), "Naudotojo padaryta");
    EXPECT_EQ(row->text(2), organisationName());
    EXPECT_EQ(row->text(3), month());
    EXPECT_EQ(row->text(5), "Patikrinta kuriant");
    pressButton(dialog, "T&ikrinti");
    EXPECT_EQ(list->currentItem()->text(5), "Patikrinta dabar: tinka atkurti");

    QFile file(made().at(0).file);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2));
    file.write("x");
    file.close();
    NextBoxes told{QMessageBox::Ok};
    pressButton(dialog, "T&ikrinti");
    EXPECT_TRUE(told.at(0).text.contains("sugadinta")) << qPrintable(told.at(0).text);
    EXPECT_TRUE(list->currentItem()->text(5).contains("sugadinta"));
}

TEST_F(Backups, RestoringAsksClosesEverythingAndAsksForTheNameAgain)
{
    ASSERT_TRUE(backUpOrAsk(BackupKind::ByHand));
    books().ExecSQL("update bd_org set org_adr = 'Vėlesnė g. 1'");
    window->openEntry("TSasLikFrm");
    ASSERT_EQ(window->documents()->subWindowList().size(), 1);
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    OnNextDialog<TBackupsDlg> chooses([](TBackupsDlg &dialog) { pressButton(dialog, "A&tkurti…"); });
    OnNextDialog<TLoginDlg> logsIn([&](TLoginDlg &login) {
        EXPECT_TRUE(window->documents()->subWindowList().isEmpty());
        EXPECT_EQ(login.findChild<QLineEdit *>("NameEdit")->text(), "admin");
        login.findChild<QLineEdit *>("PassEdit")->setText("Raktas1");
        pressButton(login, "&Prisijungti");
    });
    action("acBackups")->trigger();
    EXPECT_TRUE(boxes.at(0).text.contains(organisationName())) << qPrintable(boxes.at(0).text);
    EXPECT_TRUE(boxes.at(1).text.contains("Knygos atkurtos")) << qPrintable(boxes.at(1).text);
    EXPECT_NE(books().fieldResult("select org_adr from bd_org").toString(), "Vėlesnė g. 1");
    EXPECT_EQ(CurrentUser().name, "admin");
    EXPECT_TRUE(action("acBackups")->isEnabled());
    EXPECT_EQ(QDir(root.filePath("knygos")).entryList({"velmora_*.sena-*"}).size(), 2);
}

TEST_F(Backups, BooksThatSomebodyElseHasOpenAreNotReplaced)
{
    ASSERT_TRUE(backUpOrAsk(BackupKind::ByHand));
    TDatabase other(MainDatas()->mnFin_Db()->settings());
    other.Open();
    other.ExecSQL("update bd_org set org_adr = 'Vėlesnė g. 1'");
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    OnNextDialog<TBackupsDlg> chooses([](TBackupsDlg &dialog) { pressButton(dialog, "A&tkurti…"); });
    OnNextDialog<TLoginDlg> givesUp([](TLoginDlg &login) { login.reject(); });
    action("acBackups")->trigger();
    EXPECT_TRUE(boxes.at(1).text.contains("kita programa")) << qPrintable(boxes.at(1).text);
    EXPECT_EQ(other.fieldResult("select org_adr from bd_org").toString(), "Vėlesnė g. 1");
    EXPECT_FALSE(window->isVisible());
}

// A server's books have backups here only in a folder that was chosen for them.
class ServerBackups : public WithMainDatas {
protected:
    QTemporaryDir place{scratchRoot() + "/velmora-XXXXXX"};
};
ON_ENGINE(ServerBackups, Engine::PostgreSql);

TEST_P(ServerBackups, WithoutAFolderTheWindowSaysWhoMakesThem)
{
    EXPECT_TRUE(backUpOrAsk(BackupKind::Close));
    const TBackupsDlg dialog(nullptr);
    const QString told = dialog.findChild<QLabel *>("Place")->text();
    EXPECT_TRUE(told.contains("serverio administratorius")) << qPrintable(told);
    EXPECT_TRUE(told.contains("velmora-db restore FAILAS --server")) << qPrintable(told);
    for (const char *name : {"MakeBtn", "RestoreBtn", "VerifyBtn", "FolderBtn"})
        EXPECT_FALSE(dialog.findChild<QPushButton *>(name)->isEnabled()) << name;
    EXPECT_TRUE(dialog.findChild<QPushButton *>("ChooseBtn")->isEnabled());
}

TEST_P(ServerBackups, InTheChosenFolderTheyAreMade)
{
    setBackupFolder(place.filePath("kopijos"));
    EXPECT_TRUE(backUpOrAsk(BackupKind::Close));
    ASSERT_TRUE(lastBackup());
    EXPECT_EQ(lastBackup()->holds.engine, "postgresql");
    const TBackupsDlg dialog(nullptr);
    EXPECT_FALSE(dialog.findChild<QPushButton *>("RestoreBtn")->isEnabled());
    EXPECT_TRUE(dialog.findChild<QPushButton *>("VerifyBtn")->isEnabled());
}
