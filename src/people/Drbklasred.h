#pragma once

#include "src/frame/unit.h"

namespace Drbklasred {

// Edits the row that the list of professional groups has in insert or edit state.
void DrbKlasShow();

class TDrbKlasRedFrm : public TRecordDialog {
    Q_OBJECT
public:
    TDrbKlasRedFrm();

protected:
    void Validate() override;
};

extern TUnit unit;
extern TDrbKlasRedFrm *DrbKlasRedFrm;

} // namespace Drbklasred
