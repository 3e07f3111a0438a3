#include "src/balances/period_list.h"

#include "toolkit/widgets/guard.h"

TPeriodListFrm::TPeriodListFrm(const TBrowseDescription &described, TPeriodBox::Order order,
                               const QString &parameterName, QWidget *owner)
    : TBrowseFrm(described, owner),
      PeriodBox(new TPeriodBox(order, this)),
      parameter(parameterName)
{
    addToToolBar("&Periodas", PeriodBox);
    addPanel();
    addPanel();
}

void TPeriodListFrm::FormCreate()
{
    PeriodBox->fillOrRaise();
    TBrowseFrm::FormCreate();
    SetEditable(rowsMayChange());
    connectGuarded(PeriodBox, &QComboBox::currentIndexChanged, this, [this] { RefreshData(Variant()); });
}

// Where no period is left, nothing is left to show or to enter.
void TPeriodListFrm::PeriodChanged()
{
    const Variant key = currentKey();
    dataSet()->Close();
    setPanel(debitPanel, QString());
    setPanel(creditPanel, QString());
    SetEditable(false);
    PeriodBox->fillOrRaise();
    SetEditable(rowsMayChange());
    RefreshData(key);
}

void TPeriodListFrm::RefreshData(const Variant &key)
{
    if (PeriodBox->period().isNull())
        return;
    description.parameters[parameter] = PeriodBox->period();
    readTotals();
    showTotals();
    TBrowseFrm::RefreshData(key);
}

void TPeriodListFrm::BeforePrint(TReport &report)
{
    TBrowseFrm::BeforePrint(report);
    report.period = PeriodBox->currentText();
    readTotals();
}
