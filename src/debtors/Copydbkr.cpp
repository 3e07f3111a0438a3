#include "src/debtors/Copydbkr.h"

#include <QApplication>

namespace Copydbkr {

TUnit unit("CopyDbKr");
TCopyDbKrFrm *CopyDbKrFrm = nullptr;

namespace {

const QStringList columns = {"DKA_PAVAD",   "DKA_ADR",      "DKA_TEL",      "DKA_I_KOD", "DKA_PVM_KOD",
                             "DKA_EIN_SAS", "DKA_BANK_KOD", "DKA_BANK_PAV", "DKA_KOD",   "DKA_KLIENT_INFSIST",
                             "DKA_SASID",   "DKA_SASID_2"};

} // namespace

bool CopyData(const AnsiString &caption, double sourceId, double &newId)
{
    TCopyDbKrFrm dialog(QApplication::activeWindow(), caption, sourceId);
    if (!dialog.run())
        return false;
    newId = dialog.rowId();
    return true;
}

TCopyDbKrFrm::TCopyDbKrFrm(QWidget *owner, const AnsiString &caption, double sourceId)
    : TDbKrDialog(owner, sourceId),
      qrySource(MainDatas()->mnFin_Db(), "select * from Bd_DbKrAsm where DKA_ID =:ID", this)
{
    qrySource.setParam("ID", sourceId);
    build(caption, columns, {}, saveAndCancel());
    putButtonsBetween("DKA_TEL", "DKA_I_KOD");
    CopyDbKrFrm = this;
}

TCopyDbKrFrm::~TCopyDbKrFrm()
{
    CopyDbKrFrm = nullptr;
}

void TCopyDbKrFrm::Load()
{
    qryDbKr.Open();
    qrySource.Open();
    qryDbKr.Insert();
    copyRow();
    fillControls();
    qrySource.Close();
    protectFromViewers();
}

// The company code is carried as a number: none becomes 0.
void TCopyDbKrFrm::copyRow()
{
    for (const char *column : {"dka_id", "dka_sasid", "dka_kod", "dka_pavad", "dka_adr", "dka_tel",
                               "dka_bank_kod", "dka_bank_pav", "dka_sasid_2"})
        qryDbKr.FieldByName(column)->setValue(qrySource.FieldByName(column)->Value());
    qryDbKr.FieldByName("dka_i_kod")->setAsFloat(qrySource.FieldByName("dka_i_kod")->AsFloat());
    for (const char *column : {"dka_ein_sas", "dka_pvm_kod", "dka_klient_infsist"})
        qryDbKr.FieldByName(column)->setValue(qrySource.FieldByName(column)->Value());
}

bool TCopyDbKrFrm::takesNewKey() const
{
    return TDbKrDialog::takesNewKey() || qryDbKr.param("ID").toDouble() == -1;
}

} // namespace Copydbkr
