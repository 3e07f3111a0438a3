#pragma once

#include "src/frame/unit.h"

// The register of debtors and creditors.
namespace Dbkr {

class TDbKrFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TDbKrFrm(QWidget *owner);

    QAction *acCopyData; // a new counterparty as a copy of the current one

private:
    void copyRecord();
};

extern TUnit unit;
extern TDbKrFrm *DbKrFrm;

} // namespace Dbkr
