#include "host/controls/side_choice.h"

#include <QHBoxLayout>
#include <QRadioButton>

using namespace Qt::StringLiterals;

TSideChoice::TSideChoice(const QString &debit, const QString &credit, QWidget *parent)
    : QWidget(parent),
      DebRadio(new QRadioButton(debit)),
      KredRadio(new QRadioButton(credit))
{
    DebRadio->setObjectName(u"DebRadio"_s);
    KredRadio->setObjectName(u"KredRadio"_s);
    DebRadio->setChecked(true);
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(DebRadio);
    line->addWidget(KredRadio);
    line->addStretch();
    setFocusProxy(DebRadio);
    connect(DebRadio, &QRadioButton::toggled, this, &TSideChoice::chosen);
}

bool TSideChoice::isDebit() const
{
    return DebRadio->isChecked();
}

void TSideChoice::setDebit(bool on)
{
    (on ? DebRadio : KredRadio)->setChecked(true);
}
