#pragma once

#include "src/frame/unit.h"
#include "toolkit/widgets/dialog.h"

// The detail accounts that no line of the balance-sheet form claims.
namespace Checksas {

// Shows them modally; where there are none, says so instead. Raises EDatabaseError.
void OpenSasChecker();

class TCheckSasDlg : public TDialog {
    Q_OBJECT
public:
    explicit TCheckSasDlg(QWidget *owner);

    TQuery &accounts() { return qrySas; }

private:
    TQuery qrySas;
};

extern TUnit unit;
extern TCheckSasDlg *CheckSasDlg;

} // namespace Checksas
