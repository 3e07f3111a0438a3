#pragma once

#include "src/frame/unit.h"

// The ways in which fixed assets come into the books: bought, received, made.
namespace Pirktip {

class TPirkTipFrm : public TBrowseFrm {
    Q_OBJECT
public:
    explicit TPirkTipFrm(QWidget *owner);
};

extern TUnit unit;
extern TPirkTipFrm *PirkTipFrm;

} // namespace Pirktip
