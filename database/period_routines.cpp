#include "database/period_routines.h"

#include "database/history_routines.h"

using namespace Qt::StringLiterals;

namespace {

constexpr char dateSql[] =
    "select printf('%04d-%02d-01', per_metai, max((per_ketv - 1) * 3, 0) + max(coalesce(per_menuo, 0), 1)) "
    "from bd_period where per_id = ?1";

constexpr char lastMonthSql[] =
    "select per_id, per_metai, per_ketv, per_menuo from bd_period where per_menuo > 0 "
    "order by per_metai desc, per_ketv desc, per_menuo desc limit 1";

constexpr char yearSql[] =
    "insert into bd_period (per_id, per_metai, per_ketv, per_menuo) "
    "select (select max(per_id) from bd_period) + 1 + column1, ?1, column1, 0 "
    "from (values (0), (1), (2), (3), (4)) "
    "where not exists (select 1 from bd_period"
    "                  where per_metai = ?1 and per_ketv = 0 and coalesce(per_menuo, 0) = 0)";

constexpr char monthSql[] = "insert into bd_period (per_id, per_metai, per_ketv, per_menuo) "
                            "select max(per_id) + 1, ?1, ?2, ?3 from bd_period";

// Each table is carried by one statement, from the month ?1 into the month ?2; the keys are the database's.
constexpr char carryAccountsSql[] =
    "insert into bd_saslik (ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) "
    "select sasid, ?2, max(suma, 0), max(-suma, 0) "
    "from (select sasid, round(sum(suma), 4) as suma"
    "      from (select ssl_sasid as sasid, ssl_sum_db - ssl_sum_kr as suma"
    "            from bd_saslik where ssl_perid = ?1"
    "            union all"
    "            select irs_sasid, irs_sum_db - irs_sum_kr"
    "            from bd_irasai where irs_perid = ?1 and irs_sasid is not null)"
    "      group by sasid) "
    "where suma <> 0";

constexpr char carryExpensesSql[] =
    "insert into bd_isllik (sml_perid, sml_jveid, sml_asig_db, sml_asig_kr, sml_kas_db, sml_kas_kr,"
    "                       sml_fak_db, sml_fak_kr) "
    "select ?2, jveid, max(asig, 0), max(-asig, 0), max(kas, 0), max(-kas, 0), max(fak, 0), max(-fak, 0) "
    "from (select jveid, round(sum(asig), 4) as asig, round(sum(kas), 4) as kas, round(sum(fak), 4) as fak"
    "      from (select sml_jveid as jveid, sml_asig_db - sml_asig_kr as asig, sml_kas_db - sml_kas_kr as "
    "kas,"
    "                   sml_fak_db - sml_fak_kr as fak"
    "            from bd_isllik where sml_perid = ?1"
    "            union all"
    "            select irs_jveid, irs_asig_db - irs_asig_kr, irs_kas_db - irs_kas_kr, irs_fak_db - "
    "irs_fak_kr"
    "            from bd_irasai where irs_perid = ?1 and irs_jveid is not null)"
    "      group by jveid) "
    "where asig <> 0 or kas <> 0 or fak <> 0";

// Entries of a counterparty count on the two accounts that it settles on.
constexpr char carryDebtorsSql[] =
    "insert into bd_dbkrlik (dkl_perid, dkl_dkaid, dkl_sasid, dkl_i_kod, dkl_pavad, dkl_sum_db, dkl_sum_kr,"
    "                        dkl_padid) "
    "select ?2, dkaid, sasid, i_kod, pavad, max(suma, 0), max(-suma, 0), padid "
    "from (select dkaid, sasid, i_kod, pavad, padid, round(sum(suma), 4) as suma"
    "      from (select dkl_dkaid as dkaid, dkl_sasid as sasid, dkl_i_kod as i_kod, dkl_pavad as pavad,"
    "                   dkl_padid as padid, dkl_sum_db - dkl_sum_kr as suma"
    "            from bd_dbkrlik where dkl_perid = ?1"
    "            union all"
    "            select irs_dkaid, null, null, null, irs_padid, irs_sum_db - irs_sum_kr"
    "            from bd_irasai join bd_dbkrasm on dka_id = irs_dkaid"
    "            where irs_perid = ?1 and irs_sasid in (dka_sasid, dka_sasid_2))"
    "      group by dkaid, sasid, i_kod, pavad, padid) "
    "where suma <> 0";

constexpr char removeYearSql[] =
    "delete from bd_period where per_metai = ?1 "
    "and not exists (select 1 from bd_period where per_metai = ?1 and per_menuo > 0) "
    "and not exists (select 1 from bd_samatos join bd_period on per_id = sam_perid where per_metai = ?1)";

PeriodMonth monthAfter(const PeriodMonth &last)
{
    const qint64 number = last.year * 12 + (last.quarter - 1) * 3 + last.month; // of the next month, from 0
    return {0, number / 12, number % 12 / 3 + 1, number % 3 + 1};
}

qint64 addMonth(sqlite3 *db, const PeriodMonth &month)
{
    Nested(db, yearSql).bind(1, month.year).run();
    Nested(db, monthSql).bind(1, month.year).bind(2, month.quarter).bind(3, month.month).run();
    return lastMonth(db).id;
}

QList<QByteArray> balanceTables()
{
    return {"bd_saslik", "bd_isllik", "bd_dbkrlik"};
}

// Balances of the last month alone, which is open; a trigger asked a million times costs as much as a third
// of the close.
void removeBalances(sqlite3 *db, qint64 period)
{
    const WithoutTriggers silent(db);
    for (const char *sql :
         {"delete from bd_saslik where ssl_perid = ?1", "delete from bd_isllik where sml_perid = ?1",
          "delete from bd_dbkrlik where dkl_perid = ?1"})
        Nested(db, sql).bind(1, period).run();
}

void carryBalances(sqlite3 *db, qint64 from, qint64 to)
{
    const WithoutTriggers silent(db);
    for (const char *sql : {carryAccountsSql, carryExpensesSql, carryDebtorsSql})
        Nested(db, sql).bind(1, from).bind(2, to).run();
}

} // namespace

PeriodMonth lastMonth(sqlite3 *db)
{
    Nested last(db, lastMonthSql);
    if (!last.next())
        throw RoutineError{u"Nenustatytas darbo pradžios periodas."_s};
    return {last.integer(0), last.integer(1), last.integer(2), last.integer(3)};
}

void dateOfPeriod(RoutineCall &call)
{
    Nested date(call.db(), dateSql);
    if (!call.isNull(0) && date.bind(1, call.integer(0)).next())
        call.give(date.text(0));
}

void lastPeriod(RoutineCall &call)
{
    Nested last(call.db(), lastMonthSql);
    if (last.next())
        call.give(last.integer(0));
}

void accountInForm(RoutineCall &call)
{
    const QByteArray pattern = call.text(1);
    Nested count(call.db(), "select count(*) from bd_balsas where bss_sasid = ?1 and bss_balkod like ?2");
    if (count.bind(1, call.integer(0)).bind(2, pattern).next())
        call.give(count.integer(0));
}

void closePeriod(RoutineCall &call)
{
    sqlite3 *db = call.db();
    NestedSavepoint savepoint(db);
    takeWriteLock(db);
    const PeriodMonth last = lastMonth(db);
    const qint64 next = addMonth(db, monthAfter(last));
    BalancesMoved moved(db, next, balanceTables());
    removeBalances(db, next); // left of older books over which the periods were set up anew
    carryBalances(db, last.id, next);
    moved.record();
    savepoint.keep();
}

void rollPeriodBack(RoutineCall &call)
{
    sqlite3 *db = call.db();
    NestedSavepoint savepoint(db);
    takeWriteLock(db);
    const PeriodMonth last = lastMonth(db);
    if (nestedInteger(db, "select count(*) from bd_period where per_menuo > 0") < 2)
        throw RoutineError{u"Negalima atsukti darbo pradžios periodo!"_s};
    {
        BalancesMoved moved(db, last.id, balanceTables());
        removeBalances(db, last.id);
        moved.record();
    }
    Nested(db, "delete from bd_period where per_id = ?1").bind(1, last.id).run();
    Nested(db, removeYearSql).bind(1, last.year).run();
    savepoint.keep();
}
