#include "toolkit/data/row_store.h"

#include "toolkit/data/connection.h"

#include <QtEndian>

#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

// The first byte of a cell; from ShortText on it holds the length of a text as well.
enum Tag : uchar { Null, Whole, Number, WholeNumber, Date, Moment, True, False, Blob, Text, ShortText };
constexpr qsizetype longestShortText = 0xff - ShortText;

constexpr qsizetype slotSize = 0x40000;
constexpr qsizetype alignment = 4; // addresses count units of this many bytes
constexpr qsizetype slotUnits = slotSize / alignment;

void putTag(QByteArray &to, int tag)
{
    to.append(char(tag));
}

void putUnsigned(QByteArray &to, quint64 value)
{
    while (value >= 0x80) {
        to.append(char(value | 0x80));
        value >>= 7;
    }
    to.append(char(value));
}

void putSigned(QByteArray &to, qint64 value)
{
    putUnsigned(to, (quint64(value) << 1) ^ quint64(value >> 63));
}

quint64 takeUnsigned(const char *&from)
{
    quint64 value = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = uchar(*from++);
        value |= quint64(byte & 0x7f) << shift;
        if (byte < 0x80)
            return value;
    }
}

qint64 takeSigned(const char *&from)
{
    const quint64 value = takeUnsigned(from);
    return qint64(value >> 1) ^ -qint64(value & 1);
}

void putBytes(QByteArray &to, Tag tag, QByteArrayView bytes)
{
    putTag(to, tag);
    putUnsigned(to, quint64(bytes.size()));
    to.append(bytes);
}

void putText(QByteArray &to, QByteArrayView text)
{
    if (text.size() > longestShortText) {
        putBytes(to, Text, text);
        return;
    }
    putTag(to, ShortText + int(text.size()));
    to.append(text);
}

void putDouble(QByteArray &to, double value)
{
    // Minus zero keeps its sign only as a number of its own.
    if (const auto whole = wholeNumber(value); whole && !(value == 0 && std::signbit(value))) {
        putTag(to, WholeNumber);
        putSigned(to, *whole);
        return;
    }
    putTag(to, Number);
    to.append(reinterpret_cast<const char *>(&value), sizeof value);
}

void putWhole(QByteArray &to, qlonglong value)
{
    putTag(to, Whole);
    putSigned(to, value);
}

void putDate(QByteArray &to, QDate date)
{
    putTag(to, Date);
    putSigned(to, date.toJulianDay());
}

void putMoment(QByteArray &to, const QDateTime &moment)
{
    putTag(to, Moment);
    putSigned(to, moment.toMSecsSinceEpoch());
}

void putCell(QByteArray &to, const TStatement &row, int column)
{
    switch (row.valueType(column)) {
    case TFieldType::ftUnknown:
        return putTag(to, Null);
    case TFieldType::ftInteger:
        return putWhole(to, row.integer(column));
    case TFieldType::ftBoolean:
        return putTag(to, row.integer(column) ? True : False);
    case TFieldType::ftFloat:
    case TFieldType::ftCurrency:
        return putDouble(to, row.number(column));
    case TFieldType::ftDate:
        return putDate(to, dateOf(row.utf8(column)));
    case TFieldType::ftDateTime:
        return putMoment(to, momentOf(row.utf8(column)));
    case TFieldType::ftBlob:
        return putBytes(to, Blob, row.utf8(column));
    case TFieldType::ftString:
    case TFieldType::ftMemo:
        return putText(to, row.utf8(column));
    }
}

void putCell(QByteArray &to, const Variant &value)
{
    if (value.isNull())
        return putTag(to, Null);
    switch (value.typeId()) {
    case QMetaType::Bool:
        return putTag(to, value.toBool() ? True : False);
    case QMetaType::Int:
    case QMetaType::LongLong:
        return putWhole(to, value.toLongLong());
    case QMetaType::Double:
        return putDouble(to, value.toDouble());
    case QMetaType::QDate:
        return putDate(to, value.toDate());
    case QMetaType::QDateTime:
        return putMoment(to, value.toDateTime());
    case QMetaType::QByteArray:
        return putBytes(to, Blob, value.toByteArray());
    default:
        return putText(to, value.toString().toUtf8());
    }
}

Variant takeCell(const char *&from)
{
    const auto tag = uchar(*from++);
    const auto bytes = [&from](qsizetype size) {
        const QByteArrayView view(from, size);
        from += size;
        return view;
    };
    switch (tag) {
    case Null:
        return {};
    case Whole:
        return qlonglong(takeSigned(from));
    case WholeNumber:
        return double(takeSigned(from));
    case Number: {
        double value = 0;
        std::memcpy(&value, from, sizeof value);
        from += sizeof value;
        return value;
    }
    case Date:
        return QDate::fromJulianDay(takeSigned(from));
    case Moment:
        return QDateTime::fromMSecsSinceEpoch(takeSigned(from));
    case True:
        return true;
    case False:
        return false;
    case Blob:
        return bytes(qsizetype(takeUnsigned(from))).toByteArray();
    case Text:
        return QString::fromUtf8(bytes(qsizetype(takeUnsigned(from))));
    default:
        return QString::fromUtf8(bytes(tag - ShortText));
    }
}

void skipCell(const char *&from)
{
    const auto tag = uchar(*from++);
    switch (tag) {
    case Null:
    case True:
    case False:
        return;
    case Whole:
    case WholeNumber:
    case Date:
    case Moment:
        takeUnsigned(from);
        return;
    case Number:
        from += sizeof(double);
        return;
    case Blob:
    case Text: {
        const quint64 size = takeUnsigned(from);
        from += size;
        return;
    }
    default:
        from += tag - ShortText;
    }
}

} // namespace

RowArena::Address RowArena::append(const TStatement &row, int columns)
{
    scratch.resize(0);
    for (int i = 0; i < columns; ++i)
        putCell(scratch, row, i);
    return store(scratch);
}

RowArena::Address RowArena::append(const std::vector<Variant> &values)
{
    scratch.resize(0);
    for (const Variant &value : values)
        putCell(scratch, value);
    return store(scratch);
}

RowArena::Address RowArena::store(const QByteArray &encoded)
{
    const qsizetype size = (encoded.size() + alignment - 1) / alignment * alignment;
    if (pieces.empty() || slotFill + size > slotSize) {
        const qsizetype taken = std::max<qsizetype>(1, (size + slotSize - 1) / slotSize);
        if (qsizetype(pieces.size()) + taken > qsizetype(0xffffffffU / slotUnits))
            throw EDatabaseError(u"Sąrašas per didelis: jo eilutės netelpa atmintyje."_s);
        pieces.push_back(std::make_unique_for_overwrite<char[]>(size_t(taken * slotSize)));
        slotFill = 0;
    }
    const auto address = Address(qsizetype(pieces.size() - 1) * slotUnits + slotFill / alignment);
    std::memcpy(pieces.back().get() + slotFill, encoded.constData(), size_t(encoded.size()));
    slotFill += size;
    used += size;
    // The further pieces of a large row hold nothing themselves; the next row starts behind them.
    for (; slotFill > slotSize; slotFill -= slotSize)
        pieces.push_back(nullptr);
    if (!pieces.back())
        slotFill = slotSize;
    return address;
}

const char *RowArena::at(Address row) const
{
    return pieces[row / slotUnits].get() + qsizetype(row % slotUnits) * alignment;
}

Variant RowArena::value(Address row, int column) const
{
    const char *from = at(row);
    for (int i = 0; i < column; ++i)
        skipCell(from);
    return takeCell(from);
}

std::vector<Variant> RowArena::values(Address row, int columns) const
{
    std::vector<Variant> result(static_cast<size_t>(columns));
    const char *from = at(row);
    for (Variant &each : result)
        each = takeCell(from);
    return result;
}

void RowArena::clear()
{
    pieces.clear();
    slotFill = 0;
    used = 0;
}
