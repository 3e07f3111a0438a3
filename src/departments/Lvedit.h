#pragma once

#include "src/frame/unit.h"

namespace Lvedit {

// Edits the storage place with the id (state dsEdit), adds one to the department (dsInsert) or only shows it.
// True when the user saved; id is then that of the saved row.
bool ShowLVEdit(double &id, double padId, TDataSetState state);

class TLVEditFrm : public TRecordDialog {
    Q_OBJECT
public:
    TLVEditFrm(double id, double department, TDataSetState state);

protected:
    void Loaded() override;
    void Validate() override;
    bool mayChange() const override;

private:
    const double padId;
    const bool onlyShown;
};

extern TUnit unit;
extern TLVEditFrm *LVEditFrm;

} // namespace Lvedit
