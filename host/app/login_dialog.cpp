#include "host/app/login_dialog.h"

#include "host/common/waiting.h"
#include "host/data/login.h"
#include "toolkit/widgets/guard.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

TLoginDlg::TLoginDlg(TMainDatas &datas, const QString &name, TLoginPatience &waits, QWidget *owner)
    : TLoginDlg(
          [&datas](const QString &login, const QString &password) { return logIn(datas, login, password); },
          "Neteisingas vardas arba slaptažodis.", organisationName(), name, waits, owner)
{
}

TLoginDlg::TLoginDlg(const TBooksSettings &books, const QString &institution, const QString &name,
                     TLoginPatience &waits, QWidget *owner)
    : TLoginDlg(
          [books](const QString &login, const QString &password) {
              const TWaiting waiting;
              return logIn(books, login, password);
          },
          "Neteisingas vardas arba slaptažodis, arba slaptažodžio galiojimo laikas baigėsi.", institution,
          name, waits, owner)
{
}

TLoginDlg::TLoginDlg(TLogIn logIn, const QString &wrongText, const QString &institution, const QString &name,
                     TLoginPatience &waits, QWidget *owner)
    : TDialog(owner),
      letIn(std::move(logIn)),
      wrong(wrongText),
      patience(waits),
      refusal(new QLabel(this))
{
    setObjectName("TLoginDlg");
    describe("Prisijungimas",
             {TFieldRow::freeEdit("&Vardas:", "NameEdit").width(28),
              TFieldRow::freeEdit("&Slaptažodis:", "PassEdit").password()},
             nullptr,
             {{"&Prisijungti", TDialogButton::Save, true, {}, "OkBtn"},
              {"&Kita įstaiga…", TDialogButton::Action, false, [this] { done(OtherBooks); }, "OtherBtn"},
              {"&Atšaukti", TDialogButton::Cancel, false, {}, {}}});
    NameEdit = control<QLineEdit>("NameEdit");
    PassEdit = control<QLineEdit>("PassEdit");
    NameEdit->setText(name);
    saveButton()->setIcon({}); // nothing is saved here
    if (!institution.isEmpty())
        bodyLayout()->insertWidget(0,
                                   new QLabel(QString("<b>%1</b>").arg(institution.toHtmlEscaped()), this));
    refusal->setObjectName("refusal");
    refusal->setStyleSheet("color: #b00020");
    bodyLayout()->addWidget(refusal);
    if (!name.isEmpty())
        PassEdit->setFocus();

    connectGuarded(&patience, &TLoginPatience::counted, this, [this] { showRefusal(); });
    showRefusal();
}

// A password comes after the name.
void TLoginDlg::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && NameEdit->hasFocus() && PassEdit->text().isEmpty())
        PassEdit->setFocus();
    else
        TDialog::keyPressEvent(event);
}

// Which of the two was wrong is not told. Enter comes here also while the button waits.
void TLoginDlg::Validate()
{
    if (patience.secondsLeft() > 0)
        throw EAbort();
    if (letIn(NameEdit->text(), PassEdit->text()))
        return;
    wasRefused = true;
    patience.refused();
    showRefusal();
    PassEdit->setFocus();
    PassEdit->selectAll();
    throw EAbort();
}

// A refusal by the dialog before this one is not repeated, but its wait goes on.
void TLoginDlg::showRefusal()
{
    QStringList told;
    if (wasRefused)
        told << wrong;
    if (patience.secondsLeft() > 0)
        told << QString("Kitą kartą bandyti galima po %1 s.").arg(patience.secondsLeft());
    refusal->setText(told.join('\n'));
    saveButton()->setEnabled(patience.secondsLeft() <= 0);
}
