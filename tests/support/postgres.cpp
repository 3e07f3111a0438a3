#include "tests/support/postgres.h"

#include "tests/support/files.h"

#include <QDir>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {
// Runs the script that manages servers and returns what it prints.
QString serverCommand(const QString &action, const QString &state)
{
    QProcess script;
    script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    script.start(sourceFolder() + u"/tests/support/postgres_server"_s, {action, state});
    constexpr int patience = 120'000;
    if (!script.waitForFinished(patience) || script.exitStatus() != QProcess::NormalExit ||
        script.exitCode() != 0)
        qFatal("the PostgreSQL server of the tests: %s failed", qPrintable(action));
    return QString::fromUtf8(script.readAllStandardOutput()).trimmed();
}

QString connInfoOf(const QString &folder, const QString &database)
{
    return u"host=%1 port=5432 user=velmora dbname=%2"_s.arg(folder, database);
}

// A connection to the server itself; the databases of the tests are created and dropped over it.
QSqlDatabase administration()
{
    const QString name = u"test administration"_s;
    if (QSqlDatabase::contains(name))
        return QSqlDatabase::database(name);
    QSqlDatabase connection = QSqlDatabase::addDatabase(u"QPSQL"_s, name);
    connection.setHostName(postgresFolder());
    connection.setUserName(u"velmora"_s);
    connection.setDatabaseName(u"postgres"_s);
    connection.setConnectOptions(u"options='-c client_min_messages=warning'"_s);
    if (!connection.open())
        qFatal("the PostgreSQL server of the tests: %s", qPrintable(connection.lastError().text()));
    return connection;
}
} // namespace

QString postgresFolder()
{
    static const QString folder = serverCommand(u"start"_s, buildFolder() + u"/pg"_s);
    return folder;
}

QString postgresConnInfo(const QString &database)
{
    return connInfoOf(postgresFolder(), database);
}

void postgresExec(const QString &statement)
{
    QSqlQuery query(administration());
    if (!query.exec(statement))
        qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
}

QString postgresValue(const QString &query)
{
    QSqlQuery answer(administration());
    if (!answer.exec(query) || !answer.next())
        qFatal("%s: %s", qPrintable(query), qPrintable(answer.lastError().text()));
    return answer.value(0).toString();
}

bool postgresHasDatabase(const QString &database)
{
    QSqlQuery query(administration());
    query.prepare(u"select 1 from pg_database where datname = ?"_s);
    query.addBindValue(database);
    if (!query.exec())
        qFatal("pg_database: %s", qPrintable(query.lastError().text()));
    return query.next();
}

void postgresDropRolesOf(const QString &mainDatabase)
{
    postgresExec(u"do $$ declare r record; begin "
                 "for r in select distinct p.rolname from pg_roles g join pg_auth_members on roleid = g.oid "
                 "join pg_roles p on p.oid = member "
                 "where g.rolname in ('%1_ziurovai', '%1_buhalteriai', '%1_administratoriai') "
                 "and p.rolname not like '%1\\_%' and not p.rolcreaterole "
                 "union all select rolname from pg_roles "
                 "where rolname in ('%1_ziurovai', '%1_buhalteriai', '%1_administratoriai') "
                 "loop execute format('drop role %I', r.rolname); end loop; end $$"_s.arg(mainDatabase));
}

OwnPostgres::OwnPostgres()
    : state(buildFolder() + u"/pg-"_s + QUuid::createUuid().toString(QUuid::Id128)),
      folder(serverCommand(u"start"_s, state))
{
}

OwnPostgres::~OwnPostgres()
{
    command(u"stop"_s);
    QDir(state).removeRecursively();
}

QString OwnPostgres::connInfo(const QString &database) const
{
    return connInfoOf(folder, database);
}

QString OwnPostgres::superuserConnInfo(const QString &database) const
{
    return u"host=%1 port=5432 user=postgres dbname=%2"_s.arg(folder, database);
}

QString OwnPostgres::passwordConnInfo(const QString &database, const QString &password) const
{
    return u"host=%1 port=5432 user=velmora_password password=%2 dbname=%3"_s.arg(folder, password, database);
}

void OwnPostgres::crash()
{
    command(u"crash"_s);
}

void OwnPostgres::restart()
{
    command(u"restart"_s);
}

void OwnPostgres::command(const QString &action)
{
    serverCommand(action, state);
}
