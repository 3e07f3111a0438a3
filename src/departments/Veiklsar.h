#pragma once

#include "src/frame/unit.h"

// Activity types of the institution.
namespace Veiklsar {

extern TUnit unit;

class TVeiklFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TVeiklFrm(QWidget *owner);
};

extern TVeiklFrm *VeiklFrm;

} // namespace Veiklsar
