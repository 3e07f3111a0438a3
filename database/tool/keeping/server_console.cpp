#include "database/tool/keeping/server_console.h"

#include <QProcess>

#include <libpq-fe.h>

using namespace Qt::StringLiterals;

namespace {

// Seconds for each server of the words, unless they or the environment have their own.
constexpr char connectTimeout[] = "5";

using TOptions = std::unique_ptr<PQconninfoOption, void (*)(PQconninfoOption *)>;

TOptions optionsOf(const QString &connInfo)
{
    char *error = nullptr;
    TOptions options(PQconninfoParse(connInfo.toUtf8().constData(), &error), PQconninfoFree);
    if (!options) {
        const QString text = QString::fromUtf8(error).trimmed();
        PQfreemem(error);
        throw EConvertError(u"Neteisingi prisijungimo prie serverio žodžiai: %1"_s.arg(text));
    }
    return options;
}

QProcessEnvironment environmentOf(const QString &connInfo)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!environment.contains(u"PGCONNECT_TIMEOUT"_s))
        environment.insert(u"PGCONNECT_TIMEOUT"_s, QLatin1StringView(connectTimeout));
    const TOptions options = optionsOf(connInfo);
    for (const PQconninfoOption *option = options.get(); option->keyword; ++option) {
        if (option->val && option->envvar)
            environment.insert(QString::fromLatin1(option->envvar), QString::fromUtf8(option->val));
    }
    return environment;
}

// Of a word that stands twice the later one holds.
QString boundedWords(const QString &connInfo)
{
    return qEnvironmentVariableIsSet("PGCONNECT_TIMEOUT")
               ? connInfo
               : u"connect_timeout=%1 "_s.arg(QLatin1StringView(connectTimeout)) + connInfo;
}

} // namespace

TServerConsole::TServerConsole(const QString &connInfo)
    : connection(PQconnectdb(withDatabase(boundedWords(connInfo), u"postgres"_s).toUtf8().constData()),
                 PQfinish)
{
    if (PQstatus(connection.get()) != CONNECTION_OK) {
        const QString text = QString::fromUtf8(PQerrorMessage(connection.get())).trimmed();
        throw EConnectionLost(u"Nepavyko prisijungti prie serverio: %1"_s.arg(text), text);
    }
    PQsetNoticeProcessor(
        connection.get(), [](void *, const char *) {}, nullptr);
    // A session looks for its database on each server of the words: a standby must have what was made here.
    run(u"set synchronous_commit to remote_apply"_s);
}

QStringList TServerConsole::run(const QString &statement)
{
    const std::unique_ptr<PGresult, void (*)(PGresult *)> result(
        PQexec(connection.get(), statement.toUtf8().constData()), PQclear);
    const ExecStatusType status = PQresultStatus(result.get());
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) {
        const QString text = QString::fromUtf8(PQerrorMessage(connection.get())).trimmed();
        throw EDatabaseError(u"Serveris atsisakė vykdyti veiksmą: %1"_s.arg(text), text, statement);
    }
    QStringList values;
    for (int row = 0; row < PQntuples(result.get()); ++row)
        values.append(QString::fromUtf8(PQgetvalue(result.get(), row, 0)));
    return values;
}

QString databaseOf(const QString &connInfo)
{
    const TOptions options = optionsOf(connInfo);
    for (const PQconninfoOption *option = options.get(); option->keyword; ++option) {
        if (qstrcmp(option->keyword, "dbname") == 0 && option->val)
            return QString::fromUtf8(option->val);
    }
    return {};
}

QString withDatabase(const QString &connInfo, const QString &database)
{
    QString value = database;
    value.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s);
    return u"%1 dbname='%2'"_s.arg(connInfo, value);
}

void runServerProgram(const QString &program, const QStringList &arguments, const QString &connInfo)
{
    QProcess process;
    process.setProcessEnvironment(environmentOf(connInfo));
    process.start(program, arguments);
    if (!process.waitForStarted(-1))
        throw Exception(
            u"Nepavyko paleisti serverio programos „%1“: įdiekite PostgreSQL kliento programas."_s.arg(
                program));
    process.waitForFinished(-1);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        const QString said = QString::fromUtf8(process.readAllStandardError()).trimmed();
        throw Exception(u"Serverio programos „%1“ įvykdyti nepavyko: %2"_s.arg(program, said));
    }
}
