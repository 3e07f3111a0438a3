#pragma once

#include "src/frame/unit.h"

// Accountable persons: employees who receive advances and account for them.
namespace Atsasmlist {

class TAtsAsmFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TAtsAsmFrm(QWidget *owner);
};

extern TUnit unit;
extern TAtsAsmFrm *AtsAsmFrm;

} // namespace Atsasmlist
