#pragma once

#include "host/app/catalogues/branch_dialog.h"
#include "host/app/catalogues/tree_frm.h"

// The chart of accounts. A summary account has others below it, a detail account carries amounts, and a
// closed one is offered by no picker any more while its name is shown wherever it was used.
class TSasPlanFrm : public TTreeFrm {
    Q_OBJECT
public:
    explicit TSasPlanFrm(QWidget *owner);

protected:
    void CheckUsed() override;
};

class TSasPlanDlg : public TBranchDlg {
    Q_OBJECT
public:
    TSasPlanDlg(const QString &caption, const TRecordStart &start, double parent);

protected:
    void Judge() override;
};
