#include "host/app/catalogues/table_lock.h"

#include "toolkit/data/database.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

// The file of an embedded database has one writer at a time: the open transaction is the lock.
void lockTable(TDatabase *database, const QString &table)
{
    Q_ASSERT(database->InTransaction());
    if (database->engine() == Engine::PostgreSql)
        database->prepareNative({SqlKind::Call, u"lock table %1 in share row exclusive mode"_s.arg(table)})
            ->exec();
}
