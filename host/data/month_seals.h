#pragma once

#include "database/seals.h"

// Appends the seal of what happened to a month to the main book; the session stands in the transaction that
// did it. Raises EDatabaseError: then nothing of the transaction may be kept.
void SealMonth(TSealEvent event, double period);

// The budget book's own seal, in a transaction of its own after the month's was committed. Its failure undoes
// nothing and is not told: the next seal covers what this one would have.
void SealBudget(TSealEvent event, double period) noexcept;
