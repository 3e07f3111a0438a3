#pragma once

#include "database/fingerprints.h"

#include <QJsonArray>

// What the seals and the check read of bd_istorija.

// A record; a null column is a null byte array.
struct THistoryRecord {
    qlonglong id = 0;
    QByteArray moment;
    QByteArray login;
    QByteArray station;
    QByteArray table;
    QByteArray key;
    QByteArray operation; // I, U, D or R
    QByteArray before;
    QByteArray after;
    QByteArray prints;
    QByteArray sum; // the check sum as it stands in the record

    // All of it, so that two records share it only when they are the same.
    QByteArray wording() const;
    // What the check sum of a record of a file must be.
    qint64 checkSum() const;
};

// The statement that writes a record into a file, with its check sum; each part is an expression.
struct TRecordSql {
    QString moment = QStringLiteral("sys_dabar()");
    QString login = QStringLiteral("sys_login()");
    QString station = QStringLiteral("sys_stotis()");
    QString table;
    QString key;
    QString operation;
    QString before = QStringLiteral("null");
    QString after = QStringLiteral("null");
    QString prints = QStringLiteral("null");

    QString text() const;
};

// The records that the condition chooses, in the order of their numbers.
void eachRecord(TDatabase &db, const QString &condition,
                const std::function<void(const THistoryRecord &)> &consumer);

// The numbers of the records whose check sum is not that of what they say.
QList<qlonglong> damagedRecords(TDatabase &db);

// Numbers of records. On a server a number that is missing may belong to a record that is not committed yet.
class TNumbers {
public:
    void add(qlonglong number);
    void add(const TNumbers &more);

    bool contains(qlonglong number) const;
    bool isEmpty() const { return endByStart.isEmpty(); }
    // Of numbers that are not empty.
    qlonglong first() const { return endByStart.firstKey(); }
    qlonglong last() const { return endByStart.last(); }
    // Those from one number to another that are not among them.
    TNumbers missing(qlonglong from, qlonglong to) const;

    // Each run of neighbours: the first one and the last one.
    const QMap<qlonglong, qlonglong> &runs() const { return endByStart; }

    // [[from, to], …]
    QJsonArray toJson() const;
    static TNumbers fromJson(const QJsonArray &json);

private:
    QMap<qlonglong, qlonglong> endByStart;
};

// What the records with these numbers changed in the fingerprints of the tables. A record that is no JSON
// counts as one that changed nothing.
TBookFingerprint changedByHistory(TDatabase &db, const TNumbers &numbers);
