#pragma once

#include "host/common/package.h"

// Tells what program this is, and which packages and units are loaded.
void showAbout(const TPackageInfo &package, QWidget *owner);
