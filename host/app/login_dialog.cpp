#include "host/app/login_dialog.h"

#include "host/common/waiting.h"
#include "host/data/login.h"
#include "toolkit/widgets/guard.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int longestWait = 30;

// Seconds before the next try after so many refusals: 1, 2, 4, 8 and so on.
int waitAfter(int refusals)
{
    return std::min(longestWait, 1 << std::min(refusals - 1, 5));
}

} // namespace

TLoginDlg::TLoginDlg(TMainDatas &datas, const QString &name, QWidget *owner)
    : TLoginDlg(
          [&datas](const QString &login, const QString &password) { return logIn(datas, login, password); },
          "Neteisingas vardas arba slaptažodis.", organisationName(), name, owner)
{
}

TLoginDlg::TLoginDlg(const TBooksSettings &books, const QString &institution, const QString &name,
                     QWidget *owner)
    : TLoginDlg(
          [books](const QString &login, const QString &password) {
              const TWaiting waiting;
              return logIn(books, login, password);
          },
          "Neteisingas vardas arba slaptažodis, arba slaptažodžio galiojimo laikas baigėsi.", institution,
          name, owner)
{
}

TLoginDlg::TLoginDlg(TLogIn logIn, const QString &wrongText, const QString &institution, const QString &name,
                     QWidget *owner)
    : TDialog(owner),
      letIn(std::move(logIn)),
      wrong(wrongText),
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

    eachSecond.setInterval(1000);
    connectGuarded(&eachSecond, &QTimer::timeout, this, [this] {
        --secondsLeft;
        showRefusal();
    });
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
    if (secondsLeft > 0)
        throw EAbort();
    if (letIn(NameEdit->text(), PassEdit->text()))
        return;
    secondsLeft = waitAfter(++refusals);
    eachSecond.start();
    showRefusal();
    PassEdit->setFocus();
    PassEdit->selectAll();
    throw EAbort();
}

void TLoginDlg::showRefusal()
{
    refusal->setText(secondsLeft > 0
                         ? QString("%1\nKitą kartą bandyti galima po %2 s.").arg(wrong).arg(secondsLeft)
                         : wrong);
    saveButton()->setEnabled(secondsLeft <= 0);
    if (secondsLeft <= 0)
        eachSecond.stop();
}
