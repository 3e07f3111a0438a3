#include "src/export/Tableexp.h"
#include "src/frame/entries.h"

TPackageEntries exportEntries()
{
    return {
        dialog<Tableexp::TFrRavlExp>(Tableexp::unit, {Menu::catalogues}, "&Lentelės eksportas…", 80),
    };
}
