#include "host/app/login.h"

#include "host/app/login_dialog.h"
#include "host/app/main_window.h"
#include "host/common/msgbox.h"

TLoginEnd logInAt(TMainWindow &window, const QString &name)
{
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
