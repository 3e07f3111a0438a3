// The month close against the best single statement written by hand, run in the engine's own shell on a copy
// of the same books with the same durability.
//
//   bench_close [--rows N] [--engine sqlite|postgresql]

#include "bench/close_books.h"
#include "bench/engines.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace {

void measure(Engine engine, int rows)
{
    CloseBooks books(engine, rows);
    const double routine = books.closeByRoutine();
    const double shell = books.closeByShell();
    books.compare();
    std::printf("%s: %d balances, %d entries: Close_Per %.0f ms, by hand %.0f ms, ratio %.2f\n",
                nameOf(engine), rows, rows, routine, shell, routine / shell);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOption({"rows", "Balances and entries", "N", "1000000"});
    parser.addOption(engineOption());
    parser.process(application);
    for (const Engine engine : wantedEngines(parser))
        measure(engine, parser.value("rows").toInt());
    return 0;
}
