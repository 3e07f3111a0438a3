#include "tests/support/engines.h"

#include "tests/support/files.h"
#include "tests/support/postgres.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

QString engineName(Engine engine)
{
    return engine == Engine::Sqlite ? u"Sqlite"_s : u"PostgreSql"_s;
}

void PrintTo(Engine engine, std::ostream *out)
{
    *out << engineName(engine).toStdString();
}

namespace {
// A name for a database on the shared server that no other test program uses.
QString freshDatabaseName(const QString &alias)
{
    static int count = 0;
    return u"t%1_%2_%3"_s.arg(QCoreApplication::applicationPid()).arg(++count).arg(alias.toLower());
}

TSessionSettings freshSqlite(const QString &alias, const QString &folder, const QString &original)
{
    TSessionSettings settings;
    settings.alias = alias;
    settings.engine = Engine::Sqlite;
    settings.file = folder + u'/' + alias + u".db"_s;
    if (!original.isEmpty() && !QFile::copy(original, settings.file))
        qFatal("cannot copy %s", qPrintable(original));
    return settings;
}

TSessionSettings freshPostgres(const QString &alias, const QString &original)
{
    const QString name = freshDatabaseName(alias);
    const QString model = original.isEmpty() ? u"template0"_s : original;
    postgresExec(u"create database %1 template %2 strategy file_copy"_s.arg(name, model));
    TSessionSettings settings;
    settings.alias = alias;
    settings.engine = Engine::PostgreSql;
    settings.connInfo = postgresConnInfo(name);
    return settings;
}

void drop(const TSessionSettings &settings)
{
    if (settings.engine == Engine::PostgreSql)
        postgresExec(u"drop database %1 with (force)"_s.arg(settings.connInfo.section(u"dbname="_s, 1)));
}
} // namespace

struct OnEmptyDatabases::Private {
    QTemporaryDir folder{scratchRoot() + u"/velmora-test-XXXXXX"_s};
    TSessionSettings finSettings, ravlSettings;
    std::unique_ptr<TDatabase> fin, ravl, secondFin, secondRavl;
};

OnEmptyDatabases::OnEmptyDatabases() = default;
OnEmptyDatabases::~OnEmptyDatabases() = default;

void OnEmptyDatabases::SetUp()
{
    d = std::make_unique<Private>();
    ASSERT_TRUE(d->folder.isValid());
    const Origin from = origin();
    const auto fresh = [this](const QString &alias, const QString &original) {
        return engine() == Engine::Sqlite ? freshSqlite(alias, d->folder.path(), original)
                                          : freshPostgres(alias, original);
    };
    d->finSettings = fresh(u"mnFin_Db"_s, from.fin);
    d->ravlSettings = fresh(u"mnRavl"_s, from.ravl);
    d->fin = open(d->finSettings);
    d->ravl = open(d->ravlSettings);
    mnFin_Db = d->fin.get();
    mnRavl = d->ravl.get();
}

void OnEmptyDatabases::TearDown()
{
    mnFin_Db = mnRavl = nullptr;
    for (std::unique_ptr<TDatabase> *session : {&d->secondFin, &d->secondRavl, &d->fin, &d->ravl})
        session->reset();
    drop(d->finSettings);
    drop(d->ravlSettings);
    d.reset();
}

TDatabase *OnEmptyDatabases::secondFin()
{
    if (!d->secondFin)
        d->secondFin = open(d->finSettings);
    return d->secondFin.get();
}

TDatabase *OnEmptyDatabases::secondRavl()
{
    if (!d->secondRavl)
        d->secondRavl = open(d->ravlSettings);
    return d->secondRavl.get();
}

TSessionSettings OnEmptyDatabases::finSettings() const
{
    return d->finSettings;
}

TSessionSettings OnEmptyDatabases::ravlSettings() const
{
    return d->ravlSettings;
}

std::unique_ptr<TDatabase> OnEmptyDatabases::open(const TSessionSettings &settings) const
{
    auto session = std::make_unique<TDatabase>(settings);
    session->Open();
    return session;
}

QString OnEmptyDatabases::folder() const
{
    return d->folder.path();
}
