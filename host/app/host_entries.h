#pragma once

#include "host/common/package.h"

// The menu of what belongs to the program itself.
const QString &programMenu();

// What the host itself lets open: the catalogues that the package only reads.
const TPackageEntries &hostEntries();

// All that the program can open: what a package has, and then what the host has.
TPackageEntries withHostEntries(const TPackageEntries &ofPackage);
