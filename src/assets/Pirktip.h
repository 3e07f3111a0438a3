#pragma once

#include "src/frame/unit.h"

// The ways in which fixed assets come into the books: bought, received, made.
namespace Pirktip {

extern TUnit unit;

class TPirkTipFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TPirkTipFrm(QWidget *owner);
};

extern TPirkTipFrm *PirkTipFrm;

} // namespace Pirktip
