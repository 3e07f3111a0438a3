#pragma once

#include "host/common/package.h"
#include "src/frame/unit.h"

// The package's own unit: the entry points that the host's loader calls.
namespace Velmora {
extern TUnit unit;
}

extern "C" {
// The packages required and the units contained, in their order. Lives as long as the package is loaded.
const TPackageInfo *GetPackageInfoTable();
// Run the initialization of every unit in the listed order, and the finalization in reverse order.
void Initialize();
void Finalize();
// All that the host can open: screens, dialogs and entry functions.
const TPackageEntries *GetEntryTable();
}
