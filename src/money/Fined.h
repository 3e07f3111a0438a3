#pragma once

#include "src/frame/unit.h"

namespace Fined {

// Edits the row that the list of financing sources has in insert or edit state; true when the user saved.
bool FinShow();

class TFinEdDlg : public TRecordDialog {
    Q_OBJECT
public:
    TFinEdDlg();

protected:
    void Validate() override;

private:
    void requireOfOrganisation(const char *column);
};

extern TUnit unit;
extern TFinEdDlg *FinEdDlg;

} // namespace Fined
