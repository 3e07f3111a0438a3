#include "toolkit/sql/parser.h"

#include "toolkit/sql/parser_limits.h"

using namespace Qt::StringLiterals;

namespace sql {

// --- making nodes

NodePtr Parser::leaf(NodeKind kind)
{
    auto node = std::make_unique<Node>();
    node->kind = kind;
    node->token = at;
    node->text = tokens.at(at++).text;
    return node;
}

// A node that has got its children.
NodePtr Parser::adopt(NodePtr node)
{
    for (const NodePtr &child : node->children)
        node->depth = qMax(node->depth, child->depth + 1);
    if (node->select)
        node->depth = qMax(node->depth, node->select->depth + 1);
    if (node->depth > maxDepth)
        refuseDepth();
    return node;
}

static NodePtr makeNode(NodeKind kind, int token, NodePtr child = {})
{
    auto node = std::make_unique<Node>();
    node->kind = kind;
    node->token = token;
    if (child)
        node->children.push_back(std::move(child));
    return node;
}

NodePtr Parser::binary(NodePtr left, NodePtr (Parser::*right)())
{
    NodePtr node = makeNode(NodeKind::Binary, at, std::move(left));
    node->text = tokens.at(at++).text.toLower();
    if (node->text == u"!=")
        node->text = u"<>"_s;
    node->children.push_back((this->*right)());
    return adopt(std::move(node));
}

// --- from the loosest to the tightest

NodePtr Parser::expression()
{
    const NestingGuard guard(&nesting);
    return orExpression();
}

NodePtr Parser::orExpression()
{
    NodePtr left = andExpression();
    while (atWord("or"))
        left = binary(std::move(left), &Parser::andExpression);
    return left;
}

NodePtr Parser::andExpression()
{
    NodePtr left = notExpression();
    while (atWord("and"))
        left = binary(std::move(left), &Parser::notExpression);
    return left;
}

NodePtr Parser::notExpression()
{
    if (!atWord("not"))
        return comparison();
    const NestingGuard guard(&nesting);
    NodePtr node = makeNode(NodeKind::Unary, at++);
    node->text = u"not"_s;
    node->children.push_back(notExpression());
    return adopt(std::move(node));
}

NodePtr Parser::comparison()
{
    NodePtr left = bits();
    for (;;) {
        if (atSymbol("=") || atSymbol("<>") || atSymbol("!=") || atSymbol("<") || atSymbol("<=") ||
            atSymbol(">") || atSymbol(">=")) {
            left = binary(std::move(left), &Parser::bits);
        } else if (atWord("is")) {
            NodePtr node = makeNode(NodeKind::IsNull, at++, std::move(left));
            node->negated = takeWord("not");
            expectWord("null");
            left = adopt(std::move(node));
        } else {
            const bool negated = atWord("not");
            const int ahead = negated ? 1 : 0;
            if (!atWord("like", ahead) && !atWord("between", ahead) && !atWord("in", ahead))
                return left;
            at += ahead;
            if (atWord("like"))
                left = like(std::move(left), negated);
            else if (atWord("between"))
                left = between(std::move(left), negated);
            else
                left = inList(std::move(left), negated);
        }
    }
}

NodePtr Parser::like(NodePtr value, bool negated)
{
    NodePtr node = makeNode(NodeKind::Like, at++, std::move(value));
    node->negated = negated;
    node->children.push_back(bits());
    if (takeWord("escape"))
        node->children.push_back(primary());
    return adopt(std::move(node));
}

NodePtr Parser::between(NodePtr value, bool negated)
{
    NodePtr node = makeNode(NodeKind::Between, at++, std::move(value));
    node->negated = negated;
    node->children.push_back(bits());
    expectWord("and");
    node->children.push_back(bits());
    return adopt(std::move(node));
}

NodePtr Parser::inList(NodePtr value, bool negated)
{
    NodePtr node = makeNode(NodeKind::In, at++, std::move(value));
    node->negated = negated;
    expectSymbol("(");
    if (atWord("select")) {
        node->select = select();
    } else {
        do
            node->children.push_back(expression());
        while (takeSymbol(","));
    }
    expectSymbol(")");
    return adopt(std::move(node));
}

NodePtr Parser::bits()
{
    NodePtr left = sum();
    while (atSymbol("&") || atSymbol("|"))
        left = binary(std::move(left), &Parser::sum);
    return left;
}

NodePtr Parser::sum()
{
    NodePtr left = product();
    while (atSymbol("+") || atSymbol("-") || atSymbol("||"))
        left = binary(std::move(left), &Parser::product);
    return left;
}

NodePtr Parser::product()
{
    NodePtr left = sign();
    while (atSymbol("*") || atSymbol("/"))
        left = binary(std::move(left), &Parser::sign);
    return left;
}

NodePtr Parser::sign()
{
    if (!atSymbol("-") && !atSymbol("+"))
        return primary();
    const NestingGuard guard(&nesting);
    NodePtr node = leaf(NodeKind::Unary);
    node->children.push_back(sign());
    return adopt(std::move(node));
}

// --- the leaves

NodePtr Parser::primary()
{
    switch (token().kind) {
    case TokenKind::Number:
        return leaf(NodeKind::Number);
    case TokenKind::Literal: {
        const bool asName = token().quote == u'"';
        NodePtr node = leaf(NodeKind::Literal);
        if (asName)
            node->text.replace("\"\""_L1, "\""_L1).replace("'"_L1, "''"_L1);
        return node;
    }
    case TokenKind::Parameter:
        return parameter();
    case TokenKind::Word:
        return wordExpression();
    default:
        if (!atSymbol("("))
            stop();
        return group();
    }
}

NodePtr Parser::parameter()
{
    NodePtr node = leaf(NodeKind::Parameter);
    const auto sameName = [&node](const QString &known) {
        return known.compare(node->text, Qt::CaseInsensitive) == 0;
    };
    const auto known = std::find_if(parameterNames.cbegin(), parameterNames.cend(), sameName);
    node->position = int(known - parameterNames.cbegin()) + 1;
    if (known == parameterNames.cend())
        parameterNames.append(node->text);
    return node;
}

NodePtr Parser::group()
{
    const int from = at++;
    NodePtr node;
    if (atWord("select")) {
        node = makeNode(NodeKind::Scalar, from);
        node->select = select();
    } else {
        node = makeNode(NodeKind::Group, from, expression());
    }
    expectSymbol(")");
    return adopt(std::move(node));
}

NodePtr Parser::wordExpression()
{
    if (atWord("null"))
        return leaf(NodeKind::Null);
    if (atWord("case"))
        return caseExpression();
    if (atWord("cast"))
        return castExpression();
    if (atWord("exists")) {
        NodePtr node = makeNode(NodeKind::Exists, at++);
        expectSymbol("(");
        node->select = select();
        expectSymbol(")");
        return adopt(std::move(node));
    }
    return callOrColumn();
}

NodePtr Parser::callOrColumn()
{
    const int from = at;
    const QString first = name();
    if (takeSymbol(".")) {
        NodePtr node = makeNode(NodeKind::Column, from);
        node->qualifier = first;
        node->text = name();
        return node;
    }
    if (!takeSymbol("(")) {
        NodePtr node = makeNode(NodeKind::Column, from);
        node->text = first;
        return node;
    }
    return call(from, first);
}

NodePtr Parser::call(int from, const QString &function)
{
    NodePtr node = makeNode(NodeKind::Call, from);
    node->text = function;
    node->distinct = takeWord("distinct");
    if (takeSymbol(")"))
        return plainCall(std::move(node));
    if (atSymbol("*") && !node->distinct) {
        if (!sameName(function, u"count"_s))
            refuse(u"Neatpažinta funkcija"_s, function + u"(*)"_s);
        node->children.push_back(leaf(NodeKind::Star));
    } else {
        do
            node->children.push_back(expression());
        while (takeSymbol(","));
    }
    expectSymbol(")");
    return adopt(plainCall(std::move(node)));
}

// What the dialect words in a way of its own, in words of every engine: count() is count(*), and
// ifnull(a, b, c) is "case when a is null then b else c end".
NodePtr Parser::plainCall(NodePtr node)
{
    if (sameName(node->text, u"count"_s)) {
        node->text = u"count"_s;
        if (node->children.empty())
            node->children.push_back(makeNode(NodeKind::Star, node->token));
    } else if (sameName(node->text, u"ifnull"_s) && node->children.size() == 3 && !node->distinct) {
        node->kind = NodeKind::Case;
        node->hasElse = true;
        node->children.front() =
            adopt(makeNode(NodeKind::IsNull, node->token, std::move(node->children.front())));
    }
    return node;
}

NodePtr Parser::caseExpression()
{
    NodePtr node = makeNode(NodeKind::Case, at++);
    node->hasBase = !atWord("when");
    if (node->hasBase)
        node->children.push_back(expression());
    do {
        expectWord("when");
        node->children.push_back(expression());
        expectWord("then");
        node->children.push_back(expression());
    } while (atWord("when"));
    node->hasElse = takeWord("else");
    if (node->hasElse)
        node->children.push_back(expression());
    expectWord("end");
    return adopt(std::move(node));
}

NodePtr Parser::castExpression()
{
    const int from = at++;
    expectSymbol("(");
    NodePtr node = makeNode(NodeKind::Cast, from, expression());
    expectWord("as");
    node->text = name().toLower();
    if (takeSymbol("(")) {
        do {
            if (token().kind != TokenKind::Number)
                stop();
            bool whole = false;
            node->sizes.push_back(tokens.at(at++).text.toInt(&whole));
            if (!whole || node->sizes.size() > 2)
                stop();
        } while (takeSymbol(","));
        expectSymbol(")");
    }
    expectSymbol(")");
    return adopt(std::move(node));
}

} // namespace sql
