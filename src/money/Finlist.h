#pragma once

#include "src/frame/unit.h"

// Financing sources; they live beside the users.
namespace Finlist {

class TFinListFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TFinListFrm(QWidget *owner);
};

extern TUnit unit;
extern TFinListFrm *FinListFrm;

} // namespace Finlist
