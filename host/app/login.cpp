#include "host/app/login.h"

#include "host/app/backups/making.h"
#include "host/app/backups/restoring.h"
#include "host/app/institutions.h"
#include "host/app/login_dialog.h"
#include "host/app/main_window.h"
#include "host/app/setup/setup_dialog.h"
#include "host/common/msgbox.h"
#include "host/data/backups.h"
#include "host/data/organisation.h"
#include "host/data/own_login.h"
#include "toolkit/widgets/guard.h"

namespace {

// From the first login on the books are on the list of institutions, under the name that they have now.
void keepOnList(TMainWindow &window, const TBooksSettings &books)
{
    runGuarded(&window, [&] { rememberInstitution(books); });
    static QMetaObject::Connection renaming;
    QObject::disconnect(renaming); // other books may have been open before
    renaming = connectGuarded(&organisationNotifier(), &TOrganisationNotifier::organisationChanged, &window,
                              [books] { rememberInstitution(books); });
}

TLoginEnd runLogin(TMainWindow &window, TLoginDlg &dialog)
{
    const int end = dialog.exec();
    if (end != QDialog::Accepted)
        return end == TLoginDlg::OtherBooks ? TLoginEnd::OtherBooks : TLoginEnd::GivenUp;
    if (CurrentUser().viewOnly) {
        MainDatas()->makeReadOnly();
        StdMsgBox(mkInformation,
                  "Jums leista duomenis tik peržiūrėti: nė viename lange nieko pakeisti negalėsite.");
    }
    setBackupMaker(backUpOrAsk);
    window.setLoggedIn(true);
    return TLoginEnd::LoggedIn;
}

} // namespace

TLoginEnd logInAt(TMainWindow &window, const QString &name, TLoginPatience &patience)
{
    window.setLoggedIn(false); // title and status bar tell which books these are
    TLoginDlg dialog(*MainDatas(), name, patience, &window);
    return runLogin(window, dialog);
}

TLoginEnd logInAt(TMainWindow &window, const TBooksSettings &books, const QString &name,
                  TLoginPatience &patience)
{
    if (!haveOwnLogins(books))
        return logInAt(window, name, patience);
    window.setLoggedIn(false);
    TLoginDlg dialog(books, institutionAt(books), name, patience, &window);
    return runLogin(window, dialog);
}

bool enterOpenBooks(TMainWindow &window, TBooksSettings books, const QString &user)
{
    TLoginPatience patience;
    for (;;) {
        if (!haveOwnLogins(books) && !haveUsers() && !setUpOpenBooks(&window))
            return false;
        switch (logInAt(window, books, user, patience)) {
        case TLoginEnd::LoggedIn:
            keepOnList(window, books);
            startDailyBackup(&window, [&window] { showBackups(window); });
            return true;
        case TLoginEnd::GivenUp:
            return false;
        case TLoginEnd::OtherBooks:
            if (const auto others = openOtherBooks(&window))
                books = *others;
        }
    }
}

bool enterBooks(TMainWindow &window, const TOptions &options)
{
    const std::optional<TBooksSettings> books = openFirstBooks(options, &window);
    return books && enterOpenBooks(window, *books, options.user);
}
