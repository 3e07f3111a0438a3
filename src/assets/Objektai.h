#pragma once

#include "src/frame/unit.h"

// Objects: buildings, yards and other places that assets belong to.
namespace Objektai {

class TObjektFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TObjektFrm(QWidget *owner);
};

extern TUnit unit;
extern TObjektFrm *ObjektFrm;

} // namespace Objektai
