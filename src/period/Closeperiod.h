#pragma once

#include "src/frame/unit.h"
#include "src/period/shown_month.h"
#include "toolkit/widgets/dialog.h"

#include <QLabel>
#include <QPushButton>

// Closing the current month.
namespace Closeperiod {

// Closes the current period after asking; all outcomes are told in message boxes. Raises EDatabaseError when
// the current period cannot be read.
void StartPerClose();

// Shows the month to be closed, which must be set. Once a close has been committed the dialog ends,
// whatever comes after.
class TPerCloseDlg : public TDialog {
    Q_OBJECT
public:
    TPerCloseDlg(const TShownMonth &closing, QWidget *owner);
    ~TPerCloseDlg() override;

    // True when the period may be closed. The opening totals of the start-of-work period must agree;
    // otherwise the reason has been shown.
    bool balancesAgree();

    void reject() override;

private:
    QWidget *periods();
    void StartBtnClick();
    bool closeShown();
    void setClosing(bool on);

    const TShownMonth month;
    TDateTime nextDate;
    qint64 debit = 0;
    qint64 credit = 0;

    QLabel *OldPer;
    QLabel *NewPer;
    TAnimate *StartedProg;
    QPushButton *StartBtn;
    QPushButton *CancelBtn;
    TQuery qrySasSum;
};

extern TUnit unit;
extern TPerCloseDlg *PerCloseDlg;

} // namespace Closeperiod
