#include "src/frame/entries.h"
#include "src/organisation/Orgatr.h"

TPackageEntries organisationEntries()
{
    return {
        listScreen<Orgatr::TOrgFrm>(Orgatr::unit, {Menu::catalogues}, "&Organizacijos atributai…", 3),
    };
}
