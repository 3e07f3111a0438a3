#pragma once

#include "src/frame/unit.h"

// The contract of a debtor or creditor.
namespace Dbkrsut {

// Kind of the amount being edited: 'B' for the whole contract, 'M' by the month.
extern char Tipas;

// Shows the contract of the counterparty whose dka_id is given, or a new one; null stands for 0, the
// counterparty that is not saved yet.
void DbKrShow(const Variant &dkaId);

class TDbKrSutart : public TRecordDialog {
    Q_OBJECT
public:
    explicit TDbKrSutart(double dkaId);

protected:
    void Loaded() override;
    void Validate() override;
    void Save() override;

private:
    void setRules(TQuery &contract);
    void requireNoOther();

    const double dkaId;
};

extern TUnit unit;
extern TDbKrSutart *DbKrSutart;

} // namespace Dbkrsut
