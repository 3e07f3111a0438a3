// Export of a table of a million rows with eight columns: ours, a bare loop over the engine's C interface
// that writes the same bytes, and the engine's own program (the insert mode of sqlite3, pg_dump
// --column-inserts), each in a process of its own. The files lie in memory where the machine has such a
// folder, so that it is the writing that is measured and not the disk.
//
//   bench_export [--rows N] [--repeat N] [--engine sqlite|postgresql]

#include "bench/bench_main.h"
#include "bench/export_roles.h"
#include "tests/support/files.h"
#include "tests/support/postgres.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

// A database of its own with the table in it.
class ExportBooks {
public:
    ExportBooks(Engine engine, int rows);
    ~ExportBooks();
    ExportBooks(const ExportBooks &) = delete;
    ExportBooks &operator=(const ExportBooks &) = delete;

    TSessionSettings settings{.alias = u"mnRavl"_s};
    QString file(const QString &name) const { return folder.filePath(name); }
    bool embedded() const { return settings.engine == Engine::Sqlite; }

private:
    QTemporaryDir folder{scratchRoot() + u"/bench-export-XXXXXX"_s};
    const QString database = u"bench%1_export"_s.arg(QCoreApplication::applicationPid());
};

ExportBooks::ExportBooks(Engine engine, int rows)
{
    settings.engine = engine;
    if (embedded()) {
        settings.file = folder.filePath(u"ravl.db"_s);
    } else {
        postgresExec(u"create database %1"_s.arg(database));
        settings.connInfo = postgresConnInfo(database);
    }
    const QString source =
        embedded()
            ? u"(with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) select i from n) n"_s
            : u"generate_series(1, %1) n(i)"_s;
    const QString day =
        embedded() ? u"date('2000-01-01', (i % 9000) || ' days')"_s : u"date '2000-01-01' + i % 9000"_s;
    TDatabase books(settings);
    books.Open();
    books.nativeExec(
        u"create table %1 (eks_id integer primary key, eks_kodas varchar(20), eks_pavad varchar(100), "
        "eks_adresas varchar(100), eks_data date, eks_suma numeric(15,4), eks_kiekis bigint, "
        "eks_pastaba varchar(100))"_s.arg(QLatin1String(exportedTable)));
    books.nativeExec(
        u"insert into %1 select i, 'K' || i, 'Įmonė „Žąsų ' || ((cast(i as bigint) * 7919) %% 1000003) || "
        "' ūkis“', 'Šiaulių g. ' || (i %% 200) || ', Kėdainiai', %2, ((i * 37) %% 1000000) / 100.0, "
        "300000000 + i, case when i %% 3 = 0 then 'Apmokėta laiku, skolų neturi' end from "_s
            .arg(QLatin1String(exportedTable), day)
            .replace(u"%%"_s, u"%"_s) +
        source.arg(rows));
    books.nativeExec(u"analyze"_s);
}

ExportBooks::~ExportBooks()
{
    if (!embedded())
        postgresExec(u"drop database %1 with (force)"_s.arg(database));
}

QJsonObject playRole(const QString &role, const QStringList &arguments)
{
    const TSessionSettings settings = sessionOf(u"mnRavl"_s, arguments);
    return role == u"loop" ? bareExport(settings, arguments[2])
                           : ourExport(settings, arguments[2], role == u"escaped");
}

QJsonObject exported(const QString &role, const ExportBooks &books)
{
    return played(role, wordsOf(books.settings) + QStringList(books.file(role)));
}

// The engine's own program.
QJsonObject shell(const ExportBooks &books)
{
    QProcess process;
    process.setStandardOutputFile(books.file(u"shell"_s));
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString table = QLatin1String(exportedTable);
    QElapsedTimer clock;
    clock.start();
    if (books.embedded())
        process.start(u"sqlite3"_s, {u"-readonly"_s, books.settings.file, u".mode insert "_s + table,
                                     u"select * from "_s + table});
    else
        process.start(u"pg_dump"_s,
                      {u"--column-inserts"_s, u"--data-only"_s, u"-t"_s, table, books.settings.connInfo});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("the engine's own program failed");
    return {{u"all"_s, double(clock.nsecsElapsed()) / 1e6}};
}

void measure(Engine engine, int rows, int repeat)
{
    const ExportBooks books(engine, rows);
    QList<QJsonObject> loops, ourRuns, escapedRuns, shells;
    for (int i = 0; i < repeat; ++i) { // in turns: what else the machine does meets all of them
        loops << exported(u"loop"_s, books);
        ourRuns << exported(u"ours"_s, books);
        escapedRuns << exported(u"escaped"_s, books);
        shells << shell(books);
    }
    const QJsonObject loop = middleOf(loops), ours = middleOf(ourRuns), escaped = middleOf(escapedRuns),
                      own = middleOf(shells);
    if (contentOf(books.file(u"loop"_s)) != contentOf(books.file(u"ours"_s)))
        qFatal("the bare loop writes other bytes");
    const auto of = [](const QJsonObject &figures, const char *name) {
        return figures[QLatin1String(name)].toDouble();
    };
    std::printf("%s, %d rows of 8 columns, %.0f MB\n", nameOf(books.settings.engine), rows,
                double(QFileInfo(books.file(u"ours"_s)).size()) / 1e6);
    std::printf("  ours %.0f ms, bare loop %.0f ms (ratio %.2f), %s %.0f ms\n", of(ours, "all"),
                of(loop, "all"), of(ours, "all") / of(loop, "all"),
                books.embedded() ? "sqlite3 .mode insert" : "pg_dump --column-inserts", of(own, "all"));
    std::printf("  escaped %.0f ms\n", of(escaped, "all"));
    std::printf("  most memory above the program's own: ours %.1f MB, escaped %.1f MB, bare loop %.1f MB\n",
                of(ours, "peak"), of(escaped, "peak"), of(loop, "peak"));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    return benchMain(
        {{u"rows"_s, u"Rows of the table"_s, 1000000},
         {u"repeat"_s, u"Runs of each; the one in the middle counts"_s, 5}},
        [](Engine engine, const QList<int> &n) { measure(engine, n[0], n[1]); }, playRole);
}
