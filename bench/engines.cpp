#include "bench/engines.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

QCommandLineOption engineOption()
{
    return {u"engine"_s, u"Only this engine: sqlite or postgresql"_s, u"name"_s};
}

QList<Engine> wantedEngines(const QCommandLineParser &parser)
{
    const QString wanted = parser.value(u"engine"_s);
    QList<Engine> engines;
    for (const Engine engine : {Engine::Sqlite, Engine::PostgreSql})
        if (wanted.isEmpty() || wanted == QLatin1String(nameOf(engine)))
            engines << engine;
    return engines;
}

const char *nameOf(Engine engine)
{
    return engine == Engine::Sqlite ? "sqlite" : "postgresql";
}

void needNoScreen()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}
