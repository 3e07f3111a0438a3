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

    // What "key join" joins two tables on, worded in the dialect ("sml_perid = per_id"); empty when no
    // foreign key leads from the one to the other.
    virtual QString joinCondition(const QString &left, const QString &right) const
    {
        Q_UNUSED(left)
        Q_UNUSED(right)
        return {};
    }

    // The columns of a table in their order; empty for a table that is not known.
    virtual QStringList columnNames(const QString &table) const
    {
        Q_UNUSED(table)
        return {};
    }

    // True for a key that the database gives itself when NULL is written.
    virtual bool isGivenByDatabase(const QString &table, const QString &column) const
    {
        Q_UNUSED(table)
        Q_UNUSED(column)
        return false;
    }

    // True for a column that cannot be null. An index over a column serves an order by on PostgreSQL only
    // when this is known, or when the index itself has its nulls first.
    virtual bool isRequired(const QString &column) const
    {
        Q_UNUSED(column)
        return false;
    }

    // True for a function of the schema beyond those that the dialect itself names.
    virtual bool isRoutine(const QString &name) const
    {
        Q_UNUSED(name)
        return false;
    }
};

enum class SqlKind { Select, Insert, Update, Delete, Call };

// A statement as the engine takes it.
struct TranslatedSql {
    SqlKind kind = SqlKind::Select;
    QString text; // parameters stand as ?1, ?2 … (SQLite) or $1, $2 … (PostgreSQL)
    QStringList
        parameters;       // the name of each position, without the colon; a name used twice has one position
    QStringList tables;   // the tables it names, lower case, in order of appearance
    bool commits = false; // the wording ended in the word commit
};

// A statement that the dialect does not know; the message names the piece that stopped it.
class ESqlNotUnderstood : public Exception {
public:
    using Exception::Exception;
};

// Translates and remembers. Not thread-safe: one per session.
//
// The differences between the engines stand in one table per engine (dialect_sqlite.cpp,
// dialect_postgresql.cpp). A third dialect, one that passes statements untouched to a server that speaks them
// itself, would be a third table with every rule off.
class SqlTranslator {
public:
    // catalog must outlive the translator.
    SqlTranslator(SqlDialect dialect, const SqlCatalog &catalog);
    ~SqlTranslator();

    // The engine's wording of a statement; the reference stays valid until clear(), and at least until a
    // thousand other statements were translated.
    // Raises ESqlNotUnderstood; the inside of a literal or comment is never changed.
    const TranslatedSql &translate(const QString &statement);

    // Forgets what is cached, for instance after the catalogue changed.
    void clear();

private:
    SqlDialect dialect;
    const SqlCatalog &catalog;
    using Cache = QHash<QString, std::shared_ptr<const TranslatedSql>>;
    Cache recent, older; // a full cache of recent statements becomes the older one
};

// The same select with its outermost order by clause replaced (or added): ordered by the given column.
// Raises ESqlNotUnderstood when the statement is no select.
QString withOrderBy(const QString &statement, const QString &column, bool descending);
