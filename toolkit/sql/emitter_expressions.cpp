#include "toolkit/sql/emitter.h"

#include "toolkit/sql/parser.h"

namespace sql {

namespace {

// How tightly the emitted words bind, from the loosest on.
enum Level { Or = 1, And, Not, Compare, Bits, Concat, Sum, Product, Sign, Primary };

const Node &withoutGroups(const Node &node)
{
    const Node *inner = &node;
    while (inner->kind == NodeKind::Group)
        inner = inner->children.front().get();
    return *inner;
}

// Where a refusal of an operator points.
QString pieceOf(const Node &node)
{
    const Node &inner = withoutGroups(node);
    return inner.kind == NodeKind::Column || inner.kind == NodeKind::Call ? inner.text : QString();
}

} // namespace

// --- precedence

int Emitter::levelOf(const Node &node)
{
    switch (node.kind) {
    case NodeKind::Column: {
        const int alias = inference.aliasOf(node);
        if (alias < 0)
            return Primary;
        const Inference::AsItem view(&inference, alias);
        return levelOf(inference.item(alias));
    }
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
    static const QHash<QString, int> levels{{QStringLiteral("or"), Or},     {QStringLiteral("and"), And},
                                            {QStringLiteral("&"), Bits},    {QStringLiteral("|"), Bits},
                                            {QStringLiteral("||"), Concat}, {QStringLiteral("-"), Sum},
                                            {QStringLiteral("*"), Product}, {QStringLiteral("/"), Product}};
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
    case NodeKind::Column:
        return columnText(node);
    case NodeKind::Call:
        return comments(node.token) + callText(node);
    case NodeKind::Cast:
        return comments(node.token) + castText(node);
    case NodeKind::Unary:
        return comments(node.token) + unaryText(node);
    case NodeKind::Binary:
        return binaryText(node);
    case NodeKind::IsNull: {
        const QString value = nullTested(*node.children.front());
        return value + u' ' + comments(node.token) + QLatin1String(node.negated ? "is not null" : "is null");
    }
    case NodeKind::Like:
        return likeText(node);
    case NodeKind::Between:
        return betweenText(node);
    case NodeKind::In:
        return inText(node);
    case NodeKind::Exists: {
        const QString before = comments(node.token);
        return before + QStringLiteral("exists (") + selectText(*node.select) + u')';
    }
    case NodeKind::Scalar: {
        const QString before = comments(node.token);
        return before + u'(' + selectText(*node.select) + u')';
    }
    case NodeKind::Case: {
        const QString before = comments(node.token);
        return before + caseText(node);
    }
    case NodeKind::Group: {
        const QString before = comments(node.token);
        return before + u'(' + expression(*node.children.front()) + u')';
    }
    default:
        return leafText(node);
    }
}

QString Emitter::leafText(const Node &node)
{
    const QString before = comments(node.token);
    switch (node.kind) {
    case NodeKind::Literal:
        return before + u'\'' + node.text + u'\'';
    case NodeKind::Null:
        return before + QStringLiteral("null");
    case NodeKind::Parameter:
        return before + fill(dialect.parameter, {QString::number(node.position)});
    case NodeKind::Star:
        return before + (node.qualifier.isEmpty() ? QString() : name(node.qualifier) + u'.') + u'*';
    default:
        return before + node.text;
    }
}

QString Emitter::columnText(const Node &node)
{
    const QString before = comments(node.token);
    const int alias = inference.aliasOf(node);
    if (alias >= 0) {
        const Inference::AsItem view(&inference, alias);
        return before + expression(inference.item(alias));
    }
    return before + (node.qualifier.isEmpty() ? QString() : name(node.qualifier) + u'.') + name(node.text);
}

// --- functions

QString Emitter::callText(const Node &node)
{
    const QString function = node.text.toLower();
    const size_t count = node.children.size();
    const bool star = count == 1 && node.children.front()->kind == NodeKind::Star;
    if (function == u"count") {
        if (count > 1)
            refuse(QStringLiteral("Netinkamas funkcijos argumentų skaičius"), node.text);
        if (count == 0 || star)
            return QStringLiteral("count(*)");
        return QLatin1String(node.distinct ? "count(distinct " : "count(") +
               expression(*node.children.front()) + u')';
    }
    if (star)
        refuse(QStringLiteral("Neatpažinta funkcija"), node.text + QStringLiteral("(*)"));
    if (function == u"ifnull" && count == 3) {
        const QString tested = nullTested(*node.children.front());
        const QStringList results = branches(node, 1, 1);
        return fill(QStringLiteral("case when %1 is null then %2 else %3 end"),
                    {tested, results.at(0), results.at(1)});
    }
    const FunctionRule rule = inference.function(node);
    if (node.distinct && !rule.wording.isEmpty())
        refuse(QStringLiteral("Neatpažintas sakinio žodis"), QStringLiteral("distinct"));
    QStringList arguments;
    if (rule.worth == Worth::Branches)
        arguments = branches(node, 0, 1);
    else
        for (const NodePtr &each : node.children)
            arguments.append(rule.operands ? child(*each, Sign, true) : expression(*each));
    if (!rule.wording.isEmpty())
        return fill(rule.wording, arguments);
    return node.text + QLatin1String(node.distinct ? "(distinct " : "(") +
           arguments.join(QLatin1String(", ")) + u')';
}

// Values of which one is taken: beside a text, all of them are texts.
QStringList Emitter::branches(const Node &node, size_t from, size_t step)
{
    const bool asText = dialect.strictTypes && inference.typeOf(node) == ValueType::Text;
    QStringList texts;
    for (size_t i = from; i < node.children.size(); i += step)
        texts.append(branch(*node.children.at(i), asText));
    return texts;
}

QString Emitter::branch(const Node &node, bool asText)
{
    const ValueType type = inference.typeOf(node);
    const bool fits = type == ValueType::Text || type == ValueType::Null;
    QString text = expression(node);
    if (!asText || fits || withoutGroups(node).kind == NodeKind::Parameter)
        return text;
    return QStringLiteral("cast(") + text + QStringLiteral(" as text)");
}

QString Emitter::caseText(const Node &node)
{
    const bool asText = dialect.strictTypes && inference.typeOf(node) == ValueType::Text;
    QString text = QStringLiteral("case");
    size_t i = 0;
    if (node.hasBase)
        text += u' ' + expression(*node.children.at(i++));
    const size_t end = node.children.size() - (node.hasElse ? 1 : 0);
    for (; i < end; i += 2) {
        text += QStringLiteral(" when ") + expression(*node.children.at(i));
        text += QStringLiteral(" then ") + branch(*node.children.at(i + 1), asText);
    }
    if (node.hasElse)
        text += QStringLiteral(" else ") + branch(*node.children.back(), asText);
    return text + QStringLiteral(" end");
}

QString Emitter::castText(const Node &node)
{
    for (const CastRule &rule : dialect.casts) {
        if (rule.type != node.text || rule.sizes != int(node.sizes.size()))
            continue;
        QStringList values{expression(*node.children.front())};
        for (int size : node.sizes)
            values.append(QString::number(size));
        return fill(rule.wording, values);
    }
    refuse(QStringLiteral("Neatpažintas tipas"), node.text);
}

// --- operators

QString Emitter::unaryText(const Node &node)
{
    if (node.text == u"not")
        return QStringLiteral("not ") + child(*node.children.front(), Not, false);
    const QString operand = numberOperand(*node.children.front(), Sign, false);
    const bool joined = operand.startsWith(node.text) || operand.startsWith(u'/');
    return node.text + (joined ? QStringLiteral(" ") : QString()) + operand;
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
        refuse(QStringLiteral("Neatpažintas veiksmas su data"), node.text);
    const QString piece = pieceOf(first).isEmpty() ? pieceOf(second) : pieceOf(first);
    if (node.text == u"+" && left == ValueType::Unknown && right == ValueType::Unknown && !piece.isEmpty())
        refuse(QStringLiteral("Neaišku, ar „+“ jungia tekstus"), piece);
    const int level = joins ? Concat : Sum;
    const QString leftText = joins ? child(first, level, false) : numberOperand(first, level, false);
    const QString before = comments(node.token);
    const QString rightText = joins ? child(second, level, true) : numberOperand(second, level, true);
    return leftText + u' ' + before + (joins ? QStringLiteral("||") : node.text) + u' ' + rightText;
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
        return QStringLiteral("cast(") + expression(node) + QStringLiteral(" as text)");
    return child(node, level, right);
}

QString Emitter::likeText(const Node &node)
{
    const Node &value = *node.children.at(0);
    const Node &pattern = *node.children.at(1);
    QString text = inference.typeOf(value) == ValueType::Text
                       ? child(value, Compare, false)
                       : QStringLiteral("cast(") + expression(value) + QStringLiteral(" as text)");
    text += u' ' + comments(node.token);
    text += QLatin1String(node.negated ? "not " : "") + dialect.like + u' ' + child(pattern, Compare, true);
    if (node.children.size() == 3)
        return text + QStringLiteral(" escape ") + child(*node.children.at(2), Compare, true);
    const Node &inner = withoutGroups(pattern);
    const bool harmless = inner.kind == NodeKind::Literal && !inner.text.contains(u'\\');
    return harmless || dialect.likeNoEscape.isEmpty() ? text : text + u' ' + dialect.likeNoEscape;
}

QString Emitter::betweenText(const Node &node)
{
    const Node &value = *node.children.at(0);
    QString text = child(value, Compare, false);
    text += u' ' + comments(node.token) + QLatin1String(node.negated ? "not between " : "between ");
    text += compared(*node.children.at(1), value, Compare, true);
    return text + QStringLiteral(" and ") + compared(*node.children.at(2), value, Compare, true);
}

QString Emitter::inText(const Node &node)
{
    const Node &value = *node.children.at(0);
    QString text = child(value, Compare, false);
    text += u' ' + comments(node.token) + QLatin1String(node.negated ? "not in (" : "in (");
    if (node.select)
        return text + selectText(*node.select) + u')';
    QStringList list;
    for (size_t i = 1; i < node.children.size(); ++i)
        list.append(compared(*node.children.at(i), value, Or, false));
    return text + list.join(QLatin1String(", ")) + u')';
}

// --- operands

// A parameter on its own has no type; beside an operator it would be taken for a whole number.
QString Emitter::numberOperand(const Node &node, int level, bool right)
{
    if (dialect.strictTypes && withoutGroups(node).kind == NodeKind::Parameter)
        return QStringLiteral("cast(") + expression(node) + QStringLiteral(" as numeric)");
    return child(node, level, right);
}

QString Emitter::bitOperand(const Node &node)
{
    const NodeKind kind = withoutGroups(node).kind;
    if (kind == NodeKind::Number)
        return expression(node);
    return fill(kind == NodeKind::Call ? dialect.bitResult : dialect.bitOperand, {expression(node)});
}

QString Emitter::nullTested(const Node &node)
{
    const Node &inner = withoutGroups(node);
    if (!dialect.strictTypes || inner.kind != NodeKind::Parameter)
        return child(node, Compare, false);
    const ValueType type = inference.parameterType(inner.position);
    const char *name = type == ValueType::Number ? "numeric" : type == ValueType::Date ? "date" : "text";
    return QStringLiteral("cast(") + expression(node) + QStringLiteral(" as ") + QLatin1String(name) + u')';
}

} // namespace sql
