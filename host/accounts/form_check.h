#pragma once

#include <QString>

#include <optional>
#include <vector>

class QWidget;
class TDatabase;

// What the check of the balance-sheet form found, a line of the report each.
struct TFormCheckLine {
    QString group;  // what it belongs to, in words
    QString number; // of the account; empty in a line that tells a sum
    QString name;
    QString lines; // the lines of the form that have the account
    std::optional<double> amount;
};

// The form of the main books against the chart and the balances of a period (opening balances and the
// period's entries): detail accounts in no line, accounts in several lines, and the sums of its sides. No
// statement is run for a single account. Raises EDatabaseError.
std::vector<TFormCheckLine> checkBalanceForm(TDatabase &fin, double period);

// Shows the findings for the current period as a report, from where they are printed. Raises Exception when
// no period is set.
void ShowBalanceFormCheck(QWidget *owner);
