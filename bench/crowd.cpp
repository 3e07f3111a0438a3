#include "bench/crowd.h"

#include "bench/bench_main.h"
#include "bench/station_roles.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A statement that is prepared once, and the three messages of a save. The numbers stand in the texts as a
// session's do.
constexpr char script[] = R"(\if :first
prepare saugo (varchar, varchar, varchar, integer) as
  update bd_dbkrasm set dka_adr = $1, dka_tel = $2, dka_pavad = $3 where dka_id = $4;
\set first 0
\endif
\set n :n + 1
\set id 1 + :client_id * :parties + :n % :parties
\if :asks
begin\; select pg_current_xact_id();
\else
begin;
\endif
execute saugo('Gatvė :n', ':n', 'Įmonė :n', :id);
commit;
)";

constexpr int threads = 2;
constexpr int patienceMs = 120'000;

void write(const QString &name, const QByteArray &content)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(name));
}

// A line of the log for each save; the third word is its microseconds.
QList<double> millisecondsIn(const QDir &folder)
{
    QList<double> all;
    for (const QString &name : folder.entryList({u"log.*"_s})) {
        QFile log(folder.filePath(name));
        if (!log.open(QIODevice::ReadOnly))
            qFatal("cannot read the log of pgbench");
        while (!log.atEnd())
            all.append(log.readLine().split(' ').at(2).toDouble() / 1000);
    }
    return all;
}

// What pgbench counted from the moment at which all were connected.
double rateIn(const QByteArray &told)
{
    const qsizetype line = told.indexOf("\ntps = ");
    if (line < 0)
        qFatal("pgbench told no rate");
    return told.mid(line).split(' ').at(2).toDouble();
}

} // namespace

double CrowdSaves::within(double part) const
{
    QList<double> sorted = milliseconds;
    std::ranges::sort(sorted);
    return sorted.isEmpty() ? 0 : sorted.at(qsizetype(double(sorted.size() - 1) * part));
}

Crowd::Crowd(const TSessionSettings &fin, int count)
{
    for (int i = 0; i < count; ++i) {
        stations.push_back(std::make_unique<QProcess>());
        stations.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        stations.back()->start(QCoreApplication::applicationFilePath(),
                               QStringList{u"--role"_s, u"station"_s} + wordsOf(fin) +
                                   QStringList{QString::number(i)});
    }
    for (const auto &each : stations) {
        if (lineOf(*each) != "ready\n")
            qFatal("a station could not begin");
    }
}

Crowd::~Crowd()
{
    for (const auto &each : stations)
        each->closeWriteChannel();
    for (const auto &each : stations)
        each->waitForFinished(patienceMs);
}

QByteArray Crowd::lineOf(QProcess &station) const
{
    while (!station.canReadLine()) {
        if (!station.waitForReadyRead(span * 1000 + patienceMs))
            qFatal("a station does not answer");
    }
    return station.readLine();
}

void Crowd::begin(int seconds)
{
    span = seconds;
    for (const auto &each : stations) {
        each->write(QByteArray::number(seconds) + '\n');
        each->waitForBytesWritten(patienceMs);
    }
}

CrowdSaves Crowd::end()
{
    CrowdSaves all;
    for (const auto &each : stations) {
        const QJsonObject told = QJsonDocument::fromJson(lineOf(*each)).object();
        for (const QJsonValue &milliseconds : told[u"ms"_s].toArray())
            all.milliseconds.append(milliseconds.toDouble());
        for (const QJsonValue &failure : told[u"failed"_s].toArray())
            all.failures.append(failure.toString());
    }
    all.aSecond = double(all.milliseconds.size()) / span;
    return all;
}

CrowdSaves savesByPgbench(const TSessionSettings &fin, int clients, int seconds, Number number)
{
    const QTemporaryDir folder;
    write(folder.filePath(u"saugo.sql"_s), script);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PGOPTIONS"_s,
                       u"-c velmora.login=ona -c velmora.stotis=stotis1 -c velmora.rutina="_s);
    process.setProcessEnvironment(environment);
    process.start(u"pgbench"_s,
                  {u"--no-vacuum"_s, u"--protocol=simple"_s, u"--log"_s,
                   u"--log-prefix="_s + folder.filePath(u"log"_s),
                   u"--file="_s + folder.filePath(u"saugo.sql"_s), u"--define=first=1"_s, u"--define=n=0"_s,
                   u"--define=asks=%1"_s.arg(int(number == Number::Asked)),
                   u"--define=parties=%1"_s.arg(partiesOfStation), u"--client=%1"_s.arg(clients),
                   u"--jobs=%1"_s.arg(threads), u"--time=%1"_s.arg(seconds), fin.connInfo});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("pgbench failed");
    CrowdSaves all;
    all.milliseconds = millisecondsIn(QDir(folder.path()));
    all.aSecond = rateIn(process.readAllStandardOutput());
    return all;
}
