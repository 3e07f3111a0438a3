#include "toolkit/report/expression_parser.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

using Node = TReportExpression::Node;
using NodePtr = std::unique_ptr<Node>;

constexpr int deepestNesting = 100;

// How many arguments each function takes.
const QHash<QString, int> functions = {{u"IF"_s, 3},  {u"COPY"_s, 3}, {u"UPPER"_s, 1},
                                       {u"STR"_s, 1}, {u"SUM"_s, 1},  {u"COUNT"_s, 1}};

class Parser {
public:
    Parser(const QString &expression, std::vector<const Node *> &found) : text(expression), aggregates(found)
    {
    }

    NodePtr parse()
    {
        NodePtr node = comparison();
        skipBlanks();
        if (at < text.size())
            refuse();
        return node;
    }

private:
    [[noreturn]] void refuse() const
    {
        throw EConvertError(u"Neteisinga ataskaitos išraiška „%1“, %2 simbolis"_s.arg(text).arg(at + 1));
    }

    void skipBlanks()
    {
        while (at < text.size() && text[at].isSpace())
            ++at;
    }

    // Takes the first of the given signs that stands here; empty when none does.
    QString take(const QStringList &signs)
    {
        skipBlanks();
        for (const QString &sign : signs) {
            if (QStringView(text).mid(at).startsWith(sign)) {
                at += sign.size();
                return sign;
            }
        }
        return {};
    }

    void demand(const QString &sign)
    {
        if (take({sign}).isEmpty())
            refuse();
    }

    static NodePtr operation(const QString &sign, NodePtr left, NodePtr right)
    {
        auto node = std::make_unique<Node>();
        node->kind = Node::Kind::Operator;
        node->name = sign;
        node->arguments.push_back(std::move(left));
        node->arguments.push_back(std::move(right));
        return node;
    }

    NodePtr comparison()
    {
        if (++depth > deepestNesting)
            refuse();
        NodePtr node = chain({u"+"_s, u"-"_s}, &Parser::product);
        const QString sign = take({u"<>"_s, u"<="_s, u">="_s, u"="_s, u"<"_s, u">"_s});
        if (!sign.isEmpty())
            node = operation(sign, std::move(node), chain({u"+"_s, u"-"_s}, &Parser::product));
        --depth;
        return node;
    }

    NodePtr product() { return chain({u"*"_s, u"/"_s}, &Parser::single); }

    NodePtr chain(const QStringList &signs, NodePtr (Parser::*part)())
    {
        NodePtr node = (this->*part)();
        for (QString sign = take(signs); !sign.isEmpty(); sign = take(signs))
            node = operation(sign, std::move(node), (this->*part)());
        return node;
    }

    NodePtr single()
    {
        skipBlanks();
        if (at >= text.size())
            refuse();
        if (!take({u"("_s}).isEmpty()) {
            NodePtr node = comparison();
            demand(u")"_s);
            return node;
        }
        if (text[at] == u'\'')
            return constant(quotedText());
        if (text[at].isDigit())
            return constant(number());
        return named();
    }

    static NodePtr constant(const QVariant &value)
    {
        auto node = std::make_unique<Node>();
        node->constant = value;
        return node;
    }

    QString quotedText()
    {
        QString content;
        for (++at; at < text.size(); ++at) {
            if (text[at] == u'\'' && (at + 1 >= text.size() || text[at + 1] != u'\'')) {
                ++at;
                return content;
            }
            if (text[at] == u'\'')
                ++at;
            content += text[at];
        }
        refuse();
    }

    double number()
    {
        const qsizetype start = at;
        while (at < text.size() && (text[at].isDigit() || text[at] == u'.'))
            ++at;
        bool valid = false;
        const double value = QStringView(text).mid(start, at - start).toDouble(&valid);
        if (!valid)
            refuse();
        return value;
    }

    NodePtr named()
    {
        const qsizetype start = at;
        while (at < text.size() && (text[at].isLetterOrNumber() || text[at] == u'_'))
            ++at;
        if (at == start)
            refuse();
        auto node = std::make_unique<Node>();
        node->name = text.mid(start, at - start);
        node->kind = Node::Kind::Field;
        return take({u"("_s}).isEmpty() ? std::move(node) : call(std::move(node));
    }

    NodePtr call(NodePtr node)
    {
        node->name = node->name.toUpper();
        const int wanted = functions.value(node->name, -1);
        do
            node->arguments.push_back(comparison());
        while (!take({u","_s}).isEmpty());
        demand(u")"_s);
        if (int(node->arguments.size()) != wanted)
            refuse();
        node->kind = Node::Kind::Function;
        if (node->name == u"SUM" || node->name == u"COUNT") {
            node->kind = Node::Kind::Aggregate;
            node->slot = aggregates.size();
            aggregates.push_back(node.get());
        }
        return node;
    }

    const QString &text;
    std::vector<const Node *> &aggregates;
    qsizetype at = 0;
    int depth = 0;
};

} // namespace

NodePtr parseReportExpression(const QString &text, std::vector<const Node *> &aggregates)
{
    return Parser(text, aggregates).parse();
}
