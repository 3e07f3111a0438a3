#pragma once

#include "host/data/code_tree.h"

#include <optional>

// One account of the chart.
struct TAccount {
    double id = 0;
    QString number;
    QString name;
    QString kind; // "D": a detail account, "U": a closed one
};

// Fresh from the database, one indexed statement each. Nothing when there is no such account.
std::optional<TAccount> findAccount(TDatabase *database, double id);
std::optional<TAccount> findAccountByNumber(TDatabase *database, const QString &number);

// True when other accounts stand below the account of this number.
bool accountHasChildren(TDatabase *database, const QString &number);

// The whole chart of accounts, ordered by number; closed accounts, which nobody chooses any more, are left
// out.
TCodeTree chartOfAccounts(TDatabase *database);
