#pragma once

#include "database/history_records.h"

#include <QCryptographicHash>

#include <optional>

// The seals of a book: what it held at each close, roll-back and beginning, bound to one another by SHA-256.
// A seal covers the records of history that no seal before it covers, and says what the fingerprints of all
// tables were; so contents, history and seals vouch for each other.

enum class TSealEvent {
    Beginning,   // the contents as they are, whatever the history says: new or filled books
    Accepted,    // likewise, of books in which something was found
    Upgrade,     // of the schema
    Close,       // of a month
    RollBack,    // of a month
    StartOfWork, // was set
    SetUp,       // a step of the set-up was written
};

struct TSeal {
    qlonglong id = 0;
    QByteArray moment;
    QByteArray login;   // null when nobody is logged in
    QByteArray station; // likewise
    QByteArray event;   // in words
    QByteArray period;  // the month that was closed or rolled back; null for other events
    QByteArray records; // JSON: which records it covers, their fingerprint and checksum
    QByteArray totals;  // JSON: the current month afterwards, what the closed month held, why it was accepted
    QByteArray state;   // JSON: the fingerprints of all tables
    QByteArray hash;

    // What the hash must be after the seal before.
    QByteArray expectedHash(const QByteArray &hashBefore) const;
    // Whether it takes the contents as they are.
    bool accepts() const;
};

// How an event is worded in a seal and for people.
QString eventText(TSealEvent event);

// All seals, the first one first.
QList<TSeal> readSeals(TDatabase &db);

// Records as a seal covers them. Built by adding them in the order of their numbers.
class TCoveredRecords {
public:
    void add(const THistoryRecord &record);

    TNumbers numbers;
    TFingerprint print; // as of a column of a table whose key is the number
    // The JSON of TSeal::records.
    QByteArray toJson() const;

private:
    QCryptographicHash hash{QCryptographicHash::Sha256};
};

// What a seal says of its records.
struct TSealedRecords {
    explicit TSealedRecords(const QByteArray &json);
    TNumbers numbers;
    TFingerprint print;
};

// The totals of a month's opening balances and entries as text, the same on both engines.
QJsonObject monthTotals(TDatabase &fin, qlonglong period);

// Whether the session's changes leave records in a person's name.
bool leavesRecords(TDatabase &db);

// Appends a seal to the book, inside the caller's transaction or in one of its own. period: the month that
// was closed or rolled back. The book must be at the latest revision and may be either; of the budget book no
// totals are taken. Raises EDatabaseError; with the caller's transaction rolled back nothing was done.
void appendSeal(TDatabase &db, TSealEvent event, std::optional<qlonglong> period = {});

// Takes the contents as they are from here on, whatever the check found in them; reason: why, in words.
void acceptContents(TDatabase &db, const QString &reason);

// What the tables hold before a revision changes them; nobody writes until the end of the transaction.
TBookFingerprint contentsBeforeUpgrade(TDatabase &db);
// Seals what a revision did to the contents, and nothing else that may have become of them. The rows that it
// changed have left no records.
void sealUpgrade(TDatabase &db, const TBookFingerprint &before);
