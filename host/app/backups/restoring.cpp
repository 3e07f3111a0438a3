#include "host/app/backups/restoring.h"

#include "host/app/backups/backups_dialog.h"
#include "host/app/backups/making.h"
#include "host/app/backups/tool.h"
#include "host/app/login.h"
#include "host/app/main_window.h"
#include "host/app/startup.h"
#include "host/common/msgbox.h"
#include "host/data/backups.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/guard.h"

namespace {

// False when a document stays open.
bool closeDocuments(TMainWindow &window)
{
    window.documents()->closeAllSubWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return window.documents()->subWindowList().isEmpty();
}

// Nobody works on the books any longer.
void leaveBooks(TMainWindow &window)
{
    waitForDailyBackup();
    CurrentUser() = {};
    window.setLoggedIn(false);
    setMainDatas(nullptr);
}

void tell(const TToolEnd &end)
{
    if (end.done())
        StdMsgBox(mkInformation,
                  "Knygos atkurtos.\n\n" + end.said.section("Duomenų bazės atkurtos.", 1).trimmed());
    else
        StdMsgBox(mkWarning,
                  QString("Knygų atkurti nepavyko; jos liko, kokios buvo.\n\n%1").arg(end.trouble));
}

void restoreAndEnter(TMainWindow &window, const TBackup &backup)
{
    const TBooksSettings books = openBooksSettings();
    const QString user = CurrentUser().name;
    QProcess tool;
    prepareTool(tool, {"restore", backup.file});
    leaveBooks(window);
    const TToolEnd end = runTool(tool, "Atkuriamos knygos…");
    openEmbeddedBooks(books.folder);
    tell(end);
    if (!enterOpenBooks(window, books, user))
        window.close();
}

} // namespace

void showBackups(TMainWindow &window)
{
    TBackupsDlg dialog(&window);
    dialog.exec();
    if (!dialog.toRestore())
        return;
    if (!closeDocuments(window)) {
        StdMsgBox(mkInformation, "Vienas langas liko atvertas, todėl knygos neatkuriamos.");
        return;
    }
    if (!runGuarded(&window, [&] { restoreAndEnter(window, *dialog.toRestore()); }) && !MainDatas())
        window.close();
}
