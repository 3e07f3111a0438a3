#pragma once

#include "toolkit/sql/inference.h"
#include "toolkit/sql/tokens.h"

namespace sql {

// Words a parsed statement with bound names for one engine; one per statement.
class Emitter {
public:
    Emitter(const Dialect &engine, const SqlCatalog &sqlCatalog, const TokenList &list,
            const Statement &whole);

    QString statement();
    QString expression(const Node &node);

private:
    // --- statements
    QString insertStatement();
    QString insertedRow(size_t first);
    QString insertedValue(size_t column, const Node &value);
    QString updateStatement();
    QString callStatement();

    // --- selects
    QString selectText(const Select &select);
    QString core(const Select &select, const QStringList &aliases);
    QString joinText(const Select &select, size_t number);
    QString keyJoinCondition(const Select &select, size_t number);

    // --- order by
    static const Node &orderedValue(const Select &select, const OrderItem &item);
    QString orderByClause(const Select &select);
    QString orderText(const Select &select, const OrderItem &item);
    QString plainOrder(const Select &select, const OrderItem &item);
    QString nameKey(const Node &value);
    QString direction(const Select &select, const OrderItem &item) const;
    QString sortedOutside(const Select &select);
    static QString outsideName(const Select &select, const OrderItem &item, QStringList &made);

    // --- expressions
    QString child(const Node &node, int level, bool right);
    QString prefixText(const Node &node);
    QString qualified(const Node &node, const QString &what) const;
    QString callText(const Node &node);
    QString castText(const Node &node);
    QString unaryText(const Node &node);
    QString binaryText(const Node &node);
    QString sumText(const Node &node);
    QString comparisonText(const Node &node);
    QString likeText(const Node &node);
    QString betweenText(const Node &node);
    QString inText(const Node &node);
    QString caseText(const Node &node);
    bool becomesText(const Node &node);
    QString branch(const Node &node, bool asText);
    QString compared(const Node &node, const Node &other, int level, bool right);
    QString numberOperand(const Node &node, int level, bool right);
    QString bitOperand(const Node &node);
    QString nullTested(const Node &node);
    int levelOf(const Node &node);

    QString name(const QString &word) const;
    // The comments that stand before a token and were not yet given out.
    QString comments(int token);

    const Dialect &dialect;
    const SqlCatalog &catalog;
    const TokenList &tokens;
    const Statement &source;
    Inference inference;
    int nextComment = 0;
};

} // namespace sql
