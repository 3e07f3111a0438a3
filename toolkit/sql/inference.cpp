#include "toolkit/sql/inference.h"

#include "toolkit/sql/parser.h"
#include "toolkit/sql/parser_limits.h"

using namespace Qt::StringLiterals;

namespace sql {

namespace {

constexpr int maxSteps = 100000;

ValueType typeOfKind(ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::Number:
        return ValueType::Number;
    case ColumnKind::Code:
    case ColumnKind::Name:
        return ValueType::Text;
    case ColumnKind::Date:
        return ValueType::Date;
    case ColumnKind::Blob:
        return ValueType::Blob;
    case ColumnKind::Unknown:
        break;
    }
    return ValueType::Unknown;
}

} // namespace

// Where the results of a case stand among its children: every second one from here; the last may be an else.
static size_t firstResult(const Node &caseNode)
{
    return caseNode.hasBase ? 2 : 1;
}

void Inference::spend()
{
    if (++spent > maxSteps)
        throw ESqlNotUnderstood(u"Sakinys per ilgas"_s);
}

// --- types

FunctionRule Inference::function(const Node &call) const
{
    const auto rule = dialect.functions.constFind(call.text.toLower());
    if (rule != dialect.functions.constEnd()) {
        const int count = int(call.children.size());
        if (count < rule->least || count > rule->most)
            refuse(u"Netinkamas funkcijos argumentų skaičius"_s, call.text);
        return *rule;
    }
    if (!catalog.isRoutine(call.text))
        refuse(u"Neatpažinta funkcija"_s, call.text);
    return {.most = int(call.children.size())};
}

ValueType Inference::typeOf(const Node &node)
{
    if (node.type == ValueType::NotInferred)
        node.type = inferred(node);
    return node.type;
}

ValueType Inference::inferred(const Node &node)
{
    switch (node.kind) {
    case NodeKind::Number:
        return ValueType::Number;
    case NodeKind::Literal:
        return ValueType::Text;
    case NodeKind::Null:
        return ValueType::Null;
    case NodeKind::Parameter:
    case NodeKind::Star:
        return ValueType::Unknown;
    case NodeKind::Column:
        return node.bound ? typeOf(*node.bound) : typeOfKind(catalog.kindOf(node.text));
    case NodeKind::Call:
        return worthOf(node);
    case NodeKind::Cast: {
        const auto rule = std::ranges::find(dialect.casts, node.text, &CastRule::type);
        return rule == dialect.casts.end() ? ValueType::Unknown : rule->worth;
    }
    case NodeKind::Unary:
        return node.text == u"not" ? ValueType::Truth : ValueType::Number;
    case NodeKind::Binary:
        return binaryType(node);
    case NodeKind::Group:
        return typeOf(*node.children.front());
    case NodeKind::Case:
        return common(node, firstResult(node), 2);
    case NodeKind::Scalar:
        return typeOf(*node.select->items.front().value);
    case NodeKind::IsNull:
    case NodeKind::Like:
    case NodeKind::Between:
    case NodeKind::In:
    case NodeKind::Exists:
        break;
    }
    return ValueType::Truth;
}

ValueType Inference::binaryType(const Node &node)
{
    if (node.text == u"||")
        return ValueType::Text;
    if (node.text == u"+") {
        const ValueType left = typeOf(*node.children.at(0));
        const ValueType right = typeOf(*node.children.at(1));
        return left == ValueType::Text || right == ValueType::Text ? ValueType::Text : ValueType::Number;
    }
    static const QSet<QString> arithmetic{u"-"_s, u"*"_s, u"/"_s, u"&"_s, u"|"_s};
    return arithmetic.contains(node.text) ? ValueType::Number : ValueType::Truth;
}

ValueType Inference::worthOf(const Node &call)
{
    switch (function(call).worth) {
    case Worth::Number:
        return ValueType::Number;
    case Worth::Text:
        return ValueType::Text;
    case Worth::Date:
        return ValueType::Date;
    case Worth::First:
        return typeOf(*call.children.front());
    case Worth::Branches:
        return common(call, 0, 1);
    case Worth::Unknown:
        break;
    }
    return ValueType::Unknown;
}

// The type of a value that is one of several: a text as soon as one of them is.
ValueType Inference::common(const Node &node, size_t from, size_t step)
{
    ValueType type = ValueType::Null;
    const auto meet = [&](const Node &child) {
        const ValueType each = typeOf(child);
        if (each == ValueType::Text || type == ValueType::Null)
            type = each;
    };
    const bool isCase = node.kind == NodeKind::Case;
    const size_t end = node.children.size() - (isCase && node.hasElse ? 1 : 0);
    for (size_t i = from; i < end; i += step)
        meet(*node.children.at(i));
    if (isCase && node.hasElse)
        meet(*node.children.back());
    return type;
}

// --- kinds

ColumnKind Inference::kindOf(const Node &node)
{
    spend();
    switch (node.kind) {
    case NodeKind::Column:
        return node.bound ? kindOf(*node.bound) : catalog.kindOf(node.text);
    case NodeKind::Group:
        return kindOf(*node.children.front());
    case NodeKind::Binary:
    case NodeKind::Cast:
    case NodeKind::Call:
        return typeOf(node) == ValueType::Text ? firstKind(node, 0, 1) : ColumnKind::Unknown;
    case NodeKind::Case:
        return firstKind(node, firstResult(node), 2);
    case NodeKind::Scalar:
        return kindOf(*node.select->items.front().value);
    default:
        return ColumnKind::Unknown;
    }
}

ColumnKind Inference::firstKind(const Node &node, size_t from, size_t step)
{
    for (size_t i = from; i < node.children.size(); i += step) {
        const ColumnKind kind = kindOf(*node.children.at(i));
        if (kind != ColumnKind::Unknown)
            return kind;
    }
    return node.kind == NodeKind::Case && node.hasElse ? kindOf(*node.children.back()) : ColumnKind::Unknown;
}

// --- parameters

ValueType Inference::parameterType(int position)
{
    if (!parametersKnown) {
        parametersKnown = true;
        learn(whole.select.get());
        learn(whole.where.get());
        for (const Assignment &each : whole.assignments)
            learn(each.value.get());
    }
    return parameters.value(position, ValueType::Text);
}

void Inference::learn(const Node *node)
{
    if (!node)
        return;
    if (node->kind == NodeKind::Binary || node->kind == NodeKind::Between || node->kind == NodeKind::Like) {
        // A column beside a parameter tells what the parameter holds.
        ValueType known = ValueType::Unknown;
        for (const NodePtr &child : node->children) {
            if (child->kind == NodeKind::Column)
                known = typeOfKind(catalog.kindOf(child->text));
        }
        for (const NodePtr &child : node->children) {
            if (child->kind == NodeKind::Parameter && known != ValueType::Unknown)
                parameters.insert(child->position, known);
        }
    }
    for (const NodePtr &child : node->children)
        learn(child.get());
    learn(node->select.get());
}

void Inference::learn(const Select *select)
{
    if (!select)
        return;
    for (const SelectItem &each : select->items)
        learn(each.value.get());
    for (const TableRef &ref : select->from) {
        learn(ref.on.get());
        learn(ref.derived.get());
    }
    learn(select->where.get());
    learn(select->having.get());
}

} // namespace sql
