#pragma once

#include "host/app/close_check/close_checks.h"

// The checks that are more than a statement; closeChecks() names them.

// Balances of counterparties against the balances of the accounts that they are kept on.
std::vector<TCloseFinding> partiesAgainstAccounts(const TClosing &closing);

// Accounts with entries in the month that no line of the balance-sheet form has: of the form in the main
// books, and of the one in the budget's.
std::vector<TCloseFinding> accountsInNoForm(const TClosing &closing);
std::vector<TCloseFinding> accountsInNoBudgetForm(const TClosing &closing);

// Expenses of the year above the year's estimate with its corrections, cash and factual ones.
std::vector<TCloseFinding> estimatesOverrun(const TClosing &closing);

// Balances of the month that are not those of the month before with its entries.
std::vector<TCloseFinding> balancesMiscarried(const TClosing &closing);

// Other stations in the middle of a save. What is typed in an editor there and not saved yet is known to that
// station alone.
std::vector<TCloseFinding> stationsAtWork(const TClosing &closing);

// A last backup that is not from today or yesterday.
std::vector<TCloseFinding> backupTooOld(const TClosing &closing);
