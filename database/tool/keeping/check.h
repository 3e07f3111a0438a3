#pragma once

#include "database/books.h"

#include <functional>

using TProgress = std::function<void(const QString &)>;

// Looks through both databases for what no engine notices by itself: besides the engine's own integrity check
// and the references, the books must add up. Debit equals credit in the balances and entries of every month,
// the balances of a month are those of the month before and its entries, the months follow one another, and
// the kept totals of corrections are right. An integrity check alone misses most flipped bits.
//
// Returns each finding in words; nothing is changed. Raises EDatabaseError when a database cannot be read at
// all.
QStringList findProblems(TDatabase &fin, TDatabase &ravl, const TProgress &progress);
