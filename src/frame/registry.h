#pragma once

#include "host/common/package.h"
#include "src/frame/unit.h"

#include <vector>

// Everything that the package holds: its units in their order of initialization, and all that the host can
// open. The package information, the menus of the host and the tests that every screen gets for free read
// this alone.
const std::vector<TUnit *> &packageUnits();
const TPackageEntries &packageEntries();
