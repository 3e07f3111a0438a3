#pragma once

#include "host/data/main_datas.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>

// Asks for name and password until they are right or the user gives up.
class TLoginDlg : public QDialog {
    Q_OBJECT
public:
    // name fills in the login name.
    TLoginDlg(TMainDatas &datas, const QString &name, QWidget *owner);

private:
    void tryLogin();

    TMainDatas &datas;
    QLineEdit *NameEdit;
    QLineEdit *PassEdit;
    QLabel *refusal;
};
