#pragma once

#include "toolkit/sql/syntax.h"
#include "toolkit/sql/tokens.h"

namespace sql {

// Parses one statement. Raises ESqlNotUnderstood naming the piece that stopped it.
Statement parse(const TokenList &list);

// Refuses a piece of the statement by name.
[[noreturn]] void refuse(const QString &what, const QString &piece);

// A condition or other expression on its own, as the catalogue words a join.
NodePtr parseExpression(const TokenList &list);

// Reads the tokens from the first to the last; one per statement.
class Parser {
public:
    explicit Parser(const TokenList &list) : tokens(list.tokens) {}

    Statement statement();
    NodePtr expression();
    void expectEnd();

private:
    // --- tokens
    const Token &token(int ahead = 0) const;
    bool atWord(const char *keyword, int ahead = 0) const { return isWord(token(ahead), keyword); }
    bool atSymbol(const char *symbol) const;
    bool takeWord(const char *keyword);
    bool takeSymbol(const char *symbol);
    void expectWord(const char *keyword);
    void expectSymbol(const char *symbol);
    QString name(); // a word that is no keyword of the dialect
    [[noreturn]] void stop() const;

    // --- statements
    void insertStatement(Statement &statement);
    void insertedRow(Statement &statement);
    void updateStatement(Statement &statement);
    void deleteStatement(Statement &statement);
    void callStatement(Statement &statement);
    std::unique_ptr<Select> select();
    SelectItem selectItem();
    void fromClause(Select &select);
    TableRef tableRef(JoinKind join);
    bool joinStarts(JoinKind *join);
    void joinCondition(TableRef &table);
    void orderByClause(Select &select);
    QString optionalAlias();
    QString tableName();
    void mergeRepeatedTables(Select &select) const;

    // --- expressions, from the loosest binding to the tightest
    NodePtr orExpression();
    NodePtr andExpression();
    NodePtr notExpression();
    NodePtr comparison();
    NodePtr bits();
    NodePtr sum();
    NodePtr product();
    NodePtr sign();
    NodePtr primary();
    NodePtr wordExpression();
    NodePtr callOrColumn();
    NodePtr call(int from, const QString &function);
    static NodePtr plainCall(NodePtr node);
    NodePtr caseExpression();
    NodePtr castExpression();
    NodePtr group();
    NodePtr inList(NodePtr value, bool negated);
    NodePtr like(NodePtr value, bool negated);
    NodePtr between(NodePtr value, bool negated);
    NodePtr parameter();
    NodePtr binary(NodePtr left, NodePtr (Parser::*right)());
    NodePtr leaf(NodeKind kind);
    static NodePtr adopt(NodePtr node);

    const QList<Token> &tokens;
    int at = 0;
    int nesting = 0;
    QStringList parameterNames;
    QStringList tableNames;
    friend class NestingGuard;
};

} // namespace sql
