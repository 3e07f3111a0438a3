#include "toolkit/sql/translator.h"

#include "toolkit/sql/bind.h"
#include "toolkit/sql/emitter.h"
#include "toolkit/sql/parser.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype cacheSize = 1000;

std::shared_ptr<const TranslatedSql> translated(const QString &text, SqlDialect dialect,
                                                const SqlCatalog &catalog)
{
    const sql::TokenList words = sql::tokenize(text);
    sql::Statement statement = sql::parse(words);
    sql::bindNames(&statement, catalog);
    auto result = std::make_shared<TranslatedSql>();
    result->kind = statement.kind;
    result->text = sql::Emitter(sql::Dialect::of(dialect), catalog, words, statement).statement();
    result->parameters = statement.parameters;
    result->tables = statement.tables;
    result->commits = statement.commits;
    return result;
}

} // namespace

SqlTranslator::SqlTranslator(SqlDialect sqlDialect, const SqlCatalog &sqlCatalog)
    : dialect(sqlDialect),
      catalog(sqlCatalog)
{
}

SqlTranslator::~SqlTranslator() = default;

const TranslatedSql &SqlTranslator::translate(const QString &statement)
{
    if (const auto known = recent.constFind(statement); known != recent.constEnd())
        return **known;
    std::shared_ptr<const TranslatedSql> result = older.take(statement);
    if (!result)
        result = translated(statement, dialect, catalog);
    if (recent.size() >= cacheSize)
        older = std::exchange(recent, {});
    return **recent.insert(statement, result);
}

void SqlTranslator::clear()
{
    recent.clear();
    older.clear();
}

QString withOrderBy(const QString &statement, const QString &column, bool descending)
{
    const sql::TokenList words = sql::tokenize(statement);
    const sql::Statement parsed = sql::parse(words);
    if (parsed.kind != SqlKind::Select)
        sql::refuse(u"Rikiuoti galima tik parinkimą"_s, statement.left(40));
    const sql::TokenList target = sql::tokenize(column);
    const sql::NodePtr node = sql::parseExpression(target);
    if (node->kind != sql::NodeKind::Column || !target.comments.isEmpty())
        sql::refuse(u"Neatpažintas rikiavimo stulpelis"_s, column);
    const int last = parsed.select->orderByToken >= 0 ? parsed.select->orderByToken : parsed.select->endToken;
    const qsizetype end = last > 0 ? words.tokens.at(last - 1).to : 0;
    return statement.left(end) + u" order by "_s + column.trimmed() + (descending ? u" desc"_s : QString());
}
