#pragma once

#include "src/frame/unit.h"

// Positions of the staff.
namespace Pareig {

class TPareigFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TPareigFrm(QWidget *owner);
};

extern TUnit unit;
extern TPareigFrm *PareigFrm;

} // namespace Pareig
