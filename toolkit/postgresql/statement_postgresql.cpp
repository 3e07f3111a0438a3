#include "toolkit/postgresql/statement_postgresql.h"

#include "toolkit/postgresql/server_types.h"

#include <charconv>

using namespace Qt::StringLiterals;

namespace {

constexpr int firstPiece = 100;
constexpr int largePiece = 2000;

} // namespace

PostgresStatement::PostgresStatement(std::shared_ptr<PostgresConnection> theConnection,
                                     const TranslatedSql &theSql, bool isPiecewise)
    : connection(std::move(theConnection)),
      sql(theSql),
      text(theSql.text.toUtf8()),
      piecewise(isPiecewise),
      values(theSql.parameters.size())
{
    result = prepared().columns;
}

PostgresStatement::~PostgresStatement()
{
    try {
        closeCursor();
    } catch (const Exception &) { // the connection is gone, and the cursor with it
        cursor.clear();
    }
}

const ServerPrepared &PostgresStatement::prepared()
{
    return connection->prepared(text);
}

void PostgresStatement::bind(const QString &name, const Variant &value)
{
    const int position = parameterPosition(sql, name);
    values[position] = serverParameter(name, value);
}

void PostgresStatement::exec()
{
    reset();
    connection->open();
    if (piecewise && sql.kind == SqlKind::Select) {
        openCursor();
        return;
    }
    const ServerPrepared &statement = prepared();
    rows = connection->execute(statement, text, values);
    result = statement.columns;
    changed = sql.kind == SqlKind::Select ? 0 : QByteArray(PQcmdTuples(rows.get())).toLongLong();
}

void PostgresStatement::openCursor()
{
    const ServerPrepared statement = prepared();
    const QByteArray name = connection->cursorOpens();
    cursorGeneration = connection->generation();
    try {
        connection->guarded([&] {
            connection->execute("declare " + name + " no scroll cursor for " + text, statement.parameterTypes,
                                values);
            cursor = name;
            pieceSize = firstPiece;
            fetch();
        });
    } catch (const Exception &) {
        cursor.clear(); // taken back together with the savepoint
        moreRows = false;
        connection->cursorCloses(cursorGeneration);
        throw;
    }
    result = statement.columns;
    if (!moreRows)
        closeCursor();
}

void PostgresStatement::fetch()
{
    rows = connection->query("fetch " + QByteArray::number(pieceSize) + " from " + cursor);
    row = -1;
    moreRows = PQntuples(rows.get()) == pieceSize;
    pieceSize = largePiece;
}

void PostgresStatement::closeCursor()
{
    if (cursor.isEmpty())
        return;
    const QByteArray name = std::exchange(cursor, {});
    moreRows = false;
    if (cursorGeneration != connection->generation() || !connection->isOpen())
        return;
    connection->query("close " + name);
    connection->cursorCloses(cursorGeneration);
}

bool PostgresStatement::next()
{
    blobs.clear();
    if (!rows)
        return false;
    if (++row < PQntuples(rows.get()))
        return true;
    if (!moreRows)
        return false;
    if (cursorGeneration != connection->generation() || !connection->isOpen()) {
        cursor.clear();
        moreRows = false;
        throw EDatabaseError(u"Sąrašo skaitymas nutrūko: ryšys su duomenų baze uždarytas."_s, {}, sql.text);
    }
    try {
        connection->guarded([this] { fetch(); });
    } catch (const Exception &) {
        moreRows = false;
        throw;
    }
    if (!moreRows)
        closeCursor();
    return ++row < PQntuples(rows.get());
}

void PostgresStatement::reset()
{
    closeCursor();
    rows.reset();
    blobs.clear();
    row = -1;
}

bool PostgresStatement::isNull(int column) const
{
    return PQgetisnull(rows.get(), row, column) == 1;
}

double PostgresStatement::number(int column) const
{
    return result.at(column).type == TFieldType::ftBoolean ? double(integer(column)) : numberOf(utf8(column));
}

qlonglong PostgresStatement::integer(int column) const
{
    const QByteArrayView digits = utf8(column);
    switch (result.at(column).type) {
    case TFieldType::ftBoolean:
        return digits == "t" ? 1 : 0;
    case TFieldType::ftInteger: {
        qlonglong whole = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), whole);
        return whole;
    }
    default:
        return qlonglong(numberOf(digits));
    }
}

QByteArrayView PostgresStatement::utf8(int column) const
{
    const QByteArrayView sent(PQgetvalue(rows.get(), row, column), PQgetlength(rows.get(), row, column));
    if (result.at(column).type != TFieldType::ftBlob)
        return sent;
    const auto found = blobs.constFind(column);
    if (found != blobs.constEnd())
        return *found;
    return *blobs.insert(column,
                         QByteArray::fromHex(sent.sliced(sent.startsWith("\\x") ? 2 : 0).toByteArray()));
}

TFieldType PostgresStatement::valueType(int column) const
{
    if (isNull(column))
        return TFieldType::ftUnknown;
    const TFieldType type = result.at(column).type;
    return type == TFieldType::ftMemo ? TFieldType::ftString : type;
}
