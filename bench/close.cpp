// The month close against the best single statement written by hand, run in the engine's own shell on a copy
// of the same books with the same durability; and against itself under history and with the month's seal.
//
//   bench_close [--rows N] [--engine sqlite|postgresql]

#include "bench/bench_main.h"
#include "bench/close_books.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int turns = 3;

double middleOf(QList<double> times)
{
    std::ranges::sort(times);
    return times.at(times.size() / 2);
}

void measure(Engine engine, int rows)
{
    CloseBooks books(engine, rows);
    QList<double> plain, sealed;
    for (int turn = 0; turn < turns; ++turn) {
        if (turn > 0)
            books.rollBack();
        if (turn % 2 == 0)
            plain.append(books.closeByRoutine());
        sealed.append(books.closeWithSeal());
        if (turn % 2 == 1)
            plain.append(books.closeByRoutine());
    }
    const double shell = books.closeByShell();
    books.compare();
    std::printf("%s: %d balances, %d entries: Close_Per %.0f ms, by hand %.0f ms, ratio %.2f\n",
                nameOf(engine), rows, rows, plain.constFirst(), shell, plain.constFirst() / shell);
    std::printf("%s: in %d turns Close_Per %.0f ms, with history and seal %.0f ms, ratio %.2f\n",
                nameOf(engine), turns, middleOf(plain), middleOf(sealed), middleOf(sealed) / middleOf(plain));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    return benchMain({{"rows", "Balances and entries", 1000000}},
                     [](Engine engine, const QList<int> &n) { measure(engine, n[0]); });
}
