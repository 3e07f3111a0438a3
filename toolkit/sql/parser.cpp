#include "toolkit/sql/parser.h"

#include "toolkit/sql/parser_limits.h"

using namespace Qt::StringLiterals;

namespace sql {

Node::~Node() = default;

bool sameName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

const Node &withoutGroups(const Node &node)
{
    const Node *inner = &node;
    while (inner->kind == NodeKind::Group)
        inner = inner->children.front().get();
    return *inner;
}

void refuse(const QString &what, const QString &piece)
{
    throw ESqlNotUnderstood(u"%1: „%2“"_s.arg(what, piece));
}

Statement parse(const TokenList &list)
{
    Parser parser(list);
    return parser.statement();
}

NodePtr parseExpression(const TokenList &list)
{
    Parser parser(list);
    NodePtr node = parser.expression();
    parser.expectEnd();
    return node;
}

// --- tokens

const Token &Parser::token(int ahead) const
{
    return tokens.at(qMin(qsizetype(at) + ahead, tokens.size() - 1));
}

bool Parser::atSymbol(const char *symbol) const
{
    return token().kind == TokenKind::Symbol && token().text == QLatin1StringView(symbol);
}

bool Parser::takeWord(const char *keyword)
{
    if (!atWord(keyword))
        return false;
    ++at;
    return true;
}

bool Parser::takeSymbol(const char *symbol)
{
    if (!atSymbol(symbol))
        return false;
    ++at;
    return true;
}

void Parser::expectWord(const char *keyword)
{
    if (!takeWord(keyword))
        stop();
}

void Parser::expectSymbol(const char *symbol)
{
    if (!takeSymbol(symbol))
        stop();
}

void Parser::stop() const
{
    const Token &here = token();
    switch (here.kind) {
    case TokenKind::End:
        throw ESqlNotUnderstood(u"Sakinys nebaigtas"_s);
    case TokenKind::Literal:
        refuse(u"Netinkamoje sakinio vietoje yra tekstas"_s, here.text);
    case TokenKind::Word:
        refuse(u"Neatpažintas sakinio žodis"_s, here.text);
    case TokenKind::Parameter:
        refuse(u"Netinkamoje sakinio vietoje yra parametras"_s, here.text);
    default:
        refuse(u"Netinkamoje sakinio vietoje yra ženklas"_s, here.text);
    }
}

QString Parser::name()
{
    if (token().kind != TokenKind::Word || isKeyword(token().text))
        stop();
    return tokens.at(at++).text;
}

void Parser::expectEnd()
{
    if (token().kind != TokenKind::End)
        stop();
}

// --- statements

Statement Parser::statement()
{
    Statement statement;
    statement.token = at;
    if (atWord("select")) {
        statement.kind = SqlKind::Select;
        statement.select = select();
    } else if (takeWord("insert")) {
        insertStatement(statement);
    } else if (takeWord("update")) {
        updateStatement(statement);
    } else if (takeWord("delete")) {
        deleteStatement(statement);
    } else if (takeWord("call")) {
        callStatement(statement);
    } else {
        stop();
    }
    statement.commits = takeWord("commit");
    takeSymbol(";");
    expectEnd();
    statement.parameters = parameterNames;
    statement.tables = tableNames;
    return statement;
}

void Parser::insertStatement(Statement &statement)
{
    statement.kind = SqlKind::Insert;
    expectWord("into");
    statement.table = tableName();
    if (takeSymbol("(")) {
        do
            statement.columns.append(name());
        while (takeSymbol(","));
        expectSymbol(")");
    }
    if (atWord("select")) {
        statement.select = select();
        return;
    }
    expectWord("values");
    do
        insertedRow(statement);
    while (takeSymbol(","));
}

void Parser::insertedRow(Statement &statement)
{
    const size_t before = statement.values.size();
    expectSymbol("(");
    do
        statement.values.push_back(expression());
    while (takeSymbol(","));
    const size_t width = statement.values.size() - before;
    if (before > 0 && width != statement.rowWidth)
        stop();
    statement.rowWidth = width;
    expectSymbol(")");
}

void Parser::updateStatement(Statement &statement)
{
    statement.kind = SqlKind::Update;
    statement.table = tableName();
    expectWord("set");
    do {
        Assignment assignment;
        assignment.token = at;
        assignment.column = name();
        expectSymbol("=");
        assignment.value = expression();
        statement.assignments.push_back(std::move(assignment));
    } while (takeSymbol(","));
    if (takeWord("where"))
        statement.where = expression();
}

void Parser::deleteStatement(Statement &statement)
{
    statement.kind = SqlKind::Delete;
    expectWord("from");
    statement.table = tableName();
    if (takeWord("where"))
        statement.where = expression();
}

void Parser::callStatement(Statement &statement)
{
    statement.kind = SqlKind::Call;
    statement.table = name();
    if (!takeSymbol("(") || takeSymbol(")"))
        return;
    do
        statement.values.push_back(expression());
    while (takeSymbol(","));
    expectSymbol(")");
}

QString Parser::tableName()
{
    QString table = name();
    const QString lower = table.toLower();
    if (!tableNames.contains(lower))
        tableNames.append(lower);
    return table;
}

// --- select

static void measure(Select *select)
{
    const auto meet = [select](int depth) { select->depth = qMax(select->depth, depth + 1); };
    const auto meetNode = [&meet](const NodePtr &node) {
        if (node)
            meet(node->depth);
    };
    for (const SelectItem &item : select->items)
        meetNode(item.value);
    for (const TableRef &ref : select->from) {
        meetNode(ref.on);
        if (ref.derived)
            meet(ref.derived->depth);
    }
    meetNode(select->where);
    meetNode(select->having);
    for (const NodePtr &node : select->groupBy)
        meetNode(node);
    for (const OrderItem &item : select->orderBy)
        meetNode(item.value);
    if (select->depth > maxDepth)
        refuseDepth();
}

std::unique_ptr<Select> Parser::select()
{
    const NestingGuard guard(&nesting);
    auto select = std::make_unique<Select>();
    select->token = at;
    expectWord("select");
    select->distinct = takeWord("distinct");
    if (!select->distinct)
        takeWord("all");
    do
        select->items.push_back(selectItem());
    while (takeSymbol(","));
    if (takeWord("from"))
        fromClause(*select);
    if (takeWord("where"))
        select->where = expression();
    if (atWord("group")) {
        ++at;
        expectWord("by");
        do
            select->groupBy.push_back(expression());
        while (takeSymbol(","));
    }
    if (takeWord("having"))
        select->having = expression();
    if (atWord("order"))
        orderByClause(*select);
    select->endToken = at;
    measure(select.get());
    return select;
}

SelectItem Parser::selectItem()
{
    SelectItem item;
    if (atSymbol("*")) {
        item.value = leaf(NodeKind::Star);
        return item;
    }
    if (token().kind == TokenKind::Word && token(1).text == u"." && token(2).text == u"*") {
        const QString qualifier = name();
        ++at;
        item.value = leaf(NodeKind::Star);
        item.value->qualifier = qualifier;
        return item;
    }
    item.value = expression();
    item.alias = optionalAlias();
    return item;
}

QString Parser::optionalAlias()
{
    if (takeWord("as"))
        return name();
    const bool keyJoin = atWord("key") && atWord("join", 1);
    if (token().kind == TokenKind::Word && !isKeyword(token().text) && !keyJoin)
        return name();
    return {};
}

void Parser::fromClause(Select &select)
{
    select.from.push_back(tableRef(JoinKind::First));
    for (;;) {
        JoinKind join = JoinKind::Comma;
        if (takeSymbol(",")) {
            // One stored list has a comma too many at the end of its tables.
            if (atWord("where"))
                break;
            select.from.push_back(tableRef(JoinKind::Comma));
        } else if (joinStarts(&join)) {
            select.from.push_back(tableRef(join));
            joinCondition(select.from.back());
        } else {
            break;
        }
    }
    mergeRepeatedTables(select);
}

TableRef Parser::tableRef(JoinKind join)
{
    TableRef ref;
    ref.join = join;
    ref.token = at;
    if (takeSymbol("(")) {
        ref.derived = select();
        expectSymbol(")");
    } else {
        ref.table = tableName();
    }
    ref.alias = optionalAlias();
    if (ref.derived && ref.alias.isEmpty())
        stop();
    return ref;
}

bool Parser::joinStarts(JoinKind *join)
{
    struct Start {
        const char *word;
        JoinKind join;
        bool outer;
    };
    static constexpr Start starts[] = {{"left", JoinKind::Left, true},    {"right", JoinKind::Right, true},
                                       {"full", JoinKind::Full, true},    {"inner", JoinKind::Inner, false},
                                       {"cross", JoinKind::Cross, false}, {"key", JoinKind::Key, false}};
    if (takeWord("join")) {
        *join = JoinKind::Inner;
        return true;
    }
    for (const Start &start : starts) {
        if (!takeWord(start.word))
            continue;
        if (start.outer)
            takeWord("outer");
        expectWord("join");
        *join = start.join;
        return true;
    }
    return false;
}

void Parser::joinCondition(TableRef &table)
{
    if (table.join == JoinKind::Key || table.join == JoinKind::Cross)
        return;
    expectWord("on");
    table.on = expression();
}

// "t as a left outer join x on …, t as a left outer join y on …" names one instance of t with two joins.
void Parser::mergeRepeatedTables(Select &select) const
{
    const auto sameInstance = [](const TableRef &a, const TableRef &b) {
        return !a.derived && !b.derived && sameName(a.table, b.table) && sameName(a.alias, b.alias);
    };
    std::vector<TableRef> merged;
    size_t insertAt = 0;
    for (TableRef &ref : select.from) {
        const bool startsItem = ref.join == JoinKind::First || ref.join == JoinKind::Comma;
        if (startsItem) {
            const auto first = std::find_if(merged.begin(), merged.end(),
                                            [&](const TableRef &each) { return sameInstance(each, ref); });
            insertAt = merged.size();
            if (first != merged.end()) {
                const auto next = std::find_if(first + 1, merged.end(), [](const TableRef &each) {
                    return each.join == JoinKind::Comma;
                });
                insertAt = size_t(next - merged.begin());
                continue;
            }
        }
        merged.insert(merged.begin() + qsizetype(insertAt++), std::move(ref));
    }
    select.from = std::move(merged);
}

void Parser::orderByClause(Select &select)
{
    select.orderByToken = at++;
    expectWord("by");
    do {
        OrderItem item;
        item.value = expression();
        item.descending = takeWord("desc");
        if (!item.descending)
            takeWord("asc");
        select.orderBy.push_back(std::move(item));
    } while (takeSymbol(","));
}

} // namespace sql
