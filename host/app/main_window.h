#pragma once

#include "host/app/package.h"

#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>

// The main window: a menu for everything the package offers, document windows, and a status bar that tells
// institution, user, current period and engine. It stands before the books are opened.
class TMainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit TMainWindow(TLoadedPackage &package);

    // Opens a screen, dialog or function of the package. Raises Exception when there is no such name.
    void openEntry(const QString &name);

    // Enables the menus for the user who has logged in, or shuts them.
    void setLoggedIn(bool on);

    // Everything that is open, in order of opening.
    QMdiArea *documents() const { return area; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void addEntryMenus();
    void addWindowMenu();
    void addHelpMenu();
    void addStatusBar();
    void showStatus();

    void showDocument(const TPackageEntry &entry);
    void runDialog(const TPackageEntry &entry);

    TLoadedPackage &package;
    QMdiArea *area;
    QList<QMenu *> entryMenus;
    QLabel *institution;
    QLabel *user;
    QLabel *period;
    QLabel *engine;
};
