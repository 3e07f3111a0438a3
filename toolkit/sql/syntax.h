#pragma once

#include "toolkit/sql/translator.h"

#include <optional>
#include <vector>

// The parsed statement. Nothing in it belongs to an engine.
namespace sql {

enum class NodeKind {
    Number,    // text: the digits as written
    Literal,   // text: the inside, a quote doubled as ' needs it
    Null,      //
    Parameter, // position
    Column,    // qualifier, text
    Star,      // qualifier; the * of a select list or of count(*)
    Call,      // text: the function; children: arguments; distinct
    Cast,      // text: the type; sizes; one child
    Unary,     // text: - + or not
    Binary,    // text: the operator; two children
    IsNull,    // negated; one child
    Like,      // negated; value, pattern and perhaps the escape sign
    Between,   // negated; value, low, high
    In,        // negated; value, then the list; or one child and a select
    Exists,    // select
    Scalar,    // a select between parentheses
    Case, // hasBase: base; pairs of condition and result; hasElse: the last one; text: what it was worded as
    Group // one child between parentheses
};

// What an expression is worth, as far as a translation must know.
enum class ValueType { NotInferred, Unknown, Number, Text, Date, Blob, Truth, Null };

struct Select;

struct Node {
    NodeKind kind = NodeKind::Null;
    int token = 0; // the number of its first token
    int depth = 1; // of the tree below it, itself included
    QString text;
    QString qualifier;
    int position = 0;
    bool negated = false;
    bool distinct = false;
    bool hasBase = false;
    bool hasElse = false;
    std::vector<int> sizes;
    std::vector<std::unique_ptr<Node>> children;
    std::unique_ptr<Select> select;
    const Node *bound = nullptr; // of a column that is an alias: what it stands for
    mutable ValueType type = ValueType::NotInferred;

    ~Node();
};

using NodePtr = std::unique_ptr<Node>;

struct SelectItem {
    NodePtr value;
    QString alias;      // empty when it has none
    int aliasLevel = 0; // how many aliases unfold within one another in it
};

enum class JoinKind { First, Comma, Inner, Left, Right, Full, Cross, Key };

// One table of a from clause and how it joins what stands before it.
struct TableRef {
    JoinKind join = JoinKind::First;
    int token = 0;
    QString table;
    std::unique_ptr<Select> derived; // instead of a table: a select between parentheses
    QString alias;
    NodePtr on;
};

struct OrderItem {
    NodePtr value;
    bool descending = false;
    int item = -1; // the number of the select's item that it names, or -1
};

struct Select {
    int token = 0;
    int depth = 1; // of the trees in it
    bool distinct = false;
    std::vector<SelectItem> items;
    std::vector<TableRef> from;
    NodePtr where;
    std::vector<NodePtr> groupBy;
    NodePtr having;
    std::vector<OrderItem> orderBy;
    int orderByToken = -1; // the number of the word order
    int endToken = 0;      // the first token after the select
};

struct Assignment {
    int token = 0;
    QString column;
    NodePtr value;
};

struct Statement {
    SqlKind kind = SqlKind::Select;
    std::unique_ptr<Select> select; // of a select, or the source of an insert
    int token = 0;
    QString table;               // of insert, update and delete; the routine of a call
    QStringList columns;         // of an insert; empty when none are named
    std::vector<NodePtr> values; // of an insert, row behind row, or the arguments of a call
    size_t rowWidth = 0;         // values of each row of an insert
    std::vector<Assignment> assignments;
    NodePtr where;
    QStringList parameters;
    QStringList tables;
    bool commits = false;
};

bool sameName(const QString &a, const QString &b);

// What stands inside of parentheses.
const Node &withoutGroups(const Node &node);

} // namespace sql
