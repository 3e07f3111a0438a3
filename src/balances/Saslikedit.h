#pragma once

#include "src/frame/unit.h"

class TSideChoice;

// The opening balance of one account.
namespace Saslikedit {

// Opens the dialog modally: edit false adds a row, true changes the row whose ssl_id is id. True when the
// user saved; id is then the ssl_id of the saved row, and otherwise stays as it was. Raises when the row to
// change is gone.
bool EditLik(bool edit, double &id);

class TSasLikDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TSasLikDlg(const TRecordStart &start);

protected:
    void Loaded() override;
    void Validate() override;
    bool CanSave() const override;

private:
    void setRules(TQuery &balance);
    void validate(const TField &checked, const Variant &proposed);
    void checkAmount(const TField &checked, double proposed);
    void sideChosen();
    TField *chosen(); // the amount of the chosen side, and of the other one
    TField *other();

    TSideChoice *side;
    bool amountMoved = false;
};

extern TUnit unit;
extern TSasLikDlg *SasLikDlg;

} // namespace Saslikedit
