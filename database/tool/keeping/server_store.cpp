#include "database/backups/unfinished.h"
#include "database/native_sql.h"
#include "database/tool/keeping/backup_place.h"
#include "database/tool/keeping/native_query.h"
#include "database/tool/keeping/server_console.h"
#include "database/tool/keeping/store.h"
#include "database/tool/keeping/totals.h"

#include <QCryptographicHash>
#include <QDateTime>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString asideEnding = u"_nauja"_s;
const QString keptEnding = u"_sena_"_s;
const QString stampForm = u"yyyyMMddHHmmsszzz"_s;
// The server cuts longer names off without a word: two of them could become one.
constexpr qsizetype longestName = 63;
constexpr int waitForOthersMs = 300'000;

void refuseLongName(const QString &name)
{
    const qsizetype longest = longestName - keptEnding.size() - stampForm.size();
    if (name.toUtf8().size() > longest)
        throw EConvertError(
            u"Duomenų bazės vardas „%1“ per ilgas: jis gali būti iki %2 baitų."_s.arg(name).arg(longest));
}

// One of its own for each place and user, where everybody keeps temporary files.
QString partsFolderOf(const TBooks &place)
{
    const QByteArray whose = (place.fin.connInfo + u'\n' + place.ravl.connInfo).toUtf8();
    return u"%1/%2-%3-%4"_s.arg(
        QDir::tempPath(), QLatin1String(partsName), QString::number(::geteuid()),
        QLatin1String(QCryptographicHash::hash(whose, QCryptographicHash::Sha256).first(8).toHex()));
}

class TServerStore : public TStore {
public:
    explicit TServerStore(const QString &connInfo)
    {
        place = serverBooks(connInfo);
        fin = databaseOf(place.fin.connInfo);
        ravl = databaseOf(place.ravl.connInfo);
        if (fin == ravl)
            throw EConvertError(u"Duomenų bazės fin= ir ravl= turi būti skirtingos."_s);
        refuseLongName(fin);
        refuseLongName(ravl);
        parts = partsFolderOf(place);
        asidePlace = place;
        asidePlace.fin.connInfo = withDatabase(place.fin.connInfo, fin + asideEnding);
        asidePlace.ravl.connInfo = withDatabase(place.ravl.connInfo, ravl + asideEnding);
    }

    int present() override
    {
        TServerConsole looking(place.fin.connInfo);
        return exists(looking, fin) + exists(looking, ravl);
    }

    void prepareAside() override
    {
        keepOthersOut();
        removeAside();
        for (const QString &name : {fin, ravl}) {
            const QString database = nativeName(name + asideEnding);
            console->run(
                u"create database %1 template template0 encoding 'UTF8' lc_collate 'C' lc_ctype 'C.UTF-8'"_s
                    .arg(database));
            console->run(u"revoke all on database %1 from public"_s.arg(database));
        }
    }

    void discardAside() override
    {
        removeAside();
        console.reset();
    }

    QStringList adoptAside() override
    {
        const QString stamp = keptEnding + QDateTime::currentDateTime().toString(stampForm);
        TServerConsole renaming(place.fin.connInfo);
        QStringList kept;
        renaming.run(u"begin"_s);
        for (const QString &name : {fin, ravl}) {
            if (exists(renaming, name)) {
                rename(renaming, name, name + stamp);
                kept.append(name + stamp);
            }
            rename(renaming, name + asideEnding, name);
        }
        renaming.run(u"commit"_s);
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
    // All who work aside do it under the same names, wherever they keep their backups. The lock lasts as long
    // as the connection.
    void keepOthersOut()
    {
        console = std::make_unique<TServerConsole>(place.fin.connInfo);
        console->run(u"set lock_timeout = %1"_s.arg(waitForOthersMs));
        try {
            console->run(
                u"select pg_advisory_lock(hashtext('velmora'), hashtext(%1))"_s.arg(TDatabase::quoted(fin)));
        } catch (const EDatabaseError &error) {
            throw Exception(
                u"Šias duomenų bazes vis dar kopijuoja, tikrina ar atkuria kita programa: %1"_s.arg(
                    error.message()));
        }
    }

    void removeAside()
    {
        for (const QString &name : {fin, ravl})
            console->run(u"drop database if exists "_s + nativeName(name + asideEnding));
        TPartsFolder::remove(parts);
    }

    static bool exists(TServerConsole &server, const QString &name)
    {
        return !server.run(u"select 1 from pg_database where datname = "_s + TDatabase::quoted(name))
                    .isEmpty();
    }

    static void rename(TServerConsole &server, const QString &from, const QString &to)
    {
        server.run(u"alter database %1 rename to %2"_s.arg(nativeName(from), nativeName(to)));
    }

    QString fin;
    QString ravl;
    std::unique_ptr<TServerConsole> console; // of who works aside
};

} // namespace

std::unique_ptr<TStore> serverStore(const QString &connInfo)
{
    return std::make_unique<TServerStore>(connInfo);
}
