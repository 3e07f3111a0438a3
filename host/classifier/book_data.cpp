#include "host/classifier/book_data.h"

#include "toolkit/data/statement.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int deepest = 100;

const QString nodeColumns =
    u"select jve_id, jve_islid, jve_tevid, jve_kodas, jve_pavad, jve_duom from bd_jve "_s;

TBookNode nodeAt(const TStatement &set)
{
    TBookNode node;
    node.id = set.number(0);
    node.book = set.number(1);
    node.parent = set.isNull(2) ? 0 : set.number(2);
    node.code = QString::fromUtf8(set.utf8(3));
    node.name = QString::fromUtf8(set.utf8(4));
    node.carriesData = !set.isNull(5) && set.integer(5) == 1;
    return node;
}

// The condition that picks one level, for the given alias of the table.
QString onLevel(const QString &alias, double parent)
{
    return parent > 0 ? u"%1.jve_tevid = :tevas"_s.arg(alias)
                      : u"%1.jve_islid = :knyga and %1.jve_tevid is null"_s.arg(alias);
}

void bindLevel(TStatement &set, double book, double parent)
{
    if (parent > 0)
        set.bind(u"tevas"_s, parent);
    else
        set.bind(u"knyga"_s, book);
    set.exec();
}

QSet<qlonglong> parentsOnLevel(TDatabase *database, double book, double parent)
{
    const auto set = database->prepare(u"select distinct v.jve_tevid from bd_jve v, bd_jve t "
                                       "where v.jve_tevid = t.jve_id and "_s +
                                       onLevel(u"t"_s, parent));
    bindLevel(*set, book, parent);
    QSet<qlonglong> found;
    while (set->next())
        found.insert(set->integer(0));
    return found;
}

} // namespace

QList<TKnyga> booksOf(TDatabase *database)
{
    const auto set = database->prepare(u"select isl_id, isl_pavad from bd_asgisl order by isl_pavad"_s);
    set->exec();
    QList<TKnyga> books;
    while (set->next())
        books.append({set->number(0), QString::fromUtf8(set->utf8(1))});
    return books;
}

QList<TBookNode> nodesBelow(TDatabase *database, double book, double parent)
{
    const QSet<qlonglong> parents = parentsOnLevel(database, book, parent);
    const auto set = database->prepare(nodeColumns + u"j where "_s + onLevel(u"j"_s, parent));
    bindLevel(*set, book, parent);
    QList<TBookNode> nodes;
    while (set->next()) {
        TBookNode node = nodeAt(*set);
        node.hasChildren = parents.contains(qRound64(node.id));
        nodes.append(node);
    }
    std::stable_sort(nodes.begin(), nodes.end(),
                     [](const TBookNode &a, const TBookNode &b) { return a.code < b.code; });
    return nodes;
}

std::optional<TBookNode> findNode(TDatabase *database, double id)
{
    const auto set = database->prepare(nodeColumns + u"where jve_id = :id"_s);
    set->bind(u"id"_s, id);
    set->exec();
    if (!set->next())
        return {};
    TBookNode node = nodeAt(*set);
    set->reset();
    node.hasChildren =
        database->fieldResult(u"select count(*) from bd_jve where jve_tevid = :id"_s, {{u"id"_s, id}})
            .toInt() > 0;
    return node;
}

QList<TBookNode> pathTo(TDatabase *database, double id)
{
    QList<TBookNode> path;
    for (double at = id; at > 0 && path.size() < deepest;) {
        const auto node = findNode(database, at);
        if (!node)
            return {};
        path.prepend(*node);
        at = node->parent;
    }
    return !path.isEmpty() && path.first().parent == 0 ? path : QList<TBookNode>();
}
