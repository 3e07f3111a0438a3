#pragma once

#include "src/frame/unit.h"

// Tenants.
namespace Nuom {

class TNuomFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TNuomFrm(QWidget *owner);
};

extern TUnit unit;
extern TNuomFrm *NuomFrm;

} // namespace Nuom
