#pragma once

#include "src/frame/unit.h"

// Departments of the institution.
namespace Skyriailist {

class TSkyriaiFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TSkyriaiFrm(QWidget *owner);
};

extern TUnit unit;
extern TSkyriaiFrm *SkyriaiFrm;

} // namespace Skyriailist
