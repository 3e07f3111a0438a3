// A list of a million rows with twelve columns in the order of names: ours, Qt's table model in a table view,
// and the engine's bare C interface, each in a process of its own.
//
//   bench_list [--rows N] [--repeat N] [--engine sqlite|postgresql]

#include "bench/bench_main.h"
#include "bench/list_roles.h"
#include "bench/party_books.h"

#include <QApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QJsonObject playRole(const QString &role, const QStringList &arguments)
{
    const TSessionSettings fin = sessionOf(u"mnFin_Db"_s, arguments);
    if (role == u"ours")
        return ourList(fin, sessionOf(u"mnRavl"_s, arguments.sliced(2)), arguments[4].toInt());
    return role == u"qt" ? qtList(fin) : role == u"loop" ? bareLoop(fin) : bareFifty(fin);
}

// The figures of the run in the middle.
QJsonObject middle(const QString &role, const PartyBooks &books, int rows, int repeat)
{
    QList<QJsonObject> runs;
    for (int i = 0; i < repeat; ++i)
        runs << played(role, wordsOf(books.books().fin) + wordsOf(books.books().ravl) +
                                 QStringList(QString::number(rows)));
    return middleOf(runs);
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
    const QApplication application(argc, argv);
    return benchMain(
        {{u"rows"_s, u"Rows of the list"_s, 1000000},
         {u"repeat"_s, u"Runs of each; the one in the middle counts"_s, 3}},
        [](Engine engine, const QList<int> &n) { measure(engine, n[0], n[1]); }, playRole);
}
