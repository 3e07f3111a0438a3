#include "bench/close_books.h"

#include "bench/bench_books.h"
#include "bench/child.h"
#include "database/history.h"
#include "database/schema.h"
#include "database/seals.h"
#include "database/tool/keeping/keeper.h"
#include "database/tool/keeping/native_query.h"
#include "database/tool/keeping/server_console.h"
#include "tests/support/postgres.h"
#include "tests/support/unguarded.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr char sqliteShell[] = R"(
pragma synchronous = full;
pragma foreign_keys = on;
pragma temp_store = memory;
begin immediate;
insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr)
select (select max(ssl_id) from bd_saslik) + row_number() over (), sasid, 7, max(suma, 0), max(-suma, 0)
from (select sasid, round(sum(suma), 4) as suma
      from (select ssl_sasid as sasid, ssl_sum_db - ssl_sum_kr as suma from bd_saslik where ssl_perid = 6
            union all
            select irs_sasid, irs_sum_db - irs_sum_kr from bd_irasai where irs_perid = 6)
      group by sasid)
where suma <> 0;
commit;
)";

constexpr char serverShell[] = R"(
set work_mem = '256MB';
insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr)
select (select max(ssl_id) from bd_saslik) + row_number() over (), sasid, 7, greatest(suma, 0), greatest(-suma, 0)
from (select ssl_sasid as sasid, sum(ssl_sum_db - ssl_sum_kr) + coalesce(min(irasai), 0) as suma
      from bd_saslik
      left join (select irs_sasid, sum(irs_sum_db - irs_sum_kr) as irasai
                 from bd_irasai where irs_perid = 6 group by irs_sasid) i on irs_sasid = ssl_sasid
      where ssl_perid = 6 group by ssl_sasid) l
where suma <> 0;
)";

QString rowsSource(Engine engine, int rows)
{
    return engine == Engine::Sqlite
               ? u"(with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) select i from n) n"_s
                     .arg(rows)
               : u"generate_series(1, %1) n(i)"_s.arg(rows);
}

void fill(TDatabase &fin, int rows)
{
    const QString source = rowsSource(fin.engine(), rows);
    TTransaction tran(&fin);
    fin.nativeExec(u"insert into bd_period values (1, 2026, 0, 0), (2, 2026, 1, 0), (3, 2026, 2, 0), "
                   "(4, 2026, 3, 0), (5, 2026, 4, 0), (6, 2026, 1, 1)"_s);
    fin.nativeExec(u"insert into bd_sasplan (sas_id, sas_sasnr, sas_tip) select i, cast(2000000000 + i as "
                   "varchar(10)), 'D' from "_s +
                   source);
    fin.nativeExec(
        u"insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) select i, i, 6, "
        "(i % 2) * (i % 9973 + 0.25), (1 - i % 2) * (i % 9973 + 0.25) from "_s +
        source);
    fin.nativeExec(
        u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db, irs_sum_kr) select i, 6, "
        "%1 + 1 - i, (i % 2) * (i % 7919 + 0.10), (1 - i % 2) * (i % 7919 + 0.10) from "_s.arg(rows) +
        source);
    tran.commit();
    fin.nativeExec(u"analyze"_s);
}

QString balancesOf(const TSessionSettings &settings)
{
    TDatabase db(settings);
    db.Open();
    QString text;
    eachRow(db,
            u"select count(*), sum(ssl_sum_db), sum(ssl_sum_kr), sum(cast(ssl_sasid as double precision) * "
            "ssl_sum_db) from bd_saslik where ssl_perid = 7"_s,
            [&text](const QSqlQuery &row) {
                for (int i = 0; i < 4; ++i)
                    text += QString::number(row.value(i).toDouble(), 'g', 12) + u' ';
            });
    return text;
}

double timed(TDatabase &fin, const std::function<void()> &beforeCommit)
{
    QElapsedTimer timer;
    timer.start();
    TTransaction tran(&fin);
    fin.ExecSQL(u"call Close_Per()"_s);
    beforeCommit();
    tran.commit();
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

struct CloseBooks::Private {
    explicit Private(Engine engine) : place(engine) {}

    const BenchBooks place;
    TSessionSettings copy;
    TSessionSettings sealed;

    const TSessionSettings &fin() const { return place.books().fin; }
    bool embedded() const { return fin().engine == Engine::Sqlite; }

    TSessionSettings copied(const QString &ending) const
    {
        TSessionSettings made = fin();
        if (embedded()) {
            made.file += u'.' + ending;
            place.store().dump(fin(), made.file);
            TDatabase(made).Open(); // brings the copy into the same journal mode
            return made;
        }
        const QString name = databaseOf(made.connInfo);
        TServerConsole(postgresConnInfo(u"postgres"_s))
            .run(u"create database %1_%2 template %1"_s.arg(name, ending));
        made.connInfo = withDatabase(made.connInfo, name + u'_' + ending);
        return made;
    }
};

CloseBooks::CloseBooks(Engine engine, int rows) : d(std::make_unique<Private>(engine))
{
    createBooks(d->place.store(), [](const QString &) {});
    TDatabase fin(d->fin());
    fin.Open();
    fill(fin, rows);
    fin.Close();
    d->copy = d->copied(u"kopija"_s);
    d->sealed = d->copied(u"antspauduota"_s);
}

CloseBooks::~CloseBooks()
{
    if (d->embedded())
        return;
    BenchBooks::drop(d->copy);
    BenchBooks::drop(d->sealed);
}

double CloseBooks::closeByRoutine()
{
    TDatabase fin(d->fin());
    fin.Open();
    return timed(fin, [] {});
}

double CloseBooks::closeWithSeal()
{
    TDatabase fin(d->sealed);
    fin.Open();
    keepHistory(fin, {u"ona"_s, u"stotis1"_s});
    const double spent = timed(fin, [&fin] { appendSeal(fin, TSealEvent::Close, 6); });
    if (fin.fieldResult(u"select count(*) from bd_istorija where ist_veiksmas = 'R'"_s).toInt() == 0)
        qFatal("the close left no record");
    return spent;
}

void CloseBooks::rollBack()
{
    for (const TSessionSettings &settings : {d->fin(), d->sealed}) {
        TDatabase fin(settings);
        fin.Open();
        fin.ExecSQL(u"call Back_Per()"_s);
        if (fin.engine() == Engine::PostgreSql)
            fin.nativeExec(u"vacuum analyze bd_saslik"_s);
    }
}

// The guards of closed months look at what is written by hand; the routine does not ask them.
double CloseBooks::closeByShell()
{
    {
        TDatabase copy(d->copy);
        copy.Open();
        takeGuardsAway(copy);
    }
    if (d->embedded())
        return runChild(u"sqlite3"_s, {u"-bail"_s, d->copy.file}, sqliteShell);
    return runChild(u"psql"_s, {u"-qX"_s, u"-v"_s, u"ON_ERROR_STOP=1"_s, d->copy.connInfo}, serverShell);
}

void CloseBooks::compare()
{
    const QString routine = balancesOf(d->fin()), shell = balancesOf(d->copy);
    if (routine != shell)
        qFatal("the balances differ: %s and %s", qPrintable(routine), qPrintable(shell));
}
