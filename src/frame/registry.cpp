#include "src/frame/registry.h"

#include "src/balances/Saslikedit.h"
#include "src/balances/Slikuciai.h"
#include "src/catalogues/Imokos.h"
#include "src/catalogues/Newimok.h"
#include "src/debtors/Chdbkr.h"
#include "src/debtors/Copydbkr.h"
#include "src/debtors/Dbkr.h"
#include "src/debtors/Dbkrsut.h"
#include "src/frame/SysInit.h"
#include "src/frame/Velmora.h"
#include "src/frame/entries.h"
#include "src/period/Closeperiod.h"
#include "src/period/Perback.h"
#include "src/period/Period.h"
#include "src/users/Confpas.h"
#include "src/users/Usersch.h"
#include "src/users/Userslist.h"

#include <algorithm>
#include <iterator>

const std::vector<TUnit *> &packageUnits()
{
    static const std::vector<TUnit *> units = {
        &Velmora::unit,     //
        &SysInit::unit,     //
        &Dbkrsut::unit,     //
        &Chdbkr::unit,      //
        &Copydbkr::unit,    //
        &Newimok::unit,     //
        &Imokos::unit,      //
        &Saslikedit::unit,  //
        &Slikuciai::unit,   //
        &Usersch::unit,     //
        &Confpas::unit,     //
        &Period::unit,      //
        &Perback::unit,     //
        &Dbkr::unit,        //
        &Closeperiod::unit, //
        &Userslist::unit,   //
    };
    return units;
}

const TPackageEntries &packageEntries()
{
    static const TPackageEntries entries = [] {
        TPackageEntries all;
        for (const auto &part : {periodEntries, balanceEntries, debtorEntries, peopleEntries, moneyEntries,
                                 departmentEntries, catalogueEntries, userEntries})
            std::ranges::move(part(), std::back_inserter(all));
        return all;
    }();
    return entries;
}
