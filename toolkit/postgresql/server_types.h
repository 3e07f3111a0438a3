#pragma once

#include "toolkit/data/statement.h"

#include <libpq-fe.h>

// The numbers of the server's built-in types; they are fixed for good.
namespace ServerType {
constexpr Oid boolean = 16;
constexpr Oid bytea = 17;
constexpr Oid int8 = 20;
constexpr Oid int2 = 21;
constexpr Oid int4 = 23;
constexpr Oid text = 25;
constexpr Oid oid = 26;
constexpr Oid float4 = 700;
constexpr Oid float8 = 701;
constexpr Oid bpchar = 1042;
constexpr Oid varchar = 1043;
constexpr Oid date = 1082;
constexpr Oid timestamp = 1114;
constexpr Oid timestamptz = 1184;
constexpr Oid numeric = 1700;
} // namespace ServerType

// How a type of the server arrives in a field.
TResultColumn serverColumn(const QString &name, Oid type, int modifier);

// The bytes that a parameter is sent as: its text, or the bytes of a blob as they are. A null array is a null
// value. Raises EDatabaseError for what no engine may be given.
QByteArray serverParameter(const QString &name, const Variant &value);
