#pragma once

#include "toolkit/report/expression.h"

struct TReportExpression::Node {
    enum class Kind { Constant, Field, Operator, Function, Aggregate };
    Kind kind = Kind::Constant;
    QString name; // of a field, operator or function; functions in upper case
    QVariant constant;
    std::vector<std::unique_ptr<Node>> arguments;
    size_t slot = 0; // of an aggregate: its running total
};

// The tree of an expression; its aggregates are listed in order of their slots. Raises EConvertError.
std::unique_ptr<TReportExpression::Node>
parseReportExpression(const QString &text, std::vector<const TReportExpression::Node *> &aggregates);
