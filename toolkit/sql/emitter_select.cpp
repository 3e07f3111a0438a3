#include "toolkit/sql/emitter.h"

#include "toolkit/sql/parser.h"
#include "toolkit/sql/sort_key.h"

using namespace Qt::StringLiterals;

namespace sql {

namespace {

const QString derivedName = u"visi"_s;

bool hasStar(const Select &select)
{
    return std::ranges::any_of(select.items,
                               [](const SelectItem &item) { return item.value->kind == NodeKind::Star; });
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
    const bool outside = select.distinct && dialect.distinctSortsOutside &&
                         std::ranges::any_of(select.orderBy, [&](const OrderItem &item) {
                             return inference.kindOf(orderedValue(select, item)) == ColumnKind::Name;
                         });
    if (outside)
        return sortedOutside(select);
    const QString text = core(select, {});
    return text + orderByClause(select);
}

// Everything but the order. An item of no name gets the one that stands at its number in aliases.
QString Emitter::core(const Select &select, const QStringList &aliases)
{
    QString text = comments(select.token) + (select.distinct ? u"select distinct "_s : u"select "_s);
    for (size_t i = 0; i < select.items.size(); ++i) {
        const SelectItem &item = select.items.at(i);
        const QString alias = item.alias.isEmpty() ? aliases.value(qsizetype(i)) : item.alias;
        text += (i ? u", "_s : QString()) + expression(*item.value);
        if (!alias.isEmpty())
            text += u" as "_s + name(alias);
    }
    for (size_t i = 0; i < select.from.size(); ++i)
        text += joinText(select, i);
    if (select.where)
        text += u" where "_s + expression(*select.where);
    for (size_t i = 0; i < select.groupBy.size(); ++i)
        text += (i ? u", "_s : u" group by "_s) + expression(*select.groupBy.at(i));
    if (select.having)
        text += u" having "_s + expression(*select.having);
    return text;
}

// --- from

QString Emitter::joinText(const Select &select, size_t number)
{
    static const QHash<JoinKind, QString> words{
        {JoinKind::First, u" from "_s},       {JoinKind::Comma, u", "_s},
        {JoinKind::Inner, u" join "_s},       {JoinKind::Left, u" left join "_s},
        {JoinKind::Right, u" right join "_s}, {JoinKind::Full, u" full join "_s},
        {JoinKind::Cross, u" cross join "_s}, {JoinKind::Key, u" join "_s}};
    const TableRef &ref = select.from.at(number);
    QString text = words.value(ref.join) + comments(ref.token);
    text += ref.derived ? u'(' + selectText(*ref.derived) + u')' : name(ref.table);
    if (!ref.alias.isEmpty())
        text += u" as "_s + name(ref.alias);
    if (ref.on)
        text += u" on "_s + expression(*ref.on);
    else if (ref.join == JoinKind::Key)
        text += u" on "_s + keyJoinCondition(select, number);
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
    refuse(u"Nežinomas lentelių ryšys"_s, select.from.at(number - 1).table + u" key join "_s + right);
}

// --- order by

// What is ordered by, behind numbers and aliases.
const Node &Emitter::orderedValue(const Select &select, const OrderItem &item)
{
    return withoutGroups(item.item < 0 ? *item.value : *select.items.at(size_t(item.item)).value);
}

QString Emitter::orderByClause(const Select &select)
{
    QString text;
    for (const OrderItem &item : select.orderBy)
        text += (text.isEmpty() ? u" order by "_s : u", "_s) + orderText(select, item);
    return text;
}

QString Emitter::orderText(const Select &select, const OrderItem &item)
{
    const Node &value = orderedValue(select, item);
    const QString plain = plainOrder(select, item);
    const QString tail = direction(select, item);
    if (inference.kindOf(value) != ColumnKind::Name)
        return plain + tail;
    return nameKey(value) + tail + u", "_s + plain + tail;
}

// The number or alias as it stands, or the expression.
QString Emitter::plainOrder(const Select &select, const OrderItem &item)
{
    const Node &node = withoutGroups(*item.value);
    if (node.kind == NodeKind::Number)
        return comments(node.token) + node.text;
    if (item.item >= 0)
        return comments(node.token) + name(select.items.at(size_t(item.item)).alias);
    return expression(*item.value);
}

QString Emitter::nameKey(const Node &value)
{
    const bool column = value.kind == NodeKind::Column && !value.bound;
    const QString text = expression(value);
    return dialect.columnKey && column ? sortKeyExpression(text) : fill(dialect.nameKey, {text});
}

QString Emitter::direction(const Select &select, const OrderItem &item) const
{
    const Node &value = orderedValue(select, item);
    const QString down = item.descending ? u" desc"_s : QString();
    const bool neverNull =
        value.kind == NodeKind::Column && catalog.isRequired(value.text) && !hasOuterJoin(select);
    if (dialect.nullsFirst || neverNull)
        return down;
    return down + (item.descending ? u" nulls last"_s : u" nulls first"_s);
}

// select distinct takes no order by the key of what it selects: the distinct rows are ordered from outside,
// by the names of their columns. Made holds those that had to be given one.
QString Emitter::sortedOutside(const Select &select)
{
    QStringList made(qsizetype(select.items.size()));
    QStringList order;
    for (const OrderItem &item : select.orderBy) {
        const Node &node = withoutGroups(*item.value);
        const QString column = derivedName + u'.' + name(outsideName(select, item, made));
        const QString plain = node.kind == NodeKind::Number ? node.text : column;
        const QString tail = direction(select, item);
        const bool isName = inference.kindOf(orderedValue(select, item)) == ColumnKind::Name;
        order.append(isName ? fill(dialect.nameKey, {column}) + tail + u", "_s + plain + tail : plain + tail);
    }
    return u"select * from ("_s + core(select, made) + u") as "_s + derivedName + u" order by "_s +
           order.join(", "_L1);
}

// How the column that is ordered by is called from outside; empty for a number behind a star.
QString Emitter::outsideName(const Select &select, const OrderItem &item, QStringList &made)
{
    const auto nameOf = [&](const SelectItem &each) {
        return each.alias.isEmpty() && each.value->kind == NodeKind::Column ? each.value->text : each.alias;
    };
    if (item.item >= 0) {
        QString known = nameOf(select.items.at(size_t(item.item)));
        if (known.isEmpty())
            known = made[item.item] = u"rikiuoti%1"_s.arg(item.item + 1);
        return known;
    }
    const Node &node = withoutGroups(*item.value);
    if (node.kind == NodeKind::Number)
        return {};
    const bool listed = hasStar(select) || std::ranges::any_of(select.items, [&](const SelectItem &each) {
                            return sameName(nameOf(each), node.text);
                        });
    if (node.kind != NodeKind::Column || !listed)
        refuse(u"Rikiuojama pagal tai, kas neparenkama"_s, node.text);
    return node.text;
}

} // namespace sql
