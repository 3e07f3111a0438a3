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
                  .statements = heldStatements("du_veikl", "VKL_ID", {"VKL_ID", "VKL_KODAS", "VKL_PAVAD"})},
                 owner)
{
    keepIn(VeiklFrm);
}

} // namespace Veiklsar
