#include "src/assets/Pardtip.h"

#include "src/assets/Editf.h"

namespace Pardtip {

TUnit unit("PardTip");
TPardTipFrm *PardTipFrm = nullptr;

TPardTipFrm::TPardTipFrm(QWidget *owner)
    : TBrowseFrm({.name = "TPardTipFrm",
                  .caption = "Ilgalaikio turto nurašymo-pardavimo būdų sąrašas",
                  .help = 67,
                  .keyColumn = "pat_id",
                  .table = "it_pardtip",
                  .sql = "select * from IT_PARDTIP",
                  .columns = {{"pat_pav", "Pavadinimas"}},
                  .editing = TEditing::UnlessViewOnly,
                  .used = {"Nurašymo-pardavimo būdas \"%s\" panaudotas turto apskaitoje!", "pat_pav"},
                  .newCaption = "Naujo pardavimo būdo įvedimas",
                  .editCaption = "Pardavimo būdo redagavimas",
                  .values = {.ask = Editf::askName("pat_pav", 67),
                             .key = TKeyRule::drawn(
                                 "select GetNextTableColumnId('dba','it_pardTip','Pat_ID') from dummy")}},
                 owner)
{
    keepIn(PardTipFrm);
}

} // namespace Pardtip
