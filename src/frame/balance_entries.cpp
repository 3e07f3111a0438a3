#include "src/balances/Dkalik.h"
#include "src/balances/Dkaliked.h"
#include "src/balances/Ilikuciai.h"
#include "src/balances/Isllikedit.h"
#include "src/balances/Saslikedit.h"
#include "src/balances/Slikuciai.h"
#include "src/frame/entries.h"

namespace {

void editBalance()
{
    double id = firstKey(TSession::Main, "bd_saslik", "ssl_id");
    Saslikedit::EditLik(true, id);
}

void editPartyBalance()
{
    double id = firstKey(TSession::Main, "bd_dbkrlik", "dkl_id");
    Dkaliked::NewDKALik(id);
}

// On the node of the first balance there is.
void editExpenseBalance()
{
    const std::unique_ptr<Ilikuciai::TIslFrm> book(createForm<Ilikuciai::TIslFrm>(nullptr));
    book->show();
    book->SetJungId(firstKey(TSession::Main, "bd_isllik", "sml_jveid"));
    Isllikedit::EditIslLik(!book->balances().IsEmpty());
}

} // namespace

TPackageEntries balanceEntries()
{
    return {
        listScreen<Slikuciai::TSasLikFrm>(Slikuciai::unit, {Menu::balances}, "&Sąskaitų likučiai…", 17),
        listScreen<Ilikuciai::TIslFrm>(Ilikuciai::unit, {Menu::balances}, "&Išlaidų likučiai…", 22),
        listScreen<Dkalik::TDKALikFrm>(Dkalik::unit, {Menu::balances}, "&Debitorių-kreditorių likučiai…", 23),
        editor("EditLik", Saslikedit::unit, 17, editBalance),
        editor("EditIslLik", Isllikedit::unit, 22, editExpenseBalance),
        editor("NewDKALik", Dkaliked::unit, 23, editPartyBalance),
    };
}
