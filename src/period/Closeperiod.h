#pragma once

#include "src/frame/host_services.h"
#include "src/frame/unit.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>

// Closing the current month.
namespace Closeperiod {

extern TUnit unit;

// Closes the current period after asking; all outcomes are told in message boxes.
void StartPerClose();

class TPerCloseDlg : public QDialog {
    Q_OBJECT
public:
    explicit TPerCloseDlg(QWidget *owner);
    ~TPerCloseDlg() override;

    // True when the period may be closed. The opening totals of the start-of-work period must agree;
    // otherwise the reason has been shown.
    bool balancesAgree();

    void reject() override;

private:
    void StartBtnClick();
    void setClosing(bool on);

    double perId;
    TDateTime perDate;
    TDateTime nextDate;
    qint64 debit = 0;
    qint64 credit = 0;

    QLabel *OldPer;
    QLabel *NewPer;
    TAnimate *StartedProg;
    QPushButton *StartBtn;
    QPushButton *CancelBtn;
    QPushButton *HelpBtn;
    TQuery qrySasSum;
};

extern TPerCloseDlg *PerCloseDlg;

} // namespace Closeperiod
