#pragma once

#include "src/debtors/debtor_dialog.h"
#include "src/frame/unit.h"

// The editor of one debtor or creditor.
namespace Chdbkr {

// Opens the editor modally on a new row, or on the row whose dka_id is id. True when the user saved; id is
// then the dka_id of the saved row, and otherwise stays as it was. A row that is not there becomes a new one.
bool EditDbKr(const AnsiString &caption, bool isNew, double &id);

// Opens the row whose dka_id is id without its code and its receivables account, and saves it under the new
// ones: the row itself is rewritten. True when the user saved; newId is then its dka_id.
bool CopyDbKr(const AnsiString &caption, double id, double &newId);

class TEditDbKrDlg : public TDbKrDialog {
    Q_OBJECT
public:
    // rewrites: the row opens without its code and its receivables account.
    TEditDbKrDlg(const AnsiString &caption, const TRecordStart &start, bool rewrites = false);

protected:
    void Loaded() override;

private:
    const bool rewrites;
};

extern TUnit unit;
extern TEditDbKrDlg *EditDbKrDlg;

} // namespace Chdbkr
