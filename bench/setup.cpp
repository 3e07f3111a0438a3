// From a folder without books to the first entered balance of a new institution, by keyboard alone: how many
// keys, and how long the program works for them; and how long the set-up itself takes on each engine.
//
//   bench_setup [--engine sqlite|postgresql]

#include "bench/bench_main.h"
#include "bench/party_books.h"
#include "host/app/login.h"
#include "host/app/login_dialog.h"
#include "host/app/login_patience.h"
#include "host/app/main_window.h"
#include "host/app/new_books_dialog.h"
#include "host/app/setup/setup_dialog.h"
#include "host/app/startup.h"
#include "tests/support/files.h"
#include "tests/support/message_box.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// A keyboard that counts.
class CountedKeys {
public:
    int count = 0;

    void press(Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        ++count;
        QTest::keyClick(inFront(), key, held);
    }
    void type(const char *text)
    {
        count += int(qstrlen(text));
        QTest::keyClicks(inFront(), QLatin1String(text));
    }

private:
    // What has the keyboard; a dialog that has just come gets it first.
    static QWidget *inFront()
    {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal && QApplication::activeWindow() != modal) {
            modal->activateWindow();
            if (!QTest::qWaitForWindowActive(modal))
                qFatal("%s has no keyboard", qPrintable(modal->windowTitle()));
        }
        return modal ? modal->focusWidget() : QApplication::focusWidget();
    }
};

void fillPages(CountedKeys &keys)
{
    for (const char *field : {"Mokykla", "Gatve 1", "190000000"}) {
        keys.type(field);
        keys.press(Qt::Key_Tab);
    }
    keys.press(Qt::Key_Return);
    keys.type("ona");
    for (int i = 0; i < 3; ++i)
        keys.press(Qt::Key_Tab);
    keys.type("slaptas");
    keys.press(Qt::Key_Tab);
    keys.type("slaptas");
    for (int page = 2; page <= 4; ++page)
        keys.press(Qt::Key_Return);
    keys.press(Qt::Key_Return); // on the last page: writes
}

void enterBalance(TMainWindow &window, CountedKeys &keys)
{
    const OnNextDialog<TDialog> balance([&keys](TDialog &dialog) {
        keys.type("2411001");
        while (dialog.focusWidget()->objectName().compare("ssl_sum_db"_L1, Qt::CaseInsensitive) != 0)
            keys.press(Qt::Key_Tab);
        dialog.findChild<QLineEdit *>(u"SSL_SUM_DB"_s)->selectAll(); // as Tab does in the active window
        keys.type("1250,75");
        keys.press(Qt::Key_Return);
    });
    const NextBoxes sidesDiffer{QMessageBox::Ok};
    keys.count += 3; // Alt with the menu's letter, the line's letter, and Enter in the box
    window.openEntry(u"TSasLikFrm"_s);
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        qFatal("the main window has no keyboard");
    keys.press(Qt::Key_Insert);
}

void walk()
{
    const QTemporaryDir root(scratchRoot() + u"/bench-setup-XXXXXX"_s);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, root.filePath(u"nustatymai"_s));
    TLoadedPackage package(installedLibrary(u"libvelmora.so"_s));
    TMainWindow window(package);
    CountedKeys keys;
    QElapsedTimer timer;
    timer.start();
    window.show();
    window.activateWindow();
    {
        const OnNextDialog<TNewBooksDlg> choice([&keys](TNewBooksDlg &) {
            keys.press(Qt::Key_Down);
            keys.press(Qt::Key_Return);
        });
        const OnNextDialog<TSetUpDlg> pages([&keys](TSetUpDlg &) { fillPages(keys); });
        openBooks(TBooksSettings::embedded(root.filePath(u"knygos"_s)), &window);
    }
    {
        const OnNextDialog<TLoginDlg> login([&keys](TLoginDlg &) {
            keys.type("ona");
            keys.press(Qt::Key_Return);
            keys.type("slaptas");
            keys.press(Qt::Key_Return);
        });
        TLoginPatience patience;
        logInAt(window, {}, patience);
    }
    enterBalance(window, keys);
    const double ms = double(timer.nsecsElapsed()) / 1e6;
    const qlonglong balances =
        MainDatas()->mnFin_Db()->fieldResult(u"select count(*) from bd_saslik"_s).toLongLong();
    std::printf("from an empty folder to %lld entered balance: %d keys, %.0f ms\n", balances, keys.count, ms);
    window.documents()->closeAllSubWindows();
    setMainDatas(nullptr);
}

void measure(Engine engine)
{
    const PartyBooks books(engine, 0);
    auto datas = std::make_unique<TMainDatas>(books.books().fin, books.books().ravl);
    datas->Open();
    setMainDatas(std::move(datas));
    TDatabase &fin = *MainDatas()->mnFin_Db();
    TDatabase &ravl = *MainDatas()->mnRavl();
    QElapsedTimer timer;
    timer.start();
    setUpBooks(
        fin, ravl,
        {.administrator = TAdministrator{u"ona"_s, {}, {}, u"slaptas"_s},
         .standard = {SetUpStep::Municipalities, SetUpStep::Accounts, SetUpStep::Classification,
                      SetUpStep::Functions, SetUpStep::WorkPlaces, SetUpStep::Sources, SetUpStep::Banks},
         .startOfWork = QDate(2026, 1, 1)});
    const double ms = double(timer.nsecsElapsed()) / 1e6;
    std::printf("%s: all standard data, %lld accounts and %lld codes among it, written in %.0f ms\n",
                nameOf(engine), fin.fieldResult(u"select count(*) from bd_sasplan"_s).toLongLong(),
                fin.fieldResult(u"select count(*) from bd_jve"_s).toLongLong(), ms);
    setMainDatas(nullptr);
}

} // namespace

int main(int argc, char *argv[])
{
    needNoScreen();
    const QApplication application(argc, argv);
    watchModalWindows();
    walk();
    return benchMain({}, [](Engine engine, const QList<int> &) { measure(engine); });
}
