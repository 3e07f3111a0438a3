#include "tests/faults/victim_process.h"

#include "tests/support/engines.h"
#include "tests/support/files.h"

#include <QThread>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
constexpr int patienceMs = 60'000;
} // namespace

VictimProcess::VictimProcess(const QString &mode, const TSessionSettings &settings,
                             const QStringList &environment, const QString &number)
{
    QProcessEnvironment own = QProcessEnvironment::systemEnvironment();
    for (const QString &each : environment)
        own.insert(each.section(u'=', 0, 0), each.section(u'=', 1));
    process.setProcessEnvironment(own);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString place = settings.engine == Engine::Sqlite ? settings.file : settings.connInfo;
    QStringList arguments{mode, engineName(settings.engine), place};
    if (!number.isEmpty())
        arguments << number;
    process.start(buildFolder() + u"/bin/fault_victim"_s, arguments);
}

VictimProcess::~VictimProcess()
{
    process.kill();
    process.waitForFinished(patienceMs);
}

bool VictimProcess::readUntil(const QByteArray &line)
{
    while (!output.contains(line + '\n') && process.waitForReadyRead(patienceMs))
        output += process.readAllStandardOutput();
    return output.contains(line + '\n');
}

bool VictimProcess::waitUntilItBegins()
{
    const bool began = readUntil("pradeda");
    sinceBeginning.start();
    return began;
}

bool VictimProcess::finish()
{
    if (!sinceBeginning.isValid())
        waitUntilItBegins();
    const bool done = readUntil("baigta");
    worked = sinceBeginning.nsecsElapsed() / 1000;
    process.waitForFinished(patienceMs);
    return done && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

void VictimProcess::killAfter(qint64 microseconds)
{
    const qint64 left = microseconds - sinceBeginning.nsecsElapsed() / 1000;
    if (left > 0)
        QThread::usleep(ulong(left));
    process.kill();
    process.waitForFinished(patienceMs);
}

QString VictimProcess::failure() const
{
    return QString::fromUtf8(output).section(u"klaida: "_s, 1).trimmed();
}

QStringList VictimProcess::told(const QString &word) const
{
    QStringList texts;
    for (const QString &line : QString::fromUtf8(output).split(u'\n')) {
        if (line.startsWith(word + u' '))
            texts.append(line.section(u' ', 1));
    }
    return texts;
}

QStringList withoutRightsOfRoot()
{
    constexpr int nobody = 65534;
    return getuid() == 0 ? QStringList{u"VELMORA_UID=%1"_s.arg(nobody)} : QStringList();
}

void waitUntilAlone(TDatabase &db)
{
    QElapsedTimer patience;
    patience.start();
    while (db.engine() == Engine::PostgreSql && !patience.hasExpired(60'000)) {
        if (nativeValue(db, u"select count(*) from pg_stat_activity "
                            "where datname = current_database() and pid <> pg_backend_pid()"_s) == u"0")
            return;
        QThread::msleep(5);
    }
    EXPECT_NE(db.engine(), Engine::PostgreSql) << "the killed program's session did not end";
}

int numberGiven(const char *variable, int usual)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(variable, &given);
    return given ? value : usual;
}
