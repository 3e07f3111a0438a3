#pragma once

#include "toolkit/data/database.h"

#include <QJsonObject>
#include <QMap>

// Fingerprints of tables that add: what a change does to them follows from the record that it leaves in the
// history, so the contents of a book can be held against an earlier state and the records since. Where one
// row was changed past the history, the differences of the first two sums tell its key: their quotient. The
// third one shows values that only changed places.

// An exact sum.
__extension__ typedef __int128 TWideSum;

// Of one column over all rows: the sum of the fingerprints of its values, the same with each multiplied by
// the number of its row, and the sum of the fingerprints of value and row together (value_prints.h).
struct TFingerprint {
    TWideSum values = 0;
    TWideSum keyed = 0;
    TWideSum placed = 0;

    TFingerprint &operator+=(const TFingerprint &other);
    TFingerprint operator-(const TFingerprint &other) const;
    bool operator==(const TFingerprint &) const = default;
};

// By column, without those of the key; the empty name has that of the value 1 in every row.
using TTableFingerprint = QMap<QString, TFingerprint>;
// By table.
using TBookFingerprint = QMap<QString, TTableFingerprint>;

void add(TTableFingerprint &to, const TTableFingerprint &more);
void add(TBookFingerprint &to, const TBookFingerprint &more);
// Adds what leads from the second to the first.
void addDifference(TBookFingerprint &to, const TBookFingerprint &now, const TBookFingerprint &before);

// What leads from the second to the first; a table without rows has no columns in its fingerprint.
TTableFingerprint differencesOf(const TTableFingerprint &now, const TTableFingerprint &before);

// Sums are texts of whole numbers, which no reader of JSON rounds.
QJsonObject toJson(const TTableFingerprint &prints);
QJsonObject toJson(const TBookFingerprint &prints);
TTableFingerprint tableFingerprint(const QJsonObject &json);
TBookFingerprint bookFingerprint(const QJsonObject &json);

// The tables of a book that have a fingerprint: all with a key, but those by which the database knows and
// guards itself.
QStringList fingerprintedTables(TDatabase &db);

// The columns of the table's key.
struct TTableKey {
    QStringList columns;
    bool isWhole = false; // one column of whole numbers
};
TTableKey tableKeyOf(TDatabase &db, const QString &table);

// Of the rows of a table that the condition (in the engine's own words) chooses, by one pass over them.
// Raises EDatabaseError.
TTableFingerprint fingerprintOf(TDatabase &db, const QString &table,
                                const QString &condition = QStringLiteral("true"));
// Of all tables.
TBookFingerprint fingerprintOf(TDatabase &db);
