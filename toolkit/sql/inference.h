#pragma once

#include "toolkit/sql/dialect.h"

namespace sql {

// What expressions are worth, and what the aliases of a select mean in its other clauses.
class Inference {
public:
    Inference(const Dialect &engine, const SqlCatalog &sqlCatalog, const Statement &statement)
        : dialect(engine),
          catalog(sqlCatalog),
          whole(statement)
    {
    }

    // The select whose clauses are being looked at; the innermost one counts.
    void enter(const Select &select) { scopes.push_back({&select, 0}); }
    void leave() { scopes.pop_back(); }

    // Shows the first items of the select by their aliases.
    void showAliases(size_t count) { scopes.back().visible = count; }

    // The number of the visible item that a name is the alias of, or -1. A column of the schema goes before.
    int aliasOf(const Node &node) const;
    const Node &item(int number) const { return *scopes.back().select->items.at(size_t(number)).value; }

    // Looks at an item from the place where it stands, for as long as it lives.
    class AsItem {
    public:
        AsItem(Inference *inference, int number);
        ~AsItem();
        AsItem(const AsItem &) = delete;
        AsItem &operator=(const AsItem &) = delete;

    private:
        Inference *inference;
        size_t shown;
    };

    ValueType typeOf(const Node &node);

    // What an order by the expression follows: the kind of its leftmost column.
    ColumnKind kindOf(const Node &node);

    // What the other places of a parameter say it holds; Text when they say nothing.
    ValueType parameterType(int position);

    // Counts one step; refuses a statement whose aliases unfold without measure.
    void spend();

    // Known by name, or else refused.
    FunctionRule function(const Node &call) const;

private:
    struct Scope {
        const Select *select;
        size_t visible;
    };

    ValueType inferred(const Node &node);
    ValueType worthOf(const Node &call);
    ValueType binaryType(const Node &node);
    ValueType common(const Node &node, size_t from, size_t step);
    ColumnKind firstKind(const Node &node, size_t from, size_t step);
    void learn(const Node *node);
    void learn(const Select *select);

    const Dialect &dialect;
    const SqlCatalog &catalog;
    const Statement &whole;
    std::vector<Scope> scopes;
    QHash<int, ValueType> parameters;
    bool parametersKnown = false;
    int aliasLevel = 0;
    int spent = 0;
};

// Where the results of a case stand among its children: first, and how far apart; the last one may be an
// else.
size_t firstResult(const Node &caseNode);

} // namespace sql
