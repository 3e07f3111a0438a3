#pragma once

#include "src/frame/unit.h"

// Positions of the staff.
namespace Pareig {

extern TUnit unit;

class TPareigFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TPareigFrm(QWidget *owner);
};

extern TPareigFrm *PareigFrm;

} // namespace Pareig
