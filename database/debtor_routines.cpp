#include "database/debtor_routines.h"

#include "database/history_routines.h"
#include "database/period_routines.h"

using namespace Qt::StringLiterals;

namespace {

// The journal is added up on its own first: its lines are sorted by two numbers, not by the five columns of
// a balance.
constexpr char computeSql[] =
    "insert into bd_dbkrlik (dkl_perid, dkl_dkaid, dkl_sasid, dkl_i_kod, dkl_pavad, dkl_sum_db, dkl_sum_kr,"
    "                        dkl_padid) "
    "select ?1, dkaid, sasid, i_kod, pavad, max(suma, 0), max(-suma, 0), padid "
    "from (select dkaid, sasid, i_kod, pavad, padid, round(sum(suma), 4) as suma"
    "      from (select dkl_dkaid as dkaid, dkl_sasid as sasid, dkl_i_kod as i_kod, dkl_pavad as pavad,"
    "                   dkl_padid as padid, dkl_sum_db - dkl_sum_kr as suma"
    "            from bd_dbkrlik where dkl_perid = (select per_id from bd_period where per_menuo > 0"
    "                                               order by per_metai, per_ketv, per_menuo limit 1)"
    "            union all"
    "            select irs_dkaid, null, null, null, irs_padid, sum(irs_sum_db - irs_sum_kr)"
    "            from bd_irasai join bd_dbkrasm on dka_id = irs_dkaid"
    "            where irs_sasid in (dka_sasid, dka_sasid_2)"
    "              and irs_perid in (select p.per_id from bd_period p join bd_period t on t.per_id = ?1"
    "                                where p.per_menuo > 0 and (p.per_metai, p.per_ketv, p.per_menuo)"
    "                                                        < (t.per_metai, t.per_ketv, t.per_menuo))"
    "            group by irs_dkaid, irs_padid)"
    "      group by dkaid, sasid, i_kod, pavad, padid) "
    "where suma <> 0";

qint64 monthOf(RoutineCall &call)
{
    if (call.isNull(0))
        return lastMonth(call.db()).id;
    Nested month(call.db(), "select per_id from bd_period where per_id = ?1 and per_menuo > 0");
    if (!month.bind(1, call.integer(0)).next())
        throw RoutineError{u"Nėra mėnesio, kurio likučius reikia suskaičiuoti."_s};
    return month.integer(0);
}

} // namespace

void computeDebtors(RoutineCall &call)
{
    sqlite3 *db = call.db();
    NestedSavepoint savepoint(db);
    takeWriteLock(db);
    const qint64 month = monthOf(call);
    BalancesMoved moved(db, month, {"bd_dbkrlik"});
    Nested(db, "delete from bd_dbkrlik where dkl_perid = ?1").bind(1, month).run();
    Nested(db, computeSql).bind(1, month).run();
    moved.record();
    savepoint.keep();
}
