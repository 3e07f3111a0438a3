#include "database/nested.h"

Nested::Nested(sqlite3 *theDb, const QByteArray &sql) : db(theDb)
{
    check(sqlite3_prepare_v2(db, sql.constData(), int(sql.size()), &statement, nullptr));
}

Nested::~Nested()
{
    sqlite3_finalize(statement);
}

void Nested::check(int code)
{
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE)
        throw RoutineError{QString::fromUtf8(sqlite3_errmsg(db)), sqlite3_extended_errcode(db)};
}

Nested &Nested::bind(int number, qint64 value)
{
    check(sqlite3_bind_int64(statement, number, value));
    return *this;
}

Nested &Nested::bind(int number, const QByteArray &text)
{
    check(sqlite3_bind_text(statement, number, text.constData(), int(text.size()), SQLITE_STATIC));
    return *this;
}

bool Nested::next()
{
    const int code = sqlite3_step(statement);
    check(code);
    return code == SQLITE_ROW;
}

void Nested::run()
{
    while (next()) {
    }
}

bool Nested::isNull(int column) const
{
    return sqlite3_column_type(statement, column) == SQLITE_NULL;
}

qint64 Nested::integer(int column) const
{
    return sqlite3_column_int64(statement, column);
}

QByteArray Nested::text(int column) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    return QByteArray(text, sqlite3_column_bytes(statement, column));
}

qint64 nestedInteger(sqlite3 *db, const QByteArray &sql)
{
    Nested statement(db, sql);
    return statement.next() ? statement.integer(0) : 0;
}

void takeWriteLock(sqlite3 *db)
{
    Nested(db, "update sys_raktai set rak_paskutinis = rak_paskutinis where false").run();
}

NestedSavepoint::NestedSavepoint(sqlite3 *theDb) : db(theDb)
{
    Nested(db, "savepoint velmora_routine").run();
}

NestedSavepoint::~NestedSavepoint()
{
    if (!kept) // after a full disk the engine may have undone everything already: then there is none left
        sqlite3_exec(db, "rollback to velmora_routine; release velmora_routine", nullptr, nullptr, nullptr);
}

void NestedSavepoint::keep()
{
    Nested(db, "release velmora_routine").run();
    kept = true;
}

WithoutTriggers::WithoutTriggers(sqlite3 *theDb) : db(theDb)
{
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
}

WithoutTriggers::~WithoutTriggers()
{
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_TRIGGER, 1, nullptr);
}

QByteArray RoutineCall::text(int argument) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(values[argument]));
    return QByteArray(text, sqlite3_value_bytes(values[argument]));
}

QByteArray quotedName(const QByteArray &name)
{
    QByteArray inside = name;
    return '"' + inside.replace('"', "\"\"") + '"';
}
