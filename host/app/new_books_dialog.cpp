#include "host/app/new_books_dialog.h"

#include "toolkit/text/ansistring.h"
#include "toolkit/text/errors.h"
#include "toolkit/widgets/guard.h"

#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// As the columns of the users have it.
constexpr int longestName = 10;
constexpr int longestPassword = 100;
constexpr int setUpTopic = 120;

} // namespace

TNewBooksDlg::TNewBooksDlg(const QString &folder, QWidget *owner)
    : TDialog(owner),
      DemoRadio(new QRadioButton("&Parodomosios mokyklos knygos", this)),
      NewRadio(new QRadioButton("&Naujos įstaigos knygos", this)),
      ExistingRadio(new QRadioButton("&Jau esančios knygos kitame aplanke ar serveryje", this)),
      EmptyRadio(new QRadioButton("&Tuščios knygos", this))
{
    setObjectName("TNewBooksDlg");
    setHelpTopic(setUpTopic);
    describe(
        "Naujos knygos",
        {TFieldRow::custom({}, "DemoRadio", DemoRadio), TFieldRow::custom({}, "NewRadio", NewRadio),
         TFieldRow::custom({}, "ExistingRadio", ExistingRadio),
         TFieldRow::custom({}, "EmptyRadio", EmptyRadio),
         TFieldRow::freeEdit("Administratoriaus &vardas:", "NameEdit").maxLength(longestName),
         TFieldRow::freeEdit("S&laptažodis:", "PassEdit").maxLength(longestPassword).password(),
         TFieldRow::freeEdit("Slaptažodis &dar kartą:", "RepeatEdit").maxLength(longestPassword).password()},
        nullptr,
        {{"&Sukurti", TDialogButton::Save, true, {}, {}},
         {"&Atšaukti", TDialogButton::Cancel, false, {}, {}}});
    NameEdit = control<QLineEdit>("NameEdit");
    PassEdit = control<QLineEdit>("PassEdit");
    RepeatEdit = control<QLineEdit>("RepeatEdit");
    auto *question = new QLabel(
        QString("Aplanke %1 knygų dar nėra.\nKokias knygas sukurti?").arg(QDir::toNativeSeparators(folder)),
        this);
    question->setTextFormat(Qt::PlainText);
    bodyLayout()->insertWidget(0, question);
    saveButton()->setIcon({});
    DemoRadio->setChecked(true);
    connectGuarded(EmptyRadio, &QRadioButton::toggled, this, [this] { showChoice(); });
    showChoice();
}

void TNewBooksDlg::showChoice()
{
    for (QLineEdit *edit : {NameEdit, PassEdit, RepeatEdit})
        edit->setEnabled(EmptyRadio->isChecked());
}

QLineEdit *TNewBooksDlg::nextEmpty() const
{
    for (QLineEdit *edit : {NameEdit, PassEdit, RepeatEdit})
        if (edit->text().trimmed().isEmpty())
            return edit;
    return nullptr;
}

void TNewBooksDlg::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QLineEdit *empty = nextEmpty();
    if (enter && empty && empty != focusWidget() && qobject_cast<QLineEdit *>(focusWidget()))
        empty->setFocus();
    else
        TDialog::keyPressEvent(event);
}

void TNewBooksDlg::Validate()
{
    if (!EmptyRadio->isChecked())
        return;
    if (administrator().isEmpty())
        refuse("NameEdit", "Neįvestas administratoriaus vardas");
    if (password().trimmed().isEmpty())
        refuse("PassEdit", "Neįvestas slaptažodis");
    for (QLineEdit *edit : {NameEdit, PassEdit})
        if (const qsizetype at = firstOutsideCodePage(edit->text()); at >= 0)
            refuse(edit->objectName(),
                   QString("Simbolio „%1“ čia naudoti negalima").arg(edit->text().at(at)));
    if (password() != RepeatEdit->text())
        refuse("RepeatEdit", "Slaptažodžiai nesutampa");
}
