#pragma once

#include "src/frame/unit.h"

namespace Editprg {

// Edits the row that the list of positions has in insert or edit state; true when the user saved.
bool PrgEdit(const bool isNew);

class TEditPrgDlg : public TRecordDialog {
    Q_OBJECT
public:
    TEditPrgDlg();
};

extern TUnit unit;
extern TEditPrgDlg *EditPrgDlg;

} // namespace Editprg
