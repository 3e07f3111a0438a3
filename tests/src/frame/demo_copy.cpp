#include "tests/src/frame/demo_copy.h"

#include "database/demo/demo.h"
#include "database/schema.h"
#include "tests/support/engines.h"
#include "tests/support/files.h"
#include "tests/support/postgres.h"

#include <QCoreApplication>
#include <QFile>

#include <map>

namespace {

const char *const finAlias = "mnFin_Db";
const char *const ravlAlias = "mnRavl";

// Where the books of this run lie, and what of them must go at its end.
struct TRun {
    QTemporaryDir folder{scratchRoot() + "/velmora-demo-XXXXXX"};
    std::map<Engine, std::unique_ptr<TDemoCopy>> shared;
    std::map<Engine, QStringList> filled; // main and budget book
    int copies = 0;
};

class Runs : public testing::Environment {
public:
    void TearDown() override
    {
        run.shared.clear();
        for (const QString &model : run.filled[Engine::PostgreSql])
            postgresExec("drop database " + model);
        run.filled.clear();
    }
    TRun run;
};

TRun &thisRun()
{
    static auto *runs = static_cast<Runs *>(testing::AddGlobalTestEnvironment(new Runs));
    return runs->run;
}
// Before main(): an environment counts from the start of the tests.
[[maybe_unused]] const TRun &early = thisRun();

TSessionSettings sessionSettings(Engine engine, const QString &alias, const QString &place)
{
    TSessionSettings settings;
    settings.alias = alias;
    settings.engine = engine;
    if (engine == Engine::Sqlite)
        settings.file = place;
    else
        settings.connInfo = postgresConnInfo(place);
    return settings;
}

QString freshPlace(Engine engine, const QString &name)
{
    return engine == Engine::Sqlite ? thisRun().folder.filePath(name + ".db")
                                    : QString("demo_%1_%2").arg(QCoreApplication::applicationPid()).arg(name);
}

TSessionSettings copyOf(const QString &model, Engine engine, const QString &alias)
{
    const QString place = freshPlace(engine, QString("%1_%2").arg(++thisRun().copies).arg(alias.toLower()));
    if (engine == Engine::PostgreSql)
        postgresExec(QString("create database %1 template %2 strategy file_copy").arg(place, model));
    else if (!QFile::copy(model, place))
        qFatal("cannot copy %s", qPrintable(model));
    return sessionSettings(engine, alias, place);
}

QStringList fill(Engine engine)
{
    QStringList places{freshPlace(engine, "fin"), freshPlace(engine, "ravl")};
    if (engine == Engine::PostgreSql)
        for (const QString &place : places)
            postgresExec(QString("create database %1 template template0 strategy file_copy").arg(place));
    TDatabase fin(sessionSettings(engine, finAlias, places[0]));
    TDatabase ravl(sessionSettings(engine, ravlAlias, places[1]));
    fin.Open();
    ravl.Open();
    upgrade(fin, Book::Main);
    upgrade(ravl, Book::Budget);
    fillDemoBooks(fin, ravl, 1, [](const QString &) {});
    return places;
}

const QStringList &filled(Engine engine)
{
    QStringList &places = thisRun().filled[engine];
    if (places.isEmpty())
        places = fill(engine);
    return places;
}

void remove(const TSessionSettings &settings)
{
    if (settings.engine == Engine::PostgreSql)
        postgresExec(QString("drop database %1 with (force)").arg(settings.connInfo.section("dbname=", 1)));
    else
        QFile::remove(settings.file);
}

QByteArray fingerprintOf(const TSessionSettings &settings)
{
    TDatabase session(settings);
    session.Open();
    return fingerprint(session);
}

} // namespace

TDemoCopy::TDemoCopy(Engine engine)
    : fin(copyOf(filled(engine)[0], engine, finAlias)),
      ravl(copyOf(filled(engine)[1], engine, ravlAlias))
{
}

TDemoCopy::~TDemoCopy()
{
    remove(fin);
    remove(ravl);
}

const TDemoCopy &TDemoCopy::shared(Engine engine)
{
    std::unique_ptr<TDemoCopy> &copy = thisRun().shared[engine];
    if (!copy)
        copy = std::make_unique<TDemoCopy>(engine);
    return *copy;
}

QList<QByteArray> TDemoCopy::fingerprints() const
{
    return {fingerprintOf(fin), fingerprintOf(ravl)};
}
