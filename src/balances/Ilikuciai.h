#pragma once

#include "src/frame/unit.h"

class TDBGrid;

// The opening balances of expenses: for each node of the classification one row in a period.
namespace Ilikuciai {

class TIslFrm : public TBookFrm {
    Q_OBJECT
public:
    explicit TIslFrm(QWidget *owner);
    ~TIslFrm() override;

    TQuery &balances() { return qryIslLik; } // of the current node and the picked period

    void CheckActions() override;

protected:
    void FormCreate() override;
    void ReadPeriods() override;
    void NewRecord() override;
    void EditRecord() override;
    void DeleteRecord() override;
    Variant currentKey() const override;

private:
    void loadBalances();
    bool isFirstMonth() const;
    bool hasBalance() const;

    TQuery qryIslLik;
    TPeriodBox *PeriodBox;
    TDBGrid *DBGrid;
};

extern TUnit unit;
extern TIslFrm *IslFrm;

} // namespace Ilikuciai
