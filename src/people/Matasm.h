#pragma once

#include "src/frame/unit.h"

// Materially responsible persons: employees answerable for stock and fixed assets.
namespace Matasm {

class TMatAsmFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TMatAsmFrm(QWidget *owner);

    QAction *acMerge; // makes one of persons that were entered more than once

private:
    void merge();
};

extern TUnit unit;
extern TMatAsmFrm *MatAsmFrm;

} // namespace Matasm
