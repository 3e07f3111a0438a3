#include "src/debtors/Chdbkr.h"

#include "src/debtors/Dbkrsut.h"

#include <QPushButton>

namespace Chdbkr {

TUnit unit("chDbKr");
TEditDbKrDlg *EditDbKrDlg = nullptr;

bool EditDbKr(const AnsiString &caption, bool isNew, double &id)
{
    return editRecord<TEditDbKrDlg>(id, caption, TRecordStart::rowOrNew(isNew, id));
}

bool CopyDbKr(const AnsiString &caption, double id, double &newId)
{
    return editRecord<TEditDbKrDlg>(newId, caption, TRecordStart::row(id), true);
}

TEditDbKrDlg::TEditDbKrDlg(const AnsiString &caption, const TRecordStart &start, bool rewritesRow)
    : TDbKrDialog("TEditDbKrDlg", caption, start,
                  {dbKrRow("DKA_PAVAD"), dbKrRow("DKA_ADR"), dbKrRow("DKA_TEL"), dbKrRow("DKA_I_KOD"),
                   dbKrRow("DKA_PVM_KOD"), dbKrRow("DKA_EIN_SAS"), dbKrRow("DKA_KOD"), dbKrRow("DKA_SASID"),
                   dbKrRow("DKA_SASID_2").buttonsAfter(), dbKrRow("DKA_KLIENT_INFSIST"),
                   dbKrRow("DKA_BANK_PAV"), dbKrRow("DKA_BANK_KOD").hidden().buttonsAfter({"Sutartis"})},
                  saveAndCancel() << TDialogButton{"&Sutartis",
                                                   TDialogButton::Action,
                                                   false,
                                                   [this] { Dbkrsut::DbKrShow(rowKey()); },
                                                   {}}),
      rewrites(rewritesRow)
{
    button("Sutartis")->setProperty(staysUsable, true); // who may only look sees the contract as well
    keepIn(EditDbKrDlg);
}

void TEditDbKrDlg::Loaded()
{
    if (!rewrites)
        return;
    field("DKA_SASID")->Clear();
    field("DKA_KOD")->Clear();
}

} // namespace Chdbkr
