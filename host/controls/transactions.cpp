#include "host/controls/transactions.h"

void BeginTran(TDatabase *database)
{
    database->StartTransaction();
}

void CommitTran(TDatabase *database)
{
    database->Commit();
}

void RollBackTran(TDatabase *database)
{
    database->Rollback();
}

Variant GetFieldResult(TDatabase *database, const QString &sql)
{
    return database->fieldResult(sql);
}

void DbiQExecDirect(TDatabase *database, const QString &sql)
{
    database->ExecSQL(sql);
}
