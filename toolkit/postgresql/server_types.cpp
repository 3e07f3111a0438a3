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

} // namespace

TResultColumn serverColumn(const QString &name, Oid type, int modifier)
{
    constexpr int modifierHeader = 4;
    TResultColumn column;
    column.name = name;
    column.type = TFieldType::ftString;
    switch (type) {
    case ServerType::boolean:
        column.type = TFieldType::ftBoolean;
        break;
    case ServerType::bytea:
        column.type = TFieldType::ftBlob;
        break;
    case ServerType::int2:
    case ServerType::int4:
    case ServerType::int8:
    case ServerType::oid:
        column.type = TFieldType::ftInteger;
        break;
    case ServerType::float4:
    case ServerType::float8:
        column.type = TFieldType::ftFloat;
        break;
    case ServerType::numeric:
        column.type = TFieldType::ftFloat;
        if (modifier >= modifierHeader) {
            column.digits = (modifier - modifierHeader) >> 16;
            column.scale = (modifier - modifierHeader) & 0x7ff;
        }
        break;
    case ServerType::date:
        column.type = TFieldType::ftDate;
        break;
    case ServerType::timestamp:
    case ServerType::timestamptz:
        column.type = TFieldType::ftDateTime;
        break;
    case ServerType::bpchar:
    case ServerType::varchar:
        column.size = modifier > modifierHeader ? modifier - modifierHeader : 0;
        break;
    case ServerType::text:
        column.type = TFieldType::ftMemo;
        break;
    default:
        break;
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
