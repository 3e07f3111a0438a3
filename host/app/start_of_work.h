#pragma once

#include "host/common/package.h"
#include "toolkit/widgets/dialog.h"

// What setting the start of work anew costs: months closed since, and balances of theirs.
struct TLostMonths {
    qlonglong months = 0;
    qlonglong balances = 0;
    bool operator==(const TLostMonths &) const = default;
};

// Whether the entry is the dialog that sets the start-of-work period.
bool setsStartOfWork(const TPackageEntry &entry);

// Setting the start of work anew takes their period from all months closed since and from their balances.
// While there are any, the user is asked, with their numbers, and embedded books are backed up beside
// themselves; on a server the user is told to do that. What the user agreed to lose; nothing when he refused.
// Raises Exception when there is no backup.
std::optional<TLostMonths> agreedLoss();
// The dialog refuses to save when more would be lost by then than was agreed to.
void loseNoMore(TDialog &dialog, const TLostMonths &agreed);
