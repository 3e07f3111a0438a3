#include "src/period/Perback.h"

#include "src/period/shown_month.h"

#include <QApplication>
#include <QVBoxLayout>

namespace Perback {

TUnit unit("PerBack");
TPerBackDlg *PerBackDlg = nullptr;

namespace {

bool onlyStartOfWork()
{
    return GetFieldResult(MainDatas()->mnFin_Db(),
                          "select count(*) from bd_period where ISNULL(per_menuo,0)>0")
               .toLongLong() <= 1;
}

// False when the month is the last one no longer, and nothing was done then.
bool rollBack(const TShownMonth &month)
{
    TPerBackDlg window(QApplication::activeWindow());
    window.show();
    TTransaction transaction(MainDatas()->mnFin_Db());
    window.ProgressBar->setValue(0);
    if (!month.isStillLast())
        return false;
    DbiQExecDirect(MainDatas()->mnFin_Db(), "call Back_Per()");
    SealMonth(TSealEvent::RollBack, month.id());
    window.ProgressBar->setValue(100);
    transaction.commit();
    SealBudget(TSealEvent::RollBack, month.id());
    return true;
}

void rollBackAndTell(const TShownMonth &month)
{
    QWidget *owner = QApplication::activeWindow();
    bool done = false;
    try {
        done = rollBack(month);
    } catch (const Exception &) {
        StdMsgBox(mkWarning, "Neįmanoma atsukti darbo pradžios periodo");
        return;
    }
    if (!done) {
        tellMonthPassed(month, owner);
        return;
    }
    followLastMonth(owner);
    StdMsgBox(mkInformation, "Periodas atsuktas sėkmingai.");
}

} // namespace

void PeriodBack()
{
    const TShownMonth current;
    if (onlyStartOfWork()) {
        StdMsgBox(mkError, "Negalima atsukti darbo pradžios periodo!");
        return;
    }
    if (StdMsgBox(mkQuestion, "Atsukant periodą bus ištrinti paskutinio periodo likučiai!") == mrYes &&
        StdMsgBox(mkQuestion, "Ar visos lentelės uždarytos?") == mrYes &&
        backedUpBefore(BackupKind::RollBack))
        rollBackAndTell(current);
}

TPerBackDlg::TPerBackDlg(QWidget *owner) : TDialog(owner), ProgressBar(new QProgressBar)
{
    describe("Periodo atsukimas", {}, nullptr, {});
    ProgressBar->setObjectName("ProgressBar");
    ProgressBar->setAccessibleName("Atsukimo eiga");
    ProgressBar->setRange(0, 100);
    ProgressBar->setMinimumWidth(300);
    bodyLayout()->addWidget(ProgressBar);
    PerBackDlg = this;
}

TPerBackDlg::~TPerBackDlg()
{
    PerBackDlg = nullptr;
}

} // namespace Perback
