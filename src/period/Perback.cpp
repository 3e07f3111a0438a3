#include "src/period/Perback.h"

#include "src/period/shown_month.h"

#include "toolkit/data/server_link.h"
#include "toolkit/widgets/guard.h"

#include <QApplication>
#include <QVBoxLayout>

#include <optional>

namespace Perback {

TUnit unit("PerBack");
TPerBackDlg *PerBackDlg = nullptr;

namespace {

// A roll-back whose answer was lost: the current period may be the month before already.
struct TLostRollBack {
    TShownMonth month;
    qlonglong number; // of its transaction; 0: nobody can tell what became of it
};

std::optional<TLostRollBack> &lostRollBack()
{
    static std::optional<TLostRollBack> lost;
    return lost;
}

// Whether it was found written meanwhile. Where nobody can tell it is kept: the next roll-back is of the same
// month or of none. Raises as foundWritten().
bool lostRollBackIsDone()
{
    if (!lostRollBack() || lostRollBack()->number == 0)
        return false;
    const bool done = foundWritten(lostRollBack()->number);
    lostRollBack().reset();
    return done;
}

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

void tellDone(QWidget *owner)
{
    followLastMonth(owner);
    StdMsgBox(mkInformation, "Periodas atsuktas sėkmingai.");
}

void rollBackAndTell(const TShownMonth &month)
{
    QWidget *owner = QApplication::activeWindow();
    bool done = false;
    try {
        done = rollBack(month);
        lostRollBack().reset();
    } catch (const ECommitUnknown &lost) {
        if (lost.fate != TCommitFate::NotWritten)
            lostRollBack().emplace(TLostRollBack{month, lost.openNumber()});
        showError(owner, lost);
        return;
    } catch (const EConnectionLost &lost) {
        showError(owner, lost);
        return;
    } catch (const Exception &) {
        StdMsgBox(mkWarning, "Neįmanoma atsukti darbo pradžios periodo");
        return;
    }
    if (done)
        tellDone(owner);
    else
        tellMonthPassed(month, owner);
}

} // namespace

void PeriodBack()
{
    if (lostRollBackIsDone()) {
        tellDone(QApplication::activeWindow());
        return;
    }
    const TShownMonth current = lostRollBack() ? lostRollBack()->month : TShownMonth();
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
