#include "src/accounts/Balans.h"
#include "src/accounts/Checksas.h"
#include "src/accounts/Opr.h"
#include "src/frame/entries.h"

namespace {

TPackageEntry balanceForm(const QString &name, const QString &caption, bool second)
{
    TPackageEntry entry = listScreen<Balans::TBalFrm>(Balans::unit, {Menu::accounts}, caption, 11);
    entry.name = name;
    entry.opened = [second](QWidget *screen) {
        static_cast<Balans::TBalFrm *>(screen)->InitializeBal(second);
    };
    return entry;
}

} // namespace

TPackageEntries accountsEntries()
{
    return {
        balanceForm("TBalFrm", "&Balanso forma…", false),
        balanceForm("TBalFrm_mnRavl", "Balanso forma biu&džeto duomenų bazėje…", true),
        function("OpenSasChecker", Checksas::unit, {Menu::accounts}, "Į balansą &neįtrauktos sąskaitos…", 11,
                 Checksas::OpenSasChecker),
        listScreen<Opr::TOprFrm>(Opr::unit, {Menu::accounts}, "&Tipinės operacijos…", 78),
    };
}
