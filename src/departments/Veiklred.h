#pragma once

#include "src/frame/unit.h"

namespace Veiklred {

// Edits the row of the open list of activity types that is in insert or edit state; raises when there is
// none.
void VeiklRedShow();

class TVeiklRedFrm : public TRecordDialog {
    Q_OBJECT
public:
    TVeiklRedFrm();
};

extern TUnit unit;
extern TVeiklRedFrm *VeiklRedFrm;

} // namespace Veiklred
