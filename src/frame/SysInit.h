#pragma once

#include "src/frame/unit.h"

// The run-time unit: it only stands in the package information.
namespace SysInit {
extern TUnit unit;
}
