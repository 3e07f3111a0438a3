#include "toolkit/sql/tokens.h"

#include "toolkit/sql/translator.h"

using namespace Qt::StringLiterals;

namespace sql {

namespace {

bool startsName(QChar c)
{
    return c.isLetter() || c == u'_';
}

bool continuesName(QChar c)
{
    return startsName(c) || c.isDigit();
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

class Tokenizer {
public:
    explicit Tokenizer(const QString &statement) : text(statement)
    {
        list.tokens.reserve(text.size() / 4 + 2);
    }

    TokenList run()
    {
        if (text.contains(QChar(0)) || !text.isValidUtf16())
            throw ESqlNotUnderstood(u"Sakinyje yra neleistinas ženklas"_s);
        while (skipBlanksAndComments(), at < text.size())
            readToken();
        add(TokenKind::End, at, {});
        return std::move(list);
    }

private:
    QChar peek(qsizetype ahead = 0) const
    {
        return at + ahead < text.size() ? text.at(at + ahead) : QChar(0);
    }

    void add(TokenKind kind, qsizetype from, const QString &inside, QChar quote = {})
    {
        list.tokens.append({kind, inside, quote, from, at});
    }

    void skipBlanksAndComments()
    {
        while (at < text.size()) {
            if (peek().isSpace())
                ++at;
            else if (peek() == u'-' && peek(1) == u'-')
                readComment(u"\n"_s, true);
            else if (peek() == u'/' && peek(1) == u'*')
                readComment(u"*/"_s, false);
            else
                return;
        }
    }

    void readComment(const QString &end, bool line)
    {
        const qsizetype from = at;
        const qsizetype stop = text.indexOf(end, at + 2);
        if (stop < 0 && !line)
            throw ESqlNotUnderstood(u"Nebaigtas paaiškinimas: %1"_s.arg(text.mid(from, 40)));
        at = stop < 0 ? text.size() : line ? stop : stop + end.size();
        list.comments.append({int(list.tokens.size()), text.mid(from, at - from), line});
    }

    void readToken()
    {
        const QChar c = peek();
        if (startsName(c))
            readName(TokenKind::Word, at);
        else if (isDigit(c) || (c == u'.' && isDigit(peek(1))))
            readNumber();
        else if (c == u'\'' || c == u'"')
            readLiteral(c);
        else if (c == u':' && continuesName(peek(1)))
            readName(TokenKind::Parameter, ++at);
        else
            readSymbol();
    }

    void readName(TokenKind kind, qsizetype from)
    {
        while (continuesName(peek()))
            ++at;
        add(kind, from, text.mid(from, at - from));
    }

    void readNumber()
    {
        const qsizetype from = at;
        const auto digits = [this] {
            for (; isDigit(peek()); ++at) {
            }
        };
        digits();
        if (peek() == u'.') {
            ++at;
            digits();
        }
        if (peek().toLower() == u'e') {
            const bool sign = peek(1) == u'+' || peek(1) == u'-';
            if (isDigit(peek(sign ? 2 : 1))) {
                at += sign ? 2 : 1;
                digits();
            }
        }
        if (continuesName(peek()) || peek() == u'.')
            throw ESqlNotUnderstood(u"Neatpažintas skaičius: „%1“"_s.arg(text.mid(from, 20)));
        add(TokenKind::Number, from, text.mid(from, at - from));
    }

    void readLiteral(QChar quote)
    {
        const qsizetype from = at++;
        for (; at < text.size(); ++at) {
            if (peek() != quote)
                continue;
            if (peek(1) != quote) {
                ++at;
                add(TokenKind::Literal, from, text.mid(from + 1, at - from - 2), quote);
                return;
            }
            ++at;
        }
        throw ESqlNotUnderstood(u"Nebaigtas tekstas: %1"_s.arg(text.mid(from, 40)));
    }

    void readSymbol()
    {
        static const char *const symbols[] = {"<>", "<=", ">=", "!=", "||", "(", ")", ",", ".", "+",
                                              "-",  "*",  "/",  "=",  "<",  ">", "&", "|", ";"};
        const QStringView rest = QStringView(text).mid(at, 2);
        for (const char *symbol : symbols) {
            const QLatin1String known(symbol);
            if (rest.startsWith(known)) {
                at += known.size();
                add(TokenKind::Symbol, at - known.size(), known);
                return;
            }
        }
        throw ESqlNotUnderstood(u"Neatpažintas sakinio ženklas: „%1“"_s.arg(peek()));
    }

    const QString &text;
    qsizetype at = 0;
    TokenList list;
};

} // namespace

TokenList tokenize(const QString &statement)
{
    return Tokenizer(statement).run();
}

bool isWord(const Token &token, const char *keyword)
{
    const QLatin1String word(keyword);
    return token.kind == TokenKind::Word && token.text.size() == word.size() &&
           token.text.compare(word, Qt::CaseInsensitive) == 0;
}

} // namespace sql
