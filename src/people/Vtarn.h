#pragma once

#include "src/frame/unit.h"

// Civil-servant categories.
namespace Vtarn {

class TVTarnFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TVTarnFrm(QWidget *owner);

protected:
    void CheckUsed() override;
    void DeleteRecord() override;
};

extern TUnit unit;
extern TVTarnFrm *VTarnFrm;

} // namespace Vtarn
