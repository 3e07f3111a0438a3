#include "bench/child.h"

#include <QElapsedTimer>

namespace {

constexpr int patienceMs = 60'000;

double elapsed(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

double runChild(const QString &program, const QStringList &arguments, const QByteArray &input)
{
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool finished = process.waitForFinished(-1);
    const double time = elapsed(timer);
    const QByteArray said = process.readAllStandardError();
    if (!finished || process.exitCode() != 0 || !said.isEmpty())
        qFatal("%s: %s", qPrintable(program), said.constData());
    return time;
}

double millisecondsToLine(const QString &program, const QStringList &arguments, const QByteArray &line)
{
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.setReadChannel(QProcess::StandardError);
    process.start(program, arguments);
    QByteArray said;
    while (!said.contains(line)) {
        if (timer.elapsed() > patienceMs || !process.waitForReadyRead(patienceMs)) {
            said += process.readAllStandardError();
            if (said.contains(line))
                break;
            qFatal("%s did not say %s: %s", qPrintable(program), line.constData(), said.constData());
        }
        said += process.readAllStandardError();
    }
    const double time = elapsed(timer);
    process.kill();
    process.waitForFinished(-1);
    return time;
}
