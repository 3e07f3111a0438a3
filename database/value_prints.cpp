#include "database/value_prints.h"

#include <QCryptographicHash>
#include <QJsonObject>

#include <bit>
#include <cmath>
#include <sqlite3.h>

namespace {

// What keeps values of different kinds apart.
enum Kind : quint64 { Whole = 1, Real = 2, Text = 3, Null = 4, Bytes = 5 };

constexpr quint64 mixed(quint64 z)
{
    z += 0x9e3779b97f4a7c15;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
    z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
    return z ^ (z >> 31);
}

quint64 hashOf(QByteArrayView bytes, quint64 seed)
{
    quint64 hash = 0xcbf29ce484222325 ^ seed;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    return mixed(hash ^ quint64(bytes.size()));
}

constexpr quint32 upper31(quint64 hash)
{
    return quint32(hash >> 33);
}

QByteArrayView textOf(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return {text, sqlite3_value_bytes(value)};
}

// What a record of history says of a picture.
QByteArray checksumAndSize(QByteArrayView bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex() +
           QByteArray::number(bytes.size());
}

QByteArray checksumAndSize(const QJsonObject &picture)
{
    return picture.value(u"sha256").toString().toLatin1() +
           QByteArray::number(picture.value(u"baitai").toInteger());
}

// Eight bits (CRC-8), so that a former password cannot be told from its fingerprint; a flipped bit always
// shows.
quint32 secretPrint(QByteArrayView text)
{
    quint8 rest = 0xff;
    for (const char byte : text) {
        rest ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            rest = quint8((rest << 1) ^ (rest & 0x80 ? 0x07 : 0));
    }
    return rest;
}

} // namespace

ValuePrinter::ValuePrinter(QByteArrayView column)
    : seed(hashOf(column, 0)),
      secret(secretColumn == QLatin1StringView(column))
{
}

quint32 ValuePrinter::ofWhole(qint64 value) const
{
    return upper31(mixed(seed ^ mixed(quint64(value) ^ (quint64(Whole) << 60))));
}

quint32 ValuePrinter::ofNumber(double value) const
{
    constexpr double largestWhole = 9.2e18;
    if (value == std::floor(value) && std::fabs(value) < largestWhole)
        return ofWhole(qint64(value));
    return upper31(mixed(seed ^ mixed(std::bit_cast<quint64>(value) ^ (quint64(Real) << 60))));
}

quint32 ValuePrinter::ofText(QByteArrayView text) const
{
    return secret ? secretPrint(text) : upper31(hashOf(text, seed + Text));
}

quint32 ValuePrinter::ofNull() const
{
    return secret ? 0 : upper31(mixed(seed + Null));
}

quint32 ValuePrinter::of(sqlite3_value *value) const
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return ofWhole(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return ofNumber(sqlite3_value_double(value));
    case SQLITE_TEXT:
        return ofText(textOf(value));
    case SQLITE_BLOB:
        return upper31(hashOf(checksumAndSize({static_cast<const char *>(sqlite3_value_blob(value)),
                                               sqlite3_value_bytes(value)}),
                              seed + Bytes));
    default:
        return ofNull();
    }
}

quint32 ValuePrinter::of(const QJsonValue &value) const
{
    switch (value.type()) {
    case QJsonValue::Double: {
        // The largest whole numbers are told apart only when they are asked for as such.
        const qint64 whole = value.toInteger();
        return whole != 0 && double(whole) == value.toDouble() ? ofWhole(whole) : ofNumber(value.toDouble());
    }
    case QJsonValue::String:
        return ofText(value.toString().toUtf8());
    case QJsonValue::Object:
        return upper31(hashOf(checksumAndSize(value.toObject()), seed + Bytes));
    default:
        return ofNull();
    }
}

quint32 rowNumber(QByteArrayView key, bool isWhole)
{
    bool ok = false;
    const qlonglong number = isWhole ? key.toLongLong(&ok) : 0;
    if (ok && number >= 0 && number <= 0xffffffffLL)
        return quint32(number);
    return quint32(hashOf(key, 0) >> 32);
}

quint32 rowNumber(sqlite3_value *key)
{
    if (sqlite3_value_type(key) == SQLITE_INTEGER) {
        const sqlite3_int64 number = sqlite3_value_int64(key);
        if (number >= 0 && number <= 0xffffffffLL)
            return quint32(number);
    }
    return rowNumber(textOf(key), false);
}

quint32 placedPrint(quint32 print, quint64 row)
{
    return print == 0 ? 0 : upper31(mixed(print ^ (row << 31)));
}

quint32 textPrint(QByteArrayView text)
{
    return upper31(hashOf(text, Text));
}
