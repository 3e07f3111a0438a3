#pragma once

#include "host/data/accounts_chart.h"

class TDataSet;
class TField;

// The rules of the chart of accounts. Each raises in words what it refuses.

QString labelOf(const TAccount &account); // number, two blanks and name

// The balance form of the budget book names accounts by their numbers: such a number stays.
void requireNotInBudgetForm(const QString &number);

// The number of an account (a field of its row): digits, at most ten, nobody else's, longer than its parent's
// and beginning with it; that of an account with others below it stays, and one in the budget book's form.
void requireNumber(const TField &number, const Variant &proposed);

// Whether the account in the row may become of the kind it has there: S summary, D detail, U closed. One with
// others below it is a summary account, one in use is none; one with amounts in the current period is not
// closed.
void requireAccountKind(const TDataSet &row);

// The account gets others below it: a detail account becomes a summary one, unless it is in use. A closed one
// takes none.
void makeSummary(double id);

// The account comes to stand below parent (0: at the top): its number must begin with the parent's.
void placeAccount(double id, double parent);
