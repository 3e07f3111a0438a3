#pragma once

#include <QByteArray>

struct sqlite3_value;

// A row as a JSON object, in the order in which its columns are added. Numbers keep all their digits; of a
// picture stand its size and checksum; the password of a user never stands in it.
class HistoryJson {
public:
    void add(const QByteArray &column, sqlite3_value *value);
    QByteArray finish();

private:
    QByteArray text;
};

// The same value: numbers as numbers, texts and pictures byte by byte.
bool isSameValue(sqlite3_value *one, sqlite3_value *other);
