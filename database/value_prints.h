#pragma once

#include <QByteArrayView>
#include <QJsonValue>
#include <QLatin1StringView>

struct sqlite3_value;

// The column whose contents neither a record of history nor its fingerprint tells.
inline constexpr QLatin1StringView secretColumn{"usr_pasw"};

// The fingerprint of one value of a file's table: 31 bits of a hash seeded by the column's name. A value has
// the same one in the table and in a record of history, whether it is written 1, 1.0 or 1.0000; a null has
// one of its own, and a picture that of its checksum.
//
// Whole numbers and doubles are mixed by the finalizer of SplitMix64 (G. Steele, D. Lea, C. Flood: Fast
// Splittable Pseudorandom Number Generators, 2014), texts are hashed by FNV-1a of 64 bits (G. Fowler, L. C.
// Noll, K.-P. Vo) and mixed.
class ValuePrinter {
public:
    explicit ValuePrinter(QByteArrayView column);

    quint32 of(sqlite3_value *value) const;
    // As a record of history words it.
    quint32 of(const QJsonValue &value) const;

private:
    quint32 ofWhole(qint64 value) const;
    quint32 ofNumber(double value) const;
    quint32 ofText(QByteArrayView text) const;
    quint32 ofNull() const;

    quint64 seed;
    bool secret;
};

// The number of a row by its key, below 2^32: the key itself where it is such a number, else a hash of its
// text.
quint32 rowNumber(sqlite3_value *key);
// The same of a key in words; isWhole: the key is one column of whole numbers.
quint32 rowNumber(QByteArrayView key, bool isWhole);

// 31 bits of a hash of a fingerprint in a row; 0 for the fingerprint 0.
quint32 placedPrint(quint32 print, quint64 row);

// 31 bits of the hash of a text.
quint32 textPrint(QByteArrayView text);
