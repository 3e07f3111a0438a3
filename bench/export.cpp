// Export of a table of a million rows with eight columns: ours, a bare loop over the engine's C interface
// that writes the same bytes, and the engine's own program (the insert mode of sqlite3, pg_dump
// --column-inserts), each in a process of its own. The files lie in memory where the machine has such a
// folder, so that it is the writing that is measured and not the disk.
//
//   bench_export [--rows N] [--repeat N] [--engine sqlite|postgresql]

#include "bench/engines.h"
#include "bench/export_roles.h"
#include "tests/support/files.h"
#include "tests/support/postgres.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
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
    QString place() const { return embedded() ? settings.file : settings.connInfo; }

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

int playRole(const QStringList &arguments)
{
    TSessionSettings settings{.alias = u"mnRavl"_s};
    settings.engine = arguments[1] == u"sqlite" ? Engine::Sqlite : Engine::PostgreSql;
    (settings.engine == Engine::Sqlite ? settings.file : settings.connInfo) = arguments[2];
    const QJsonObject figures = arguments[0] == u"loop"
                                    ? bareExport(settings, arguments[3])
                                    : ourExport(settings, arguments[3], arguments[0] == u"escaped");
    std::printf("%s\n", QJsonDocument(figures).toJson(QJsonDocument::Compact).constData());
    return 0;
}

QJsonObject played(const QString &role, const ExportBooks &books)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(
        QCoreApplication::applicationFilePath(),
        {u"--role"_s, role, QLatin1String(nameOf(books.settings.engine)), books.place(), books.file(role)});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("%s failed", qPrintable(role));
    return QJsonDocument::fromJson(process.readAllStandardOutput()).object();
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

// The run in the middle, by its time.
QJsonObject middle(QList<QJsonObject> runs)
{
    std::ranges::sort(runs, {}, [](const QJsonObject &each) { return each[u"all"_s].toDouble(); });
    return runs[runs.size() / 2];
}

void measure(Engine engine, int rows, int repeat)
{
    const ExportBooks books(engine, rows);
    QList<QJsonObject> loops, ourRuns, escapedRuns, shells;
    for (int i = 0; i < repeat; ++i) { // in turns: what else the machine does meets all of them
        loops << played(u"loop"_s, books);
        ourRuns << played(u"ours"_s, books);
        escapedRuns << played(u"escaped"_s, books);
        shells << shell(books);
    }
    const QJsonObject loop = middle(loops), ours = middle(ourRuns), escaped = middle(escapedRuns),
                      own = middle(shells);
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
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOption({u"rows"_s, u"Rows of the table"_s, u"N"_s, u"1000000"_s});
    parser.addOption({u"repeat"_s, u"Runs of each; the one in the middle counts"_s, u"N"_s, u"5"_s});
    parser.addOption(engineOption());
    parser.addOption({u"role"_s, u"What this process measures (used by the program itself)"_s, u"name"_s});
    parser.process(application);
    if (parser.isSet(u"role"_s))
        return playRole(QStringList(parser.value(u"role"_s)) + parser.positionalArguments());
    for (const Engine engine : wantedEngines(parser))
        measure(engine, parser.value(u"rows"_s).toInt(), parser.value(u"repeat"_s).toInt());
    return 0;
}
