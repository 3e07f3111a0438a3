#pragma once

#include "host/controls/browse_frm.h"
#include "host/controls/record_dialog.h"

// The work places at which users have rights: at most sixteen, each with a bit of its own in a user's rights.
class TDarboVietosFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TDarboVietosFrm(QWidget *owner);

protected:
    void CheckUsed() override;
    void DeleteRow(const Variant &key) override;
};

class TDarboVietaDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TDarboVietaDlg(const TRecordStart &start);

protected:
    void Save() override;
};
