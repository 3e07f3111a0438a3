#include "toolkit/sql/emitter.h"

#include "toolkit/sql/parser.h"

using namespace Qt::StringLiterals;

namespace sql {

namespace {

// How tightly the emitted words bind, from the loosest on.
enum Level { Or = 1, And, Not, Compare, Bits, Concat, Sum, Product, Sign, Primary };

QString castTo(const QString &type, const QString &text)
{
    return u"cast("_s + text + u" as "_s + type + u')';
}

// Where a refusal of an operator points.
QString pieceOf(const Node &node)
{
    const Node &inner = withoutGroups(node);
    const bool named =
        inner.kind == NodeKind::Column || inner.kind == NodeKind::Call || inner.kind == NodeKind::Case;
    return named ? inner.text : QString();
}

} // namespace

// --- precedence

int Emitter::levelOf(const Node &node)
{
    switch (node.kind) {
    case NodeKind::Column:
        return node.bound ? levelOf(*node.bound) : Primary;
    case NodeKind::Unary:
        return node.text == u"not" ? Not : Sign;
    case NodeKind::IsNull:
    case NodeKind::Like:
    case NodeKind::Between:
    case NodeKind::In:
        return Compare;
    case NodeKind::Binary:
        break;
    default:
        return Primary;
    }
    static const QHash<QString, int> levels{{u"or"_s, Or},     {u"and"_s, And},   {u"&"_s, Bits},
                                            {u"|"_s, Bits},    {u"||"_s, Concat}, {u"-"_s, Sum},
                                            {u"*"_s, Product}, {u"/"_s, Product}};
    if (node.text == u"+")
        return inference.typeOf(node) == ValueType::Text ? Concat : Sum;
    return levels.value(node.text, Compare);
}

// An operand. The engines disagree about the precedence of || & and |, so that nothing is left to it.
QString Emitter::child(const Node &node, int level, bool right)
{
    const int own = levelOf(node);
    const bool loose = own < level || (own == level && (right || level == Compare));
    const bool disputed = own > level && own != Primary && (level == Bits || level == Concat);
    const QString text = expression(node);
    return loose || disputed ? u'(' + text + u')' : text;
}

// --- expressions

QString Emitter::expression(const Node &node)
{
    inference.spend();
    switch (node.kind) {
    case NodeKind::Binary:
        return binaryText(node);
    case NodeKind::IsNull: {
        const QString value = nullTested(*node.children.front());
        return value + u' ' + comments(node.token) + (node.negated ? u"is not null"_s : u"is null"_s);
    }
    case NodeKind::Like:
        return likeText(node);
    case NodeKind::Between:
        return betweenText(node);
    case NodeKind::In:
        return inText(node);
    default: {
        const QString before = comments(node.token);
        return before + prefixText(node);
    }
    }
}

// What begins with its own first token.
QString Emitter::prefixText(const Node &node)
{
    switch (node.kind) {
    case NodeKind::Column:
        return node.bound ? expression(*node.bound) : qualified(node, name(node.text));
    case NodeKind::Star:
        return qualified(node, u"*"_s);
    case NodeKind::Call:
        return callText(node);
    case NodeKind::Cast:
        return castText(node);
    case NodeKind::Unary:
        return unaryText(node);
    case NodeKind::Exists:
        return u"exists ("_s + selectText(*node.select) + u')';
    case NodeKind::Scalar:
        return u'(' + selectText(*node.select) + u')';
    case NodeKind::Case:
        return caseText(node);
    case NodeKind::Group:
        return u'(' + expression(*node.children.front()) + u')';
    case NodeKind::Literal:
        return u'\'' + node.text + u'\'';
    case NodeKind::Null:
        return u"null"_s;
    case NodeKind::Parameter:
        return fill(dialect.parameter, {QString::number(node.position)});
    default:
        return node.text;
    }
}

QString Emitter::qualified(const Node &node, const QString &what) const
{
    return node.qualifier.isEmpty() ? what : name(node.qualifier) + u'.' + what;
}

// --- functions

QString Emitter::callText(const Node &node)
{
    const FunctionRule rule = inference.function(node);
    if (node.distinct && !rule.wording.isEmpty())
        refuse(u"Neatpažintas sakinio žodis"_s, u"distinct"_s);
    const bool asText = rule.worth == Worth::Branches && becomesText(node);
    QStringList arguments;
    for (const NodePtr &each : node.children)
        arguments.append(rule.operands ? child(*each, Sign, true) : branch(*each, asText));
    if (!rule.wording.isEmpty())
        return fill(rule.wording, arguments);
    return node.text + (node.distinct ? u"(distinct "_s : u"("_s) + arguments.join(", "_L1) + u')';
}

// Values of which one is taken: beside a text, all of them are texts.
bool Emitter::becomesText(const Node &node)
{
    return dialect.strictTypes && inference.typeOf(node) == ValueType::Text;
}

QString Emitter::branch(const Node &node, bool asText)
{
    const QString text = expression(node);
    if (!asText || withoutGroups(node).kind == NodeKind::Parameter)
        return text;
    const ValueType type = inference.typeOf(node);
    return type == ValueType::Text || type == ValueType::Null ? text : castTo(u"text"_s, text);
}

QString Emitter::caseText(const Node &node)
{
    const bool asText = becomesText(node);
    QString text = u"case"_s;
    size_t i = 0;
    if (node.hasBase)
        text += u' ' + expression(*node.children.at(i++));
    const size_t end = node.children.size() - (node.hasElse ? 1 : 0);
    for (; i < end; i += 2) {
        text += u" when "_s + expression(*node.children.at(i));
        text += u" then "_s + branch(*node.children.at(i + 1), asText);
    }
    if (node.hasElse)
        text += u" else "_s + branch(*node.children.back(), asText);
    return text + u" end"_s;
}

QString Emitter::castText(const Node &node)
{
    const auto rule = std::ranges::find_if(dialect.casts, [&node](const CastRule &each) {
        return each.type == node.text && each.sizes == int(node.sizes.size());
    });
    if (rule == dialect.casts.end())
        refuse(u"Neatpažintas tipas"_s, node.text);
    QStringList values{expression(*node.children.front())};
    for (int size : node.sizes)
        values.append(QString::number(size));
    return fill(rule->wording, values);
}

// --- operators

QString Emitter::unaryText(const Node &node)
{
    if (node.text == u"not")
        return u"not "_s + child(*node.children.front(), Not, false);
    const QString operand = numberOperand(*node.children.front(), Sign, false);
    const bool joined = operand.startsWith(node.text) || operand.startsWith(u'/');
    return node.text + (joined ? u" "_s : QString()) + operand;
}

QString Emitter::binaryText(const Node &node)
{
    const int level = levelOf(node);
    if (node.text == u"+" || node.text == u"-")
        return sumText(node);
    if (level == Compare)
        return comparisonText(node);
    const Node &first = *node.children.at(0);
    const Node &second = *node.children.at(1);
    if (node.text == u"/") {
        const QString left = numberOperand(first, Or, false);
        const QString before = comments(node.token);
        return fill(dialect.division, {left, before + numberOperand(second, Product, true)});
    }
    QString left, right, before;
    if (level == Bits) {
        left = bitOperand(first);
        before = comments(node.token);
        right = bitOperand(second);
    } else if (level == Product) {
        left = numberOperand(first, level, false);
        before = comments(node.token);
        right = numberOperand(second, level, true);
    } else {
        left = child(first, level, false);
        before = comments(node.token);
        right = child(second, level, true);
    }
    return left + u' ' + before + node.text + u' ' + right;
}

// + joins texts as soon as one side is known to be a text.
QString Emitter::sumText(const Node &node)
{
    const Node &first = *node.children.at(0);
    const Node &second = *node.children.at(1);
    const ValueType left = inference.typeOf(first);
    const ValueType right = inference.typeOf(second);
    const bool joins = node.text == u"+" && (left == ValueType::Text || right == ValueType::Text);
    if (!joins && (left == ValueType::Date || right == ValueType::Date))
        refuse(u"Neatpažintas veiksmas su data"_s, node.text);
    const QString piece = pieceOf(first).isEmpty() ? pieceOf(second) : pieceOf(first);
    if (node.text == u"+" && left == ValueType::Unknown && right == ValueType::Unknown && !piece.isEmpty())
        refuse(u"Neaišku, ar „+“ jungia tekstus"_s, piece);
    const int level = joins ? Concat : Sum;
    const QString leftText = joins ? child(first, level, false) : numberOperand(first, level, false);
    const QString before = comments(node.token);
    const QString rightText = joins ? child(second, level, true) : numberOperand(second, level, true);
    return leftText + u' ' + before + (joins ? u"||"_s : node.text) + u' ' + rightText;
}

QString Emitter::comparisonText(const Node &node)
{
    const Node &first = *node.children.at(0);
    const Node &second = *node.children.at(1);
    const QString left = compared(first, second, Compare, false);
    const QString before = comments(node.token);
    return left + u' ' + before + node.text + u' ' + compared(second, first, Compare, true);
}

// One side of a comparison: a text literal is fitted to the other side, a number beside a text becomes one.
QString Emitter::compared(const Node &node, const Node &other, int level, bool right)
{
    const Node &inner = withoutGroups(node);
    const Node &against = withoutGroups(other);
    const ValueType type = inference.typeOf(inner);
    const ValueType otherType = inference.typeOf(against);
    if (inner.kind == NodeKind::Literal) {
        if (otherType == ValueType::Date)
            return fill(dialect.dateFromText, {expression(node)});
        if (otherType == ValueType::Number && against.kind != NodeKind::Column &&
            !dialect.numberFromText.isEmpty())
            return fill(dialect.numberFromText, {expression(node)});
    }
    if (type == ValueType::Number && otherType == ValueType::Text && against.kind != NodeKind::Literal)
        return castTo(u"text"_s, expression(node));
    return child(node, level, right);
}

QString Emitter::likeText(const Node &node)
{
    const Node &value = *node.children.at(0);
    const Node &pattern = *node.children.at(1);
    QString text = inference.typeOf(value) == ValueType::Text ? child(value, Compare, false)
                                                              : castTo(u"text"_s, expression(value));
    text += u' ' + comments(node.token);
    text += (node.negated ? u"not "_s : QString()) + dialect.like + u' ' + child(pattern, Compare, true);
    if (node.children.size() == 3)
        return text + u" escape "_s + child(*node.children.at(2), Compare, true);
    const Node &inner = withoutGroups(pattern);
    const bool harmless = inner.kind == NodeKind::Literal && !inner.text.contains(u'\\');
    return harmless || dialect.likeNoEscape.isEmpty() ? text : text + u' ' + dialect.likeNoEscape;
}

QString Emitter::betweenText(const Node &node)
{
    const Node &value = *node.children.at(0);
    QString text = child(value, Compare, false);
    text += u' ' + comments(node.token) + (node.negated ? u"not between "_s : u"between "_s);
    text += compared(*node.children.at(1), value, Compare, true);
    return text + u" and "_s + compared(*node.children.at(2), value, Compare, true);
}

QString Emitter::inText(const Node &node)
{
    const Node &value = *node.children.at(0);
    QString text = child(value, Compare, false);
    text += u' ' + comments(node.token) + (node.negated ? u"not in ("_s : u"in ("_s);
    if (node.select)
        return text + selectText(*node.select) + u')';
    QStringList list;
    for (size_t i = 1; i < node.children.size(); ++i)
        list.append(compared(*node.children.at(i), value, Or, false));
    return text + list.join(", "_L1) + u')';
}

// --- operands

// A parameter on its own has no type; beside an operator it would be taken for a whole number.
QString Emitter::numberOperand(const Node &node, int level, bool right)
{
    if (dialect.strictTypes && withoutGroups(node).kind == NodeKind::Parameter)
        return castTo(u"numeric"_s, expression(node));
    return child(node, level, right);
}

QString Emitter::bitOperand(const Node &node)
{
    const NodeKind kind = withoutGroups(node).kind;
    if (kind == NodeKind::Number)
        return expression(node);
    return fill(kind == NodeKind::Call || kind == NodeKind::Case ? dialect.bitResult : dialect.bitOperand,
                {expression(node)});
}

QString Emitter::nullTested(const Node &node)
{
    const Node &inner = withoutGroups(node);
    if (!dialect.strictTypes || inner.kind != NodeKind::Parameter)
        return child(node, Compare, false);
    const ValueType known = inference.parameterType(inner.position);
    const QString type = known == ValueType::Number ? u"numeric"_s
                         : known == ValueType::Date ? u"date"_s
                                                    : u"text"_s;
    return castTo(type, expression(node));
}

} // namespace sql
