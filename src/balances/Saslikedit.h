#pragma once

#include "src/frame/host_services.h"
#include "src/frame/unit.h"
#include "toolkit/widgets/dialog.h"

class QRadioButton;

// The opening balance of one account.
namespace Saslikedit {

extern TUnit unit;

// Opens the dialog modally: edit false adds a row, true changes the row whose ssl_id is id. True when the
// user saved; id is then the ssl_id of the saved row, and otherwise stays as it was. Raises when the row to
// change is gone.
bool EditLik(bool edit, double &id);

class TSasLikDlg : public TDialog {
    Q_OBJECT
public:
    // id: the row to change; 0 adds a row.
    TSasLikDlg(QWidget *owner, double id);
    ~TSasLikDlg() override;

    double rowId();

protected:
    void Load() override;
    void Validate() override;

private:
    void setRules();
    void validate(const TField &field, const Variant &proposed);
    void checkAmount(const TField &field, double proposed);
    void sideChosen();
    void showSide();
    void carryAmount();
    TField *chosen(); // the amount of the chosen side, and of the other one
    TField *other();

    const bool isNew;
    bool debitChosen = true;
    TQuery qryLik;
    QRadioButton *DebRadio;
    QRadioButton *KredRadio;
};

extern TSasLikDlg *SasLikDlg;

} // namespace Saslikedit
