#pragma once

#include "src/frame/unit.h"

namespace Vtarnnew {

extern TUnit unit;

// Edits the row that the list of categories has in insert or edit state; true when the user saved.
bool VTarnShow();

class TVTarnDlg : public TRecordDialog {
    Q_OBJECT
public:
    TVTarnDlg();
};

extern TVTarnDlg *VTarnDlg;

} // namespace Vtarnnew
