#pragma once

#include "src/frame/unit.h"
#include "toolkit/widgets/dialog.h"

#include <QProgressBar>

// Rolling the last month close back.
namespace Perback {

// Rolls the last close back after asking; all outcomes are told in message boxes. After one whose answer was
// lost it first finds out what became of that, so that a second press never reaches a second month. Raises
// EDatabaseError when the current period cannot be read, ECommitUnknown while that cannot be told.
void PeriodBack();

// Shown without waiting while the database works.
class TPerBackDlg : public TDialog {
    Q_OBJECT
public:
    explicit TPerBackDlg(QWidget *owner);
    ~TPerBackDlg() override;
    void reject() override {} // it closes by itself

    QProgressBar *ProgressBar;
};

extern TUnit unit;
extern TPerBackDlg *PerBackDlg;

} // namespace Perback
