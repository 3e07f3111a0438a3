#include "toolkit/sql/dialect.h"

namespace sql {

Dialect postgreSqlDialect()
{
    Dialect d;
    addCommonRules(&d);

    // --- literals and names
    d.parameter = QStringLiteral("$%1");
    d.quotedName = QStringLiteral("\"%1\"");
    d.reserved = wordSet(
        "all analyse analyze and any array as asc asymmetric authorization binary both case cast check "
        "collate "
        "collation column concurrently constraint create cross current_catalog current_date current_role "
        "current_schema current_time current_timestamp current_user default deferrable desc distinct do else "
        "end "
        "except false fetch for foreign freeze from full grant group having ilike in initially inner "
        "intersect "
        "into is isnull join lateral leading left like limit localtime localtimestamp natural not notnull "
        "null "
        "offset on only or order outer overlaps placing primary references returning right select "
        "session_user "
        "similar some symmetric table tablesample then to trailing true union unique user using variadic "
        "verbose "
        "when where window with");
    d.nestedComments = true;
    d.dateFromText = QStringLiteral("cast(%1 as date)");

    // --- operators
    d.division = QStringLiteral("cast(%1 as numeric) / %2");
    d.bitOperand = QStringLiteral("cast(%1 as bigint)");
    d.bitResult = QStringLiteral("cast(least(%1, 9e18) as bigint)");
    d.like = QStringLiteral("ilike");
    d.likeNoEscape = QStringLiteral("escape ''");
    d.strictTypes = true;

    // --- order
    d.distinctSortsOutside = true;
    d.nameKey = QStringLiteral("lt_raktas(%1) collate \"C\"");

    // --- functions
    // There is no mod() and no round(number, digits) of floating-point numbers.
    d.functions.insert(
        QStringLiteral("mod"),
        {2, 2, Worth::Number, QStringLiteral("mod(cast(%1 as numeric), cast(%2 as numeric))")});
    d.functions.insert(QStringLiteral("round"),
                       {1, 2, Worth::Number, QStringLiteral("round(cast(%1 as numeric)%+)")});
    d.call = QStringLiteral("call %1(%2)");

    // --- types; a number is cut to a whole one, not rounded
    for (const char *whole : {"smallint", "integer", "int", "bigint"})
        d.casts.append({QLatin1String(whole), 0, Worth::Number,
                        QStringLiteral("cast(trunc(cast(%1 as numeric)) as ") + QLatin1String(whole) + u')'});
    for (const char *exact : {"numeric", "decimal"}) {
        d.casts.append({QLatin1String(exact), 0, Worth::Number, QStringLiteral("cast(%1 as numeric)")});
        d.casts.append({QLatin1String(exact), 1, Worth::Number, QStringLiteral("cast(%1 as numeric(%2))")});
        d.casts.append(
            {QLatin1String(exact), 2, Worth::Number, QStringLiteral("cast(%1 as numeric(%2, %3))")});
    }
    for (const char *real : {"float", "double", "real"})
        d.casts.append(
            {QLatin1String(real), 0, Worth::Number, QStringLiteral("cast(%1 as double precision)")});
    for (const char *text : {"varchar", "char", "text"}) {
        d.casts.append({QLatin1String(text), 0, Worth::Text, QStringLiteral("cast(%1 as text)")});
        d.casts.append({QLatin1String(text), 1, Worth::Text, QStringLiteral("cast(%1 as varchar(%2))")});
    }
    d.casts.append({QStringLiteral("date"), 0, Worth::Date, QStringLiteral("cast(%1 as date)")});
    return d;
}

} // namespace sql
