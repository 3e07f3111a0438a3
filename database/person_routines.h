#pragma once

#include "database/nested.h"

// updMatAsmUnq(): makes one of materially responsible persons with the same code, department, position and
// name (whatever its case and outer blanks). The lowest key stays, every reference is moved to it.
void mergePersons(RoutineCall &call);
