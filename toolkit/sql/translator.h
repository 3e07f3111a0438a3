#pragma once

#include "toolkit/text/errors.h"

#include <QHash>
#include <QStringList>

#include <memory>

// Statements are worded once, in the system's own dialect, and translated for the engine that runs them.
enum class SqlDialect { Sqlite, PostgreSql };

// What a column holds, as far as a translation needs to know: texts join with +, names are ordered by
// Lithuanian collation, codes by code point.
enum class ColumnKind { Unknown, Number, Code, Name, Date, Blob };

// Knows the columns of the database that a statement runs on. Names are case-insensitive; the columns of the
// schema carry a table prefix, so a name alone tells the column.
class SqlCatalog {
public:
    virtual ~SqlCatalog() = default;
    virtual ColumnKind kindOf(const QString &column) const = 0;
};

enum class SqlKind { Select, Insert, Update, Delete, Call };

// A statement as the engine takes it.
struct TranslatedSql {
    SqlKind kind = SqlKind::Select;
    QString text;           // parameters stand as ?1, ?2 … (SQLite) or $1, $2 … (PostgreSQL)
    QStringList parameters; // the name of each position, without the colon; a name used twice has one position
    QStringList tables;     // the tables it names, lower case, in order of appearance
    bool commits = false;   // the wording ended in the word commit
};

// A statement that the dialect does not know; the message names the piece that stopped it.
class ESqlNotUnderstood : public Exception {
public:
    using Exception::Exception;
};

// Translates and remembers. Not thread-safe: one per session.
class SqlTranslator {
public:
    // catalog must outlive the translator.
    SqlTranslator(SqlDialect dialect, const SqlCatalog &catalog);
    ~SqlTranslator();

    // The engine's wording of a statement; the reference stays valid until clear().
    // Raises ESqlNotUnderstood; the inside of a literal or comment is never changed.
    const TranslatedSql &translate(const QString &statement);

    // Forgets what is cached, for instance after the catalogue changed.
    void clear();

private:
    SqlDialect dialect;
    const SqlCatalog &catalog;
    QHash<QString, std::shared_ptr<const TranslatedSql>> cache;
};

// The same select with its outermost order by clause replaced (or added): ordered by the given column.
// Raises ESqlNotUnderstood when the statement is no select.
QString withOrderBy(const QString &statement, const QString &column, bool descending);
