// The month close against the best single statement written by hand, run in the engine's own shell on a copy
// of the same books with the same durability; and against itself under history and with the month's seal.
//
//   bench_close [--rows N] [--engine sqlite|postgresql]

#include "bench/bench_main.h"
#include "bench/close_books.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

void measure(Engine engine, int rows)
{
    CloseBooks books(engine, rows);
    const double routine = books.closeByRoutine();
    const double shell = books.closeByShell();
    books.compare();
    const double sealed = books.closeWithSeal();
    std::printf("%s: %d balances, %d entries: Close_Per %.0f ms, by hand %.0f ms, ratio %.2f\n",
                nameOf(engine), rows, rows, routine, shell, routine / shell);
    std::printf("%s: with history and seal %.0f ms, ratio %.2f\n", nameOf(engine), sealed, sealed / routine);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    return benchMain({{"rows", "Balances and entries", 1000000}},
                     [](Engine engine, const QList<int> &n) { measure(engine, n[0]); });
}
