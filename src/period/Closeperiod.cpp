#include "src/period/Closeperiod.h"

#include "toolkit/text/format.h"
#include "toolkit/widgets/guard.h"

#include <QFormLayout>
#include <QHBoxLayout>

#include <cmath>

namespace Closeperiod {

TUnit unit("ClosePeriod");
TPerCloseDlg *PerCloseDlg = nullptr;

namespace {

constexpr double startOfWorkPeriod = 6;
const QString periodFormat = "yyyy \"m.\" mmmm";

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
    TPerCloseDlg dialog(QApplication::activeWindow());
    if (dialog.balancesAgree())
        dialog.exec();
}

TPerCloseDlg::TPerCloseDlg(QWidget *owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      perId(EinPer_Id()),
      perDate(EinPer_Date()),
      nextDate(GoMonth(perDate, 1)),
      OldPer(new QLabel(this)),
      NewPer(new QLabel(this)),
      StartedProg(new TAnimate(TCommonAVI::aviCopyFiles, this)),
      StartBtn(new QPushButton("Pradėti", this)),
      CancelBtn(new QPushButton("&Atšaukti", this)),
      HelpBtn(new QPushButton("&Pagalba", this)),
      qrySasSum(MainDatas()->mnFin_Db(),
                "SELECT\n  ssl_perid,\n  SUM(ssl_sum_db) as db_sum,\n  SUM(ssl_sum_kr) as kr_sum\n"
                "FROM\n  bd_SasLik\nWHERE\n  ssl_perid=:perid\nGROUP BY\n  ssl_perid",
                this)
{
    setWindowTitle("Periodo uždarymas");
    OldPer->setObjectName("OldPer");
    NewPer->setObjectName("NewPer");
    StartedProg->setObjectName("StartedProg");
    StartBtn->setObjectName("StartBtn");
    CancelBtn->setObjectName("CancelBtn");
    HelpBtn->setObjectName("HelpBtn");
    OldPer->setText(FormatDateTime(periodFormat, perDate));
    NewPer->setText(FormatDateTime(periodFormat, nextDate));
    StartBtn->setDefault(true);

    auto *periods = new QFormLayout;
    periods->addRow("Periodas uždarymui:", OldPer);
    periods->addRow("Naujas periodas:", NewPer);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton *button : {StartBtn, CancelBtn, HelpBtn})
        buttons->addWidget(button);
    auto *all = new QVBoxLayout(this);
    all->addLayout(periods);
    all->addWidget(StartedProg, 0, Qt::AlignCenter);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);

    QSizePolicy keepsPlace = StartedProg->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    StartedProg->setSizePolicy(keepsPlace);
    StartedProg->hide();

    connectGuarded(StartBtn, &QPushButton::clicked, this, [this] { StartBtnClick(); });
    connectGuarded(CancelBtn, &QPushButton::clicked, this, [this] { reject(); });
    connectGuarded(HelpBtn, &QPushButton::clicked, this, [this] { showHelp(18); });
    PerCloseDlg = this;
}

TPerCloseDlg::~TPerCloseDlg()
{
    PerCloseDlg = nullptr;
}

bool TPerCloseDlg::balancesAgree()
{
    if (perId != startOfWorkPeriod)
        return true;
    qrySasSum.setParam("perid", perId);
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
    setClosing(true);
    auto restoreButtons = qScopeGuard([this] { setClosing(false); });
    TTransaction transaction(MainDatas()->mnFin_Db());
    DbiQExecDirect(MainDatas()->mnFin_Db(), "call Close_Per()");
    transaction.commit();
    restoreButtons.dismiss();
    StartedProg->Stop();

    GetPeriod();
    StdMsgBox(mkInformation, "Periodas uždarytas sekmingai");
    accept();
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
        QDialog::reject();
}

} // namespace Closeperiod
