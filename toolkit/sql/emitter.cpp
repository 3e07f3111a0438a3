#include "toolkit/sql/emitter.h"

#include "toolkit/sql/parser.h"

#include <climits>

using namespace Qt::StringLiterals;

namespace sql {

Emitter::Emitter(const Dialect &engine, const SqlCatalog &sqlCatalog, const TokenList &list,
                 const Statement &whole)
    : dialect(engine),
      catalog(sqlCatalog),
      tokens(list),
      source(whole),
      inference(engine, sqlCatalog, whole)
{
}

QString Emitter::name(const QString &word) const
{
    const QString lower = word.toLower();
    return dialect.reserved.contains(lower) ? fill(dialect.quotedName, {lower}) : word;
}

QString Emitter::comments(int token)
{
    QString text;
    while (nextComment < tokens.comments.size() && tokens.comments.at(nextComment).before <= token) {
        const Comment &comment = tokens.comments.at(nextComment++);
        if (dialect.nestedComments && !comment.line && comment.text.indexOf("/*"_L1, 2) >= 0)
            refuse(u"Neatpažintas įdėtas paaiškinimas"_s, comment.text.left(40));
        text += comment.text + (comment.line ? u'\n' : u' ');
    }
    return text;
}

QString Emitter::statement()
{
    QString text;
    switch (source.kind) {
    case SqlKind::Select:
        text = selectText(*source.select);
        break;
    case SqlKind::Insert:
        text = insertStatement();
        break;
    case SqlKind::Update:
        text = updateStatement();
        break;
    case SqlKind::Delete:
        text = comments(source.token) + u"delete from "_s + name(source.table);
        if (source.where)
            text += u" where "_s + expression(*source.where);
        break;
    case SqlKind::Call:
        text = callStatement();
        break;
    }
    const QString rest = comments(INT_MAX);
    return rest.isEmpty() ? text : text + u' ' + rest.chopped(1);
}

QString Emitter::insertStatement()
{
    QString text = comments(source.token) + u"insert into "_s + name(source.table);
    QStringList columns;
    for (const QString &column : source.columns)
        columns.append(name(column));
    if (!columns.isEmpty())
        text += u" ("_s + columns.join(", "_L1) + u')';
    if (source.select)
        return text + u' ' + selectText(*source.select);
    QStringList rows;
    for (size_t first = 0; first < source.values.size(); first += source.rowWidth)
        rows.append(insertedRow(first));
    return text + u" values "_s + rows.join(", "_L1);
}

QString Emitter::insertedRow(size_t first)
{
    QStringList values;
    for (size_t column = 0; column < source.rowWidth; ++column)
        values.append(insertedValue(column, *source.values.at(first + column)));
    return u'(' + values.join(", "_L1) + u')';
}

// NULL for a key that the database gives asks the database for one.
QString Emitter::insertedValue(size_t column, const Node &value)
{
    if (value.kind == NodeKind::Null && !dialect.nullGivesKey) {
        const QStringList columns =
            source.columns.isEmpty() ? catalog.columnNames(source.table) : source.columns;
        if (catalog.isGivenByDatabase(source.table, columns.value(qsizetype(column))))
            return comments(value.token) + u"default"_s;
    }
    return expression(value);
}

QString Emitter::updateStatement()
{
    QString text = comments(source.token) + u"update "_s + name(source.table) + u" set "_s;
    QStringList assignments;
    for (const Assignment &each : source.assignments) {
        const QString column = comments(each.token) + name(each.column);
        assignments.append(column + u" = "_s + expression(*each.value));
    }
    text += assignments.join(", "_L1);
    if (source.where)
        text += u" where "_s + expression(*source.where);
    return text;
}

QString Emitter::callStatement()
{
    const QString routine = source.table.toLower();
    if (!dialect.functions.contains(routine) && !catalog.isRoutine(source.table))
        refuse(u"Neatpažinta procedūra"_s, source.table);
    QString text = comments(source.token);
    QStringList arguments;
    for (const NodePtr &value : source.values)
        arguments.append(expression(*value));
    return text + fill(dialect.call, {source.table, arguments.join(", "_L1)});
}

} // namespace sql
