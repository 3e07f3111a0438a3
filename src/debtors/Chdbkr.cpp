#include "src/debtors/Chdbkr.h"

#include "host/data/sas_edit.h"
#include "src/debtors/Dbkrsut.h"

#include <QApplication>
#include <QPushButton>

namespace Chdbkr {

TUnit unit("chDbKr");
TEditDbKrDlg *EditDbKrDlg = nullptr;

namespace {

const QStringList columns = {"DKA_PAVAD",    "DKA_ADR",     "DKA_TEL",   "DKA_I_KOD",   "DKA_PVM_KOD",
                             "DKA_EIN_SAS",  "DKA_KOD",     "DKA_SASID", "DKA_SASID_2", "DKA_KLIENT_INFSIST",
                             "DKA_BANK_PAV", "DKA_BANK_KOD"};

bool run(const AnsiString &caption, TEditDbKrDlg::Start start, double id, double &savedId)
{
    TEditDbKrDlg dialog(QApplication::activeWindow(), caption, start, id);
    if (!dialog.run())
        return false;
    savedId = dialog.rowId();
    return true;
}

} // namespace

bool EditDbKr(const AnsiString &caption, bool isNew, double &id)
{
    return run(caption, isNew ? TEditDbKrDlg::Start::New : TEditDbKrDlg::Start::Edit, id, id);
}

bool CopyDbKr(const AnsiString &caption, double id, double &newId)
{
    return run(caption, TEditDbKrDlg::Start::Rewrite, id, newId);
}

TEditDbKrDlg::TEditDbKrDlg(QWidget *owner, const AnsiString &caption, Start dialogStart, double id)
    : TDbKrDialog(owner, id),
      start(dialogStart)
{
    QList<TDialogButton> buttons = saveAndCancel();
    buttons << TDialogButton{"&Sutartis", TDialogButton::Action, false, [this] { showContract(); }, {}};
    build(caption, columns, {"DKA_BANK_KOD"}, buttons);
    putButtonsBetween("DKA_SASID_2", "DKA_KLIENT_INFSIST");
    setTabOrder(control("DKA_BANK_KOD"), button("Sutartis"));
    button("Sutartis")->setProperty(staysUsable, true);
    EditDbKrDlg = this;
}

TEditDbKrDlg::~TEditDbKrDlg()
{
    EditDbKrDlg = nullptr;
}

void TEditDbKrDlg::Load()
{
    qryDbKr.Open();
    if (start == Start::New || qryDbKr.IsEmpty())
        qryDbKr.Append();
    else
        qryDbKr.Edit();
    fillControls();
    if (start == Start::Rewrite) {
        SasEdit->setValue(0);
        qryDbKr.FieldByName("DKA_KOD")->Clear();
    }
    protectFromViewers();
}

void TEditDbKrDlg::showContract()
{
    Dbkrsut::DbKrShow(qryDbKr.FieldByName("DKA_ID")->Value());
}

} // namespace Chdbkr
