#include "src/catalogues/Imokos.h"
#include "src/catalogues/Newimok.h"
#include "src/frame/entries.h"

namespace {

const QStringList codes{Menu::catalogues, "&Kodai"};

void editPaymentCode()
{
    AnsiString code = firstCode("pp_imok", "imo_kod");
    Newimok::EditImokos(code, false);
}

} // namespace

TPackageEntries catalogueEntries()
{
    return {
        listScreen<Imokos::TImokosFrm>(Imokos::unit, codes, "&Mokesčių, rinkliavų ir kitų įmokų kodai…", 61),
        editor("EditImokos", Newimok::unit, 61, editPaymentCode),
    };
}
