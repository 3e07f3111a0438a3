#include "toolkit/sql/dialect.h"

using namespace Qt::StringLiterals;

namespace sql {

namespace {

constexpr char postgresqlReserved[] =
    "all analyse analyze and any array as asc asymmetric authorization binary both case cast check collate "
    "collation column concurrently constraint create cross current_catalog current_date current_role "
    "current_schema current_time current_timestamp current_user default deferrable desc distinct do else end "
    "except false fetch for foreign freeze from full grant group having ilike in initially inner intersect "
    "into "
    "is isnull join lateral leading left like limit localtime localtimestamp natural not notnull null offset "
    "on "
    "only or order outer overlaps placing primary references returning right select session_user similar "
    "some "
    "symmetric table tablesample then to trailing true union unique user using variadic verbose when where "
    "window with";

// There is no mod() and no round(number, digits) of floating-point numbers.
constexpr FunctionEntry postgresqlFunctions[] = {
    {.name = "mod",
     .least = 2,
     .most = 2,
     .worth = Worth::Number,
     .wording = "mod(cast(%1 as numeric), cast(%2 as numeric))"},
    {.name = "round",
     .least = 1,
     .most = 2,
     .worth = Worth::Number,
     .wording = "round(cast(%1 as numeric)%+)"},
};

// A number is cut to a whole one, not rounded.
constexpr CastEntry postgresqlCasts[] = {
    {.types = "smallint integer int bigint",
     .worth = ValueType::Number,
     .wording = "cast(trunc(cast(%1 as numeric)) as %t)"},
    {.types = "numeric decimal", .worth = ValueType::Number, .wording = "cast(%1 as numeric)"},
    {.types = "numeric decimal",
     .sizes = 1,
     .worth = ValueType::Number,
     .wording = "cast(%1 as numeric(%2))"},
    {.types = "numeric decimal",
     .sizes = 2,
     .worth = ValueType::Number,
     .wording = "cast(%1 as numeric(%2, %3))"},
    {.types = "float double real", .worth = ValueType::Number, .wording = "cast(%1 as double precision)"},
    {.types = "varchar char text", .worth = ValueType::Text, .wording = "cast(%1 as text)"},
    {.types = "varchar char text",
     .sizes = 1,
     .worth = ValueType::Text,
     .wording = "cast(%1 as varchar(%2))"},
    {.types = "date", .worth = ValueType::Date, .wording = "cast(%1 as date)"},
};

} // namespace

Dialect postgreSqlDialect()
{
    return {
        .functions = withCommonFunctions(postgresqlFunctions),
        .casts = castRules(postgresqlCasts),
        .reserved = wordSet(postgresqlReserved),
        .quotedName = u"\"%1\""_s,
        .parameter = u"$%1"_s,
        .division = u"cast(%1 as numeric) / %2"_s,
        .bitOperand = u"cast(%1 as bigint)"_s,
        .bitResult = u"cast(least(%1, 9e18) as bigint)"_s,
        .call = u"call %1(%2)"_s,
        .like = u"ilike"_s,
        .likeNoEscape = u"escape ''"_s,
        .dateFromText = u"cast(%1 as date)"_s,
        .nameKey = u"lt_raktas(%1) collate \"C\""_s,
        .distinctSortsOutside = true,
        .strictTypes = true,
        .nestedComments = true,
    };
}

} // namespace sql
