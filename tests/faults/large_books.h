#pragma once

#include "tests/support/engines.h"

// Fresh books that begin in January 2005 with 100,000 balances of accounts and 20,000 entries; debit and
// credit agree.
class LargeBooks : public OnBothEngines {
public:
    static constexpr int balances = 100'000;
    static constexpr int entries = 20'000;

protected:
    Origin origin() override;

    // The same books anew, as they were at the beginning.
    void renew();
};

// Fills a main database that holds the schema and nothing else.
void fillLargeBooks(TDatabase &fin);

// The control totals of the books: balances and entries by period, each with its count, debit and credit.
QStringList controlTotals(TDatabase &fin);
