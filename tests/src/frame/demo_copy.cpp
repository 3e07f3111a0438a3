#include "tests/src/frame/demo_copy.h"

#include "database/demo/demo.h"
#include "database/schema.h"
#include "tests/support/engines.h"
#include "tests/support/files.h"
#include "tests/support/postgres.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <map>

namespace {

QString databaseOf(const TSessionSettings &settings)
{
    return settings.connInfo.section("dbname=", 1);
}

void removeBook(const TSessionSettings &settings)
{
    if (settings.engine == Engine::PostgreSql)
        postgresExec(QString("drop database %1 with (force)").arg(databaseOf(settings)));
    else
        QFileInfo(settings.file).dir().removeRecursively();
}

// Where the books of this run lie, and what of them must go at its end.
struct TRun {
    QTemporaryDir folder{scratchRoot() + "/velmora-demo-XXXXXX"};
    std::map<Engine, std::unique_ptr<TDemoCopy>> shared;
    std::map<Engine, TBooks> filled;
    std::map<Engine, QList<QByteArray>> fingerprints;
    int places = 0;
};

class Runs : public testing::Environment {
public:
    void TearDown() override
    {
        run.shared.clear();
        for (const auto &[engine, model] : run.filled) {
            removeBook(model.fin);
            removeBook(model.ravl);
        }
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

// A place for both books, as the program keeps them: a folder of its own, or two databases of the server.
TBooks freshPlace(Engine engine)
{
    const QString name = QString::number(++thisRun().places);
    if (engine == Engine::Sqlite) {
        if (!QDir(thisRun().folder.path()).mkdir(name))
            qFatal("no folder for the books");
        return embeddedBooks(thisRun().folder.filePath(name));
    }
    QString words = postgresConnInfo("postgres");
    const QString prefix = QString("demo_%1_%2").arg(QCoreApplication::applicationPid()).arg(name);
    words.replace("dbname=postgres", QString("fin=%1_fin ravl=%1_ravl").arg(prefix));
    return serverBooks(words);
}

void copyBook(const TSessionSettings &model, const TSessionSettings &copy)
{
    if (model.engine == Engine::PostgreSql)
        postgresExec(QString("create database %1 template %2 strategy file_copy")
                         .arg(databaseOf(copy), databaseOf(model)));
    else if (!QFile::copy(model.file, copy.file))
        qFatal("cannot copy %s", qPrintable(model.file));
}

TBooks fill(Engine engine)
{
    TBooks books = freshPlace(engine);
    if (engine == Engine::PostgreSql)
        for (const TSessionSettings &each : {books.fin, books.ravl})
            postgresExec(
                QString("create database %1 template template0 strategy file_copy").arg(databaseOf(each)));
    TDatabase fin(books.fin);
    TDatabase ravl(books.ravl);
    fin.Open();
    ravl.Open();
    upgrade(fin, Book::Main);
    upgrade(ravl, Book::Budget);
    fillDemoBooks(fin, ravl, 1, [](const QString &) {});
    return books;
}

const TBooks &filled(Engine engine)
{
    std::map<Engine, TBooks> &models = thisRun().filled;
    if (!models.contains(engine))
        models[engine] = fill(engine);
    return models[engine];
}

TBooks copied(const TBooks &model)
{
    const TBooks copy = freshPlace(model.fin.engine);
    copyBook(model.fin, copy.fin);
    copyBook(model.ravl, copy.ravl);
    return copy;
}

QByteArray fingerprintOf(const TSessionSettings &settings)
{
    TDatabase session(settings);
    session.Open();
    return fingerprint(session);
}

} // namespace

TDemoCopy::TDemoCopy(Engine engine) : TDemoCopy(copied(filled(engine))) {}

TDemoCopy::TDemoCopy(const TBooks &books) : fin(books.fin), ravl(books.ravl) {}

TDemoCopy::~TDemoCopy()
{
    removeBook(fin);
    removeBook(ravl);
}

const TDemoCopy &TDemoCopy::shared(Engine engine)
{
    std::unique_ptr<TDemoCopy> &copy = thisRun().shared[engine];
    if (!copy)
        copy = std::make_unique<TDemoCopy>(engine);
    return *copy;
}

void TDemoCopy::renewShared(Engine engine)
{
    thisRun().shared.erase(engine);
}

QList<QByteArray> TDemoCopy::fingerprints() const
{
    return {fingerprintOf(fin), fingerprintOf(ravl)};
}

const QList<QByteArray> &TDemoCopy::unchanged(Engine engine)
{
    QList<QByteArray> &known = thisRun().fingerprints[engine];
    if (known.isEmpty())
        known = TDemoCopy(engine).fingerprints();
    return known;
}
