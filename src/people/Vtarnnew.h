#pragma once

#include "src/frame/unit.h"

namespace Vtarnnew {

// Edits the row that the list of categories has in insert or edit state; true when the user saved.
bool VTarnShow();

class TVTarnDlg : public TRecordDialog {
    Q_OBJECT
public:
    TVTarnDlg();
};

extern TUnit unit;
extern TVTarnDlg *VTarnDlg;

} // namespace Vtarnnew
