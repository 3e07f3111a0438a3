#pragma once

#include "src/frame/unit.h"

#include "toolkit/widgets/dialog.h"

class QComboBox;
class QLineEdit;
class TUpDown;

// The start-of-work period: set once, when an institution begins to keep its books.
namespace Period {

// Creating it reads the period kept so far, or proposes the computer's month.
// Raises an error when the computer's date cannot be right.
class TPeriodDlg : public TDialog {
    Q_OBJECT
public:
    explicit TPeriodDlg(QWidget *owner);
    ~TPeriodDlg() override;

protected:
    void Validate() override;
    void Save() override;

private:
    void goToFirstRow();
    void readStored();
    void proposeToday();
    void deleteStored();
    void writeRows();

    TUpDown *UpDown;
    QLineEdit *YearEdit;
    QComboBox *MonthBox = nullptr;
    TQuery qryPer;
};

extern TUnit unit;
extern TPeriodDlg *PeriodDlg;

} // namespace Period
