#include "src/departments/Veiklred.h"

namespace Veiklred {

TUnit unit("VeiklRed");
TVeiklRedFrm *VeiklRedFrm = nullptr;

void VeiklRedShow()
{
    TVeiklRedFrm().run();
}

TVeiklRedFrm::TVeiklRedFrm()
    : TRecordDialog(
          {.name = "TVeiklRedFrm",
           .newCaption = "Naujos veiklos rūšies įvedimas",
           .editCaption = "Veiklos įrašo redagavimas",
           .help = 63,
           .table = "du_veikl",
           .keyColumn = "VKL_ID",
           .key = TKeyRule::drawn("select GetNextTableColumnId('dba','DU_VEIKL','VKL_ID') from dummy"),
           .rows = {TFieldRow::edit("Kodas", "VKL_KODAS")
                        .digitsTyped()
                        .between(0, std::numeric_limits<int>::max()),
                    TFieldRow::edit("Pavadinimas", "VKL_PAVAD").required().width(50)},
           .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")},
          TRecordStart::onRowOf("TVeiklFrm"))
{
    keepIn(VeiklRedFrm);
}

} // namespace Veiklred
