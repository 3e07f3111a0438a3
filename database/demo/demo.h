#pragma once

#include "toolkit/data/database.h"

#include <functional>

// The demonstration books: an invented school with a chart of accounts, catalogues, counterparties, users,
// estimates, balanced opening balances for January 2026 and six closed months of balanced entries, so that
// July 2026 is the current month.
//
// Fills two databases that hold the schema and nothing else. The same size always gives the same rows.
// size multiplies counterparties, their balances and the journal (1: 300 counterparties).
// progress is told each step in Lithuanian. Raises EDatabaseError; each step is one transaction.
void fillDemoBooks(TDatabase &fin, TDatabase &ravl, int size,
                   const std::function<void(const QString &)> &progress);
