#pragma once

#include "src/frame/unit.h"

// Objects: buildings, yards and other places that assets belong to.
namespace Objektai {

extern TUnit unit;

class TObjektFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TObjektFrm(QWidget *owner);
};

extern TObjektFrm *ObjektFrm;

} // namespace Objektai
