#include "src/people/Vtarn.h"

#include "src/people/Vtarnnew.h"

namespace Vtarn {

TUnit unit("VTarn");
TVTarnFrm *VTarnFrm = nullptr;

TVTarnFrm::TVTarnFrm(QWidget *owner)
    : TBrowseFrm({.name = "TVTarnFrm",
                  .caption = "Valstybės tarnautojų kategorijos",
                  .help = 70,
                  .keyColumn = "TRN_ID",
                  .table = "bd_tarn",
                  .sql = "select * from bd_tarn order by trn_id",
                  .columns = {{"TRN_ID", "Id"}, {"TRN_PAVAD", "Pavadinimas"}, {"TRN_KOEF", "Koef."}},
                  .editing = TEditing::UnlessViewOnly,
                  .used = {"Kategorija \"%s\" yra naudojama!", "TRN_PAVAD"},
                  .editRow = [](const QString &, bool) { return Vtarnnew::VTarnShow(); },
                  .statements = heldStatements("bd_tarn", "TRN_ID", {"TRN_ID", "TRN_PAVAD", "TRN_KOEF"})},
                 owner)
{
    keepIn(VTarnFrm);
}

// The categories that payroll counts on stay. The pair of bounds is deliberate.
void TVTarnFrm::CheckUsed()
{
    const double id = currentKey().toDouble();
    if (id <= 2 || id == 100)
        throw Exception("Šių įrašų trinti negalima!");
    TBrowseFrm::CheckUsed();
}

void TVTarnFrm::DeleteRecord()
{
    TBrowseFrm::DeleteRecord();
    MainDatas()->RefreshTarn();
}

} // namespace Vtarn
