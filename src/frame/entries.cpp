#include "src/frame/entries.h"

TPackageEntry function(const char *name, const TUnit &unit, const QStringList &menu, const QString &caption,
                       int help, void (*call)())
{
    return {.name = QString::fromLatin1(name),
            .unit = unit.name,
            .kind = TPackageEntry::Kind::Function,
            .menu = menu,
            .caption = caption,
            .help = help,
            .call = call};
}

TPackageEntry editor(const char *name, const TUnit &unit, int help, const std::function<void()> &call)
{
    return {.name = QString::fromLatin1(name),
            .unit = unit.name,
            .kind = TPackageEntry::Kind::Editor,
            .help = help,
            .call = call};
}

TPackageEntry onlyWrites(TPackageEntry entry)
{
    entry.writes = true;
    return entry;
}

double firstKey(TSession session, const char *table, const char *key)
{
    return sessionOf(session)->fieldResult(QString("select min(%1) from %2").arg(key, table)).toDouble();
}

AnsiString firstCode(const char *table, const char *key)
{
    const QString sql = QString("select min(%1) from %2").arg(key, table);
    return AnsiString(sessionOf(TSession::Main)->fieldResult(sql).toString());
}
