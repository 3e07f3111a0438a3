#include "host/app/catalogues/table_lock.h"

#include "toolkit/data/database.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

// The file of an embedded database has one writer at a time: the open transaction is the lock.
void lock(TDatabase *database, const QString &statement)
{
    Q_ASSERT(database->InTransaction());
    if (database->engine() == Engine::PostgreSql)
        database->prepareNative({SqlKind::Call, statement})->exec();
}

} // namespace

void lockTable(TDatabase *database, const QString &table)
{
    lock(database, u"lock table %1 in share row exclusive mode"_s.arg(table));
}

void lockRow(TDatabase *database, const QString &table, const QString &keyColumn, double key)
{
    lock(database, u"do $$ begin perform from %1 where %2 = %3 for update; end $$"_s.arg(table, keyColumn)
                       .arg(qRound64(key)));
}
