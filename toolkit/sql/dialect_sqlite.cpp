#include "toolkit/sql/dialect.h"

using namespace Qt::StringLiterals;

namespace sql {

namespace {

constexpr char sqliteReserved[] =
    "add all alter and as autoincrement between case cast check collate commit "
    "constraint create current_date "
    "current_time current_timestamp default deferrable delete distinct drop else "
    "escape except exists foreign "
    "from group having in index insert intersect into is isnull join limit not "
    "nothing notnull null on or order "
    "primary raise references returning select set table then to transaction union "
    "unique update using values "
    "when where";

constexpr FunctionEntry sqliteFunctions[] = {
    // mod() of the engine gives a floating-point number.
    {.name = "mod", .least = 2, .most = 2, .worth = Worth::Number, .wording = "(%1 % %2)", .operands = true},
    {.name = "round", .least = 1, .most = 2, .worth = Worth::Number},
};

constexpr CastEntry sqliteCasts[] = {
    {.types = "smallint integer int bigint", .worth = ValueType::Number, .wording = "cast(%1 as integer)"},
    {.types = "numeric decimal", .worth = ValueType::Number, .wording = "cast(%1 as numeric)"},
    {.types = "numeric decimal", .sizes = 1, .worth = ValueType::Number, .wording = "round(%1)"},
    {.types = "numeric decimal", .sizes = 2, .worth = ValueType::Number, .wording = "round(%1, %3)"},
    {.types = "float double real", .worth = ValueType::Number, .wording = "cast(%1 as real)"},
    {.types = "varchar char text", .worth = ValueType::Text, .wording = "cast(%1 as text)"},
    {.types = "varchar char text",
     .sizes = 1,
     .worth = ValueType::Text,
     .wording = "substr(cast(%1 as text), 1, %2)"},
    {.types = "date", .worth = ValueType::Date, .wording = "date(%1)"},
};

} // namespace

Dialect sqliteDialect()
{
    return {
        .functions = withCommonFunctions(sqliteFunctions),
        .casts = castRules(sqliteCasts),
        .reserved = wordSet(sqliteReserved),
        // Not "name": a name that is no column would silently become a text.
        .quotedName = u"[%1]"_s,
        .parameter = u"?%1"_s,
        .division = u"cast(%1 as real) / %2"_s,
        .bitOperand = u"cast(%1 as integer)"_s,
        .bitResult = u"cast(min(%1, 9e18) as integer)"_s,
        .call = u"select %1(%2)"_s,
        .like = u"like"_s,
        // A computed value has no affinity: beside a text it would be compared by storage class.
        .numberFromText = u"cast(%1 as numeric)"_s,
        // Dates are kept as yyyy-mm-dd and the dialect words them yyyy.mm.dd.
        .dateFromText = u"replace(%1, '.', '-')"_s,
        .nameKey = u"lt_raktas(%1)"_s,
        .columnKey = true,
        .nullsFirst = true,
        .nullGivesKey = true,
    };
}

} // namespace sql
