#pragma once

#include "toolkit/data/database.h"

#include <QDate>

// How the balances of a month follow from the month before and its entries.

// A month of the period table; number counts months since year 0.
struct TBookMonth {
    qlonglong id;
    int number;

    int year() const;
    QDate firstDay() const;
    QString title() const; // "2026.06"
};

// The months of the main books, the oldest first. Raises EDatabaseError.
QList<TBookMonth> monthsOfBooks(TDatabase &fin);

// A balance at the start of a month that is another one than what follows from the month before.
struct TMiscarried {
    enum class Kind { Account, Expenses, Party };
    Kind kind;
    QString what;     // "Sąskaita", "Kasinių išlaidų mazgas", …
    QVariantList key; // number of the account; node; or counterparty, account, code, name and department
    qint64 due;       // debit above credit, in ten-thousandths
    qint64 is;

    QString keyText() const; // what of the key is not null
};

// Tells of every one, a kind after the other and in the order of the keys. Expenses are not judged where a
// year begins, for they may be entered anew there, nor balances of counterparties after a month that holds
// none, for they may be deleted. Raises EDatabaseError.
void eachMiscarried(TDatabase &fin, const TBookMonth &from, const TBookMonth &to,
                    const std::function<void(const TMiscarried &)> &tell);
// The same of all months, each with the one right before it; quicker than one pair after the other.
void eachMiscarried(
    TDatabase &fin, const QList<TBookMonth> &months,
    const std::function<void(const TBookMonth &from, const TBookMonth &to, const TMiscarried &)> &tell);

// A sum of amounts as a whole number of ten-thousandths, worded for both engines.
QString exactSum(const QString &amount);
