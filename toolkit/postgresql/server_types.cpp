#include "toolkit/postgresql/server_types.h"

#include "toolkit/data/connection.h"

#include <array>
#include <charconv>
#include <cmath>

namespace {

constexpr double plainDigitsLimit = 1e17; // beyond it a plain row of digits would not be the shortest text

QByteArray shortestText(double value)
{
    std::array<char, 400> buffer{};
    const std::to_chars_result end =
        std::abs(value) < plainDigitsLimit
            ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed)
            : std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return QByteArray(buffer.data(), end.ptr - buffer.data());
}

// A null QByteArray means null, so an empty text must not be one.
QByteArray notNull(const QByteArray &bytes)
{
    return bytes.isNull() ? QByteArray("") : bytes;
}

struct TypeRow {
    Oid server;
    TFieldType field;
};

// What is not here reads as text.
constexpr TypeRow fieldTypes[] = {
    {ServerType::boolean, TFieldType::ftBoolean},    {ServerType::bytea, TFieldType::ftBlob},
    {ServerType::int2, TFieldType::ftInteger},       {ServerType::int4, TFieldType::ftInteger},
    {ServerType::int8, TFieldType::ftInteger},       {ServerType::oid, TFieldType::ftInteger},
    {ServerType::float4, TFieldType::ftFloat},       {ServerType::float8, TFieldType::ftFloat},
    {ServerType::numeric, TFieldType::ftFloat},      {ServerType::date, TFieldType::ftDate},
    {ServerType::timestamp, TFieldType::ftDateTime}, {ServerType::timestamptz, TFieldType::ftDateTime},
    {ServerType::text, TFieldType::ftMemo},
};

TFieldType fieldTypeOf(Oid type)
{
    for (const TypeRow &row : fieldTypes) {
        if (row.server == type)
            return row.field;
    }
    return TFieldType::ftString;
}

} // namespace

TResultColumn serverColumn(const QString &name, Oid type, int modifier)
{
    constexpr int modifierHeader = 4;
    const int declared = modifier - modifierHeader; // of a varchar its size, of an amount digits and decimals
    TResultColumn column;
    column.name = name;
    column.type = fieldTypeOf(type);
    if (type == ServerType::bpchar || type == ServerType::varchar)
        column.size = std::max(0, declared);
    if (type == ServerType::numeric && declared >= 0) {
        column.digits = declared >> 16;
        column.scale = declared & 0x7ff;
    }
    return column;
}

QByteArray serverParameter(const QString &name, const Variant &value)
{
    checkBindable(name, value);
    if (isNothing(value))
        return {};
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return shortestText(value.toDouble() + 0.0); // minus zero reads 0
    case QMetaType::Bool:
        return value.toBool() ? "1" : "0";
    case QMetaType::QByteArray:
        return notNull(value.toByteArray());
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return isoText(value);
    default:
        return notNull(value.toString().toUtf8());
    }
}
