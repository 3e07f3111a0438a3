#include "toolkit/sql/parser_limits.h"

#include "toolkit/sql/translator.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace sql {

bool isKeyword(const QString &word)
{
    static const QSet<QString> keywords = [] {
        static const char *const words[] = {
            "all",    "and",    "as",     "asc",    "between",  "by",     "call",   "case",   "cast",
            "commit", "cross",  "delete", "desc",   "distinct", "else",   "end",    "escape", "exists",
            "from",   "full",   "group",  "having", "in",       "inner",  "insert", "into",   "is",
            "join",   "left",   "like",   "not",    "null",     "on",     "or",     "order",  "outer",
            "right",  "select", "set",    "then",   "union",    "update", "values", "when",   "where"};
        QSet<QString> set;
        for (const char *each : words)
            set.insert(QLatin1String(each));
        return set;
    }();
    return word.size() <= 8 && keywords.contains(word.toLower());
}

void refuseDepth()
{
    throw ESqlNotUnderstood(u"Sakinio sandara per gili"_s);
}

} // namespace sql
