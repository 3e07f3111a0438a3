#include "src/departments/Veiklsar.h"

#include "src/departments/Veiklred.h"

namespace Veiklsar {

TUnit unit("VeiklSar");
TVeiklFrm *VeiklFrm = nullptr;

TVeiklFrm::TVeiklFrm(QWidget *owner)
    : TBrowseFrm({.name = "TVeiklFrm",
                  .caption = "Veiklos rūšys",
                  .help = 63,
                  .keyColumn = "VKL_ID",
                  .table = "du_veikl",
                  .sql = "select * from du_veikl",
                  .columns = {{"VKL_KODAS", "Kodas", 90}, {"VKL_PAVAD", "Pavadinimas", 400}},
                  .editing = TEditing::UnlessViewOnly,
                  .used = {"Veiklos rūšis \"%s\" yra naudojama!", "VKL_PAVAD"},
                  .editRow = [](const QString &, bool) { Veiklred::VeiklRedShow(); },
                  .statements = {.insert = "insert into du_veikl (VKL_ID, VKL_KODAS, VKL_PAVAD) "
                                           "values (:VKL_ID, :VKL_KODAS, :VKL_PAVAD)",
                                 .update = "update du_veikl set VKL_ID = :VKL_ID, VKL_KODAS = :VKL_KODAS, "
                                           "VKL_PAVAD = :VKL_PAVAD where VKL_ID = :OLD_VKL_ID",
                                 .remove = "delete from du_veikl where VKL_ID = :OLD_VKL_ID"}},
                 owner)
{
    keepIn(VeiklFrm);
}

} // namespace Veiklsar
