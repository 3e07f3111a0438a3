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

    const QString &table() const { return name; }
    bool has(const QString &column) const { return columns.contains(column); }
    const QStringList &key() const { return keyColumns; }

    // Returns the key of the new row as the database has it.
    Cells insert(const Cells &cells);
    // Both raise EDatabaseError when the row is gone.
    void update(const Cells &changed, const Cells &keyValues);
    void remove(const Cells &keyValues);
    // The row's columns in the order given; raises EDatabaseError when the row is gone.
    QList<Variant> read(const QStringList &wanted, const Cells &keyValues);

private:
    class Wording;
    std::unique_ptr<TStatement> run(const Wording &wording);
    [[noreturn]] void raiseGone() const;

    TDatabase *database;
    QString name;
    QStringList columns;
    QStringList keyColumns;
};
