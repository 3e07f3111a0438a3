#pragma once

#include "src/balances/period_list.h"
#include "src/frame/unit.h"

// The opening balances of debtors and creditors, one period at a time.
namespace Dkalik {

class TDKALikFrm : public TPeriodListFrm {
    Q_OBJECT
public:
    explicit TDKALikFrm(QWidget *owner);

    QAction *acCalc, *acDelAll;

protected:
    bool rowsMayChange() const override;
    void readTotals() override;
    void showTotals() override;

private:
    double total(const QString &column) const;
    void calculate();
    void deleteAll();

    double debit = 0;
    double credit = 0;
};

extern TUnit unit;
extern TDKALikFrm *DKALikFrm;

} // namespace Dkalik
