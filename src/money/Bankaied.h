#pragma once

#include "src/frame/unit.h"

namespace Bankaied {

extern TUnit unit;

// Edits the bank with the code, or adds one; true when the user saved, kodas is then the code as saved.
bool EditBankas(double &kodas, bool isNew);

class TBankaiDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TBankaiDlg(const TRecordStart &start);

protected:
    void Validate() override;
};

extern TBankaiDlg *BankaiDlg;

} // namespace Bankaied
