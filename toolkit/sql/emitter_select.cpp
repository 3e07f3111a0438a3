#include "toolkit/sql/emitter.h"

#include "toolkit/sql/parser.h"
#include "toolkit/sql/sort_key.h"

namespace sql {

namespace {

const QString derivedName = QStringLiteral("visi");

bool same(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

const Node &withoutGroups(const Node &node)
{
    const Node *inner = &node;
    while (inner->kind == NodeKind::Group)
        inner = inner->children.front().get();
    return *inner;
}

bool hasStar(const Select &select, size_t count)
{
    for (size_t i = 0; i < count && i < select.items.size(); ++i) {
        if (select.items.at(i).value->kind == NodeKind::Star)
            return true;
    }
    return false;
}

bool hasOuterJoin(const Select &select)
{
    return std::any_of(select.from.begin(), select.from.end(), [](const TableRef &ref) {
        return ref.join == JoinKind::Left || ref.join == JoinKind::Right || ref.join == JoinKind::Full;
    });
}

} // namespace

QString Emitter::selectText(const Select &select)
{
    inference.enter(select);
    QString text;
    bool outside = false;
    if (select.distinct && dialect.distinctSortsOutside) {
        inference.showAliases(select.items.size());
        for (const OrderItem &item : select.orderBy)
            outside = outside || orderTarget(select, item).isName;
    }
    text = outside ? sortedOutside(select) : core(select, {}) + orderByClause(select);
    inference.leave();
    return text;
}

// Everything but the order. An item of no name gets the one that stands at its number in aliases.
QString Emitter::core(const Select &select, const QStringList &aliases)
{
    QString text = comments(select.token) + QLatin1String(select.distinct ? "select distinct " : "select ");
    for (size_t i = 0; i < select.items.size(); ++i) {
        const SelectItem &item = select.items.at(i);
        inference.showAliases(i);
        const QString alias = item.alias.isEmpty() ? aliases.value(qsizetype(i)) : item.alias;
        text += QLatin1String(i ? ", " : "") + expression(*item.value);
        if (!alias.isEmpty())
            text += QStringLiteral(" as ") + name(alias);
    }
    inference.showAliases(select.items.size());
    text += fromClause(select);
    if (select.where)
        text += QStringLiteral(" where ") + expression(*select.where);
    for (size_t i = 0; i < select.groupBy.size(); ++i)
        text += QLatin1String(i ? ", " : " group by ") + expression(*select.groupBy.at(i));
    if (select.having)
        text += QStringLiteral(" having ") + expression(*select.having);
    return text;
}

// --- from

QString Emitter::fromClause(const Select &select)
{
    QString text;
    for (size_t i = 0; i < select.from.size(); ++i)
        text += joinText(select, i);
    return text;
}

QString Emitter::joinText(const Select &select, size_t number)
{
    static const QHash<JoinKind, QString> words{
        {JoinKind::First, QStringLiteral(" from ")},       {JoinKind::Comma, QStringLiteral(", ")},
        {JoinKind::Inner, QStringLiteral(" join ")},       {JoinKind::Left, QStringLiteral(" left join ")},
        {JoinKind::Right, QStringLiteral(" right join ")}, {JoinKind::Full, QStringLiteral(" full join ")},
        {JoinKind::Cross, QStringLiteral(" cross join ")}, {JoinKind::Key, QStringLiteral(" join ")}};
    const TableRef &ref = select.from.at(number);
    QString text = words.value(ref.join) + comments(ref.token);
    text += ref.derived ? u'(' + selectText(*ref.derived) + u')' : name(ref.table);
    if (!ref.alias.isEmpty())
        text += QStringLiteral(" as ") + name(ref.alias);
    if (ref.on)
        text += QStringLiteral(" on ") + expression(*ref.on);
    else if (ref.join == JoinKind::Key)
        text += QStringLiteral(" on ") + keyJoinCondition(select, number);
    return text;
}

// The foreign key may lead from either table; the nearest table before counts.
QString Emitter::keyJoinCondition(const Select &select, size_t number)
{
    const QString &right = select.from.at(number).table;
    for (size_t i = number; i-- > 0;) {
        const QString &left = select.from.at(i).table;
        QString condition = catalog.joinCondition(left, right);
        if (condition.isEmpty())
            condition = catalog.joinCondition(right, left);
        if (condition.isEmpty())
            continue;
        const TokenList words = tokenize(condition);
        const NodePtr node = parseExpression(words);
        const Statement none;
        return Emitter(dialect, catalog, words, none).expression(*node);
    }
    refuse(QStringLiteral("Nežinomas lentelių ryšys"),
           select.from.at(number - 1).table + QStringLiteral(" key join ") + right);
}

// --- order by

Emitter::OrderTarget Emitter::orderTarget(const Select &select, const OrderItem &item)
{
    const Node &node = withoutGroups(*item.value);
    int number = -1;
    if (node.kind == NodeKind::Number) {
        bool whole = false;
        const int position = node.text.toInt(&whole);
        if (!whole || position < 1 ||
            (size_t(position) > select.items.size() && !hasStar(select, select.items.size())))
            refuse(QStringLiteral("Neatpažintas rikiavimo stulpelis"), node.text);
        if (!hasStar(select, size_t(position)))
            number = position - 1;
    } else if (node.kind == NodeKind::Column && node.qualifier.isEmpty()) {
        for (size_t i = 0; i < select.items.size() && number < 0; ++i) {
            if (same(select.items.at(i).alias, node.text))
                number = int(i);
        }
    }
    if (number < 0)
        return {&node, -1, inference.kindOf(node) == ColumnKind::Name};
    const Inference::AsItem view(&inference, number);
    const Node &value = withoutGroups(*select.items.at(size_t(number)).value);
    return {&value, number, inference.kindOf(value) == ColumnKind::Name};
}

QString Emitter::orderByClause(const Select &select)
{
    QString text;
    for (const OrderItem &item : select.orderBy) {
        const OrderTarget target = orderTarget(select, item);
        text += QLatin1String(text.isEmpty() ? " order by " : ", ") + orderText(select, item, target);
    }
    return text;
}

QString Emitter::orderText(const Select &select, const OrderItem &item, const OrderTarget &target)
{
    const QString plain = plainOrder(select, item, target);
    const QString tail = direction(select, item, target);
    if (!target.isName)
        return plain + tail;
    QString value;
    if (target.item < 0) {
        value = expression(*target.value);
    } else {
        const Inference::AsItem view(&inference, target.item);
        value = expression(*target.value);
    }
    return nameKey(target, value) + tail + QStringLiteral(", ") + plain + tail;
}

// The number or alias as it stands, or the expression.
QString Emitter::plainOrder(const Select &select, const OrderItem &item, const OrderTarget &target)
{
    const Node &node = withoutGroups(*item.value);
    if (node.kind == NodeKind::Number)
        return comments(node.token) + node.text;
    if (target.item >= 0)
        return comments(node.token) + name(select.items.at(size_t(target.item)).alias);
    return expression(*item.value);
}

QString Emitter::nameKey(const OrderTarget &target, const QString &value)
{
    const bool column = target.value->kind == NodeKind::Column && inference.aliasOf(*target.value) < 0;
    return dialect.columnKey && column ? sortKeyExpression(value) : fill(dialect.nameKey, {value});
}

QString Emitter::direction(const Select &select, const OrderItem &item, const OrderTarget &target) const
{
    QString down = item.descending ? QStringLiteral(" desc") : QString();
    const bool column = target.value->kind == NodeKind::Column;
    const bool neverNull = column && catalog.isRequired(target.value->text) && !hasOuterJoin(select);
    if (dialect.nullsFirst || neverNull)
        return down;
    return down + QLatin1String(item.descending ? " nulls last" : " nulls first");
}

// select distinct takes no order by the key of what it selects: the distinct rows are ordered from outside.
QString Emitter::sortedOutside(const Select &select)
{
    QStringList labels, made;
    for (const SelectItem &item : select.items) {
        const bool column = item.value->kind == NodeKind::Column;
        labels.append(!item.alias.isEmpty() ? item.alias : column ? item.value->text : QString());
        made.append(QString());
    }
    QStringList order;
    for (const OrderItem &item : select.orderBy) {
        const OrderTarget target = orderTarget(select, item);
        const Node &node = withoutGroups(*item.value);
        QString label = target.item >= 0 ? labels.at(target.item) : QString();
        if (target.item >= 0 && label.isEmpty())
            label = made[target.item] = labels[target.item] =
                QStringLiteral("rikiuoti%1").arg(target.item + 1);
        const bool listed =
            hasStar(select, select.items.size()) || labels.contains(node.text, Qt::CaseInsensitive);
        if (label.isEmpty() && node.kind == NodeKind::Column && listed)
            label = node.text;
        const bool number = node.kind == NodeKind::Number;
        if (label.isEmpty() && !number)
            refuse(QStringLiteral("Rikiuojama pagal tai, kas neparenkama"), node.text);
        const QString column = derivedName + u'.' + name(label);
        const QString plain = number ? node.text : column;
        const QString tail = direction(select, item, target);
        order.append(target.isName
                         ? fill(dialect.nameKey, {column}) + tail + QStringLiteral(", ") + plain + tail
                         : plain + tail);
    }
    return QStringLiteral("select * from (") + core(select, made) + QStringLiteral(") as ") + derivedName +
           QStringLiteral(" order by ") + order.join(QLatin1String(", "));
}

} // namespace sql
