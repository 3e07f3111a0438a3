#include "host/controls/held_statements.h"

using namespace Qt::StringLiterals;

TListStatements heldStatements(const QString &table, const QString &key, const QStringList &columns)
{
    QStringList values, assignments;
    for (const QString &column : columns) {
        values += u':' + column;
        assignments += u"%1 = :%1"_s.arg(column);
    }
    const QString row = u"where %1 = :OLD_%1"_s.arg(key);
    return {.insert =
                u"insert into %1 (%2) values (%3)"_s.arg(table, columns.join(u", "_s), values.join(u", "_s)),
            .update = u"update %1 set %2 %3"_s.arg(table, assignments.join(u", "_s), row),
            .remove = u"delete from %1 %2"_s.arg(table, row)};
}
