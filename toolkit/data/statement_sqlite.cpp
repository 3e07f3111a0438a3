#include "toolkit/data/statement_sqlite.h"

#include "toolkit/data/engine_errors.h"
#include "toolkit/data/type_names.h"

#include <sqlite3.h>

#include <cmath>

using namespace Qt::StringLiterals;

SqliteStatement::SqliteStatement(std::shared_ptr<SqliteConnection> theConnection, const TranslatedSql &theSql)
    : connection(std::move(theConnection)),
      sql(theSql),
      text(theSql.text.toUtf8()),
      statement(connection->take(text))
{
    connection->enlist(this);
    describeColumns();
}

SqliteStatement::~SqliteStatement()
{
    if (!statement)
        return;
    connection->dismiss(this);
    connection->giveBack(text, statement);
}

void SqliteStatement::detach()
{
    sqlite3_finalize(statement);
    statement = nullptr;
    progress = Progress::Idle;
}

void SqliteStatement::checkAttached() const
{
    if (!statement)
        throw EDatabaseError(u"Duomenų bazės sesija uždaryta."_s, {}, sql.text);
}

void SqliteStatement::describeColumns()
{
    const int count = sqlite3_column_count(statement);
    result.clear();
    derived.clear();
    for (int i = 0; i < count; ++i) {
        const char *declared = sqlite3_column_decltype(statement, i);
        const DeclaredType type = declaredType(QString::fromUtf8(declared));
        result.append({QString::fromUtf8(sqlite3_column_name(statement, i)), type.type, type.size,
                       type.digits, type.scale});
        derived.append(!declared || !*declared);
    }
}

// Whole and fractional numbers mix in one expression (a sum of 1 and 0.5), so any number makes a float
// column.
void SqliteStatement::describeExpressions()
{
    for (int i = 0; i < result.size(); ++i) {
        if (!derived.at(i))
            continue;
        switch (sqlite3_column_type(statement, i)) {
        case SQLITE_INTEGER:
        case SQLITE_FLOAT:
            result[i].type = TFieldType::ftFloat;
            break;
        case SQLITE_BLOB:
            result[i].type = TFieldType::ftBlob;
            break;
        case SQLITE_TEXT:
            result[i].type = dateOf(utf8(i)).isValid() ? TFieldType::ftDate : TFieldType::ftString;
            break;
        default:
            result[i].type = TFieldType::ftUnknown;
        }
    }
}

namespace {

int bindText(sqlite3_stmt *statement, int position, const QByteArray &bytes)
{
    return sqlite3_bind_text(statement, position, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

int bindBlob(sqlite3_stmt *statement, int position, const QByteArray &bytes)
{
    return sqlite3_bind_blob(statement, position, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

// A whole double goes as a whole number: a key that travelled as a double finds its row by the index.
int bindNumber(sqlite3_stmt *statement, int position, double value)
{
    const std::optional<qlonglong> whole = wholeNumber(value);
    return whole ? sqlite3_bind_int64(statement, position, *whole)
                 : sqlite3_bind_double(statement, position, value);
}

int bindValue(sqlite3_stmt *statement, int position, const Variant &value)
{
    if (isNothing(value))
        return sqlite3_bind_null(statement, position);
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return bindNumber(statement, position, value.toDouble());
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return sqlite3_bind_int64(statement, position, value.toLongLong());
    case QMetaType::QByteArray:
        return bindBlob(statement, position, value.toByteArray());
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return bindText(statement, position, isoText(value));
    default:
        return bindText(statement, position, value.toString().toUtf8());
    }
}

} // namespace

void SqliteStatement::bind(const QString &name, const Variant &value)
{
    checkAttached();
    const int position = parameterPosition(sql, name) + 1;
    checkBindable(name, value);
    if (progress != Progress::Idle)
        reset();
    const int code = bindValue(statement, position, value);
    if (code != SQLITE_OK)
        raiseSqliteError(connection->native(), code, sql.text);
}

bool SqliteStatement::step()
{
    connection->operationStarts();
    typedColumn = -1;
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE) {
        const int extended = sqlite3_extended_errcode(connection->native());
        progress = Progress::Idle;
        // The text of the error is gone once the statement is reset.
        try {
            raiseSqliteError(connection->native(), extended, sql.text);
        } catch (...) {
            sqlite3_reset(statement);
            throw;
        }
    }
    sqlite3_reset(statement); // ends the read transaction of a select at once
    progress = Progress::Ended;
    return false;
}

void SqliteStatement::exec()
{
    checkAttached();
    reset();
    const qlonglong before = sqlite3_total_changes64(connection->native());
    bool row = step();
    while (row && sql.kind == SqlKind::Call)
        row = step();
    if (row) {
        if (sqlite3_column_count(statement) != result.size())
            describeColumns();
        describeExpressions();
        progress = Progress::FirstRowWaits;
    }
    switch (sql.kind) {
    case SqlKind::Select:
        changed = 0;
        break;
    case SqlKind::Call:
        changed = sqlite3_total_changes64(connection->native()) - before;
        break;
    default:
        changed = sqlite3_changes64(connection->native());
    }
}

bool SqliteStatement::next()
{
    checkAttached();
    if (progress == Progress::Ended || progress == Progress::Idle)
        return false;
    if (progress == Progress::FirstRowWaits) {
        progress = Progress::Reading;
        return true;
    }
    return step();
}

void SqliteStatement::reset()
{
    if (!statement)
        return;
    sqlite3_reset(statement);
    typedColumn = -1;
    progress = Progress::Idle;
}

// A value is asked for its type again and again on its way.
int SqliteStatement::engineType(int column) const
{
    if (typedColumn != column) {
        typeOfColumn = sqlite3_column_type(statement, column);
        typedColumn = column;
    }
    return typeOfColumn;
}

bool SqliteStatement::isNull(int column) const
{
    return engineType(column) == SQLITE_NULL;
}

namespace {

double powerOfTen(int exponent)
{
    constexpr double usual[] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6};
    return exponent < int(std::size(usual)) ? usual[exponent] : std::pow(10.0, exponent);
}

} // namespace

double SqliteStatement::number(int column) const
{
    const double value = sqlite3_column_double(statement, column);
    const int scale = result.at(column).scale;
    if (scale < 0)
        return value;
    const double power = powerOfTen(scale);
    const double scaled = std::round(value * power);
    return wholeNumber(scaled) ? scaled / power : value;
}

qlonglong SqliteStatement::integer(int column) const
{
    return sqlite3_column_int64(statement, column);
}

QByteArrayView SqliteStatement::utf8(int column) const
{
    const void *data = engineType(column) == SQLITE_BLOB
                           ? sqlite3_column_blob(statement, column)
                           : static_cast<const void *>(sqlite3_column_text(statement, column));
    return {static_cast<const char *>(data), qsizetype(sqlite3_column_bytes(statement, column))};
}

TFieldType SqliteStatement::storedType(int column) const
{
    switch (engineType(column)) {
    case SQLITE_NULL:
        return TFieldType::ftUnknown;
    case SQLITE_INTEGER:
        return TFieldType::ftInteger;
    case SQLITE_FLOAT:
        return TFieldType::ftFloat;
    case SQLITE_BLOB:
        return TFieldType::ftBlob;
    default:
        return TFieldType::ftString;
    }
}

TFieldType SqliteStatement::valueType(int column) const
{
    const TFieldType stored = storedType(column);
    const TFieldType declared = result.at(column).type;
    switch (stored) {
    case TFieldType::ftString:
        if (declared == TFieldType::ftDate && isDay(utf8(column)))
            return TFieldType::ftDate;
        if (declared == TFieldType::ftDateTime && momentOf(utf8(column)).isValid())
            return TFieldType::ftDateTime;
        return stored;
    case TFieldType::ftInteger:
    case TFieldType::ftFloat:
        if (derived.at(column))
            return stored;
        if (declared == TFieldType::ftBoolean || declared == TFieldType::ftFloat)
            return declared;
        if (declared == TFieldType::ftString || declared == TFieldType::ftMemo)
            return TFieldType::ftString;
        return stored;
    default:
        return stored;
    }
}
