#pragma once

#include "src/frame/unit.h"

namespace Kasnew {

// Edits the row of the open list of cash desks, which is in insert state when isNew and else in edit state;
// raises when there is none. True when the user saved.
bool ShowKasa(const AnsiString &caption, bool isNew);

class TKasNewFrm : public TRecordDialog {
    Q_OBJECT
public:
    explicit TKasNewFrm(const AnsiString &caption);

protected:
    bool CanSave() const override;
};

extern TUnit unit;
extern TKasNewFrm *KasNewFrm;

} // namespace Kasnew
