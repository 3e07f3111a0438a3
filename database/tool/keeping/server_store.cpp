#include "database/tool/keeping/native_query.h"
#include "database/tool/keeping/server_console.h"
#include "database/tool/keeping/store.h"
#include "database/tool/keeping/totals.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {

const QString asideEnding = u"_nauja"_s;

class TServerStore : public TStore {
public:
    explicit TServerStore(const QString &connInfo)
    {
        place = serverBooks(connInfo);
        fin = databaseOf(place.fin.connInfo);
        ravl = databaseOf(place.ravl.connInfo);
        if (fin == ravl)
            throw EConvertError(u"Duomenų bazės fin= ir ravl= turi būti skirtingos."_s);
        asidePlace = place;
        asidePlace.fin.connInfo = withDatabase(place.fin.connInfo, fin + asideEnding);
        asidePlace.ravl.connInfo = withDatabase(place.ravl.connInfo, ravl + asideEnding);
    }

    int present() override
    {
        TServerConsole console(place.fin.connInfo);
        return exists(console, fin) + exists(console, ravl);
    }

    void prepareAside() override
    {
        discardAside();
        TServerConsole console(place.fin.connInfo);
        for (const QString &name : {fin, ravl}) {
            console.run(
                u"create database %1 template template0 encoding 'UTF8' lc_collate 'C' lc_ctype 'C.UTF-8'"_s
                    .arg(TServerConsole::identifier(name + asideEnding)));
        }
    }

    void discardAside() override
    {
        TServerConsole console(place.fin.connInfo);
        for (const QString &name : {fin, ravl})
            console.run(u"drop database if exists "_s + TServerConsole::identifier(name + asideEnding));
    }

    QStringList adoptAside() override
    {
        const QString stamp = u"_sena_"_s + QDateTime::currentDateTime().toString(u"yyyyMMddHHmmsszzz"_s);
        TServerConsole console(place.fin.connInfo);
        QStringList kept;
        console.run(u"begin"_s);
        for (const QString &name : {fin, ravl}) {
            if (exists(console, name)) {
                rename(console, name, name + stamp);
                kept.append(name + stamp);
            }
            rename(console, name + asideEnding, name);
        }
        console.run(u"commit"_s);
        return kept;
    }

    QJsonObject dump(const TSessionSettings &session, const QString &file) override
    {
        TDatabase db(session);
        db.Open();
        db.nativeExec(u"begin isolation level repeatable read read only"_s);
        const QString moment = columnOf(db, u"select pg_export_snapshot()"_s).constFirst();
        runServerProgram(
            u"pg_dump"_s,
            {u"--format=custom"_s, u"--no-owner"_s, u"--snapshot="_s + moment, u"--file="_s + file},
            session.connInfo);
        const QJsonObject totals = controlTotals(db);
        db.nativeExec(u"commit"_s);
        return totals;
    }

    void load(const QString &file, const TSessionSettings &session) override
    {
        runServerProgram(u"pg_restore"_s,
                         {u"--exit-on-error"_s, u"--no-owner"_s, u"--no-privileges"_s,
                          u"--single-transaction"_s, u"--dbname="_s + databaseOf(session.connInfo), file},
                         session.connInfo);
    }

private:
    static bool exists(TServerConsole &console, const QString &name)
    {
        return !console.run(u"select 1 from pg_database where datname = "_s + TDatabase::quoted(name))
                    .isEmpty();
    }

    static void rename(TServerConsole &console, const QString &from, const QString &to)
    {
        console.run(u"alter database %1 rename to %2"_s.arg(TServerConsole::identifier(from),
                                                            TServerConsole::identifier(to)));
    }

    QString fin;
    QString ravl;
};

} // namespace

std::unique_ptr<TStore> serverStore(const QString &connInfo)
{
    return std::make_unique<TServerStore>(connInfo);
}
