#include "src/people/Vtarnnew.h"

namespace Vtarnnew {

TUnit unit("VTarnNew");
TVTarnDlg *VTarnDlg = nullptr;

bool VTarnShow()
{
    if (!TVTarnDlg().run())
        return false;
    MainDatas()->RefreshTarn();
    return true;
}

TVTarnDlg::TVTarnDlg()
    : TRecordDialog(
          {.name = "TVTarnDlg",
           .newCaption = "Valstybės tarnautojo kategorija",
           .help = 70,
           .table = "bd_tarn",
           .keyColumn = "TRN_ID",
           .key = TKeyRule::drawn("select GetNextTableColumnId('dba','bd_tarn','trn_id') from dummy"),
           .rows = {TFieldRow::edit("&Pavadinimas", "TRN_PAVAD").required().width(50),
                    TFieldRow::edit("&Koeficientas", "TRN_KOEF").named("Koeficientas").between(0, 1000)},
           .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")},
          TRecordStart::onRowOf("TVTarnFrm"))
{
    keepIn(VTarnDlg);
}

} // namespace Vtarnnew
