#include "host/app/backups/restoring.h"

#include "database/backups/replacement.h"
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

#include <exception>

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

// What became of the books. A run that was killed may have decided the replacement: the opening finishes it.
enum class Outcome { Restored, Unchanged, Unfinished };

void tell(const TToolEnd &end, Outcome outcome)
{
    switch (outcome) {
    case Outcome::Restored: {
        QStringList told{"Knygos atkurtos.", end.said.section("Duomenų bazės atkurtos.", 1).trimmed()};
        if (const QString notes = notesOf(end); !notes.isEmpty())
            told.append("Jose rasta neatitikimų:\n" + notes);
        told.removeAll(QString());
        StdMsgBox(mkInformation, told.join("\n\n"));
        break;
    }
    case Outcome::Unchanged:
        StdMsgBox(mkWarning,
                  QString("Knygų atkurti nepavyko; jos liko, kokios buvo.\n\n%1").arg(end.trouble));
        break;
    case Outcome::Unfinished:
        StdMsgBox(mkWarning, QString("Knygų atkūrimas nutrūko nebaigtas; jį baigs, kas pirmas knygas atvers."
                                     "\n\n%1")
                                 .arg(end.trouble));
        break;
    }
}

// Opens whichever books there are and tells which, though opening may fail.
void openAndTell(const QString &folder, const TToolEnd &end)
{
    const bool restored = end.done() || replacementUnderWay(folder);
    std::exception_ptr trouble;
    try {
        openEmbeddedBooks(folder);
    } catch (const Exception &) {
        trouble = std::current_exception();
    }
    tell(end, replacementUnderWay(folder) ? Outcome::Unfinished
              : restored                  ? Outcome::Restored
                                          : Outcome::Unchanged);
    if (trouble)
        std::rethrow_exception(trouble);
}

void restoreAndEnter(TMainWindow &window, const TBackup &backup)
{
    const TBooksSettings books = openBooksSettings();
    const QString user = CurrentUser().name;
    QProcess tool;
    prepareTool(tool, {"restore", backup.file});
    leaveBooks(window);
    const TToolEnd end = runTool(tool, "Atkuriamos knygos…");
    openAndTell(books.folder, end);
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
