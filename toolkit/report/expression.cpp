#include "toolkit/report/expression.h"

#include "toolkit/report/expression_parser.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double scale = 10000;
constexpr double largestExact = 9e14; // in ten-thousandths: up to here a double keeps four decimals

bool isText(const QVariant &value)
{
    return value.typeId() == QMetaType::QString;
}

QVariant joinedOrAdded(const QVariant &left, const QVariant &right)
{
    if (isText(left) || isText(right))
        return left.toString() + right.toString();
    return left.toDouble() + right.toDouble();
}

int compared(const QVariant &left, const QVariant &right)
{
    if (isText(left) || isText(right))
        return QString::compare(left.toString(), right.toString());
    const double a = left.toDouble();
    const double b = right.toDouble();
    return (a > b) - (a < b);
}

bool holds(const QString &comparison, int order)
{
    if (comparison == u"=")
        return order == 0;
    if (comparison == u"<>")
        return order != 0;
    if (comparison == u"<")
        return order < 0;
    if (comparison == u">")
        return order > 0;
    return comparison == u"<=" ? order <= 0 : order >= 0;
}

} // namespace

void TExactSum::add(double amount)
{
    const double scaled = amount * scale;
    const bool exact = std::abs(scaled) < largestExact && std::abs(scaled - std::round(scaled)) < 0.01;
    qint64 sum = 0;
    if (exact && !__builtin_add_overflow(tenThousandths, qint64(std::llround(scaled)), &sum))
        tenThousandths = sum;
    else
        rest += amount;
}

double TExactSum::value() const
{
    return double(tenThousandths) / scale + rest;
}

class TReportEvaluation {
public:
    TReportEvaluation(const TReportExpression::Fields &rowFields, const TReportExpression::Totals &rowTotals)
        : fields(rowFields),
          totals(rowTotals)
    {
    }

    QVariant of(const TReportExpression::Node &node) const
    {
        using Kind = TReportExpression::Node::Kind;
        switch (node.kind) {
        case Kind::Constant:
            return node.constant;
        case Kind::Field:
            return fields(node.name);
        case Kind::Operator:
            return operation(node);
        case Kind::Function:
            return function(node);
        case Kind::Aggregate:
            return node.slot < totals.size() ? totals[node.slot].value() : 0.0;
        }
        Q_UNREACHABLE();
    }

private:
    QVariant operation(const TReportExpression::Node &node) const
    {
        const QVariant left = of(*node.arguments[0]);
        const QVariant right = of(*node.arguments[1]);
        if (node.name == u"+")
            return joinedOrAdded(left, right);
        if (node.name == u"-")
            return left.toDouble() - right.toDouble();
        if (node.name == u"*")
            return left.toDouble() * right.toDouble();
        if (node.name == u"/")
            return right.toDouble() == 0 ? QVariant() : QVariant(left.toDouble() / right.toDouble());
        return holds(node.name, compared(left, right));
    }

    QVariant function(const TReportExpression::Node &node) const
    {
        if (node.name == u"IF")
            return of(*node.arguments[of(*node.arguments[0]).toBool() ? 1 : 2]);
        const QVariant first = of(*node.arguments[0]);
        if (node.name == u"COPY")
            return first.toString().mid(of(*node.arguments[1]).toInt() - 1, of(*node.arguments[2]).toInt());
        if (node.name == u"UPPER")
            return first.toString().toUpper();
        return first.toString(); // STR
    }

    const TReportExpression::Fields &fields;
    const TReportExpression::Totals &totals;
};

TReportExpression::TReportExpression(const QString &text) : root(parseReportExpression(text, aggregates)) {}
TReportExpression::~TReportExpression() = default;
TReportExpression::TReportExpression(TReportExpression &&) noexcept = default;
TReportExpression &TReportExpression::operator=(TReportExpression &&) noexcept = default;

TReportExpression::Totals TReportExpression::freshTotals() const
{
    return Totals(aggregates.size());
}

void TReportExpression::accumulate(const Fields &row, Totals &totals) const
{
    for (const Node *aggregate : aggregates)
        totals[aggregate->slot].add(
            aggregate->name == u"COUNT"
                ? 1
                : TReportEvaluation(row, totals).of(*aggregate->arguments[0]).toDouble());
}

QVariant TReportExpression::value(const Fields &row, const Totals &totals) const
{
    return TReportEvaluation(row, totals).of(*root);
}
