#include "src/frame/entries.h"
#include "src/people/Atsasmlist.h"
#include "src/people/Chatasm.h"
#include "src/people/Chmatasm.h"
#include "src/people/Drbklasred.h"
#include "src/people/Drbklassar.h"
#include "src/people/Editprg.h"
#include "src/people/Matasm.h"
#include "src/people/Pareig.h"
#include "src/people/Vtarn.h"
#include "src/people/Vtarnnew.h"

namespace {

const QStringList people{Menu::catalogues, "&Asmenys"};

void editAccountable()
{
    double id = firstKey(TSession::Main, "bd_atsasm", "ats_id");
    Chatasm::ChAtsAsm(AnsiString("Koreguojamas atskaitingas asmuo"), id, false);
}

void editResponsible()
{
    double id = firstKey(TSession::Main, "bd_matasm", "mat_id");
    Chmatasm::EditMatAsm(AnsiString("Koreguojamas materialiai atsakingas asmuo"), false, id);
}

} // namespace

TPackageEntries peopleEntries()
{
    return {
        listScreen<Atsasmlist::TAtsAsmFrm>(Atsasmlist::unit, people, "&Atskaitingi asmenys…", 7),
        listScreen<Matasm::TMatAsmFrm>(Matasm::unit, people, "&Materialiai atsakingi asmenys…", 8),
        listScreen<Pareig::TPareigFrm>(Pareig::unit, people, "&Pareigybės…", 69),
        listScreen<Vtarn::TVTarnFrm>(Vtarn::unit, people, "&Valstybės tarnautojų kategorijos…", 70),
        listScreen<Drbklassar::TDrbKlasFrm>(Drbklassar::unit, people, "Profesinės &grupės…", 71),
        editor("ChAtsAsm", Chatasm::unit, 7, editAccountable),
        editor("EditMatAsm", Chmatasm::unit, 8, editResponsible),
        editorInList<Pareig::TPareigFrm>("PrgEdit", Editprg::unit, 69),
        editorInList<Vtarn::TVTarnFrm>("TVTarnDlg", Vtarnnew::unit, 70),
        editorInList<Drbklassar::TDrbKlasFrm>("DrbKlasShow", Drbklasred::unit, 71),
    };
}
