#include "src/departments/Laikymovietos.h"
#include "src/departments/Lvedit.h"
#include "src/departments/Paditem.h"
#include "src/departments/Skyriailist.h"
#include "src/departments/Veiklred.h"
#include "src/departments/Veiklsar.h"
#include "src/frame/entries.h"

namespace {

const QStringList departments{Menu::catalogues, "Padaliniai ir v&eikla"};

void showPlaces()
{
    Laikymovietos::ShowLaikymoVietos(firstKey(TSession::Main, "bd_pad", "pad_id"),
                                     firstCode("bd_pad", "pad_pavad"));
}

void editPlace()
{
    double id = firstKey(TSession::Main, "bd_laikymo_vieta", "lv_id");
    Lvedit::ShowLVEdit(id, 0, dsEdit);
}

} // namespace

TPackageEntries departmentEntries()
{
    return {
        listScreen<Skyriailist::TSkyriaiFrm>(Skyriailist::unit, departments, "&Skyriai…", 5),
        listScreen<Veiklsar::TVeiklFrm>(Veiklsar::unit, departments, "&Veiklos rūšys…", 63),
        editorInList<Skyriailist::TSkyriaiFrm>("ChangePad", Paditem::unit, 5),
        editor("ShowLaikymoVietos", Laikymovietos::unit, 5, showPlaces),
        editor("ShowLVEdit", Lvedit::unit, 5, editPlace),
        editorInList<Veiklsar::TVeiklFrm>("VeiklRedShow", Veiklred::unit, 63),
    };
}
