#include "tests/faults/pair/station_process.h"

#include "tests/support/files.h"

#include <algorithm>

using namespace Qt::StringLiterals;

StationProcess::StationProcess(const QString &work, const QString &name, const QString &words)
{
    QObject::connect(&process, &QProcess::readyReadStandardOutput, [this] { read(); });
    process.setStandardErrorFile(
        QProcess::nullDevice()); // a platform without a screen complains of each window
    process.start(buildFolder() + u"/bin/pair_station"_s, {work, name, words});
}

StationProcess::~StationProcess()
{
    process.disconnect();
    process.kill();
    process.waitForFinished();
}

void StationProcess::read()
{
    while (process.canReadLine()) {
        const QString line = QString::fromUtf8(process.readLine()).trimmed();
        const QString what = line.section(u' ', 0, 0), text = line.section(u' ', 2);
        if (what == u"irasyta") {
            saved.insert(text);
            moments.append(line.section(u' ', 1, 1).toLongLong());
        } else if (what == u"klaida" && !failed.contains(text)) {
            failed.append(text);
        }
        kept = kept && what != u"dingo";
    }
}

qint64 StationProcess::firstAfter(qint64 moment) const
{
    const auto found = std::ranges::upper_bound(moments, moment);
    return found == moments.end() ? 0 : *found;
}
