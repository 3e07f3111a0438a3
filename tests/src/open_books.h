#pragma once

#include "host/data/main_datas.h"
#include "tests/support/engines.h"

// Fresh books opened as the host opens them: the package's screens find them through MainDatas().
class OnOpenBooks : public OnBothEngines {
protected:
    void SetUp() override
    {
        OnBothEngines::SetUp();
        setMainDatas(std::make_unique<TMainDatas>(finSettings(), ravlSettings()));
        MainDatas()->Open();
        CurrentUser() = {};
        GetPeriod();
    }
    void TearDown() override
    {
        setMainDatas(nullptr);
        OnBothEngines::TearDown();
    }

    TDatabase &books() { return *MainDatas()->mnFin_Db(); }

    // The rows of the start of work: row 6 is the given month.
    void startOfWork(int year, int quarter, int month)
    {
        const auto add = [this](int id, int metai, int ketv, int menuo) {
            books().ExecSQL("insert into bd_period values (:id, :metai, :ketv, :menuo)",
                            {{"id", id}, {"metai", metai}, {"ketv", ketv}, {"menuo", menuo}});
        };
        for (int row = 1; row <= 5; ++row)
            add(row, year, row - 1, 0);
        add(6, year, quarter, month);
        GetPeriod();
    }

    // A detail account; returns its id.
    int account(const QString &number)
    {
        const int id = orZero("select max(sas_id) from bd_sasplan") + 1;
        books().ExecSQL("insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) "
                        "values (:id, :nr, :pavad, 'D')",
                        {{"id", id}, {"nr", number}, {"pavad", "Sąskaita " + number}});
        return id;
    }

    // An opening balance of the start-of-work period.
    void balance(int sasId, double debit, double credit)
    {
        const int id = orZero("select max(ssl_id) from bd_saslik") + 1;
        books().ExecSQL("insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) "
                        "values (:id, :sasid, 6, :db, :kr)",
                        {{"id", id}, {"sasid", sasId}, {"db", debit}, {"kr", credit}});
    }

    // From now on the database refuses to insert rows of which the condition holds, in words of its own.
    void refuseInserting(const QString &table, const QString &condition)
    {
        refuse("insert", table, "new." + condition);
    }
    // From now on the database refuses to delete from the table.
    void refuseDeleting(const QString &table) { refuse("delete", table, "1 = 1"); }

    // From now on every row inserted takes the engine about half a second of work.
    void slowDownInserting(const QString &table)
    {
        if (engine() == Engine::Sqlite)
            books().nativeExec(QString("create trigger t_slow after insert on %1 begin "
                                       "update %1 set per_id = per_id where per_id = "
                                       "(with recursive n(i) as (select 1 union all select i + 1 from n "
                                       "where i < 800000) select count(*) from n); end")
                                   .arg(table));
        else
            books().nativeExec(QString("create function f_slow() returns trigger language plpgsql as "
                                       "$$ begin perform pg_sleep(0.5); return null; end $$;"
                                       "create trigger t_slow after insert on %1 for each row "
                                       "execute function f_slow()")
                                   .arg(table));
    }

private:
    void refuse(const QString &write, const QString &table, const QString &condition)
    {
        if (engine() == Engine::Sqlite)
            books().nativeExec(QString("create trigger t_fail before %1 on %2 when %3 "
                                       "begin select raise(abort, 'sugadinta tyčia'); end")
                                   .arg(write, table, condition));
        else
            books().nativeExec(QString("create function f_fail() returns trigger language plpgsql as "
                                       "$$ begin raise exception 'sugadinta tyčia'; end $$;"
                                       "create trigger t_fail before %1 on %2 for each row when (%3) "
                                       "execute function f_fail()")
                                   .arg(write, table, condition));
    }
    int orZero(const QString &sql) { return books().fieldResult(sql).toInt(); }
};
