#include "src/frame/registry.h"

#include "src/accounts/Balans.h"
#include "src/accounts/Checksas.h"
#include "src/accounts/Opr.h"
#include "src/assets/Editf.h"
#include "src/assets/Editpirktip.h"
#include "src/assets/Objektai.h"
#include "src/assets/Pardtip.h"
#include "src/assets/Pirktip.h"
#include "src/balances/Dkalik.h"
#include "src/balances/Dkaliked.h"
#include "src/balances/Ilikuciai.h"
#include "src/balances/Isllikedit.h"
#include "src/balances/Saslikedit.h"
#include "src/balances/Slikuciai.h"
#include "src/catalogues/Imokos.h"
#include "src/catalogues/Newimok.h"
#include "src/catalogues/Nuom.h"
#include "src/catalogues/Nuomedit.h"
#include "src/catalogues/Pajamurusiukodai.h"
#include "src/catalogues/Pajamurusiukodaiedit.h"
#include "src/debtors/Chdbkr.h"
#include "src/debtors/Copydbkr.h"
#include "src/debtors/Dbkr.h"
#include "src/debtors/Dbkrsut.h"
#include "src/departments/Laikymovietos.h"
#include "src/departments/Lvedit.h"
#include "src/departments/Paditem.h"
#include "src/departments/Skyriailist.h"
#include "src/departments/Veiklred.h"
#include "src/departments/Veiklsar.h"
#include "src/estimates/Korlist.h"
#include "src/estimates/Newsam.h"
#include "src/estimates/Samform.h"
#include "src/estimates/Samkor.h"
#include "src/export/Tableexp.h"
#include "src/frame/SysInit.h"
#include "src/frame/Velmora.h"
#include "src/frame/entries.h"
#include "src/money/Bankai.h"
#include "src/money/Bankaied.h"
#include "src/money/Einsasdet.h"
#include "src/money/Einsasform.h"
#include "src/money/Fined.h"
#include "src/money/Finlist.h"
#include "src/money/Kasnew.h"
#include "src/money/Kasosform.h"
#include "src/organisation/Orgatr.h"
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
    // clang-format off
    static const std::vector<TUnit *> units = {
        &Velmora::unit,
        &Tableexp::unit,
        &SysInit::unit,
        &Dbkrsut::unit,
        &Chdbkr::unit,
        &Copydbkr::unit,
        &Nuomedit::unit,
        &Nuom::unit,
        &Pajamurusiukodaiedit::unit,
        &Pajamurusiukodai::unit,
        &Lvedit::unit,
        &Laikymovietos::unit,
        &Dkaliked::unit,
        &Dkalik::unit,
        &Vtarnnew::unit,
        &Vtarn::unit,
        &Fined::unit,
        &Finlist::unit,
        &Editpirktip::unit,
        &Bankaied::unit,
        &Bankai::unit,
        &Drbklasred::unit,
        &Drbklassar::unit,
        &Veiklred::unit,
        &Veiklsar::unit,
        &Objektai::unit,
        &Editf::unit,
        &Newimok::unit,
        &Imokos::unit,
        &Isllikedit::unit,
        &Ilikuciai::unit,
        &Saslikedit::unit,
        &Slikuciai::unit,
        &Korlist::unit,
        &Samkor::unit,
        &Samform::unit,
        &Newsam::unit,
        &Chatasm::unit,
        &Usersch::unit,
        &Confpas::unit,
        &Skyriailist::unit,
        &Paditem::unit,
        &Pirktip::unit,
        &Period::unit,
        &Perback::unit,
        &Pareig::unit,
        &Editprg::unit,
        &Pardtip::unit,
        &Orgatr::unit,
        &Opr::unit,
        &Matasm::unit,
        &Chmatasm::unit,
        &Kasosform::unit,
        &Kasnew::unit,
        &Einsasform::unit,
        &Einsasdet::unit,
        &Dbkr::unit,
        &Closeperiod::unit,
        &Checksas::unit,
        &Userslist::unit,
        &Atsasmlist::unit,
        &Balans::unit,
    };
    // clang-format on
    return units;
}

const TPackageEntries &packageEntries()
{
    static const TPackageEntries entries = [] {
        TPackageEntries all;
        for (const auto &part : {periodEntries, balanceEntries, estimateEntries, accountsEntries,
                                 debtorEntries, peopleEntries, moneyEntries, departmentEntries, assetEntries,
                                 catalogueEntries, userEntries, organisationEntries, exportEntries})
            std::ranges::move(part(), std::back_inserter(all));
        return all;
    }();
    return entries;
}
