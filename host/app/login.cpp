#include "host/app/login.h"

#include "host/app/login_dialog.h"
#include "host/app/main_window.h"
#include "host/common/msgbox.h"

bool logInAt(TMainWindow &window, const QString &name)
{
    TLoginDlg dialog(*MainDatas(), name, &window);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    if (CurrentUser().viewOnly) {
        MainDatas()->makeReadOnly();
        StdMsgBox(mkInformation,
                  "Jums leista duomenis tik peržiūrėti: nė viename lange nieko pakeisti negalėsite.");
    }
    window.setLoggedIn(true);
    return true;
}
