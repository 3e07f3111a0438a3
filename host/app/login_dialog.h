#pragma once

#include "host/app/login_patience.h"
#include "host/data/connections.h"
#include "host/data/main_datas.h"
#include "toolkit/widgets/dialog.h"

#include <QLabel>
#include <QLineEdit>

#include <functional>

// Asks for name and password until they are right or the user gives up. After a refusal the next try waits as
// the patience says; the dialog tells how long, and everything in it but the button stays usable.
class TLoginDlg : public TDialog {
    Q_OBJECT
public:
    // The result when the user asks for the books of another institution.
    static constexpr int OtherBooks = 2;

    // name fills in the login name.
    TLoginDlg(TMainDatas &datas, const QString &name, TLoginPatience &patience, QWidget *owner);
    // The same for books that each person opens with a login of his own; institution: their name, if known.
    TLoginDlg(const TBooksSettings &books, const QString &institution, const QString &name,
              TLoginPatience &patience, QWidget *owner);

protected:
    void Validate() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    using TLogIn = std::function<bool(const QString &name, const QString &password)>;
    TLoginDlg(TLogIn logIn, const QString &wrong, const QString &institution, const QString &name,
              TLoginPatience &waits, QWidget *owner);

    void showRefusal();

    TLogIn letIn;
    QString wrong; // what a refusal is told with
    TLoginPatience &patience;
    QLineEdit *NameEdit;
    QLineEdit *PassEdit;
    QLabel *refusal;
    bool wasRefused = false;
};
