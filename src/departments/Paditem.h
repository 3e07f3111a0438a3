#pragma once

#include "src/frame/unit.h"

// The editor of one department.
namespace Paditem {

// Edits the row of the open list of departments that is in insert or edit state; raises when there is none.
// True when the user saved.
bool ChangePad();

class TPadItemFrm : public TRecordDialog {
    Q_OBJECT
public:
    TPadItemFrm();

protected:
    void Save() override;
};

extern TUnit unit;
extern TPadItemFrm *PadItemFrm;

} // namespace Paditem
