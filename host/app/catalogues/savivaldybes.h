#pragma once

#include "host/controls/browse_frm.h"
#include "host/controls/record_dialog.h"

// The municipalities. Both books have them, and both are written: the transaction of the budget book
// ends inside that of the main one, when both have taken the row, so that what either refuses is in neither.
class TSavivaldybesFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TSavivaldybesFrm(QWidget *owner);

protected:
    void CheckUsed() override;
    void DeleteRow(const Variant &key) override;
};

class TSavivaldybeDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TSavivaldybeDlg(const TRecordStart &start);

protected:
    void Save() override;
};
