#pragma once

#include "src/frame/unit.h"

// Financing sources; they live beside the users.
namespace Finlist {

extern TUnit unit;

class TFinListFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TFinListFrm(QWidget *owner);
};

extern TFinListFrm *FinListFrm;

} // namespace Finlist
