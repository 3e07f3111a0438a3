#pragma once

#include "host/app/main_window.h"
#include "host/app/startup.h"
#include "host/common/settings_store.h"
#include "host/data/main_datas.h"
#include "tests/support/files.h"

#include <gtest/gtest.h>

#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>

// The real main window with the real package, on fresh empty books.
class MainWindow : public testing::Test {
protected:
    void SetUp() override
    {
        settingsStore().clear();
        createEmptyBooks(root.filePath("knygos"), "ona", "x");
        openEmbeddedBooks(root.filePath("knygos"));
        package = std::make_unique<TLoadedPackage>(buildFolder() + "/lib/libvelmora.so");
        window = std::make_unique<TMainWindow>(*package);
    }
    void TearDown() override
    {
        window.reset();
        package.reset();
        setMainDatas(nullptr);
        CurrentUser() = {};
    }

    // The window stands on the screen and has the keyboard.
    void start()
    {
        window->setLoggedIn(true);
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    TDatabase &books() { return *MainDatas()->mnFin_Db(); }
    QAction *action(const QString &name) const { return window->findChild<QAction *>(name); }
    QString panel(const QString &name) const { return window->findChild<QLabel *>(name)->text(); }

    // A key for whatever has the keyboard, after all that was under way came to its end.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QCoreApplication::processEvents();
        QWidget *focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : window.get(), key, modifiers);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QTemporaryDir root{scratchRoot() + "/velmora-XXXXXX"};
    std::unique_ptr<TLoadedPackage> package;
    std::unique_ptr<TMainWindow> window;
};
