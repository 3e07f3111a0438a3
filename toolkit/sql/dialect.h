#pragma once

#include "toolkit/sql/syntax.h"

#include <QHash>
#include <QSet>

#include <span>

namespace sql {

// What a function is worth.
enum class Worth { Number, Text, Date, Unknown, First, Branches };

// One function of the dialect. The wording holds %1, %2 … for the arguments, %* for all of them and %+ for
// those after the first, each with its comma; empty: the name as it was written before all of them.
struct FunctionRule {
    int least = 0;
    int most = 0;
    Worth worth = Worth::Unknown;
    QString wording;
    bool operands = false; // the wording puts the arguments beside operators: they need parentheses
};

// The same as a line of a table.
struct FunctionEntry {
    const char *name;
    int least = 0;
    int most = 0;
    Worth worth = Worth::Unknown;
    const char *wording = "";
    bool operands = false;
};

// One type of a cast. The wording holds %1 for the value, %2 and %3 for the sizes.
struct CastRule {
    QString type;
    int sizes = 0; // how many sizes the rule takes
    ValueType worth = ValueType::Unknown;
    QString wording;
};

// The same rule for several types, parted by blanks, as a line of a table; %t is the type.
struct CastEntry {
    const char *types;
    int sizes = 0;
    ValueType worth = ValueType::Unknown;
    const char *wording;
};

// Everything in which the engines differ. A statement is parsed and emitted by the same code for both; what
// is said about an engine is said in its table only.
struct Dialect {
    QHash<QString, FunctionRule> functions; // by name in lower case
    QList<CastRule> casts;
    QSet<QString> reserved;            // names that need quotes, lower case
    QString quotedName;                // how such a name is quoted
    QString parameter;                 // how the position %1 is marked
    QString division;                  // a quotient is never cut to a whole number
    QString bitOperand;                // & and | want whole numbers
    QString bitResult;                 // the same for what a function gives: one too large has no low bits
    QString call;                      // the routine %1 with the arguments %2
    QString like;                      // the operator that ignores the case of ASCII letters
    QString likeNoEscape;              // what follows it so that no sign of a pattern has a second meaning
    QString numberFromText;            // a text literal beside a computed number
    QString dateFromText;              // a text literal beside a date
    QString nameKey;                   // the sort key of the computed text %1
    bool columnKey = false;            // the sort key of a plain column is sortKeyExpression()
    bool nullsFirst = false;           // an ascending order has its nulls first unasked
    bool distinctSortsOutside = false; // select distinct can only be ordered by what it selects
    bool strictTypes = false;          // texts and numbers do not meet without a cast; parameters need a type
    bool nullGivesKey = false;         // NULL for a key makes the database give one
    bool nestedComments = false;

    static const Dialect &of(SqlDialect dialect);
};

// The engine's own functions together with those that both engines say alike.
QHash<QString, FunctionRule> withCommonFunctions(std::span<const FunctionEntry> own);
QList<CastRule> castRules(std::span<const CastEntry> entries);
QSet<QString> wordSet(const char *words);

// The wording with its places filled; what the values hold is not looked into.
QString fill(const QString &wording, const QStringList &values);

} // namespace sql
