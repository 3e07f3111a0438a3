#pragma once

#include "toolkit/data/database.h"

// What another station has written and will commit as soon as somebody waits for it, or with the end of the
// object. For servers: an embedded database lets nobody else begin meanwhile.
class Uncommitted {
public:
    Uncommitted(TDatabase &station, const QString &sql) : other(station)
    {
        other.StartTransaction();
        other.ExecSQL(sql);
        former = TDatabase::setBusyHook([this] { commit(); });
    }
    ~Uncommitted()
    {
        TDatabase::setBusyHook(former);
        commit();
    }
    Uncommitted(const Uncommitted &) = delete;
    Uncommitted &operator=(const Uncommitted &) = delete;

private:
    void commit()
    {
        if (other.InTransaction())
            other.Commit();
    }

    TDatabase &other;
    TDatabase::BusyHook former;
};
