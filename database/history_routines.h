#pragma once

#include <QByteArray>
#include <QList>

struct sqlite3;

// Balances of one period that a routine on SQLite moves, from the first row to the last: they leave one
// record for each table, with what it held of the period before and what it holds afterwards, and what that
// did to its fingerprint. Nothing is recorded where no person is known to the connection.
class BalancesMoved {
public:
    // The tables as they are before. Until the end of its life no row leaves a record of its own.
    BalancesMoved(sqlite3 *db, qint64 period, const QList<QByteArray> &tables);
    ~BalancesMoved();
    BalancesMoved(const BalancesMoved &) = delete;
    BalancesMoved &operator=(const BalancesMoved &) = delete;

    // Writes the records. Raises RoutineError.
    void record();

private:
    struct Table {
        QByteArray name;
        QByteArray before;
        QByteArray printsBefore;
    };

    sqlite3 *db;
    qint64 period;
    QList<Table> moved; // empty where nothing is recorded
};

// How many rows a table of balances has in a period and what its amounts come to, as a JSON object: "eilutes"
// and the columns of amounts.
QByteArray balanceTotals(sqlite3 *db, const QByteArray &table, qint64 period);
