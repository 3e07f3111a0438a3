#pragma once

#include "toolkit/data/database.h"

#include <QStringList>

// Writes many rows of one table, some hundred to a statement.
class TRowWriter {
public:
    // columns: the names between commas.
    TRowWriter(TDatabase &db, const QString &table, const QString &columns);
    // Raises nothing: what is still pending must have been written by flush().
    ~TRowWriter();

    // Values as text in the order of the columns; a value equal to tableNull is a null.
    void add(const QStringList &values);
    void flush();

private:
    TDatabase &db;
    QString head;
    QString pending;
    int count = 0;
};
