#include "toolkit/sql/bind.h"

#include "toolkit/sql/parser.h"
#include "toolkit/sql/parser_limits.h"

using namespace Qt::StringLiterals;

namespace sql {

namespace {

constexpr int maxAliasLevel = 5;

class Binder {
public:
    explicit Binder(const SqlCatalog &sqlCatalog) : catalog(sqlCatalog) {}

    void bind(Select *select)
    {
        const Scope outer = std::exchange(scope, {select, 0});
        for (SelectItem &item : select->items) {
            item.aliasLevel = bind(item.value.get());
            ++scope.visible;
        }
        for (TableRef &ref : select->from) {
            if (ref.derived)
                bind(ref.derived.get());
            bind(ref.on.get());
        }
        bind(select->where.get());
        for (const NodePtr &node : select->groupBy)
            bind(node.get());
        bind(select->having.get());
        for (OrderItem &item : select->orderBy) {
            bind(item.value.get());
            item.item = orderedItem(*select, withoutGroups(*item.value));
        }
        scope = outer;
    }

    // How many aliases unfold within one another below the node.
    int bind(Node *node)
    {
        if (!node)
            return 0;
        int level = 0;
        if (const SelectItem *item = itemOf(*node)) {
            node->bound = item->value.get();
            level = item->aliasLevel + 1;
            if (level > maxAliasLevel)
                refuseDepth();
        }
        for (const NodePtr &child : node->children)
            level = qMax(level, bind(child.get()));
        if (node->select)
            bind(node->select.get());
        return level;
    }

private:
    // The select whose clauses are being looked at, and how many of its items they see.
    struct Scope {
        const Select *select = nullptr;
        size_t visible = 0;
    };

    const SelectItem *itemOf(const Node &node) const
    {
        if (!scope.select || node.kind != NodeKind::Column || !node.qualifier.isEmpty())
            return nullptr;
        for (size_t i = 0; i < scope.visible; ++i) {
            const SelectItem &each = scope.select->items.at(i);
            if (each.alias.isEmpty() || !sameName(each.alias, node.text))
                continue;
            const bool itself = each.value->kind == NodeKind::Column && sameName(each.value->text, node.text);
            return itself || catalog.kindOf(node.text) != ColumnKind::Unknown ? nullptr : &each;
        }
        return nullptr;
    }

    // The number of the item that an order by names, or -1.
    static int orderedItem(const Select &select, const Node &node)
    {
        if (node.kind == NodeKind::Number)
            return numberedItem(select, node);
        if (node.kind != NodeKind::Column || !node.qualifier.isEmpty())
            return -1;
        const auto named =
            std::find_if(select.items.begin(), select.items.end(),
                         [&node](const SelectItem &each) { return sameName(each.alias, node.text); });
        return named == select.items.end() ? -1 : int(named - select.items.begin());
    }

    // What stands at a number behind a star is not known.
    static int numberedItem(const Select &select, const Node &number)
    {
        bool whole = false;
        const int position = number.text.toInt(&whole);
        const auto star = std::find_if(select.items.begin(), select.items.end(), [](const SelectItem &each) {
            return each.value->kind == NodeKind::Star;
        });
        const auto plain = int(star - select.items.begin());
        if (!whole || position < 1 || (position > plain && star == select.items.end()))
            refuse(u"Neatpažintas rikiavimo stulpelis"_s, number.text);
        return position > plain ? -1 : position - 1;
    }

    const SqlCatalog &catalog;
    Scope scope;
};

} // namespace

void bindNames(Statement *statement, const SqlCatalog &catalog)
{
    Binder binder(catalog);
    if (statement->select)
        binder.bind(statement->select.get());
    for (const NodePtr &value : statement->values)
        binder.bind(value.get());
    for (const Assignment &each : statement->assignments)
        binder.bind(each.value.get());
    binder.bind(statement->where.get());
}

} // namespace sql
