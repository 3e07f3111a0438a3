#pragma once

#include <QByteArray>
#include <QString>

#include <sqlite3.h>

// What a routine written in C++ needs of the connection that it runs on: its arguments, statements of its own
// and all-or-nothing.

// A routine cannot go on: the text is for the user, the code tells the connection what kind of failure it is.
struct RoutineError {
    QString text;
    int code = SQLITE_ERROR;
};

// One statement on the connection that the routine was called on. Every failure raises RoutineError.
class Nested {
public:
    Nested(sqlite3 *db, const QByteArray &sql);
    ~Nested();
    Nested(const Nested &) = delete;
    Nested &operator=(const Nested &) = delete;

    // The parameter ?number; the text must live as long as the statement.
    Nested &bind(int number, qint64 value);
    Nested &bind(int number, const QByteArray &text);

    // Moves to the first and every further row; false after the last one.
    bool next();
    void run();

    bool isNull(int column) const;
    qint64 integer(int column) const;
    QByteArray text(int column) const;

private:
    void check(int code);

    sqlite3 *db;
    sqlite3_stmt *statement = nullptr;
};

// The first column of the first row; 0 when there is none or it is null.
qint64 nestedInteger(sqlite3 *db, const QByteArray &sql);

// Keeps other stations from writing until the open savepoint or transaction ends; waits for them first. A
// routine that reads before it writes could be refused its lock without waiting.
void takeWriteLock(sqlite3 *db);

// All that is done while it lives stands or falls together, inside a transaction or without one.
// Undone unless keep() was reached.
class NestedSavepoint {
public:
    explicit NestedSavepoint(sqlite3 *db);
    ~NestedSavepoint();
    NestedSavepoint(const NestedSavepoint &) = delete;
    NestedSavepoint &operator=(const NestedSavepoint &) = delete;

    void keep();

private:
    sqlite3 *db;
    bool kept = false;
};

// While it lives, statements that are prepared on the connection bring no trigger about: for those rows only
// that a routine writes where no trigger has anything to say. References are checked all the same.
class WithoutTriggers {
public:
    explicit WithoutTriggers(sqlite3 *db);
    ~WithoutTriggers();
    WithoutTriggers(const WithoutTriggers &) = delete;
    WithoutTriggers &operator=(const WithoutTriggers &) = delete;

private:
    sqlite3 *db;
};

// One call of a function by a statement.
class RoutineCall {
public:
    RoutineCall(sqlite3_context *aContext, int theCount, sqlite3_value **theValues)
        : context(aContext),
          values(theValues),
          argumentCount(theCount)
    {
    }

    sqlite3 *db() const { return sqlite3_context_db_handle(context); }
    // What the function was registered with.
    void *data() const { return sqlite3_user_data(context); }
    int count() const { return argumentCount; }
    sqlite3_value *value(int argument) const { return values[argument]; }
    bool isNull(int argument) const { return sqlite3_value_type(values[argument]) == SQLITE_NULL; }
    qint64 integer(int argument) const { return sqlite3_value_int64(values[argument]); }
    QByteArray text(int argument) const;

    void give(qint64 value) { sqlite3_result_int64(context, value); }
    void give(const QByteArray &utf8)
    {
        sqlite3_result_text(context, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
    }

private:
    sqlite3_context *context;
    sqlite3_value **values;
    int argumentCount;
};

// A routine as the engine calls it: no exception passes through the engine.
template<void (*routine)(RoutineCall &)>
void guarded(sqlite3_context *context, int count, sqlite3_value **values)
{
    try {
        RoutineCall call(context, count, values);
        routine(call);
    } catch (const RoutineError &error) {
        sqlite3_result_error(context, error.text.toUtf8().constData(), -1);
        sqlite3_result_error_code(context, error.code);
    } catch (const std::bad_alloc &) {
        sqlite3_result_error_nomem(context);
    }
}

// "name", with quotes inside doubled.
QByteArray quotedName(const QByteArray &name);
