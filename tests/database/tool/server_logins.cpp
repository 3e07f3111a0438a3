#include "tests/database/tool/server_logins.h"

#include "database/tool/keeping/server_console.h"
#include "tests/support/postgres.h"
#include "toolkit/data/statement.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

const auto silent = [](const QString &) {};

QString withUser(QString connInfo, const QString &login, const QString &password)
{
    return connInfo.replace(u"user=velmora"_s, u"user='%1' password='%2'"_s.arg(login, password));
}

} // namespace

QStringList psql(const QString &database, const QString &login, const QString &script,
                 const QString &password)
{
    QProcess shell;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PGPASSWORD"_s, password);
    shell.setProcessEnvironment(environment);
    shell.start(u"psql"_s, {u"-X"_s, u"-q"_s, u"-h"_s, postgresFolder(), u"-p"_s, u"5432"_s, u"-U"_s, login,
                            u"-d"_s, database, u"-v"_s, u"VERBOSITY=sqlstate"_s, u"-f"_s, u"-"_s});
    shell.write(("set client_min_messages = error;\n" + script).toUtf8());
    shell.closeWriteChannel();
    EXPECT_TRUE(shell.waitForFinished(120'000));
    return QString::fromUtf8(shell.readAllStandardError()).split(u'\n', Qt::SkipEmptyParts);
}

void OwnLogins::SetUp()
{
    place = std::make_unique<TestPlace>(Engine::PostgreSql);
    createBooks(*place->store(), silent);
    fin = place->fin();
    ravl = place->ravl();
    for (const auto &[id, person, flags] :
         {std::tuple(1, u"adm"_s, u"0, 1"_s), std::tuple(2, u"buh"_s, u"0, 0"_s),
          std::tuple(3, u"ziu"_s, u"1, 0"_s)})
        ravl->nativeExec(u"insert into bd_usr values (%1, '%2', 'Ona', 'Onaitė', 'slapta', %3)"_s.arg(id).arg(
            login(person), flags));
    QStringList remarks;
    upgradeBooks(*place->store(), [&remarks](const QString &said) { remarks << said; });
    EXPECT_EQ(remarks, QStringList());
}

void OwnLogins::TearDown()
{
    fin.reset();
    ravl.reset();
    place.reset();
}

QString OwnLogins::login(const QString &person) const
{
    return person + QString::number(QCoreApplication::applicationPid() % 10'000'000);
}

QString OwnLogins::database(const QString &book) const
{
    const TBooks books = place->store()->books();
    return databaseOf((book == u"fin" ? books.fin : books.ravl).connInfo);
}

std::unique_ptr<TDatabase> OwnLogins::session(const QString &book, const QString &person,
                                              const QString &password) const
{
    const TBooks books = place->store()->books();
    TSessionSettings settings = book == u"fin" ? books.fin : books.ravl;
    settings.connInfo = withUser(settings.connInfo, login(person), password);
    auto db = std::make_unique<TDatabase>(settings);
    db->Open();
    return db;
}

QString OwnLogins::groupsOf(const QString &role) const
{
    TServerConsole console(postgresConnInfo(u"postgres"_s));
    const QString name = TDatabase::quoted(role);
    if (console.run(u"select 1 from pg_roles where rolname = "_s + name).isEmpty())
        return u"nėra"_s;
    QStringList groups =
        console.run(u"select g.rolname from pg_auth_members join pg_roles g on g.oid = roleid "
                    "join pg_roles p on p.oid = member where p.rolname = %1 order by 1"_s.arg(name));
    for (QString &group : groups)
        group.remove(database(u"fin"_s) + u'_');
    return groups.join(u' ');
}
