#pragma once

#include "src/debtors/debtor_dialog.h"
#include "src/frame/unit.h"

// A new debtor or creditor as a copy of another one.
namespace Copydbkr {

// Shows a copy of the row whose dka_id is sourceId and saves it as a new row; the search code must become
// another one. True when the user saved; newId is then the new row's dka_id, and otherwise stays as it was.
bool CopyData(const AnsiString &caption, double sourceId, double &newId);

class TCopyDbKrFrm : public TDbKrDialog {
    Q_OBJECT
public:
    TCopyDbKrFrm(const AnsiString &caption, double sourceId);

protected:
    void Loaded() override;
    // Also for a query that was opened on no row, by the parameter -1.
    bool takesKey() const override;

private:
    TQuery qrySource;
};

extern TUnit unit;
extern TCopyDbKrFrm *CopyDbKrFrm;

} // namespace Copydbkr
