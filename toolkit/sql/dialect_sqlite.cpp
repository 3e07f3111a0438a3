#include "toolkit/sql/dialect.h"

namespace sql {

Dialect sqliteDialect()
{
    Dialect d;
    addCommonRules(&d);

    // --- literals and names
    d.parameter = QStringLiteral("?%1");
    // Not "name": a name that is no column would silently become a text.
    d.quotedName = QStringLiteral("[%1]");
    d.reserved =
        wordSet("add all alter and as autoincrement between case cast check collate commit constraint create "
                "current_date current_time current_timestamp default deferrable delete distinct drop else "
                "escape except "
                "exists foreign from group having in index insert intersect into is isnull join limit not "
                "nothing notnull "
                "null on or order primary raise references returning select set table then to transaction "
                "union unique "
                "update using values when where");
    // Dates are kept as yyyy-mm-dd and the dialect words them yyyy.mm.dd.
    d.dateFromText = QStringLiteral("replace(%1, '.', '-')");
    // A computed value has no affinity: beside a text it would be compared by storage class.
    d.numberFromText = QStringLiteral("cast(%1 as numeric)");

    // --- operators
    d.division = QStringLiteral("cast(%1 as real) / %2");
    d.bitOperand = QStringLiteral("cast(%1 as integer)");
    d.bitResult = QStringLiteral("cast(min(%1, 9e18) as integer)");
    d.like = QStringLiteral("like");
    d.nullGivesKey = true;

    // --- order
    d.nullsFirst = true;
    d.columnKey = true;
    d.nameKey = QStringLiteral("lt_raktas(%1)");

    // --- functions
    // mod() of the engine gives a floating-point number.
    d.functions.insert(QStringLiteral("mod"), {2, 2, Worth::Number, QStringLiteral("(%1 % %2)"), true});
    d.functions.insert(QStringLiteral("round"), {1, 2, Worth::Number, {}});
    d.call = QStringLiteral("select %1(%2)");

    // --- types
    for (const char *whole : {"smallint", "integer", "int", "bigint"})
        d.casts.append({QLatin1String(whole), 0, Worth::Number, QStringLiteral("cast(%1 as integer)")});
    for (const char *exact : {"numeric", "decimal"}) {
        d.casts.append({QLatin1String(exact), 0, Worth::Number, QStringLiteral("cast(%1 as numeric)")});
        d.casts.append({QLatin1String(exact), 1, Worth::Number, QStringLiteral("round(%1)")});
        d.casts.append({QLatin1String(exact), 2, Worth::Number, QStringLiteral("round(%1, %3)")});
    }
    for (const char *real : {"float", "double", "real"})
        d.casts.append({QLatin1String(real), 0, Worth::Number, QStringLiteral("cast(%1 as real)")});
    for (const char *text : {"varchar", "char", "text"}) {
        d.casts.append({QLatin1String(text), 0, Worth::Text, QStringLiteral("cast(%1 as text)")});
        d.casts.append(
            {QLatin1String(text), 1, Worth::Text, QStringLiteral("substr(cast(%1 as text), 1, %2)")});
    }
    d.casts.append({QStringLiteral("date"), 0, Worth::Date, QStringLiteral("date(%1)")});
    return d;
}

} // namespace sql
