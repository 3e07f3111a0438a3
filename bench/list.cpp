// A list of a million rows with twelve columns in the order of names: ours, Qt's table model in a table view,
// and the engine's bare C interface, each in a process of its own.
//
//   bench_list [--rows N] [--repeat N] [--engine sqlite|postgresql]

#include "bench/engines.h"
#include "bench/list_roles.h"
#include "bench/party_books.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QJsonDocument>
#include <QProcess>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

int playRole(const QStringList &arguments)
{
    TSessionSettings fin{.alias = u"mnFin_Db"_s};
    fin.engine = arguments[1] == u"sqlite" ? Engine::Sqlite : Engine::PostgreSql;
    (fin.engine == Engine::Sqlite ? fin.file : fin.connInfo) = arguments[2];
    TSessionSettings ravl = fin;
    ravl.alias = u"mnRavl"_s;
    (ravl.engine == Engine::Sqlite ? ravl.file : ravl.connInfo) = arguments[3];
    const QString &role = arguments[0];
    const QJsonObject figures = role == u"ours"   ? ourList(fin, ravl, arguments[4].toInt())
                                : role == u"qt"   ? qtList(fin)
                                : role == u"loop" ? bareLoop(fin)
                                                  : bareFifty(fin);
    std::printf("%s\n", QJsonDocument(figures).toJson(QJsonDocument::Compact).constData());
    return 0;
}

QJsonObject played(const QString &role, const PartyBooks &books, int rows)
{
    const bool embedded = books.books().fin.engine == Engine::Sqlite;
    const auto place = [embedded](const TSessionSettings &settings) {
        return embedded ? settings.file : settings.connInfo;
    };
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {u"--role"_s, role, embedded ? u"sqlite"_s : u"postgresql"_s, place(books.books().fin),
                   place(books.books().ravl), QString::number(rows)});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("%s failed", qPrintable(role));
    return QJsonDocument::fromJson(process.readAllStandardOutput()).object();
}

// The figures of the run in the middle, by the time until all rows are there.
QJsonObject middle(const QString &role, const PartyBooks &books, int rows, int repeat)
{
    QList<QJsonObject> runs;
    for (int i = 0; i < repeat; ++i)
        runs << played(role, books, rows);
    std::ranges::sort(runs, {}, [](const QJsonObject &run) { return run[u"all"_s].toDouble(); });
    return runs[runs.size() / 2];
}

void measure(Engine engine, int rows, int repeat)
{
    const PartyBooks books(engine, rows);
    const QJsonObject fifty = middle(u"fifty"_s, books, rows, repeat);
    const QJsonObject loop = middle(u"loop"_s, books, rows, repeat);
    const QJsonObject qt = middle(u"qt"_s, books, rows, repeat);
    const QJsonObject ours = middle(u"ours"_s, books, rows, repeat);
    const auto of = [](const QJsonObject &run, const char *name) {
        return run[QString::fromLatin1(name)].toDouble();
    };
    std::printf("%s, %d rows, %.0f MB of text\n", nameOf(engine), rows, of(loop, "MB"));
    std::printf("  first rows          ours %.1f ms read, %.1f ms painted, %.1f ms with a new window; "
                "limit 50 %.1f ms; Qt %.0f ms painted\n",
                of(ours, "read"), of(ours, "again"), of(ours, "first"), of(fifty, "all"), of(qt, "first"));
    std::printf("  all rows            ours %.0f ms, bare loop %.0f ms (ratio %.2f), Qt %.0f ms\n",
                of(ours, "all"), of(loop, "all"), of(ours, "all") / of(loop, "all"), of(qt, "all"));
    std::printf("  most memory         ours %.0f MB, Qt %.0f MB (ratio %.2f)\n", of(ours, "peak"),
                of(qt, "peak"), of(ours, "peak") / of(qt, "peak"));
    std::printf(
        "  scroll to the end %.0f ms, refresh on a key in the middle %.0f ms, order by code %.0f ms\n",
        of(ours, "end"), of(ours, "key"), of(ours, "order"));
    std::printf("  search that finds nothing %.0f ms, at most %.0f ms without an answer\n",
                of(ours, "search"), of(ours, "search blocks"));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    needNoScreen();
    QApplication application(argc, argv);
    application.setApplicationName(u"bench_list"_s);
    QCommandLineParser parser;
    parser.addOption({u"rows"_s, u"Rows of the list"_s, u"N"_s, u"1000000"_s});
    parser.addOption({u"repeat"_s, u"Runs of each; the one in the middle counts"_s, u"N"_s, u"3"_s});
    parser.addOption(engineOption());
    parser.addOption({u"role"_s, u"What this process measures (used by the program itself)"_s, u"name"_s});
    parser.process(application);
    if (parser.isSet(u"role"_s))
        return playRole(QStringList(parser.value(u"role"_s)) + parser.positionalArguments());
    for (const Engine engine : wantedEngines(parser))
        measure(engine, parser.value(u"rows"_s).toInt(), parser.value(u"repeat"_s).toInt());
    return 0;
}
