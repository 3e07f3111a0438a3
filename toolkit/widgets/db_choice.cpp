#include "toolkit/widgets/db_choice.h"

#include "toolkit/widgets/db_combo.h"
#include "toolkit/widgets/lithuanian.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QRadioButton>

TDBCheckBox::TDBCheckBox(QWidget *parent) : TDBCheckBox(QString(), parent) {}

TDBCheckBox::TDBCheckBox(const QString &text, QWidget *parent) : QCheckBox(text, parent), TDBControl(this)
{
    connect(this, &QCheckBox::clicked, this, [this] {
        if (canEdit())
            chosenByUser();
    });
}

void TDBCheckBox::setValues(const QVariant &whenChecked, const QVariant &whenUnchecked)
{
    valueChecked = whenChecked;
    valueUnchecked = whenUnchecked;
    refresh();
}

void TDBCheckBox::showField(TField *field)
{
    setChecked(field && !field->IsNull() && sameKey(field->Value(), valueChecked));
}

QString TDBCheckBox::textFor(const Variant &value)
{
    return sameKey(value, valueChecked) ? QStringLiteral("Taip") : QStringLiteral("Ne");
}

void TDBCheckBox::storeField(TField &field)
{
    field.setValue(isChecked() ? valueChecked : valueUnchecked);
}

void TDBCheckBox::setEditable(bool on)
{
    setProperty("readOnly", !on);
}

void TDBCheckBox::nextCheckState()
{
    if (canEdit())
        QCheckBox::nextCheckState();
}

TDBRadioGroup::TDBRadioGroup(const QString &title, QWidget *parent)
    : QGroupBox(title, parent),
      TDBControl(this),
      buttons(new QButtonGroup(this))
{
    new QVBoxLayout(this);
    connect(buttons, &QButtonGroup::idClicked, this, [this] { chosenByUser(); });
}

void TDBRadioGroup::setChoices(const TChoices &choices)
{
    qDeleteAll(buttons->buttons());
    values.clear();
    for (const auto &[text, value] : choices) {
        auto *button = new QRadioButton(text, this);
        buttons->addButton(button, int(values.size()));
        layout()->addWidget(button);
        values += value;
    }
    setEditable(canEdit());
    refresh();
}

void TDBRadioGroup::showField(TField *field)
{
    int chosen = -1;
    for (int i = 0; field && i < values.size(); ++i) {
        if (sameKey(field->Value(), values[i]))
            chosen = i;
    }
    // An exclusive group does not let go of its last choice.
    buttons->setExclusive(false);
    for (QAbstractButton *button : buttons->buttons())
        button->setChecked(buttons->id(button) == chosen);
    buttons->setExclusive(true);
}

QString TDBRadioGroup::textFor(const Variant &value)
{
    for (int i = 0; i < values.size(); ++i)
        if (sameKey(value, values[i]))
            return plainCaption(buttons->button(i)->text());
    return {};
}

bool TDBRadioGroup::showsValue() const
{
    return buttons->checkedId() >= 0;
}

void TDBRadioGroup::storeField(TField &field)
{
    if (buttons->checkedId() < 0)
        field.Clear();
    else
        field.setValue(values[buttons->checkedId()]);
}

void TDBRadioGroup::setEditable(bool on)
{
    for (QAbstractButton *button : buttons->buttons())
        button->setEnabled(on);
}
