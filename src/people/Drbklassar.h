#pragma once

#include "src/frame/unit.h"

// Professional groups; a group's code is one decimal digit under its type.
namespace Drbklassar {

class TDrbKlasFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TDrbKlasFrm(QWidget *owner);
};

extern TUnit unit;
extern TDrbKlasFrm *DrbKlasFrm;

} // namespace Drbklassar
