#pragma once

#include "host/app/document_area.h"
#include "host/app/package.h"
#include "host/app/place.h"

#include <QLabel>
#include <QMainWindow>

class TServerPanel;

// The main window: a menu for everything that package and host offer, document windows, and a status bar that
// tells institution, user, current period and where the books are. It stands before the books are opened.
// Whenever a window of the program becomes active, the current period is read anew: another station may have
// closed a month.
//
// F1 shows the help of what is in front, F10 or Alt alone lead to the menu bar.
class TMainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit TMainWindow(TLoadedPackage &package);

    // Opens a screen, dialog or function. Raises Exception when there is no such name, and
    // when it only writes and the user may only look.
    void openEntry(const QString &name);
    // Opens a screen and stands on the row, or the node, of that key in the current period, where there is
    // such a one. Raises as openEntry() does.
    void openAt(const TPlace &place);

    // Enables the menus for the user who has logged in, or shuts them.
    void setLoggedIn(bool on);

    const TPackageEntries &allEntries() const { return entries; }
    TDocumentArea *documents() const { return area; }

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void addEntryMenus();
    QMenu *menuOf(const QStringList &path);
    void addWindowMenu();
    void listWindows(QMenu *menu);
    void addHelpMenu();
    void addStatusBar();
    void showStatus();
    void followPeriod();

    void runDialog(const TPackageEntry &entry);
    void showHome(bool on);

    TLoadedPackage &package;
    const TPackageEntries entries; // the package's and the host's own
    TDocumentArea *area;
    QHash<QStringList, QMenu *> menus; // by the way to them
    QList<QMenu *> entryMenus;         // those in the menu bar
    QAction *formCheck = nullptr;
    QAction *setUp = nullptr;
    QAction *backups = nullptr;
    QLabel *institution;
    QLabel *user;
    QLabel *period;
    TServerPanel *server;
};
