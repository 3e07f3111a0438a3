#pragma once

#include "host/app/catalogues/judged_dialog.h"
#include "host/controls/browse_frm.h"

// The work places at which users have rights: at most sixteen, each with a bit of its own in a user's rights.
class TDarboVietosFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TDarboVietosFrm(QWidget *owner);

protected:
    void CheckUsed() override;
    void DeleteRow(const Variant &key) override;
};

class TDarboVietaDlg : public TJudgedDialog {
    Q_OBJECT
public:
    explicit TDarboVietaDlg(const TRecordStart &start);

protected:
    void Judge() override;
    void Save() override;
};
