#include "host/app/login_dialog.h"

#include "host/data/login.h"
#include "toolkit/widgets/guard.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>

TLoginDlg::TLoginDlg(TMainDatas &books, const QString &name, QWidget *owner)
    : QDialog(owner),
      datas(books),
      NameEdit(new QLineEdit(name, this)),
      PassEdit(new QLineEdit(this)),
      refusal(new QLabel(this))
{
    setObjectName("TLoginDlg");
    setWindowTitle("Prisijungimas");
    NameEdit->setObjectName("NameEdit");
    NameEdit->setMinimumWidth(220);
    PassEdit->setObjectName("PassEdit");
    PassEdit->setEchoMode(QLineEdit::Password);
    refusal->setObjectName("refusal");
    refusal->setStyleSheet("color: #b00020");

    auto *ok = new QPushButton("&Prisijungti", this);
    ok->setObjectName("OkBtn");
    ok->setDefault(true);
    auto *cancel = new QPushButton("&Atšaukti", this);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto *form = new QFormLayout(this);
    form->addRow(new QLabel(QString("<b>%1</b>").arg(organisationName().toHtmlEscaped()), this));
    form->addRow("&Vardas:", NameEdit);
    form->addRow("&Slaptažodis:", PassEdit);
    form->addRow(refusal);
    form->addRow(buttons);

    connectGuarded(ok, &QPushButton::clicked, this, [this] { tryLogin(); });
    connectGuarded(cancel, &QPushButton::clicked, this, [this] { reject(); });
    if (!name.isEmpty())
        PassEdit->setFocus();
}

// Which of the two was wrong is not told.
void TLoginDlg::tryLogin()
{
    if (logIn(datas, NameEdit->text(), PassEdit->text())) {
        accept();
        return;
    }
    refusal->setText("Neteisingas vardas arba slaptažodis.");
    PassEdit->setFocus();
    PassEdit->selectAll();
}
