#pragma once

#include "src/frame/unit.h"

namespace Bankaied {

// Edits the bank with the code, or adds one; true when the user saved, kodas is then the code as saved.
bool EditBankas(double &kodas, bool isNew);

class TBankaiDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TBankaiDlg(const TRecordStart &start);

protected:
    void Validate() override;
};

extern TUnit unit;
extern TBankaiDlg *BankaiDlg;

} // namespace Bankaied
