#include "src/debtors/Copydbkr.h"

namespace Copydbkr {

TUnit unit("CopyDbKr");
TCopyDbKrFrm *CopyDbKrFrm = nullptr;

bool CopyData(const AnsiString &caption, double sourceId, double &newId)
{
    return editRecord<TCopyDbKrFrm>(newId, caption, sourceId);
}

TCopyDbKrFrm::TCopyDbKrFrm(const AnsiString &caption, double sourceId)
    : TDbKrDialog("TCopyDbKrFrm", caption, TRecordStart::newRow(sourceId),
                  {dbKrRow("DKA_PAVAD"), dbKrRow("DKA_ADR"), dbKrRow("DKA_TEL").buttonsAfter(),
                   dbKrRow("DKA_I_KOD"), dbKrRow("DKA_PVM_KOD"), dbKrRow("DKA_EIN_SAS"),
                   dbKrRow("DKA_BANK_KOD"), dbKrRow("DKA_BANK_PAV"), dbKrRow("DKA_KOD"),
                   dbKrRow("DKA_KLIENT_INFSIST"), dbKrRow("DKA_SASID"), dbKrRow("DKA_SASID_2")}),
      qrySource(Database(), "select * from Bd_DbKrAsm where DKA_ID =:ID", this)
{
    qrySource.setParam("ID", sourceId);
    keepIn(CopyDbKrFrm);
}

// The company code is carried as a number: none becomes 0.
void TCopyDbKrFrm::Loaded()
{
    qrySource.Open();
    if (qrySource.IsEmpty())
        throw ERowGone();
    for (const char *column : {"dka_id", "dka_sasid", "dka_kod", "dka_pavad", "dka_adr", "dka_tel",
                               "dka_bank_kod", "dka_bank_pav", "dka_sasid_2"})
        field(column)->setValue(qrySource.FieldByName(column)->Value());
    field("dka_i_kod")->setAsFloat(qrySource.FieldByName("dka_i_kod")->AsFloat());
    for (const char *column : {"dka_ein_sas", "dka_pvm_kod", "dka_klient_infsist"})
        field(column)->setValue(qrySource.FieldByName(column)->Value());
    qrySource.Close();
}

bool TCopyDbKrFrm::takesKey() const
{
    return TDbKrDialog::takesKey() || row().param("ID").toDouble() == -1;
}

} // namespace Copydbkr
