#pragma once

#include "src/frame/host_services.h"
#include "src/frame/unit.h"

#include <QDialog>
#include <QProgressBar>

// Rolling the last month close back.
namespace Perback {

extern TUnit unit;

// Rolls the last close back after asking; all outcomes are told in message boxes.
void PeriodBack();

// Shown without waiting while the database works.
class TPerBackDlg : public QDialog {
    Q_OBJECT
public:
    explicit TPerBackDlg(QWidget *owner);
    ~TPerBackDlg() override;
    void reject() override {} // it closes by itself

    QProgressBar *ProgressBar;
};

extern TPerBackDlg *PerBackDlg;

} // namespace Perback
