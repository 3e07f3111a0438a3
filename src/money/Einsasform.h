#pragma once

#include "src/frame/unit.h"

// The institution's current accounts with banks.
namespace Einsasform {

class TEinSasFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TEinSasFrm(QWidget *owner);

protected:
    void CheckUsed() override;
};

extern TUnit unit;
extern TEinSasFrm *EinSasFrm;

} // namespace Einsasform
