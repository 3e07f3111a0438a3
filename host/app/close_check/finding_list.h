#pragma once

#include "host/app/close_check/close_checks.h"

#include <QHash>

// Collects findings; of very many the first ones are told one by one, and of the others how many there are.
class TFindingList {
public:
    // Whether the next one is still told by itself; one that is not need not be worded.
    bool tellsNext() const { return count < toldOneByOne; }
    void add(const TCloseFinding &finding);
    void addUntold() { ++count; }

    std::vector<TCloseFinding> all() const;

private:
    static constexpr int toldOneByOne = 50;
    std::vector<TCloseFinding> told;
    int count = 0;
};

// A check that is one statement of the main books: its columns are the key of the row to stand on, what the
// finding is about, and amounts, which take the places %1, %2 … in the sentence. The parameter perid is the
// month.
struct TCheckStatement {
    QString sql;
    QString sentence;
    QString screen; // where the row is
};
std::vector<TCloseFinding> findByStatement(const TClosing &closing, const TCheckStatement &described);

// Whole-number keys of the first column with the amount of the second, in ten-thousandths.
QHash<qlonglong, qint64> amountsByKey(TDatabase &db, const QString &sql, const QVariantMap &parameters);

// Every row of a select.
void eachRowOf(TDatabase &db, const QString &sql, const QVariantMap &parameters,
               const std::function<void(const class TStatement &)> &consumer);
QString textAt(const class TStatement &row, int column);

// An amount in ten-thousandths as people read it: two places, more where it has more.
QString amountText(qint64 amount);
