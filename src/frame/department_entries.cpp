#include "src/departments/Veiklred.h"
#include "src/departments/Veiklsar.h"
#include "src/frame/entries.h"

namespace {

const QStringList departments{Menu::catalogues, "&Padaliniai ir veikla"};

} // namespace

TPackageEntries departmentEntries()
{
    return {
        listScreen<Veiklsar::TVeiklFrm>(Veiklsar::unit, departments, "&Veiklos rūšys…", 63),
        editorInList<Veiklsar::TVeiklFrm>("VeiklRedShow", Veiklred::unit, 63),
    };
}
