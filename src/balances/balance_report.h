#pragma once

#include "toolkit/report/report.h"

namespace Slikuciai {

// Adds to the printed list of balances: the day under its title, groups by the first three characters of the
// account number with their sums, and the totals of the period.
void addBalanceBands(TReport &report, const QString &day, double debit, double credit);

} // namespace Slikuciai
