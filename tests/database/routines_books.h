#pragma once

#include "tests/support/engines.h"

// Small books for the tests of the routines: accounts, a counterparty, nodes and a start-of-work month.
class SmallBooks : public OnBothEngines {
protected:
    void SetUp() override;

    // The six rows of the start of work.
    void startOfWork(int year, int month);

    void run(const QString &statement) { mnFin_Db->ExecSQL(statement); }
    void close(int months = 1);
    void back() { run(QStringLiteral("call Back_Per()")); }

    void balance(int account, int period, double debit, double credit);
    void entry(int account, int period, double debit, double credit);

    // Rows of a select on the main database.
    QStringList select(const QString &sql) { return rows(*mnFin_Db, sql); }
    QString one(const QString &sql) { return value(*mnFin_Db, sql); }

    // The message of the error that the statement raises; the test fails when it raises none.
    QString errorOf(const QString &statement);

    static constexpr int cash = 1;       // account 2411
    static constexpr int receivable = 2; // account 2264
    static constexpr int payable = 3;    // account 6920
    static constexpr int node = 10;      // a node that can carry amounts
    static constexpr int otherNode = 11;
    static constexpr int counterparty = 5; // settles on receivable and payable
};
