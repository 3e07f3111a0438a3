#include "src/assets/Objektai.h"

#include "src/assets/Editf.h"

namespace Objektai {

TUnit unit("Objektai");
TObjektFrm *ObjektFrm = nullptr;

TObjektFrm::TObjektFrm(QWidget *owner)
    : TBrowseFrm({.name = "TObjektFrm",
                  .caption = "Objektų sąrašas",
                  .help = 66,
                  .keyColumn = "obj_id",
                  .table = "bd_objektai",
                  .sql = "SELECT * FROM bd_objektai",
                  .columns = {{"OBJ_PAVAD", "Pavadinimas"}},
                  .editing = TEditing::UnlessViewOnly,
                  .used = {"Objektas \"%s\" yra naudojamas!", "obj_pavad"},
                  .newCaption = "Naujo objekto įvedimas",
                  .editCaption = "Objekto pavadinimo redagavimas",
                  .values = {.ask = Editf::askName("obj_pavad", 66),
                             .key = TKeyRule::largestPlusOne("select max(obj_id) from bd_objektai"),
                             .newFailure = "Naujo objekto sukurti nepavyko",
                             .editFailure = "Pakeitimų padaryti nepavyko"}},
                 owner)
{
    keepIn(ObjektFrm);
}

} // namespace Objektai
