#include "src/money/Finlist.h"

#include "src/money/Fined.h"

namespace Finlist {

TUnit unit("FinList");
TFinListFrm *FinListFrm = nullptr;

TFinListFrm::TFinListFrm(QWidget *owner)
    : TBrowseFrm({.name = "TFinListFrm",
                  .caption = "Finansavimo šaltiniai",
                  .help = 72,
                  .session = TSession::Budget,
                  .keyColumn = "fin_id",
                  .table = "bd_fin",
                  .sql = "select * from bd_fin order by fin_dir",
                  .columns = {{"fin_pavad", "Pavadinimas", 190},
                              {"fin_dir", "DB"},
                              {"fin_org_pavad", "Organizacija", 190},
                              {"fin_adr", "Adresas", 150},
                              {.field = "fin_i_kod", .title = "Įmonės kodas", .format = "#"},
                              {"fin_DRAUD_KOD", "Draudėjo kodas"},
                              {"Fin_Savivaldybe", "Savivaldybės kodas"},
                              {.field = "fin_rodyti", .title = "Rodyti ataskaitose", .text = yesOrNo}},
                  .editing = TEditing::UnlessViewOnly,
                  .used = {"Finansavimo šaltinis \"%s\" yra naudojamas!", "fin_pavad"},
                  .editRow = [](const QString &, bool) { return Fined::FinShow(); },
                  .statements = heldStatements(
                      "bd_fin", "fin_id",
                      {"fin_pavad", "fin_dir", "fin_org_pavad", "fin_adr", "fin_i_kod", "fin_pvm_kod",
                       "fin_DRAUD_KOD", "Fin_Savivaldybe", "Fin_RejNum", "fin_org_zenklas", "fin_rodyti"})},
                 owner)
{
    keepIn(FinListFrm);
}

} // namespace Finlist
