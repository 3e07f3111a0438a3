#include "tests/database/tool/demo_store.h"

#include "database/history.h"
#include "database/seals.h"
#include "database/tool/keeping/server_console.h"
#include "tests/support/files.h"
#include "tests/support/postgres.h"
#include "tests/support/unguarded.h"

#include <QCoreApplication>
#include <QDir>

#include <map>

using namespace Qt::StringLiterals;

namespace {

const auto silent = [](const QString &) {};

// The places that all tests share; they go before the server's own data does.
struct TSharedPlaces : testing::Environment {
    std::map<Engine, std::unique_ptr<TestPlace>> known;
    void TearDown() override { known.clear(); }
};

auto *const places = static_cast<TSharedPlaces *>(testing::AddGlobalTestEnvironment(new TSharedPlaces));

std::unique_ptr<TDatabase> opened(const TSessionSettings &settings)
{
    auto db = std::make_unique<TDatabase>(settings);
    db->Open();
    return db;
}

} // namespace

TestPlace::TestPlace(Engine anEngine) : engine(anEngine), folder(scratchRoot() + u"/velmora-db-XXXXXX"_s)
{
    static int count = 0;
    prefix = u"d%1_%2_"_s.arg(QCoreApplication::applicationPid()).arg(++count);
    if (engine == Engine::PostgreSql) {
        words = postgresConnInfo(u"postgres"_s);
        words.replace(u"dbname=postgres"_s, u"fin=%1fin ravl=%1ravl"_s.arg(prefix));
    }
}

TestPlace::~TestPlace()
{
    if (engine == Engine::Sqlite)
        return;
    for (const QString &name : everything())
        postgresExec(u"drop database %1 with (force)"_s.arg(name));
    postgresDropRolesOf(prefix + u"fin"_s);
}

QStringList TestPlace::arguments() const
{
    return engine == Engine::Sqlite ? QStringList{u"--data"_s, folder.filePath(u"knygos"_s)}
                                    : QStringList{u"--server"_s, words};
}

std::unique_ptr<TStore> TestPlace::store() const
{
    return engine == Engine::Sqlite ? embeddedStore(folder.filePath(u"knygos"_s)) : serverStore(words);
}

std::unique_ptr<TDatabase> TestPlace::fin() const
{
    return opened(store()->books().fin);
}

std::unique_ptr<TDatabase> TestPlace::ravl() const
{
    return opened(store()->books().ravl);
}

QString TestPlace::file(const QString &name) const
{
    return folder.filePath(name);
}

QStringList TestPlace::everything() const
{
    if (engine == Engine::Sqlite)
        return QDir(folder.filePath(u"knygos"_s))
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
    TServerConsole console(postgresConnInfo(u"postgres"_s));
    return console.run(
        u"select datname from pg_database where starts_with(datname, '%1') order by 1"_s.arg(prefix));
}

QByteArrayList TestPlace::fingerprints() const
{
    return {fingerprint(*fin()), fingerprint(*ravl())};
}

TestPlace &OnDemoBooks::place(Engine engine)
{
    std::unique_ptr<TestPlace> &known = places->known[engine];
    if (!known) {
        known = std::make_unique<TestPlace>(engine);
        createDemoBooks(*known->store(), 1, silent);
    }
    return *known;
}

void OnDemoBooks::SetUp()
{
    fin = place().fin();
    ravl = place().ravl();
    for (TDatabase *db : {fin.get(), ravl.get()}) {
        if (GetParam() == Engine::PostgreSql)
            db->nativeExec(u"set velmora.rutina = ''"_s);
    }
}

void OnDemoBooks::TearDown()
{
    fin.reset();
    ravl.reset();
}

QStringList OnDemoBooks::findings()
{
    return findProblems(*fin, *ravl, silent);
}

QStringList OnDemoBooks::findingsAfter(const QStringList &changes, Book book)
{
    TDatabase &db = book == Book::Main ? *fin : *ravl;
    const TTransaction undone(&db);
    takeGuardsAway(db);
    for (const QString &change : changes)
        db.nativeExec(change);
    return findings();
}

void OnDemoBooks::logIn()
{
    for (TDatabase *db : {fin.get(), ravl.get()})
        keepHistory(*db, {u"ona"_s, u"stotis1"_s});
}

qlonglong OnDemoBooks::currentMonth()
{
    return value(*fin, u"select get_last_per_id() from dummy"_s).toLongLong();
}

void OnDemoBooks::closeMonth()
{
    const qlonglong month = currentMonth();
    fin->ExecSQL(u"call Close_Per()"_s);
    appendSeal(*fin, TSealEvent::Close, month);
}
