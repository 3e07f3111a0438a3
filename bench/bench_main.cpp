#include "bench/bench_main.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QJsonDocument>
#include <QProcess>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

bool isWanted(Engine engine, const QCommandLineParser &parser)
{
    const QString wanted = parser.value(u"engine"_s);
    return wanted.isEmpty() || wanted == QLatin1String(nameOf(engine));
}

int tell(const QJsonObject &figures)
{
    std::printf("%s\n", QJsonDocument(figures).toJson(QJsonDocument::Compact).constData());
    return 0;
}

} // namespace

int benchMain(const QList<BenchNumber> &numbers,
              const std::function<void(Engine, const QList<int> &)> &measure, const BenchRole &role)
{
    QCommandLineParser parser;
    for (const BenchNumber &each : numbers)
        parser.addOption({each.name, each.told, u"N"_s, QString::number(each.preset)});
    parser.addOption({u"engine"_s, u"Only this engine: sqlite or postgresql"_s, u"name"_s});
    parser.addOption({u"role"_s, u"What this process measures (used by the program itself)"_s, u"name"_s});
    parser.process(*QCoreApplication::instance());
    if (role && parser.isSet(u"role"_s))
        return tell(role(parser.value(u"role"_s), parser.positionalArguments()));

    QList<int> values;
    for (const BenchNumber &each : numbers)
        values << parser.value(each.name).toInt();
    for (const Engine engine : {Engine::Sqlite, Engine::PostgreSql})
        if (isWanted(engine, parser))
            measure(engine, values);
    return 0;
}

QJsonObject played(const QString &role, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), QStringList{u"--role"_s, role} + arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("%s failed", qPrintable(role));
    return QJsonDocument::fromJson(process.readAllStandardOutput()).object();
}

QJsonObject middleOf(QList<QJsonObject> runs)
{
    std::ranges::sort(runs, {}, [](const QJsonObject &each) { return each[u"all"_s].toDouble(); });
    return runs[runs.size() / 2];
}

const char *nameOf(Engine engine)
{
    return engine == Engine::Sqlite ? "sqlite" : "postgresql";
}

QStringList wordsOf(const TSessionSettings &settings)
{
    return {QLatin1String(nameOf(settings.engine)),
            settings.engine == Engine::Sqlite ? settings.file : settings.connInfo};
}

TSessionSettings sessionOf(const QString &alias, const QStringList &words)
{
    TSessionSettings settings{.alias = alias};
    settings.engine =
        words.at(0) == QLatin1String(nameOf(Engine::Sqlite)) ? Engine::Sqlite : Engine::PostgreSql;
    (settings.engine == Engine::Sqlite ? settings.file : settings.connInfo) = words.at(1);
    return settings;
}

void needNoScreen()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}
