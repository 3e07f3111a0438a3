#pragma once

#include "toolkit/data/database.h"

// Makes the database take every change of rows of a table, and refuse it when the transaction is committed.
inline void refuseAtCommit(TDatabase &db, const QString &table)
{
    db.nativeExec(QStringLiteral("create table t_tevas (id integer primary key);"
                                 "create table t_vaikas (id integer references t_tevas (id) "
                                 "deferrable initially deferred);"));
    if (db.engine() == Engine::Sqlite)
        db.nativeExec(QStringLiteral("create trigger t_late after update on %1 begin "
                                     "insert into t_vaikas values (9); end;"
                                     "create trigger t_late_new after insert on %1 begin "
                                     "insert into t_vaikas values (9); end;")
                          .arg(table));
    else
        db.nativeExec(QStringLiteral("create function f_late() returns trigger language plpgsql as "
                                     "$$ begin insert into t_vaikas values (9); return null; end $$;"
                                     "create trigger t_late after insert or update on %1 for each row "
                                     "execute function f_late();")
                          .arg(table));
}

// Ends that.
inline void allowAtCommit(TDatabase &db)
{
    db.nativeExec(QStringLiteral("insert into t_tevas values (9);"));
}
