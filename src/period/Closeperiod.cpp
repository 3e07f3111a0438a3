#include "src/period/Closeperiod.h"

#include <QApplication>
#include <QFormLayout>
#include <QScopeGuard>
#include <QVBoxLayout>

#include <cmath>

namespace Closeperiod {

TUnit unit("ClosePeriod");
TPerCloseDlg *PerCloseDlg = nullptr;

namespace {

// To the nearest whole number, halves to even: the totals agree when these are equal.
qint64 wholeAmount(TField *sum)
{
    return std::llrint(sum->AsFloat());
}

} // namespace

void StartPerClose()
{
    if (StdMsgBox(mkQuestion, "Ar visos lentelės uždarytos?") != mrYes)
        return;
    const TShownMonth current;
    if (!current.isSet()) {
        StdMsgBox(mkError, "Darbo pradžios periodas nenustatytas");
        return;
    }
    TPerCloseDlg dialog(current, QApplication::activeWindow());
    if (dialog.balancesAgree())
        dialog.exec();
}

TPerCloseDlg::TPerCloseDlg(const TShownMonth &closing, QWidget *owner)
    : TDialog(owner),
      month(closing),
      nextDate(GoMonth(month.firstDay(), 1)),
      OldPer(new QLabel(PeriodText(month.firstDay()))),
      NewPer(new QLabel(PeriodText(nextDate))),
      StartedProg(new TAnimate(TCommonAVI::aviCopyFiles)),
      qrySasSum(MainDatas()->mnFin_Db(),
                "SELECT\n  ssl_perid,\n  SUM(ssl_sum_db) as db_sum,\n  SUM(ssl_sum_kr) as kr_sum\n"
                "FROM\n  bd_SasLik\nWHERE\n  ssl_perid=:perid\nGROUP BY\n  ssl_perid",
                this)
{
    describe("Periodo uždarymas", {}, nullptr,
             {{"Pradėti", TDialogButton::Action, true, [this] { StartBtnClick(); }, "StartBtn"},
              {"&Atšaukti", TDialogButton::Cancel, false, {}, "CancelBtn"},
              {"&Pagalba", TDialogButton::Help, false, {}, "HelpBtn"}});
    setHelpTopic(18);
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    StartBtn = button("StartBtn");
    CancelBtn = button("CancelBtn");
    bodyLayout()->addWidget(periods());
    bodyLayout()->addWidget(StartedProg, 0, Qt::AlignCenter);
    PerCloseDlg = this;
}

TPerCloseDlg::~TPerCloseDlg()
{
    PerCloseDlg = nullptr;
}

QWidget *TPerCloseDlg::periods()
{
    OldPer->setObjectName("OldPer");
    NewPer->setObjectName("NewPer");
    StartedProg->setObjectName("StartedProg");
    QSizePolicy keepsPlace = StartedProg->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    StartedProg->setSizePolicy(keepsPlace);
    StartedProg->hide();

    auto *shown = new QWidget(this);
    auto *lines = new QFormLayout(shown);
    lines->addRow(new QLabel("Periodas uždarymui:"), OldPer);
    lines->addRow(new QLabel("Naujas periodas:"), NewPer);
    return shown;
}

bool TPerCloseDlg::balancesAgree()
{
    if (month.id() != startOfWorkPeriod)
        return true;
    qrySasSum.setParam("perid", month.id());
    try {
        qrySasSum.Open();
    } catch (const EDatabaseError &) {
        qrySasSum.Close();
        StdMsgBox(mkWarning, "Neimanoma atydariti sąskaitų likučių lentelės");
        return false;
    }
    debit = wholeAmount(qrySasSum.FieldByName("db_sum"));
    credit = wholeAmount(qrySasSum.FieldByName("kr_sum"));
    if (debit != credit)
        StdMsgBox(mkError, "Neįmanoma uždaryti periodo, kol nelygios debeto ir kredito sumos");
    qrySasSum.Close();
    return debit == credit;
}

void TPerCloseDlg::StartBtnClick()
{
    if (!backedUpBefore(BackupKind::Close))
        return;
    if (!closeShown()) {
        tellMonthPassed(month, this);
        QDialog::reject();
        return;
    }
    followLastMonth(this);
    StdMsgBox(mkInformation, "Periodas uždarytas sekmingai");
    accept();
}

// False when the month shown is the last one no longer, and nothing was done then. When it raises, nothing
// was done as far as the database said; the dialog is as before the press.
bool TPerCloseDlg::closeShown()
{
    setClosing(true);
    auto restoreButtons = qScopeGuard([this] { setClosing(false); });
    TTransaction transaction(MainDatas()->mnFin_Db());
    const bool closes = month.isStillLast();
    if (closes) {
        DbiQExecDirect(MainDatas()->mnFin_Db(), "call Close_Per()");
        SealMonth(TSealEvent::Close, month.id());
        transaction.commit();
        SealBudget(TSealEvent::Close, month.id());
    }
    restoreButtons.dismiss();
    StartedProg->Stop();
    StartedProg->hide();
    return closes;
}

void TPerCloseDlg::setClosing(bool on)
{
    StartBtn->setEnabled(!on);
    CancelBtn->setVisible(!on);
    StartedProg->setVisible(on);
    if (on)
        StartedProg->Start();
    else
        StartedProg->Stop();
}

// A close that has begun is not left half-way.
void TPerCloseDlg::reject()
{
    if (StartBtn->isEnabled())
        TDialog::reject();
}

} // namespace Closeperiod
