#pragma once

#include <QList>
#include <QString>

namespace sql {

enum class TokenKind {
    Word,      // a name or keyword, as written
    Number,    // digits, a point, an exponent
    Literal,   // a text; text holds its inside with the quotes of the wording still doubled
    Parameter, // text is the name without the colon
    Symbol,    // an operator or punctuation
    End
};

struct Token {
    TokenKind kind = TokenKind::End;
    QString text;
    QChar quote;        // of a literal: ' or "
    qsizetype from = 0; // place in the statement
    qsizetype to = 0;
};

// A comment stands before the token with that number.
struct Comment {
    int before = 0;
    QString text; // with its marks
    bool line = false;
};

struct TokenList {
    QList<Token> tokens; // the last one is End
    QList<Comment> comments;
};

// Raises ESqlNotUnderstood for an unended literal or comment and for a sign the dialect does not have.
TokenList tokenize(const QString &statement);

// Compares a word with a keyword given in lower case.
bool isWord(const Token &token, const char *keyword);

} // namespace sql
