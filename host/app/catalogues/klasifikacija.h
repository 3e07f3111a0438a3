#pragma once

#include "host/app/catalogues/branch_dialog.h"
#include "host/app/catalogues/node_rules.h"
#include "host/app/catalogues/tree_frm.h"

class TBookBox;

// The nodes of a classification book, chosen beside the search. Those that are marked so carry amounts.
class TMazgaiFrm : public TTreeFrm {
    Q_OBJECT
public:
    // Of the book with the key; 0: the current user's.
    explicit TMazgaiFrm(QWidget *owner, double book = 0);

    void RefreshData(const Variant &key) override;
    void CheckToolButtons() override;

private:
    TBookBox *books;
};

// The editor of one node, or of a new one of the book below parent (0: at the top).
class TMazgasDlg : public TBranchDlg {
    Q_OBJECT
public:
    TMazgasDlg(const QString &caption, const TRecordStart &start, double parent, double book);

protected:
    QString hint() const override { return lossOfHeading(parentOfNew()); }
    void Judge() override;
};
