#include "tests/support/engines.h"

#include "database/schema.h"
#include "tests/support/files.h"
#include "tests/support/postgres.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>

#include <map>

#include <dlfcn.h>

using namespace Qt::StringLiterals;

// Books with the schema are made once for each build of it and copied for each test.

namespace {
// Tells one build of the schema's library from the next.
QString buildOfSchema()
{
    Dl_info library{};
    if (!dladdr(reinterpret_cast<void *>(&latestRevision), &library))
        qFatal("the library of the schema cannot be found");
    const QFileInfo file(QString::fromLocal8Bit(library.dli_fname));
    return QString::number(file.lastModified().toMSecsSinceEpoch(), 36) + u'_' +
           QString::number(file.size(), 36);
}

void makeBook(const TSessionSettings &settings, Book book)
{
    TDatabase db(settings);
    db.Open();
    upgrade(db, book);
}

QString modelsFolder()
{
    return buildFolder() + u"/models"_s;
}

// Models of earlier builds of the schema; a running test program still has its own.
void removeOldModels()
{
    const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
    for (const QFileInfo &file : QDir(modelsFolder()).entryInfoList({u"*.db"_s}, QDir::Files)) {
        if (file.lastModified() < yesterday)
            QFile::remove(file.filePath());
    }
}

QString sqliteModel(const QString &name, Book book)
{
    QString file = modelsFolder() + u'/' + name + u".db"_s;
    if (QFile::exists(file))
        return file;
    removeOldModels();
    TSessionSettings settings;
    settings.alias = name;
    settings.file = file + u".new"_s;
    QFile::remove(settings.file);
    makeBook(settings, book);
    if (QFile::exists(settings.file + u"-wal"_s) || !QFile::rename(settings.file, file))
        qFatal("the model %s was not finished", qPrintable(file));
    return file;
}

QString postgresModel(const QString &name, Book book)
{
    QString model = u"model_"_s + name;
    if (postgresHasDatabase(model))
        return model;
    const QString unfinished = model + u"_new"_s;
    postgresExec(u"drop database if exists %1 with (force)"_s.arg(unfinished));
    postgresExec(u"create database %1 template template0 strategy file_copy"_s.arg(unfinished));
    TSessionSettings settings;
    settings.alias = name;
    settings.engine = Engine::PostgreSql;
    settings.connInfo = postgresConnInfo(unfinished);
    makeBook(settings, book);
    postgresExec(u"alter database %1 rename to %2"_s.arg(unfinished, model));
    return model;
}

QString model(Engine engine, const QString &name, Book book)
{
    return engine == Engine::Sqlite ? sqliteModel(name, book) : postgresModel(name, book);
}
} // namespace

OnEmptyDatabases::Origin OnBothEngines::origin()
{
    static std::map<Engine, Origin> known;
    if (const auto found = known.find(engine()); found != known.end())
        return found->second;
    QDir().mkpath(modelsFolder());
    QLockFile oneAtATime(modelsFolder() + u"/lock"_s);
    if (!oneAtATime.lock())
        qFatal("%s cannot be locked", qPrintable(modelsFolder()));
    const QString build = buildOfSchema();
    return known[engine()] = {model(engine(), build + u"_fin"_s, Book::Main),
                              model(engine(), build + u"_ravl"_s, Book::Budget)};
}
