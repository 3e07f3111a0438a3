#pragma once

#include "src/frame/unit.h"

// Tenants.
namespace Nuom {

extern TUnit unit;

class TNuomFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TNuomFrm(QWidget *owner);
};

extern TNuomFrm *NuomFrm;

} // namespace Nuom
