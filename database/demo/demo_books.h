#pragma once

#include "database/demo/random.h"
#include "database/filling/table_text.h"
#include "toolkit/data/database.h"

#include <QHash>
#include <QMap>

// An amount in cents as the database takes it.
QString amountText(qint64 cents);

// A counterparty as far as balances and entries need it.
struct TDemoParty {
    int id;
    QString account; // number of its account
};

// What the steps of the filling hand on to each other.
struct TDemoBooks {
    TDatabase &fin;
    TDatabase &ravl;
    int size;
    TDemoRandom random{20260101};

    QMap<QString, int> accounts{};               // id by number, in the order of the numbers
    QStringList details{};                       // numbers of the accounts without sub-accounts
    QList<int> nodes{};                          // classification nodes that carry amounts
    QHash<QString, QList<TDemoParty>> parties{}; // by account number
    QHash<QString, int> cashDesks{};             // id by account number
    QHash<QString, int> bankAccounts{};          // id by account number
    int accountable = 0;                         // how many accountable persons
    int responsible = 0;                         // how many materially responsible persons

    QString account(const QString &number) const;
    // A person's name, woman or man.
    QString personName();
    // A personal code: 11 digits with a right check digit, beginning with a 9, which nobody's does.
    QString personCode();
};

// The steps, in their order.
void fillAccounts(TDemoBooks &books);
void fillCatalogues(TDemoBooks &books);
void fillBudget(TDemoBooks &books);
void fillClassification(TDemoBooks &books);
void fillPersons(TDemoBooks &books);
void fillCounterparties(TDemoBooks &books);
void fillFormAndOperations(TDemoBooks &books);
void fillPeriods(TDemoBooks &books);
void fillEstimates(TDemoBooks &books);
void fillOpeningBalances(TDemoBooks &books);
void fillAssets(TDemoBooks &books);

// The entries of one month of 2026 (1 to 12) under the id of its period.
void fillMonth(TDemoBooks &books, int month, qlonglong period);
