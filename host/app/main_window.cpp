#include "host/app/main_window.h"

#include "host/accounts/form_check.h"
#include "host/app/about.h"
#include "host/app/backups/restoring.h"
#include "host/app/close_check/close_check_frm.h"
#include "host/app/history/history_frm.h"
#include "host/app/home/home_page.h"
#include "host/app/home/screen_use.h"
#include "host/app/host_entries.h"
#include "host/app/institutions.h"
#include "host/app/server_panel.h"
#include "host/app/setup/setup_dialog.h"
#include "host/app/stand_on.h"
#include "host/app/start_of_work.h"
#include "host/common/help.h"
#include "host/common/months.h"
#include "host/common/settings_store.h"
#include "host/data/main_datas.h"
#include "host/data/organisation.h"
#include "toolkit/widgets/guard.h"
#include "toolkit/widgets/screen_room.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QProxyStyle>
#include <QStatusBar>
#include <QStyleOption>

#include <cstdio>

namespace {

constexpr int contentsTopic = 1;
constexpr int homeTopic = 129;
constexpr int windowsWithDigit = 9;

// The platform's style, in which Alt alone leads to the menu bar and the menu that it leads to is seen.
class TMenuBarStyle : public QProxyStyle {
public:
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        if (element != CE_MenuBarItem || !item || !(item->state & State_Selected)) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        QStyleOptionMenuItem chosen(*item);
        chosen.state |= State_Sunken;
        QProxyStyle::drawControl(element, &chosen, painter, widget);
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override
    {
        return hint == SH_MenuBar_AltKeyNavigation ? 1
                                                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

QString userText()
{
    if (CurrentUser().name.isEmpty())
        return {};
    return QString("Naudotojas: %1%2")
        .arg(CurrentUser().name, CurrentUser().viewOnly ? " (tik peržiūrai)" : "");
}

} // namespace

TMainWindow::TMainWindow(TLoadedPackage &loaded)
    : package(loaded),
      entries(withHostEntries(loaded.entries())),
      area(new TDocumentArea(this))
{
    setObjectName("TMainWindow");
    setWindowTitle("Velmora");
    resizeInScreen(this, {1100, 720});
    setCentralWidget(area);
    auto *style = new TMenuBarStyle;
    style->setParent(this);
    menuBar()->setStyle(style);
    setRowHistoryOpener(showHistoryOfRow);
    addEntryMenus();
    addWindowMenu();
    addHelpMenu();
    addStatusBar();
    connectGuarded(&periodNotifier(), &TPeriodNotifier::periodChanged, this, [this] { showStatus(); });
    connectGuarded(&organisationNotifier(), &TOrganisationNotifier::organisationChanged, this,
                   [this] { showStatus(); });
    connectGuarded(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow *window) {
        if (window)
            followPeriod();
    });
    connectGuarded(area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow *window) {
        if (window)
            followPeriod();
    });
    ReadFromReg(this, FormsPath(), objectName());
    setLoggedIn(false);
}

// Later: the change of windows that is under way comes to its end first.
void TMainWindow::followPeriod()
{
    QMetaObject::invokeMethod(
        this, [] { FollowPeriod(); }, Qt::QueuedConnection);
}

void TMainWindow::addEntryMenus()
{
    QMenu *program = menus[{programMenu()}] = menuBar()->addMenu(programMenu());
    QAction *other = program->addAction("&Kita įstaiga…");
    other->setObjectName("acOtherInstitution");
    connectGuarded(other, &QAction::triggered, this, [this] { openOtherWindow(this); });
    formCheck = program->addAction("Tikrinti balanso &formą…");
    formCheck->setObjectName("acFormCheck");
    connectGuarded(formCheck, &QAction::triggered, this, [this] { ShowBalanceFormCheck(this); });
    setUp = program->addAction("Įstaigos &parengimas…");
    setUp->setObjectName("acSetUp");
    connectGuarded(setUp, &QAction::triggered, this, [this] { setUpOpenBooks(this); });
    backups = program->addAction("&Atsarginės kopijos…");
    backups->setObjectName("acBackups");
    connectGuarded(backups, &QAction::triggered, this, [this] { showBackups(*this); });
    for (const TPackageEntry &entry : entries) {
        if (entry.menu.isEmpty())
            continue;
        QAction *action = menuOf(entry.menu)->addAction(entry.caption);
        action->setObjectName(entry.name);
        connectGuarded(action, &QAction::triggered, this, [this, name = entry.name] { openEntry(name); });
    }
    program->addSeparator();
    QAction *leave = program->addAction("&Baigti");
    leave->setShortcut(QKeySequence("Alt+F4"));
    connectGuarded(leave, &QAction::triggered, this, [this] { close(); });
}

// The menu at the end of the path, which is laid where it does not lead yet.
QMenu *TMainWindow::menuOf(const QStringList &path)
{
    QMenu *&menu = menus[path];
    if (!menu && path.size() == 1) {
        menu = menuBar()->addMenu(path.first());
        entryMenus << menu;
    } else if (!menu) {
        menu = menuOf(path.first(path.size() - 1))->addMenu(path.last());
    }
    return menu;
}

void TMainWindow::addWindowMenu()
{
    QMenu *windows = menuBar()->addMenu("&Langai");
    connectGuarded(windows, &QMenu::aboutToShow, this, [this, windows] { listWindows(windows); });
}

void TMainWindow::listWindows(QMenu *menu)
{
    menu->clear();
    connectGuarded(menu->addAction("&Kaskada"), &QAction::triggered, area,
                   [this] { area->cascadeSubWindows(); });
    connectGuarded(menu->addAction("&Greta"), &QAction::triggered, area, [this] { area->tileSubWindows(); });
    connectGuarded(menu->addAction("&Uždaryti visus"), &QAction::triggered, area,
                   [this] { area->closeAllSubWindows(); });
    menu->addSeparator();
    int number = 0;
    for (QMdiSubWindow *window : area->subWindowList()) {
        const QString title = window->windowTitle().replace('&', "&&");
        QAction *action =
            menu->addAction(++number <= windowsWithDigit ? QString("&%1 %2").arg(number).arg(title) : title);
        action->setCheckable(true);
        action->setChecked(window == area->activeSubWindow());
        connectGuarded(action, &QAction::triggered, window,
                       [this, window] { area->setActiveSubWindow(window); });
    }
}

void TMainWindow::addHelpMenu()
{
    QMenu *help = menuBar()->addMenu("Pa&galba");
    connectGuarded(help->addAction("&Turinys"), &QAction::triggered, this, [] { showHelp(contentsTopic); });
    connectGuarded(help->addAction("&Apie programą…"), &QAction::triggered, this,
                   [this] { showAbout(package.info(), this); });
}

void TMainWindow::addStatusBar()
{
    const auto panel = [this](const char *name, const QString &accessibleName) {
        auto *label = new QLabel(this);
        label->setObjectName(name);
        label->setAccessibleName(accessibleName);
        label->setTextFormat(Qt::PlainText);
        label->setMargin(3);
        statusBar()->addWidget(label);
        return label;
    };
    institution = panel("institution", "Įstaiga");
    user = panel("user", "Naudotojas");
    period = panel("period", "Einamasis periodas");
    server = new TServerPanel(this);
    statusBar()->addWidget(server);
}

void TMainWindow::showStatus()
{
    if (!MainDatas()) {
        setWindowTitle("Velmora");
        for (QLabel *panel : {institution, user, period})
            panel->clear();
        server->showBooks();
        return;
    }
    const QString name = organisationName();
    setWindowTitle(name.isEmpty() ? "Velmora" : name + " – Velmora");
    institution->setText(name);
    institution->setVisible(!institution->text().isEmpty());
    user->setText(userText());
    user->setVisible(!user->text().isEmpty());
    period->setText(EinPer_Id() > 0 ? QString("Periodas: %1").arg(PeriodText(EinPer_Date()))
                                    : QString("Darbo pradžios periodas nenustatytas"));
    server->showBooks();
}

void TMainWindow::setLoggedIn(bool on)
{
    for (QMenu *menu : std::as_const(entryMenus))
        menu->setEnabled(on);
    formCheck->setEnabled(on);
    backups->setEnabled(on);
    setUp->setEnabled(on && !CurrentUser().viewOnly);
    for (const TPackageEntry &entry : entries)
        if (auto *action = findChild<QAction *>(entry.name))
            action->setEnabled(on && (!entry.writes || !CurrentUser().viewOnly));
    showStatus();
    showHome(on);
}

// Made at the login: what is painted before needs no page.
void TMainWindow::showHome(bool on)
{
    auto *home = on ? new THomePage(entries, this) : nullptr;
    area->setHome(home, homeTopic);
    if (!home)
        return;
    connectGuarded(home, &THomePage::chosen, this, [this](const THomeLine &line) {
        if (line.row) {
            showHistoryOfRow(*line.row);
            return;
        }
        openAt(line.place);
        if (auto *checks = qobject_cast<TCloseCheckFrm *>(area->document(line.place.screen)))
            checks->showCheck(line.check);
    });
    home->begin();
}

void TMainWindow::openEntry(const QString &name)
{
    const TPackageEntry *entry = findEntry(entries, name);
    if (!entry)
        throw Exception(QString("Nėra lango ar funkcijos „%1“").arg(name));
    if (entry->writes && CurrentUser().viewOnly)
        throw Exception("Jums leista duomenis tik peržiūrėti: šis veiksmas juos keičia.");
    switch (entry->kind) {
    case TPackageEntry::Kind::ListScreen:
        area->open(*entry);
        break;
    case TPackageEntry::Kind::Dialog:
        runDialog(*entry);
        break;
    case TPackageEntry::Kind::Function:
    case TPackageEntry::Kind::Editor:
        entry->call();
        break;
    }
    if (MainDatas())
        countUse(*MainDatas()->mnFin_Db(), *entry);
}

void TMainWindow::openAt(const TPlace &place)
{
    openEntry(place.screen);
    if (QWidget *document = area->document(place.screen))
        standOn(*document, place.key);
}

void TMainWindow::runDialog(const TPackageEntry &entry)
{
    std::optional<TLostMonths> agreed;
    if (setsStartOfWork(entry) && !(agreed = agreedLoss()))
        return;
    const std::unique_ptr<QWidget> widget(entry.create(this));
    auto *dialog = qobject_cast<TDialog *>(widget.get());
    Q_ASSERT(dialog);
    if (agreed)
        loseNoMore(*dialog, *agreed);
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
    SaveToReg(this, FormsPath(), objectName(), false);
    QMainWindow::closeEvent(event);
}

// The menu bar waits for Alt with itself among its modifiers; a display that tells them as they were before
// the key never brings that.
bool TMainWindow::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Alt && !key->modifiers()) {
            QKeyEvent withItself(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::AltModifier);
            QCoreApplication::sendEvent(this, &withItself);
        }
    }
    return QMainWindow::event(event);
}

// Keys that nothing in front took for itself.
void TMainWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F1 && !event->modifiers())
        runGuarded(this, [this] { showHelp(area->helpTopic() ? area->helpTopic() : contentsTopic); });
    else if (event->key() == Qt::Key_F10 && !event->modifiers())
        menuBar()->setActiveAction(menuBar()->actions().first());
    else
        QMainWindow::keyPressEvent(event);
}

void TMainWindow::paintEvent(QPaintEvent *event)
{
    QMainWindow::paintEvent(event);
    static bool told = !qEnvironmentVariableIsSet("VELMORA_TELL_FIRST_PAINT");
    if (!std::exchange(told, true))
        std::fputs("first-paint\n", stderr);
}
