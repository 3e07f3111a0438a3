#include "host/app/main_window.h"

#include "host/app/about.h"
#include "host/common/help.h"
#include "host/common/months.h"
#include "host/common/settings_store.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/guard.h"

#include <QCloseEvent>
#include <QDialog>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>

#include <cstdio>

namespace {

QString engineName(Engine engine)
{
    return engine == Engine::Sqlite ? "Įterptinė duomenų bazė" : "Duomenų bazės serveris";
}

QString userText()
{
    if (CurrentUser().name.isEmpty())
        return {};
    return QString("Naudotojas: %1%2")
        .arg(CurrentUser().name, CurrentUser().viewOnly ? " (tik peržiūrai)" : "");
}

} // namespace

TMainWindow::TMainWindow(TLoadedPackage &loaded) : package(loaded), area(new QMdiArea(this))
{
    setObjectName("TMainWindow");
    setWindowTitle("Velmora");
    resize(1100, 720);
    area->setBackground(palette().brush(QPalette::Mid).color().lighter(125));
    setCentralWidget(area);
    addEntryMenus();
    addWindowMenu();
    addHelpMenu();
    addStatusBar();
    connectGuarded(&periodNotifier(), &TPeriodNotifier::periodChanged, this, [this] { showStatus(); });
    ReadFromReg(this, FormsPath(), objectName());
    setLoggedIn(false);
}

void TMainWindow::addEntryMenus()
{
    QMenu *program = menuBar()->addMenu("Pro&grama");
    QAction *leave = program->addAction("&Baigti");
    leave->setShortcut(QKeySequence("Alt+F4"));
    connectGuarded(leave, &QAction::triggered, this, [this] { close(); });

    QHash<QString, QMenu *> menus;
    for (const TPackageEntry &entry : package.entries()) {
        QMenu *&menu = menus[entry.menu];
        if (!menu) {
            menu = menuBar()->addMenu(entry.menu);
            entryMenus << menu;
        }
        QAction *action = menu->addAction(entry.caption);
        action->setObjectName(entry.name);
        connectGuarded(action, &QAction::triggered, this, [this, name = entry.name] { openEntry(name); });
    }
}

void TMainWindow::addWindowMenu()
{
    QMenu *windows = menuBar()->addMenu("&Langai");
    connectGuarded(windows, &QMenu::aboutToShow, this, [this, windows] {
        windows->clear();
        connectGuarded(windows->addAction("&Kaskada"), &QAction::triggered, area,
                       [this] { area->cascadeSubWindows(); });
        connectGuarded(windows->addAction("&Greta"), &QAction::triggered, area,
                       [this] { area->tileSubWindows(); });
        connectGuarded(windows->addAction("&Uždaryti visus"), &QAction::triggered, area,
                       [this] { area->closeAllSubWindows(); });
        windows->addSeparator();
        int number = 0;
        for (QMdiSubWindow *window : area->subWindowList()) {
            QAction *action = windows->addAction(QString("&%1 %2").arg(++number).arg(window->windowTitle()));
            action->setCheckable(true);
            action->setChecked(window == area->activeSubWindow());
            connectGuarded(action, &QAction::triggered, window,
                           [this, window] { area->setActiveSubWindow(window); });
        }
    });
}

void TMainWindow::addHelpMenu()
{
    QMenu *help = menuBar()->addMenu("Pa&galba");
    QAction *topics = help->addAction("&Turinys");
    topics->setShortcut(QKeySequence::HelpContents);
    connectGuarded(topics, &QAction::triggered, this, [] { showHelp(1); });
    connectGuarded(help->addAction("&Apie programą…"), &QAction::triggered, this,
                   [this] { showAbout(package.info(), this); });
}

void TMainWindow::addStatusBar()
{
    const auto panel = [this](const char *name, const QString &accessibleName) {
        auto *label = new QLabel(this);
        label->setObjectName(name);
        label->setAccessibleName(accessibleName);
        label->setMargin(3);
        statusBar()->addWidget(label);
        return label;
    };
    institution = panel("institution", "Įstaiga");
    user = panel("user", "Naudotojas");
    period = panel("period", "Einamasis periodas");
    engine = panel("engine", "Duomenų bazė");
}

void TMainWindow::showStatus()
{
    if (!MainDatas())
        return;
    institution->setText(organisationName());
    institution->setVisible(!institution->text().isEmpty());
    user->setText(userText());
    period->setText(EinPer_Id() > 0 ? QString("Periodas: %1").arg(PeriodText(EinPer_Date()))
                                    : QString("Darbo pradžios periodas nenustatytas"));
    engine->setText(engineName(MainDatas()->mnFin_Db()->engine()));
}

void TMainWindow::setLoggedIn(bool on)
{
    for (QMenu *menu : std::as_const(entryMenus))
        menu->setEnabled(on);
    showStatus();
}

void TMainWindow::openEntry(const QString &name)
{
    const TPackageEntry *entry = package.find(name);
    if (!entry)
        throw Exception(QString("Nėra lango ar funkcijos „%1“").arg(name));
    switch (entry->kind) {
    case TPackageEntry::Kind::ListScreen:
        showDocument(*entry);
        break;
    case TPackageEntry::Kind::Dialog:
        runDialog(*entry);
        break;
    case TPackageEntry::Kind::Function:
        entry->call();
        break;
    }
}

// A screen that is open already comes to the front.
void TMainWindow::showDocument(const TPackageEntry &entry)
{
    for (QMdiSubWindow *window : area->subWindowList()) {
        if (window->objectName() == entry.name) {
            area->setActiveSubWindow(window);
            return;
        }
    }
    QMdiSubWindow *window = area->addSubWindow(entry.create(area));
    window->setObjectName(entry.name);
    window->setAttribute(Qt::WA_DeleteOnClose);
    // A list closes by a key of its own; two actions with the same key would both be deaf.
    for (QAction *action : window->systemMenu()->actions())
        action->setShortcuts(QList<QKeySequence>());
    window->show();
}

void TMainWindow::runDialog(const TPackageEntry &entry)
{
    const std::unique_ptr<QWidget> widget(entry.create(this));
    auto *dialog = qobject_cast<QDialog *>(widget.get());
    Q_ASSERT(dialog);
    if (dialog->exec() == QDialog::Accepted)
        GetPeriod();
}

void TMainWindow::closeEvent(QCloseEvent *event)
{
    area->closeAllSubWindows();
    if (!area->subWindowList().isEmpty()) {
        event->ignore();
        return;
    }
    if (CanSave())
        SaveToReg(this, FormsPath(), objectName(), false);
    QMainWindow::closeEvent(event);
}

void TMainWindow::paintEvent(QPaintEvent *event)
{
    QMainWindow::paintEvent(event);
    static bool told = !qEnvironmentVariableIsSet("VELMORA_TELL_FIRST_PAINT");
    if (!std::exchange(told, true))
        std::fputs("first-paint\n", stderr);
}
