#include "bench/bench_books.h"

#include "database/tool/keeping/server_console.h"
#include "tests/support/postgres.h"

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

QString freshWords()
{
    QString words = postgresConnInfo(u"postgres"_s);
    return words.replace(u"dbname=postgres"_s,
                         u"fin=bench%1_fin ravl=bench%1_ravl"_s.arg(QCoreApplication::applicationPid()));
}

} // namespace

struct BenchBooks::Private {
    QTemporaryDir folder{QCoreApplication::applicationDirPath() + u"/bench-XXXXXX"_s};
    std::unique_ptr<TStore> store;
};

BenchBooks::BenchBooks(Engine engine) : d(std::make_unique<Private>())
{
    d->store = engine == Engine::Sqlite ? embeddedStore(d->folder.path()) : serverStore(freshWords());
}

BenchBooks::~BenchBooks()
{
    if (books().fin.engine == Engine::Sqlite)
        return;
    drop(books().fin);
    drop(books().ravl);
}

TStore &BenchBooks::store() const
{
    return *d->store;
}

void BenchBooks::drop(const TSessionSettings &settings)
{
    TServerConsole(postgresConnInfo(u"postgres"_s))
        .run(u"drop database if exists %1 with (force)"_s.arg(databaseOf(settings.connInfo)));
}
