#include "tests/faults/pair/pair.h"

#include "database/history.h"
#include "database/seals.h"
#include "database/tool/keeping/keeper.h"
#include "tests/support/engines.h"
#include "tests/support/files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

// The same for every run of a build: what a killed run left is found and removed.
QString folderOfBuild()
{
    const QByteArray build =
        QCryptographicHash::hash(buildFolder().toUtf8(), QCryptographicHash::Md5).toHex();
    return scratchRoot() + u"/velmora-pair-"_s + QString::fromLatin1(build.first(8));
}

pid_t parentOf(pid_t process)
{
    const QString stat = QString::fromUtf8(contentOf(u"/proc/%1/stat"_s.arg(process)));
    return stat.section(u") "_s, -1).section(u' ', 1, 1).toInt();
}

// A number below 2 would mean more processes than one.
void send(pid_t process, int signal)
{
    if (process < 2 || ::kill(process, signal) != 0)
        ADD_FAILURE() << "no signal reached the process " << process;
}

void fill(TDatabase &fin)
{
    const THistoryPause pause(fin);
    TTransaction tran(&fin);
    fin.nativeExec(u"insert into bd_period values (1, 2026, 0, 0), (2, 2026, 1, 0), (3, 2026, 2, 0), "
                   "(4, 2026, 3, 0), (5, 2026, 4, 0), (6, 2026, 1, 1);"
                   "insert into bd_org (org_pavad, org_tipas) values ('Mokykla', 0);"
                   "insert into bd_sasplan (sas_id, sas_sasnr, sas_pavad, sas_tip) "
                   "select i, 'S' || i, 'Sąskaita ' || i, 'D' from generate_series(1, %1) i;"
                   "insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) "
                   "select i, i, 6, 10 * (i % 2), 10 * ((i + 1) % 2) from generate_series(1, %1) i"_s.arg(
                       Pair::accounts));
    tran.commit();
}

} // namespace

Pair::Pair() : folder(folderOfBuild())
{
    if (QDir(folder).exists())
        command({u"down"_s});
    QDir(folder).removeRecursively();
    up();
    createBooks();
}

Pair::~Pair()
{
    command({u"down"_s});
    QDir(folder).removeRecursively();
}

void Pair::up(bool synchronous)
{
    command(synchronous ? QStringList{u"up"_s} : QStringList{u"up"_s, u"--async"_s});
}

void Pair::killLeader()
{
    command({u"kill-leader"_s});
}

void Pair::crashServer()
{
    const pid_t backend = nativeValue(*books(), u"select pg_backend_pid()"_s).toInt();
    send(parentOf(backend), SIGKILL);
}

void Pair::freezeLink()
{
    TDatabase standby(serverBooks(wordsOfStandby()).fin);
    standby.Open();
    receiver = nativeValue(standby, u"select pid from pg_stat_wal_receiver"_s).toInt();
    send(receiver, SIGSTOP);
}

void Pair::cutLink()
{
    send(receiver, SIGKILL);
}

QString Pair::words() const
{
    return command({u"status"_s}).section(u'\n', 0, 0);
}

QString Pair::wordsOf(QStringView role) const
{
    const auto found = QRegularExpression(u"port (\\d+), "_s + role.toString()).match(command({u"status"_s}));
    EXPECT_TRUE(found.hasMatch());
    return u"host=127.0.0.1 port=%1 user=velmora"_s.arg(found.captured(1));
}

std::unique_ptr<TDatabase> Pair::books() const
{
    auto db = std::make_unique<TDatabase>(serverBooks(words()).fin);
    db->Open();
    return db;
}

QString Pair::command(const QStringList &arguments) const
{
    QProcess tool;
    tool.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    tool.start(sourceFolder() + u"/tools/cluster"_s,
               QStringList{arguments.first(), folder} + arguments.mid(1));
    constexpr int patienceMs = 400'000;
    if (!tool.waitForFinished(patienceMs) || tool.exitStatus() != QProcess::NormalExit ||
        tool.exitCode() != 0)
        qFatal("tools/cluster %s failed", qPrintable(arguments.join(u' ')));
    return QString::fromUtf8(tool.readAllStandardOutput());
}

void Pair::createBooks() const
{
    const auto store = serverStore(words());
    ::createBooks(*store, [](const QString &) {});
    fill(*books());
    appendSeal(*books(), TSealEvent::Beginning);
}
