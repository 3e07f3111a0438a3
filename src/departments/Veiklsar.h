#pragma once

#include "src/frame/unit.h"

// Activity types of the institution.
namespace Veiklsar {

class TVeiklFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TVeiklFrm(QWidget *owner);
};

extern TUnit unit;
extern TVeiklFrm *VeiklFrm;

} // namespace Veiklsar
