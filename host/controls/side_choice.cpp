#include "host/controls/side_choice.h"

#include "toolkit/widgets/form.h"
#include "toolkit/widgets/guard.h"

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
    connectGuarded(DebRadio, &QRadioButton::toggled, this, [this] { leave(); });
}

void TSideChoice::showIn(TFieldForm &form, TDataSet &set, const QString &debit, const QString &credit)
{
    fields = &form;
    debitColumn = debit;
    creditColumn = credit;
    show();
    connectGuarded(&set, &TDataSet::fieldChanged, this, [this, &set](const QString &column) {
        for (const QString &own : {debitColumn, creditColumn})
            if (column.compare(own, Qt::CaseInsensitive) == 0)
                follow(set);
    });
}

void TSideChoice::setDebit(bool on)
{
    debitShown = on;
    show();
}

// By the user's hand.
void TSideChoice::leave()
{
    if (debitShown == DebRadio->isChecked())
        return;
    try {
        if (fields)
            dynamic_cast<TDBControl &>(*fields->control(debitShown ? debitColumn : creditColumn)).commit();
    } catch (...) {
        show();
        throw;
    }
    setDebit(!debitShown);
    emit chosen();
}

void TSideChoice::show()
{
    (debitShown ? DebRadio : KredRadio)->setChecked(true);
    if (!fields)
        return;
    fields->setRowVisible(debitColumn, debitShown);
    fields->setRowVisible(creditColumn, !debitShown);
}

void TSideChoice::follow(const TDataSet &set)
{
    const auto amount = [&set](const QString &column) { return set.FieldByName(column)->AsFloat(); };
    if (amount(debitShown ? debitColumn : creditColumn) == 0 &&
        amount(debitShown ? creditColumn : debitColumn) != 0)
        setDebit(!debitShown);
}
