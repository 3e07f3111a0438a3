#pragma once

#include "src/frame/host_services.h"
#include "src/frame/unit.h"

// The opening balances of accounts, one period at a time.
namespace Slikuciai {

extern TUnit unit;

class TSasLikFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TSasLikFrm(QWidget *owner);

    // Tells as well when the debit and credit totals of the period differ.
    void RefreshData(const Variant &key) override;

protected:
    // Raises while no start-of-work period is set.
    void FormCreate() override;
    void PeriodChanged() override;
    void BeforePrint(TReport &report) override;

private:
    void readTotals();
    void showTotals();
    QString dayBeforePeriod() const;

    TPeriodBox *PeriodBox;
    TQuery qrySum;
    double debit = 0;
    double credit = 0;
};

extern TSasLikFrm *SasLikFrm;

} // namespace Slikuciai
