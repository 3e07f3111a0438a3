#pragma once

#include "host/app/catalogues/judged_dialog.h"
#include "host/controls/browse_frm.h"

// The classification books.
class TKnygosFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TKnygosFrm(QWidget *owner);
};

class TKnygaDlg : public TJudgedDialog {
    Q_OBJECT
public:
    explicit TKnygaDlg(const TRecordStart &start);
};
