// From the start of the process to the first painted main window, against a program with one empty window.
//
//   bench_start [--repeat N]      run from anywhere; the programs are looked for beside this one

#include "bench/child.h"
#include "database/tool/keeping/keeper.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

double fastest(int repeat, const QString &program, const QStringList &arguments)
{
    double best = millisecondsToLine(program, arguments, "first-paint"); // fills the caches, is not counted
    for (int i = 0; i < repeat; ++i) {
        const double time = millisecondsToLine(program, arguments, "first-paint");
        best = i == 0 ? time : std::min(best, time);
    }
    return best;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOption({"repeat", "How many starts are counted", "N", "5"});
    parser.process(application);
    qputenv("VELMORA_TELL_FIRST_PAINT", "1");
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    const QTemporaryDir folder;
    createDemoBooks(*embeddedStore(folder.path()), 1, [](const QString &) {});
    const QString here = QCoreApplication::applicationDirPath();
    const int repeat = parser.value("repeat").toInt();
    const double empty = fastest(repeat, here + "/bench_empty_window", {});
    const double host = fastest(repeat, here + "/velmora-host", {"--data", folder.path()});
    std::printf("empty window %.0f ms, velmora-host %.0f ms, ratio %.2f\n", empty, host, host / empty);
    return 0;
}
