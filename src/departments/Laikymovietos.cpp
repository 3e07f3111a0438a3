#include "src/departments/Laikymovietos.h"

#include "src/departments/Lvedit.h"

#include <QApplication>

namespace Laikymovietos {

TUnit unit("LaikymoVietos");
double PadID = 0;
TLaikymoVietosFrm *LaikymoVietosFrm = nullptr;

void ShowLaikymoVietos(double padId, const AnsiString &name)
{
    PadID = padId;
    createForm<TLaikymoVietosFrm>(name.toQString(), QApplication::activeWindow())->ShowModal();
}

TLaikymoVietosFrm::TLaikymoVietosFrm(const QString &department, QWidget *owner)
    : TBrowseFrm({.name = "TLaikymoVietosFrm",
                  .caption = "Turto laikymo vietos įstaigai: " + department,
                  .help = 5,
                  .keyColumn = "LV_ID",
                  .table = "BD_LAIKYMO_VIETA",
                  .sql = "SELECT * FROM bd_laikymo_vieta WHERE lv_padid=:PADID",
                  .parameters = {{"PADID", PadID}},
                  .columns = {{"LV_PAV", "Pavadinimas", 300}},
                  .used = {"Laikymo vieta \"%s\" yra naudojama!", "LV_PAV"},
                  .edit = keyed<double>([](const QString &, bool isNew, double &id) {
                      return Lvedit::ShowLVEdit(id, PadID, isNew ? dsInsert : dsEdit);
                  })},
                 owner)
{
    keepIn(LaikymoVietosFrm);
}

} // namespace Laikymovietos
