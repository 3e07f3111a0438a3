// What a translation costs beside the preparing of the translated statement, on SQLite.
//
//   bench_translate                 all of them; --benchmark_filter=… as usual

#include "database/schema.h"
#include "database/sqlite_routines.h"
#include "toolkit/data/statement.h"
#include "toolkit/sql/translator.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// Three usual sizes: one row by key, a dialog's list of names, the longest list of the system.
const QStringList &statements()
{
    static const QStringList list{
        u"select * from bd_saslik where ssl_id=:id"_s,
        u"select distinct dka_bank_pav, 1 from bd_dbkrasm where ISNULL(dka_bank_pav,'') <> '' order by 1"_s,
        u"select dkl_id, ifnull(dkl_dkaid, dkl_i_kod, dka_i_kod) as IKodas, ifnull(dkl_dkaid, dkl_pavad, "
        u"dka_pavad) "
        "as IPavad, dkl_sum_db, dkl_sum_kr, ifnull(dkl_dkaid, dkl_sasid, dka_sasid) as sasid, sas_sasnr + ' "
        "' + "
        "sas_pavad as Saskaita, pad_pavad from bd_dbkrlik as a left outer join bd_dbkrasm on "
        "dkl_dkaid=dka_id, "
        "bd_dbkrlik as a left outer join bd_pad on dkl_padid = pad_id, bd_sasplan where dkl_perid=:PerId and "
        "sasid=sas_id order by IPavad"_s};
    return list;
}

class Books {
public:
    Books()
    {
        TDatabase::setSqliteTeacher(teachSqlite);
        TSessionSettings settings;
        settings.alias = u"mnFin_Db"_s;
        settings.file = folder.filePath(u"fin.db"_s);
        db = std::make_unique<TDatabase>(settings);
        db->Open();
        upgrade(*db, Book::Main);
    }

    std::unique_ptr<TDatabase> db;

private:
    QTemporaryDir folder;
};

TDatabase &fin()
{
    static const Books books;
    return *books.db;
}

void translateFirst(benchmark::State &state, SqlDialect dialect)
{
    const QString statement = statements().at(state.range(0));
    SqlTranslator translator(dialect, fin());
    for (auto each : state) {
        benchmark::DoNotOptimize(translator.translate(statement).text.constData());
        translator.clear();
    }
}

void translateAgain(benchmark::State &state)
{
    const QString statement = statements().at(state.range(0));
    SqlTranslator translator(SqlDialect::Sqlite, fin());
    for (auto each : state)
        benchmark::DoNotOptimize(translator.translate(statement).text.constData());
}

void prepareTranslated(benchmark::State &state)
{
    const TranslatedSql sql = fin().translator().translate(statements().at(state.range(0)));
    for (auto each : state)
        benchmark::DoNotOptimize(fin().prepareNative(sql));
}

} // namespace

BENCHMARK_CAPTURE(translateFirst, sqlite, SqlDialect::Sqlite)->DenseRange(0, 2);
BENCHMARK_CAPTURE(translateFirst, postgresql, SqlDialect::PostgreSql)->DenseRange(0, 2);
BENCHMARK(translateAgain)->DenseRange(0, 2);
BENCHMARK(prepareTranslated)->DenseRange(0, 2);

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
