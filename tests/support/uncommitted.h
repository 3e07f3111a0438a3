#pragma once

#include "tests/support/engines.h"

// What another station has written and will commit as soon as somebody waits for it, or with the end of the
// object. For servers: an embedded database lets nobody else begin meanwhile.
class Uncommitted {
public:
    Uncommitted(TDatabase &station, const QString &sql) : other(station)
    {
        other.StartTransaction();
        other.ExecSQL(sql);
        former = TDatabase::setBusyHook([this] {
            if (isWaitedFor())
                commit();
        });
    }
    ~Uncommitted()
    {
        TDatabase::setBusyHook(former);
        commit();
    }
    Uncommitted(const Uncommitted &) = delete;
    Uncommitted &operator=(const Uncommitted &) = delete;

private:
    // A crowded machine is slow with statements that wait for nobody, too.
    bool isWaitedFor() const
    {
        return other.InTransaction() &&
               nativeValue(other, QStringLiteral("select count(*) from pg_locks where not granted and "
                                                 "pg_backend_pid() = any (pg_blocking_pids(pid))")) != u"0";
    }
    void commit()
    {
        if (other.InTransaction())
            other.Commit();
    }

    TDatabase &other;
    TDatabase::BusyHook former;
};
