#pragma once

#include "src/frame/unit.h"

namespace Nuomedit {

// Edits the tenant whose nuom_id is id, or adds one; true when the user saved, id is then the nuom_id as
// saved.
bool EditNuom(const AnsiString &caption, bool isNew, double &id);

class TNuomDlg : public TRecordDialog {
    Q_OBJECT
public:
    TNuomDlg(const AnsiString &caption, const TRecordStart &start);
};

extern TUnit unit;
extern TNuomDlg *NuomDlg;

} // namespace Nuomedit
