#include "src/catalogues/Imokos.h"
#include "src/catalogues/Newimok.h"
#include "src/catalogues/Nuom.h"
#include "src/catalogues/Nuomedit.h"
#include "src/catalogues/Pajamurusiukodai.h"
#include "src/catalogues/Pajamurusiukodaiedit.h"
#include "src/frame/entries.h"

namespace {

const QStringList codes{Menu::catalogues, "&Kodai"};

void editPaymentCode()
{
    AnsiString code = firstCode("pp_imok", "imo_kod");
    Newimok::EditImokos(code, false);
}

void editIncomeCode()
{
    Pajamurusiukodaiedit::ShowPajamuRusiuKodaiEdit(firstCode("bd_pajamurusiukodai", "paj_kod"), dsEdit);
}

void editTenant()
{
    double id = firstKey(TSession::Main, "bd_nuomasm", "nuom_id");
    Nuomedit::EditNuom(AnsiString("Koreguojamas nuomininkas"), false, id);
}

} // namespace

TPackageEntries catalogueEntries()
{
    return {
        listScreen<Pajamurusiukodai::TPajamuRusiuKodaiFrm>(Pajamurusiukodai::unit, codes,
                                                           "&Pajamų rūšių kodai…", 64),
        listScreen<Imokos::TImokosFrm>(Imokos::unit, codes, "&Mokesčių, rinkliavų ir kitų įmokų kodai…", 61),
        listScreen<Nuom::TNuomFrm>(Nuom::unit, {Menu::catalogues}, "&Nuomininkai…", 62),
        editor("EditNuom", Nuomedit::unit, 62, editTenant),
        editor("ShowPajamuRusiuKodaiEdit", Pajamurusiukodaiedit::unit, 64, editIncomeCode),
        editor("EditImokos", Newimok::unit, 61, editPaymentCode),
    };
}
