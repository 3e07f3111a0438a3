#include "host/app/new_books_dialog.h"

#include "toolkit/text/ansistring.h"
#include "toolkit/text/errors.h"
#include "toolkit/widgets/guard.h"

#include <QDir>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>

TNewBooksDlg::TNewBooksDlg(const QString &folder, QWidget *owner)
    : QDialog(owner),
      DemoRadio(new QRadioButton("&Parodomosios mokyklos knygos", this)),
      EmptyRadio(new QRadioButton("&Tuščios knygos", this)),
      NameEdit(new QLineEdit(this)),
      PassEdit(new QLineEdit(this)),
      RepeatEdit(new QLineEdit(this))
{
    setObjectName("TNewBooksDlg");
    setWindowTitle("Naujos knygos");
    DemoRadio->setChecked(true);
    NameEdit->setMaxLength(10);
    PassEdit->setEchoMode(QLineEdit::Password);
    RepeatEdit->setEchoMode(QLineEdit::Password);

    auto *ok = new QPushButton("&Sukurti", this);
    ok->setDefault(true);
    auto *cancel = new QPushButton("&Atšaukti", this);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto *form = new QFormLayout(this);
    form->addRow(new QLabel(
        QString("Aplanke %1 knygų dar nėra.\nKokias knygas sukurti?").arg(QDir::toNativeSeparators(folder)),
        this));
    form->addRow(DemoRadio);
    form->addRow(EmptyRadio);
    form->addRow("Administratoriaus &vardas:", NameEdit);
    form->addRow("S&laptažodis:", PassEdit);
    form->addRow("&Dar kartą:", RepeatEdit);
    form->addRow(buttons);

    connectGuarded(EmptyRadio, &QRadioButton::toggled, this, [this] { showChoice(); });
    connectGuarded(ok, &QPushButton::clicked, this, [this] { OkBtnClick(); });
    connectGuarded(cancel, &QPushButton::clicked, this, [this] { reject(); });
    showChoice();
}

void TNewBooksDlg::showChoice()
{
    for (QLineEdit *edit : {NameEdit, PassEdit, RepeatEdit})
        edit->setEnabled(EmptyRadio->isChecked());
}

void TNewBooksDlg::OkBtnClick()
{
    if (EmptyRadio->isChecked()) {
        if (administrator().isEmpty())
            throw Exception("Neįvestas administratoriaus vardas");
        for (const QString &text : {administrator(), password()})
            if (const qsizetype at = firstOutsideCodePage(text); at >= 0)
                throw Exception(QString("Simbolio „%1“ čia naudoti negalima").arg(text.at(at)));
        if (PassEdit->text() != RepeatEdit->text())
            throw Exception("Slaptažodžiai nesutampa");
    }
    accept();
}
