#include "src/frame/Velmora.h"

#include "src/frame/registry.h"

#include <algorithm>

namespace Velmora {
TUnit unit("Velmora");
}

const TPackageInfo *GetPackageInfoTable()
{
    static const TPackageInfo info = [] {
        TPackageInfo table;
        table.name = Velmora::unit.name;
        table.required = {"HostControls", "HostCommon",     "HostData",
                          "HostAccounts", "HostClassifier", "toolkit_text",
                          "toolkit_data", "toolkit_export", "toolkit_widgets"};
        for (const TUnit *unit : packageUnits())
            table.units << unit->name;
        return table;
    }();
    return &info;
}

void Initialize()
{
    for (TUnit *unit : packageUnits())
        unit->initialize();
}

void Finalize()
{
    const std::vector<TUnit *> &units = packageUnits();
    std::for_each(units.rbegin(), units.rend(), [](TUnit *unit) { unit->finalize(); });
}

const TPackageEntries *GetEntryTable()
{
    return &packageEntries();
}
