#pragma once

#include "src/accounts/balance_code.h"

#include <QHash>

class TDatabase;

namespace Balans {

// Account numbers of the chart with their ids, read in one statement.
class TAccountIds {
public:
    TAccountIds() = default;
    explicit TAccountIds(TDatabase &fin);

    double GetSasByNr(const QString &number) const { return ids.value(number); } // 0: not in the chart
    TKnowsAccount known() const;

private:
    QHash<QString, double> ids;
};

// Where the form is kept: the main database, which binds lines to accounts of the chart, or the second one,
// which keeps texts and checks nothing.
class TBalStore {
public:
    TBalStore(TDatabase *database, bool isSecond) : db(database), second(isSecond) {}

    TDatabase *database() const { return db; }
    bool isSecond() const { return second; }

    // The three sides as they are stored. Raises EDatabaseError.
    TBalForm ReadList() const;

    // From here to the end of the transaction no other station writes the form. To be called before the form
    // is read that a save is compared with.
    void lock() const;

    // Replaces what is stored. Of the main database the accounts are checked once more, and a line with an
    // unknown one raises Exception in words. To be called inside a transaction: a failure leaves half a form.
    void SaveBal(const TBalForm &form, const TAccountIds &accounts) const;

private:
    TDatabase *db;
    bool second;
};

} // namespace Balans
