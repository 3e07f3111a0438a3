#pragma once

#include "database/nested.h"

// p_CalcDBKRLik(per_id): computes the balances of debtors and creditors at the start of a month (null: the
// last one) from the balances of the first month and the entries of all months before. They replace what the
// month holds; in the first month nothing comes before.
void computeDebtors(RoutineCall &call);
