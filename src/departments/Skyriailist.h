#pragma once

#include "src/frame/unit.h"

// Departments of the institution.
namespace Skyriailist {

extern TUnit unit;

class TSkyriaiFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TSkyriaiFrm(QWidget *owner);
};

extern TSkyriaiFrm *SkyriaiFrm;

} // namespace Skyriailist
