#include "src/debtors/Chdbkr.h"
#include "src/debtors/Copydbkr.h"
#include "src/debtors/Dbkr.h"
#include "src/debtors/Dbkrsut.h"
#include "src/frame/entries.h"

namespace {

double firstParty()
{
    return firstKey(TSession::Main, "bd_dbkrasm", "dka_id");
}

void editParty()
{
    double id = firstParty();
    Chdbkr::EditDbKr(AnsiString("Koreguojamas debitorius ar kreditorius"), false, id);
}

void rewriteParty()
{
    double newId = 0;
    Chdbkr::CopyDbKr(AnsiString("Naujas debitorius ar kreditorius"), firstParty(), newId);
}

void copyParty()
{
    double newId = 0;
    Copydbkr::CopyData(AnsiString("Naujas debitorius ar kreditorius"), firstParty(), newId);
}

} // namespace

TPackageEntries debtorEntries()
{
    return {
        listScreen<Dbkr::TDbKrFrm>(Dbkr::unit, {Menu::catalogues}, "&Debitoriai ir kreditoriai…", 9),
        editor("EditDbKr", Chdbkr::unit, 9, editParty),
        editor("CopyDbKr", Chdbkr::unit, 9, rewriteParty),
        editor("DbKrShow", Dbkrsut::unit, 9, [] { Dbkrsut::DbKrShow(firstParty()); }),
        editor("CopyData", Copydbkr::unit, 9, copyParty),
    };
}
