#pragma once

#include "host/app/close_check/close_check_run.h"
#include "host/app/close_check/sheet_frm.h"

// "Tikrinimas prieš uždarymą": the checks of the current month with what they found, as they are found; what
// is known already stands there at once and is checked again. Enter and a double click lead to where a
// finding is put right.
class TCloseCheckFrm : public TSheetFrm {
    Q_OBJECT
public:
    explicit TCloseCheckFrm(QWidget *owner);
    ~TCloseCheckFrm() override;

    // Stands on the first finding of a check, which may still be under way.
    void showCheck(const QString &check);

    QAction *acOpen;

protected:
    void Read() override;

private:
    void showOutcome(int check);
    void showSummary();
    void open();

    std::shared_ptr<TCloseCheckRun> run;
};
