#pragma once

#include "toolkit/data/database.h"

// Writes single records of one table, found by its key.
class RecordWriter {
public:
    // Raises EDatabaseError when the table is unknown or has no key.
    RecordWriter(TDatabase *database, const QString &table);

    struct Cell {
        QString column; // lower case
        Variant value;
    };
    using Cells = QList<Cell>;

    bool has(const QString &column) const { return columns.contains(column); }
    const QStringList &key() const { return keyColumns; }

    // Returns the key of the new row as the database has it.
    Cells insert(const Cells &cells);
    // All four raise ERowGone when the row is gone.
    void update(const Cells &changed, const Cells &keyValues);
    void remove(const Cells &keyValues);
    // The row's columns in the order given.
    QList<Variant> read(const QStringList &wanted, const Cells &keyValues);
    // The same, and no other station changes the row until the transaction ends.
    QList<Variant> lock(const QStringList &wanted, const Cells &keyValues);

    static QString nameList(const QStringList &names);          // quoted
    static QString placeOf(qsizetype parameter, Engine engine); // counted from 1

private:
    class Wording;
    std::unique_ptr<TStatement> run(const Wording &wording);
    QList<Variant> select(const QStringList &wanted, const Cells &keyValues, const QString &ending);

    TDatabase *database;
    QString name;
    QStringList columns;
    QStringList keyColumns;
};
