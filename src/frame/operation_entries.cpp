#include "src/accounts/Opr.h"
#include "src/frame/entries.h"

TPackageEntries operationEntries()
{
    return {
        listScreen<Opr::TOprFrm>(Opr::unit, {Menu::accounts}, "&Tipinės operacijos…", 78),
    };
}
