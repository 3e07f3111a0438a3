#pragma once

#include "toolkit/sql/dialect.h"

namespace sql {

// What the expressions of a statement with bound names are worth.
class Inference {
public:
    Inference(const Dialect &engine, const SqlCatalog &sqlCatalog, const Statement &statement)
        : dialect(engine),
          catalog(sqlCatalog),
          whole(statement)
    {
    }

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
    QHash<int, ValueType> parameters;
    bool parametersKnown = false;
    int spent = 0;
};

} // namespace sql
