#pragma once

#include "host/app/catalogues/branch_dialog.h"
#include "host/app/catalogues/tree_frm.h"

// The state functions.
class TFunkcijosFrm : public TTreeFrm {
    Q_OBJECT
public:
    explicit TFunkcijosFrm(QWidget *owner);
};

// The editor of one function, or of a new one below parent (0: at the top).
class TFunkcijaDlg : public TBranchDlg {
    Q_OBJECT
public:
    TFunkcijaDlg(const QString &caption, const TRecordStart &start, double parent);
};
