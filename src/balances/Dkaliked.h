#pragma once

#include "src/frame/unit.h"

class TDKAComboBox;
class TSasEdit;
class TSideChoice;

// The opening balance of one debtor or creditor.
namespace Dkaliked {

// Opens the dialog modally on the balance with the id; on a new one when there is none. True when the user
// saved; id is then that of the saved row, and otherwise stays as it was.
bool NewDKALik(double &id);

class TDKALikDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TDKALikDlg(const TRecordStart &start);

protected:
    void Loaded() override;
    void Validate() override;

private:
    bool isFree() const; // typed in, not of the register
    void rowChanged(const QString &column);
    void showAccount();
    void requireParty();
    void requireAccount();
    void requireAmount(const QString &column, const QString &message);

    TDKAComboBox *code;
    TSasEdit *account;
    TSideChoice *side;
};

extern TUnit unit;
extern TDKALikDlg *DKALikDlg;

} // namespace Dkaliked
