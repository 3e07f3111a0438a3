#pragma once

#include "src/frame/host_services.h"

// A list of balances, one month period at a time: a period picker on the tool bar, totals of the period in
// the second and third status panel.
class TPeriodListFrm : public TBrowseFrm {
    Q_OBJECT
public:
    // The described statement has the period as the parameter of that name.
    TPeriodListFrm(const TBrowseDescription &described, TPeriodBox::Order order, const QString &parameter,
                   QWidget *owner);

    // Reads the totals as well. Does nothing while no period is picked.
    void RefreshData(const Variant &key) override;

protected:
    // Raises while no start-of-work period is set.
    void FormCreate() override;
    void PeriodChanged() override;
    void BeforePrint(TReport &report) override;

    // --- steps
    virtual bool rowsMayChange() const = 0; // asked when the list is opened and the periods changed
    virtual void readTotals() = 0;          // of the picked period
    virtual void showTotals() = 0;

    static constexpr int debitPanel = 1;
    static constexpr int creditPanel = 2;

    TPeriodBox *PeriodBox;

private:
    const QString parameter;
};
