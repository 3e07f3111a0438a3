#include "database/backups/replacement.h"
#include "database/backups/whole_file.h"
#include "database/private_place.h"
#include "database/tool/keeping/native_query.h"
#include "database/tool/keeping/store.h"
#include "database/tool/keeping/totals.h"

#include <QFileInfo>
#include <QLockFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int copyAttempts = 5;
// Another number after each change that another connection has committed.
const QString changesOfOthers = u"pragma data_version"_s;

void removeDatabase(const QString &file)
{
    QFile::remove(file);
    for (const QString &companion : databaseCompanions())
        QFile::remove(file + companion);
}

// Makes sure that no other program has the file open, and brings its write-ahead log into it. A file that is
// no database, or a damaged one, is nobody's and passes: it may be the very reason of a restore.
void closeForOthers(const QString &file)
{
    sqlite3 *db = nullptr;
    int result = sqlite3_open_v2(file.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    const auto run = [&](const char *sql) {
        if (result == SQLITE_OK)
            result = sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
    };
    run("pragma journal_mode = delete");
    run("begin exclusive");
    run("commit");
    sqlite3_close(db);
    if (result == SQLITE_BUSY || result == SQLITE_LOCKED)
        throw Exception(
            u"Duomenų bazę „%1“ naudoja kita programa. Uždarykite ją ir bandykite dar kartą."_s.arg(file));
}

// What a killed program had begun to write is taken back by whoever opens the file to write. One who only
// reads may not, and would find nothing to read.
void takeBackUnfinished(const QString &file)
{
    if (QFileInfo(file + u"-journal"_s).size() == 0)
        return;
    sqlite3 *db = nullptr;
    if (sqlite3_open_v2(file.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK)
        sqlite3_exec(db, "select count(*) from sqlite_master", nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

class TEmbeddedStore : public TStore {
public:
    explicit TEmbeddedStore(const QString &name) : folder(name), lock(booksLock(name))
    {
        place = embeddedBooks(folder);
        asidePlace = place;
        asidePlace.fin.file += QLatin1String(newEnding);
        asidePlace.ravl.file += QLatin1String(newEnding);
    }

    int present() override
    {
        finishReplacement(folder);
        for (const QString &file : {place.fin.file, place.ravl.file})
            takeBackUnfinished(file);
        return QFileInfo::exists(place.fin.file) + QFileInfo::exists(place.ravl.file);
    }

    void prepareAside() override
    {
        if (!makePrivateFolder(folder))
            throw EFileError(u"Nepavyko sukurti katalogo „%1“."_s.arg(folder));
        lock.setStaleLockTime(0);
        if (!lock.tryLock(0))
            throw EFileError(
                u"Kataloge „%1“ duomenų bazes jau kuria kita programa arba į jį negalima rašyti."_s.arg(
                    folder));
        finishReplacementLocked(folder);
        discardAside();
        makePrivateFile(asidePlace.fin.file);
        makePrivateFile(asidePlace.ravl.file);
    }

    void discardAside() override
    {
        if (replacementUnderWay(folder))
            return;
        removeDatabase(asidePlace.fin.file);
        removeDatabase(asidePlace.ravl.file);
    }

    QStringList adoptAside() override
    {
        for (const QString &file : {place.fin.file, place.ravl.file}) {
            closeForOthers(file + QLatin1String(newEnding));
            syncFile(file + QLatin1String(newEnding));
            if (QFileInfo::exists(file))
                closeForOthers(file);
        }
        return replaceBooks(folder);
    }

    QJsonObject dump(const TSessionSettings &session, const QString &file) override
    {
        TSessionSettings reading = session;
        reading.readOnly = true;
        TDatabase db(reading);
        db.Open();
        for (int attempt = 0; attempt < copyAttempts; ++attempt) {
            QFile::remove(file);
            const QStringList before = columnOf(db, changesOfOthers);
            db.nativeExec(u"vacuum into "_s + TDatabase::quoted(file));
            const QJsonObject totals = controlTotals(db);
            if (columnOf(db, changesOfOthers) == before)
                return totals;
        }
        throw Exception(u"Kol buvo daroma kopija, kita programa vis keitė duomenų bazę „%1“. Bandykite dar "
                        "kartą."_s.arg(session.file));
    }

    void load(const QString &file, const TSessionSettings &session) override
    {
        renameOver(file, session.file);
    }

private:
    QString folder;
    QLockFile lock;
};

} // namespace

std::unique_ptr<TStore> embeddedStore(const QString &folder)
{
    return std::make_unique<TEmbeddedStore>(folder);
}
