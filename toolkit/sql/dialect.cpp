#include "toolkit/sql/dialect.h"

using namespace Qt::StringLiterals;

namespace sql {

namespace {

constexpr FunctionEntry common[] = {
    // aggregates
    {"count", 1, 1, Worth::Number},
    {"sum", 1, 1, Worth::Number},
    {"avg", 1, 1, Worth::Number},
    {"min", 1, 1, Worth::First},
    {"max", 1, 1, Worth::First},
    // the first that is not null
    {"coalesce", 2, 20, Worth::Branches, "coalesce(%*)"},
    {"isnull", 2, 20, Worth::Branches, "coalesce(%*)"},
    {"ifnull", 2, 2, Worth::Branches, "coalesce(%*)"},
    {"nullif", 2, 2, Worth::First},
    // texts; every database of the system has ucase, which knows all letters, and dateformat
    {"ucase", 1, 1, Worth::Text},
    {"upper", 1, 1, Worth::Text, "ucase(%1)"},
    {"dateformat", 2, 2, Worth::Text},
    {"trim", 1, 1, Worth::Text},
    {"ltrim", 1, 1, Worth::Text},
    {"rtrim", 1, 1, Worth::Text},
    {"length", 1, 1, Worth::Number},
    {"substr", 2, 3, Worth::Text},
    {"substring", 2, 3, Worth::Text, "substr(%*)"},
    {"replace", 3, 3, Worth::Text},
    // numbers
    {"abs", 1, 1, Worth::Number},
    {"floor", 1, 1, Worth::Number},
    {"power", 2, 2, Worth::Number},
    // routines that every database of the system has
    {"getdatebyperiodid", 1, 1, Worth::Date},
    {"get_last_per_id", 0, 0, Worth::Number},
    {"getnexttablecolumnid", 3, 3, Worth::Number},
    {"f_checkused", 3, 3, Worth::Number},
    {"checksasinbalform", 2, 2, Worth::Number},
    {"close_per", 0, 0, Worth::Unknown},
    {"back_per", 0, 0, Worth::Unknown},
    {"p_calcdbkrlik", 1, 1, Worth::Unknown},
    {"updmatasmunq", 0, 0, Worth::Unknown},
};

} // namespace

Dialect sqliteDialect();
Dialect postgreSqlDialect();

const Dialect &Dialect::of(SqlDialect dialect)
{
    static const Dialect sqlite = sqliteDialect();
    static const Dialect postgreSql = postgreSqlDialect();
    return dialect == SqlDialect::Sqlite ? sqlite : postgreSql;
}

QSet<QString> wordSet(const char *words)
{
    const QStringList list = QString::fromLatin1(words).split(u' ', Qt::SkipEmptyParts);
    return {list.begin(), list.end()};
}

QString fill(const QString &wording, const QStringList &values)
{
    QString text;
    for (qsizetype i = 0; i < wording.size(); ++i) {
        const QChar next = i + 1 < wording.size() ? wording.at(i + 1) : QChar();
        const bool place = wording.at(i) == u'%';
        if (place && next.isDigit()) {
            text += values.value(next.digitValue() - 1);
        } else if (place && next == u'*') {
            text += values.join(", "_L1);
        } else if (place && next == u'+') {
            for (const QString &value : values.mid(1))
                text += ", "_L1 + value;
        } else {
            text += wording.at(i);
            continue;
        }
        ++i;
    }
    return text;
}

QHash<QString, FunctionRule> withCommonFunctions(std::span<const FunctionEntry> own)
{
    QHash<QString, FunctionRule> rules;
    for (const auto &entries : {std::span<const FunctionEntry>(common), own}) {
        for (const FunctionEntry &each : entries)
            rules.insert(QString::fromLatin1(each.name), {.least = each.least,
                                                          .most = each.most,
                                                          .worth = each.worth,
                                                          .wording = QString::fromLatin1(each.wording),
                                                          .operands = each.operands});
    }
    return rules;
}

QList<CastRule> castRules(std::span<const CastEntry> entries)
{
    QList<CastRule> rules;
    for (const CastEntry &each : entries) {
        for (const QString &type : QString::fromLatin1(each.types).split(u' '))
            rules.append({.type = type,
                          .sizes = each.sizes,
                          .worth = each.worth,
                          .wording = QString::fromLatin1(each.wording).replace("%t"_L1, type)});
    }
    return rules;
}

} // namespace sql
