#pragma once

#include "src/frame/unit.h"

// The ways in which fixed assets leave the books: written off, sold, given away.
namespace Pardtip {

class TPardTipFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TPardTipFrm(QWidget *owner);
};

extern TUnit unit;
extern TPardTipFrm *PardTipFrm;

} // namespace Pardtip
