#include "tests/faults/large_books.h"

#include "tests/support/files.h"
#include "tests/support/postgres.h"

#include <QCoreApplication>
#include <QFile>

#include <map>

using namespace Qt::StringLiterals;

namespace {
// A model for each engine that was asked for, kept until all tests are over.
class Models : public testing::Environment {
public:
    QString &of(Engine engine) { return models[engine]; }

    void TearDown() override
    {
        for (const auto &[engine, model] : models) {
            if (engine == Engine::Sqlite)
                QFile::remove(model);
            else
                postgresExec(u"drop database %1 with (force)"_s.arg(model));
        }
        models.clear();
    }

private:
    std::map<Engine, QString> models;
};
Models *const models = static_cast<Models *>(testing::AddGlobalTestEnvironment(new Models));

const QString numbers = u"with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) "_s;

TSessionSettings copyOf(Engine engine, const QString &original)
{
    TSessionSettings settings;
    settings.alias = u"mnFin_Db"_s;
    settings.engine = engine;
    const QString name = u"large_%1"_s.arg(QCoreApplication::applicationPid());
    if (engine == Engine::Sqlite) {
        settings.file = scratchRoot() + u'/' + name + u".db"_s;
        if (!QFile::copy(original, settings.file))
            qFatal("cannot copy %s", qPrintable(original));
    } else {
        postgresExec(u"create database %1 template %2 strategy file_copy"_s.arg(name, original));
        settings.connInfo = postgresConnInfo(name);
    }
    return settings;
}
} // namespace

void fillLargeBooks(TDatabase &fin)
{
    TTransaction tran(&fin);
    fin.nativeExec(u"insert into bd_period values (1, 2005, 0, 0), (2, 2005, 1, 0), (3, 2005, 2, 0), "
                   "(4, 2005, 3, 0), (5, 2005, 4, 0), (6, 2005, 1, 1)"_s);
    const QString many = numbers.arg(LargeBooks::balances);
    fin.nativeExec(u"insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) "_s + many +
                   u"select i, 'S' || i, 'Sąskaita ' || i, 'D' from n"_s);
    // Two neighbours stand on the two sides of one amount.
    fin.nativeExec(u"insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) "_s + many +
                   u"select i, i, 6, case when i % 2 = 1 then (i + 1) / 2 + 0.25 else 0 end, "
                   "case when i % 2 = 0 then i / 2 + 0.25 else 0 end from n"_s);
    fin.nativeExec(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db, irs_sum_kr) "_s +
                   numbers.arg(LargeBooks::entries) +
                   u"select i, 6, i, case when i % 2 = 1 then 7.10 else 0 end, "
                   "case when i % 2 = 0 then 7.10 else 0 end from n"_s);
    tran.commit();
}

QStringList controlTotals(TDatabase &fin)
{
    return rows(fin, u"select ssl_perid, count(*), sum(ssl_sum_db), sum(ssl_sum_kr) from bd_saslik "
                     "group by ssl_perid order by ssl_perid"_s) +
           rows(fin, u"select irs_perid, count(*), sum(irs_sum_db), sum(irs_sum_kr) from bd_irasai "
                     "group by irs_perid order by irs_perid"_s);
}

OnBothEngines::Origin LargeBooks::origin()
{
    const Origin small = OnBothEngines::origin();
    QString &model = models->of(engine());
    if (model.isEmpty()) {
        const TSessionSettings settings = copyOf(engine(), small.fin);
        fillLargeBooks(*open(settings));
        model = engine() == Engine::Sqlite ? settings.file : settings.connInfo.section(u"dbname="_s, 1);
    }
    return {model, small.ravl};
}

void LargeBooks::renew()
{
    TearDown();
    SetUp();
}
