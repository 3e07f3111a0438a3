#include "src/catalogues/Nuom.h"

#include "src/catalogues/Nuomedit.h"

namespace Nuom {

TUnit unit("Nuom");
TNuomFrm *NuomFrm = nullptr;

TNuomFrm::TNuomFrm(QWidget *owner)
    : TBrowseFrm({.name = "TNuomFrm",
                  .caption = "Nuomininkai",
                  .help = 62,
                  .keyColumn = "nuom_id",
                  .table = "bd_nuomasm",
                  .sql =
                      "select NUOM_ID, NUOM_KOD, NUOM_PAVAD, NUOM_ADR, NUOM_TEL, NUOM_I_KOD, NUOM_PVM_KOD, "
                      "NUOM_EIN_SAS, NUOM_BANK_PAV, (a.SAS_SASNR+'  '+a.SAS_PAVAD) as SASKAITA, "
                      "(b.SAS_SASNR+'  '+b.SAS_PAVAD) as SASKAITA_2 from bd_nuomasm "
                      "left outer join bd_sasplan as a on (a.sas_id=nuom_sasid) "
                      "left outer join bd_sasplan as b on (b.sas_id=nuom_sasid2) order by nuom_kod",
                  .columns = {{"NUOM_KOD", "Kodas", 70},
                              {"NUOM_PAVAD", "Pavadinimas", 240},
                              {"SASKAITA", "Sąskaita", 170},
                              {"SASKAITA_2", "Antroji sąskaita", 170},
                              {"NUOM_ADR", "Adresas", 180},
                              {"NUOM_TEL", "Telefonas", 115},
                              {"NUOM_I_KOD", "Įmonės kodas", 100, {}, "#"},
                              {"NUOM_PVM_KOD", "PVM kodas", 120},
                              {"NUOM_EIN_SAS", "Banko sąskaita", 170},
                              {"NUOM_BANK_PAV", "Bankas", 150}},
                  .editing = TEditing::UnlessViewOnly,
                  .newCaption = "Naujas nuomininkas",
                  .editCaption = "Koreguojamas nuomininkas",
                  .edit = keyed<double>(Nuomedit::EditNuom)},
                 owner)
{
    keepIn(NuomFrm);
}

} // namespace Nuom
