#include "src/period/Perback.h"

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

// False when the database refused; nothing is changed then.
bool rollBack()
{
    TPerBackDlg window(QApplication::activeWindow());
    window.show();
    try {
        TTransaction transaction(MainDatas()->mnFin_Db());
        window.ProgressBar->setValue(0);
        DbiQExecDirect(MainDatas()->mnFin_Db(), "call Back_Per()");
        window.ProgressBar->setValue(100);
        transaction.commit();
    } catch (const Exception &) {
        return false;
    }
    return true;
}

} // namespace

void PeriodBack()
{
    if (onlyStartOfWork()) {
        StdMsgBox(mkError, "Negalima atsukti darbo pradžios periodo!");
        return;
    }
    if (StdMsgBox(mkQuestion, "Atsukant periodą bus ištrinti paskutinio periodo likučiai!") != mrYes ||
        StdMsgBox(mkQuestion, "Ar visos lentelės uždarytos?") != mrYes)
        return;
    if (!rollBack()) {
        StdMsgBox(mkWarning, "Neįmanoma atsukti darbo pradžios periodo");
        return;
    }
    GetPeriod();
    StdMsgBox(mkInformation, "Periodas atsuktas sėkmingai.");
}

TPerBackDlg::TPerBackDlg(QWidget *owner) : QDialog(owner), ProgressBar(new QProgressBar(this))
{
    setWindowTitle("Periodo atsukimas");
    ProgressBar->setObjectName("ProgressBar");
    ProgressBar->setAccessibleName("Atsukimo eiga");
    ProgressBar->setRange(0, 100);
    ProgressBar->setMinimumWidth(300);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(ProgressBar);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    PerBackDlg = this;
}

TPerBackDlg::~TPerBackDlg()
{
    PerBackDlg = nullptr;
}

} // namespace Perback
