#include "host/app/backups/backups_dialog.h"
#include "host/app/backups/making.h"
#include "host/app/backups/tool.h"
#include "host/app/login_dialog.h"
#include "host/common/months.h"
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
        startDailyBackup(window.get(), [] { ADD_FAILURE() << "nothing failed"; });
        EXPECT_TRUE(QTest::qWaitFor([] { return made().size() == 1; }, 60'000));
        QTest::qWait(2500);
        waitForDailyBackup();
    }
    ASSERT_EQ(made().size(), 1);
    EXPECT_EQ(made().at(0).kind, BackupKind::Day);
}

TEST_F(Backups, AfterADailyOneThatFailsTheUserIsAskedWhetherToGoOn)
{
    QFile(backupFolder()).open(QIODevice::WriteOnly);
    int led = 0;
    for (const auto answer : {QMessageBox::Yes, QMessageBox::No}) {
        NextBoxes asked{answer};
        startDailyBackup(window.get(), [&led] { ++led; });
        ASSERT_TRUE(QTest::qWaitFor([&asked] { return asked.count() == 1; }, 60'000));
        EXPECT_EQ(asked.at(0).kind, 18); // Enter answers no
        EXPECT_TRUE(asked.at(0).text.contains("atsargines")) << qPrintable(asked.at(0).text);
        EXPECT_TRUE(asked.at(0).text.contains("Ar dirbti toliau be šios dienos kopijos?"));
        QTest::qWait(100);
        EXPECT_EQ(led, answer == QMessageBox::Yes ? 0 : 1);
    }
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
    EXPECT_EQ(row->text(3), PeriodText(EinPer_Date()));
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

namespace {

// A program that says or does something else in the tool's place.
void takeForTool(const QString &file, const QByteArray &script)
{
    writeFile(file, "#!/bin/sh\n" + script);
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    setToolProgram(file);
}

} // namespace

TEST_F(Backups, ARestoreKilledOnceItWasDecidedIsToldAsDone)
{
    ASSERT_TRUE(backUpOrAsk(BackupKind::ByHand));
    const QString folder = root.filePath("knygos");
    const TSessionSettings fin = MainDatas()->mnFin_Db()->settings();
    books().nativeExec("vacuum into " + TDatabase::quoted(root.filePath("velmora_fin.db")));
    MainDatas()->mnRavl()->nativeExec("vacuum into " + TDatabase::quoted(root.filePath("velmora_ravl.db")));
    books().ExecSQL("update bd_org set org_adr = 'Vėlesnė g. 1'");
    takeForTool(root.filePath("irankis"),
                QString("cd '%1'\ncp ../velmora_fin.db velmora_fin.db.nauja\n"
                        "cp ../velmora_ravl.db velmora_ravl.db.nauja\n"
                        "echo 'VELMORA-KEITIMAS 1 20261122T101500000' > velmora.keitimas\nkill -9 $$\n")
                    .arg(folder)
                    .toUtf8());
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok};
    OnNextDialog<TBackupsDlg> chooses([](TBackupsDlg &dialog) { pressButton(dialog, "A&tkurti…"); });
    OnNextDialog<TLoginDlg> givesUp([](TLoginDlg &login) { login.reject(); });
    action("acBackups")->trigger();
    EXPECT_TRUE(boxes.at(1).text.contains("Knygos atkurtos")) << qPrintable(boxes.at(1).text);
    TDatabase restored(fin);
    restored.Open();
    EXPECT_NE(restored.fieldResult("select org_adr from bd_org").toString(), "Vėlesnė g. 1");
}

TEST_F(Backups, ARestoreThatNobodyCanFinishIsToldAsUnfinished)
{
    ASSERT_TRUE(backUpOrAsk(BackupKind::ByHand));
    takeForTool(root.filePath("irankis"), QString("echo sugadintas > '%1/velmora.keitimas'\nkill -9 $$\n")
                                              .arg(root.filePath("knygos"))
                                              .toUtf8());
    NextBoxes boxes{QMessageBox::Yes, QMessageBox::Ok, QMessageBox::Ok};
    OnNextDialog<TBackupsDlg> chooses([](TBackupsDlg &dialog) { pressButton(dialog, "A&tkurti…"); });
    action("acBackups")->trigger();
    EXPECT_TRUE(boxes.at(1).text.contains("nebaigtas")) << qPrintable(boxes.at(1).text);
    EXPECT_TRUE(boxes.at(2).text.contains("sugadintas")) << qPrintable(boxes.at(2).text);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Backups, WhatIsWrongWithTheBooksOfASoundCopyIsTold)
{
    ASSERT_TRUE(backUpOrAsk(BackupKind::ByHand));
    takeForTool(root.filePath("irankis"), "echo 'Tikrinama…'; echo 'Pastaba: debetas nelygus kreditui'\n");
    TBackupsDlg dialog(nullptr);
    NextBoxes told{QMessageBox::Ok};
    pressButton(dialog, "T&ikrinti");
    EXPECT_TRUE(told.at(0).text.contains("\n\ndebetas nelygus kreditui")) << qPrintable(told.at(0).text);
    EXPECT_FALSE(told.at(0).text.contains("Tikrinama"));
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

TEST_P(ServerBackups, AFolderThatIsOutOfReachIsToldAndAskedAbout)
{
    QFile(place.filePath("kopijos")).open(QIODevice::WriteOnly);
    setBackupFolder(place.filePath("kopijos"));
    NextBoxes asked{QMessageBox::No};
    EXPECT_FALSE(backUpOrAsk(BackupKind::Close));
    EXPECT_TRUE(asked.at(0).text.contains("kopijos")) << qPrintable(asked.at(0).text);
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

TEST_P(ServerBackups, BooksOfTwoInstitutionsShareAChosenFolderWithoutMeeting)
{
    setBackupFolder(place.path());
    const QString ofThese = backupFolder();
    EXPECT_TRUE(ofThese.startsWith(place.path() + "/")) << qPrintable(ofThese);
    setMainDatas(std::make_unique<TMainDatas>(ravlSettings(), finSettings()));
    setBackupFolder(place.path());
    EXPECT_TRUE(backupFolder().startsWith(place.path() + "/")) << qPrintable(backupFolder());
    EXPECT_NE(backupFolder(), ofThese);
}

TEST_P(ServerBackups, TheChosenFolderCanBeTakenBackByWhoMayWrite)
{
    setBackupFolder(place.path());
    {
        TBackupsDlg dialog(nullptr);
        pressButton(dialog, "&Nedaryti čia");
        EXPECT_FALSE(dialog.findChild<QPushButton *>("ForgetBtn")->isEnabled());
        EXPECT_EQ(backupFolder(), QString());
    }
    setBackupFolder(place.path());
    CurrentUser().viewOnly = true;
    const TBackupsDlg dialog(nullptr);
    for (const char *name : {"ChooseBtn", "ForgetBtn"})
        EXPECT_FALSE(dialog.findChild<QPushButton *>(name)->isEnabled()) << name;
}
