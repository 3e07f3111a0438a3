#pragma once

#include "src/frame/unit.h"

// The ways in which fixed assets leave the books: written off, sold, given away.
namespace Pardtip {

extern TUnit unit;

class TPardTipFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TPardTipFrm(QWidget *owner);
};

extern TPardTipFrm *PardTipFrm;

} // namespace Pardtip
