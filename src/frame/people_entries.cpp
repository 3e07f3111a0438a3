#include "src/frame/entries.h"
#include "src/people/Drbklasred.h"
#include "src/people/Drbklassar.h"
#include "src/people/Editprg.h"
#include "src/people/Pareig.h"
#include "src/people/Vtarn.h"
#include "src/people/Vtarnnew.h"

namespace {

const QStringList people{Menu::catalogues, "&Asmenys"};

} // namespace

TPackageEntries peopleEntries()
{
    return {
        listScreen<Pareig::TPareigFrm>(Pareig::unit, people, "&Pareigybės…", 69),
        listScreen<Vtarn::TVTarnFrm>(Vtarn::unit, people, "&Valstybės tarnautojų kategorijos…", 70),
        listScreen<Drbklassar::TDrbKlasFrm>(Drbklassar::unit, people, "Profesinės &grupės…", 71),
        editorInList<Pareig::TPareigFrm>("PrgEdit", Editprg::unit, 69),
        editorInList<Vtarn::TVTarnFrm>("TVTarnDlg", Vtarnnew::unit, 70),
        editorInList<Drbklassar::TDrbKlasFrm>("DrbKlasShow", Drbklasred::unit, 71),
    };
}
