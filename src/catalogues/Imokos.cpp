#include "src/catalogues/Imokos.h"

#include "src/catalogues/Newimok.h"

namespace Imokos {

TUnit unit("Imokos");
TImokosFrm *ImokosFrm = nullptr;

TImokosFrm::TImokosFrm(QWidget *owner)
    : TBrowseFrm({.name = "TImokosFrm",
                  .caption = "Mokesčių, rinkliavų ir kitų įmokų kodų sąrašas",
                  .help = 61,
                  .keyColumn = "IMO_KOD",
                  .table = "pp_imok",
                  .sql = "SELECT * FROM pp_imok",
                  .columns = {{"IMO_KOD", "Kodas"}, {"IMO_PAVAD", "Pavadinimas"}},
                  .editing = TEditing::UnlessViewOnly,
                  .edit = keyed<AnsiString>(Newimok::EditImokos)},
                 owner)
{
    keepIn(ImokosFrm);
}

} // namespace Imokos
