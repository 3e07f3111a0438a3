#pragma once

#include "src/frame/host_services.h"
#include "src/frame/unit.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>

class TUpDown;

// The start-of-work period: set once, when an institution begins to keep its books.
namespace Period {

extern TUnit unit;

// Creating it reads the period kept so far, or proposes the computer's month.
// Raises an error when the computer's date cannot be right.
class TPeriodDlg : public QDialog {
    Q_OBJECT
public:
    explicit TPeriodDlg(QWidget *owner);
    ~TPeriodDlg() override;

private:
    void FormCreate();
    void readStored();
    void proposeToday();

    void OkBtnClick();
    void checkInput() const;
    void deleteStored();
    void writeRows();

    QLineEdit *YearEdit;
    TUpDown *UpDown;
    QComboBox *MonthBox;
    TQuery qryPer;
};

extern TPeriodDlg *PeriodDlg;

} // namespace Period
