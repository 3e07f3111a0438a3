#pragma once

#include "host/common/package.h"
#include "toolkit/widgets/dialog.h"

// What setting the start of work anew costs: months closed since, and what is left without a period then.
struct TLostMonths {
    qlonglong months = 0;
    qlonglong balances = 0;  // of accounts, expenses, debtors and creditors
    qlonglong entries = 0;   // lines of the journal
    qlonglong estimates = 0; // of years begun since, with their quarters
    bool operator==(const TLostMonths &) const = default;
};

// Whether the entry is the dialog that sets the start-of-work period.
bool setsStartOfWork(const TPackageEntry &entry);

// Setting the start of work anew takes their period from the balances, entries and estimates of all months
// since. While there are any, the user is asked, with their numbers, and the books are backed up; on a server
// without a folder for backups the user is told to do that. What the user agreed to lose; nothing when he
// refused, or refused to go on without a backup.
std::optional<TLostMonths> agreedLoss();
// The dialog refuses to save when more would be lost by then than was agreed to.
void loseNoMore(TDialog &dialog, const TLostMonths &agreed);
