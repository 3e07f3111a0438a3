#pragma once

#include "src/balances/period_list.h"
#include "src/frame/unit.h"

// The opening balances of accounts, one period at a time.
namespace Slikuciai {

class TSasLikFrm : public TPeriodListFrm {
    Q_OBJECT
public:
    explicit TSasLikFrm(QWidget *owner);

protected:
    void BeforePrint(TReport &report) override;
    bool rowsMayChange() const override;
    void readTotals() override;
    void showTotals() override; // tells as well when the debit and credit totals of the period differ

private:
    QString dayBeforePeriod() const;

    TQuery qrySum;
    double debit = 0;
    double credit = 0;
};

extern TUnit unit;
extern TSasLikFrm *SasLikFrm;

} // namespace Slikuciai
