#pragma once

#include "src/frame/unit.h"

// One row of an estimate.
namespace Newsam {

// Adds the next row of the current node of the open screen (edit false), or changes its current row. True
// when the user saved; false without showing anything when no screen is open.
bool EditSam(bool edit);

// Whether amounts are judged: not while the dialog is being prepared.
extern bool Changed1;

class TSamDlg : public TRecordDialog {
    Q_OBJECT
public:
    explicit TSamDlg(const TRecordStart &start);

protected:
    void Loaded() override;
    void Validate() override;
    bool CanSave() const override;
    void showEvent(QShowEvent *event) override;

private:
    bool isYearly() const;
    std::optional<double> typedAmount() const; // none: it is no number
    bool isConsistent(double amount) const;
    void showConsistency();
    void readSums();

    double before = 0;   // the amount before it was edited
    double yearly = 0;   // that of the yearly row
    double quarters = 0; // the sum of the four
};

extern TUnit unit;
extern TSamDlg *SamDlg;

} // namespace Newsam
