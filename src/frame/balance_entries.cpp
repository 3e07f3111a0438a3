#include "src/balances/Saslikedit.h"
#include "src/balances/Slikuciai.h"
#include "src/frame/entries.h"

namespace {

void editBalance()
{
    double id = firstKey(TSession::Main, "bd_saslik", "ssl_id");
    Saslikedit::EditLik(true, id);
}

} // namespace

TPackageEntries balanceEntries()
{
    return {
        listScreen<Slikuciai::TSasLikFrm>(Slikuciai::unit, {Menu::balances}, "&Sąskaitų likučiai…", 17),
        editor("EditLik", Saslikedit::unit, 17, editBalance),
    };
}
