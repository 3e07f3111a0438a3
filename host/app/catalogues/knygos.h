#pragma once

#include "host/controls/browse_frm.h"
#include "host/controls/record_dialog.h"

// The classification books.
class TKnygosFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TKnygosFrm(QWidget *owner);
};

class TKnygaDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TKnygaDlg(const TRecordStart &start);

protected:
    void Save() override;
};
