#include "host/app/login.h"

#include "host/app/institutions.h"
#include "host/app/login_dialog.h"
#include "host/app/main_window.h"
#include "host/app/setup/setup_dialog.h"
#include "host/common/msgbox.h"
#include "host/data/organisation.h"
#include "toolkit/widgets/guard.h"

namespace {

// From the first login on the books are on the list of institutions, under the name that they have now.
void keepOnList(TMainWindow &window, const TBooksSettings &books)
{
    runGuarded(&window, [&] { rememberInstitution(books); });
    connectGuarded(&organisationNotifier(), &TOrganisationNotifier::organisationChanged, &window,
                   [books] { rememberInstitution(books); });
}

} // namespace

TLoginEnd logInAt(TMainWindow &window, const QString &name)
{
    window.setLoggedIn(false); // title and status bar tell which books these are
    TLoginDlg dialog(*MainDatas(), name, &window);
    const int end = dialog.exec();
    if (end != QDialog::Accepted)
        return end == TLoginDlg::OtherBooks ? TLoginEnd::OtherBooks : TLoginEnd::GivenUp;
    if (CurrentUser().viewOnly) {
        MainDatas()->makeReadOnly();
        StdMsgBox(mkInformation,
                  "Jums leista duomenis tik peržiūrėti: nė viename lange nieko pakeisti negalėsite.");
    }
    window.setLoggedIn(true);
    return TLoginEnd::LoggedIn;
}

bool enterBooks(TMainWindow &window, const TOptions &options)
{
    std::optional<TBooksSettings> books = openFirstBooks(options, &window);
    while (books) {
        if (!haveUsers() && !setUpOpenBooks(&window))
            return false;
        switch (logInAt(window, options.user)) {
        case TLoginEnd::LoggedIn:
            keepOnList(window, *books);
            return true;
        case TLoginEnd::GivenUp:
            return false;
        case TLoginEnd::OtherBooks:
            if (const auto others = openOtherBooks(&window))
                books = others;
        }
    }
    return false;
}
