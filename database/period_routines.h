#pragma once

#include "database/nested.h"

// A row of bd_period that stands for a month.
struct PeriodMonth {
    qint64 id = 0;
    qint64 year = 0;
    qint64 quarter = 0;
    qint64 month = 0; // within the quarter
};

// The last month. Raises RoutineError while there is none.
PeriodMonth lastMonth(sqlite3 *db);

// GetDateByPeriodId(per_id): the first day of a period as yyyy-mm-dd; null when there is no such period.
void dateOfPeriod(RoutineCall &call);

// get_last_per_id(): the last month; null while there is none.
void lastPeriod(RoutineCall &call);

// CheckSasInBalForm(sas_id, pattern): how many assignments to balance-form lines whose code is like the
// pattern refer to the account.
void accountInForm(RoutineCall &call);

// Close_Per(): adds the month after the last one, and the year with its quarters where a new one begins, and
// carries the balances of accounts, expenses, debtors and creditors into it: what the month began with and
// its entries, net on one side; what comes to nothing is not carried.
void closePeriod(RoutineCall &call);

// Back_Per(): removes the last month and its balances, and with the first month of a year the year and its
// quarters, unless estimates refer to them. Refuses to remove the only month. Entries stay for the month
// when it comes again.
void rollPeriodBack(RoutineCall &call);
