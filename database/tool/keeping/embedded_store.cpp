#include "database/backups/replacement.h"
#include "database/backups/unfinished.h"
#include "database/backups/whole_file.h"
#include "database/private_place.h"
#include "database/tool/keeping/backup_place.h"
#include "database/tool/keeping/native_query.h"
#include "database/tool/keeping/store.h"
#include "database/tool/keeping/totals.h"

#include <QFileInfo>
#include <QLockFile>

#include <cerrno>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

void removeDatabase(const QString &file)
{
    QFile::remove(file);
    for (const QString &companion : databaseCompanions())
        QFile::remove(file + companion);
}

// Brings the write-ahead log of the file into it. Succeeds only when no other program has it open. Returns
// the engine's answer.
int foldAlone(const QString &file)
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
    return result;
}

// The new file must be whole without what stands beside it.
void finishNew(const QString &file)
{
    const int result = foldAlone(file);
    if (result != SQLITE_OK)
        throw EFileError(u"Nepavyko įrašyti naujos duomenų bazės „%1“: %2."_s.arg(
            file, result == SQLITE_FULL ? systemTrouble(ENOSPC) : QString::fromUtf8(sqlite3_errstr(result))));
    syncFile(file);
}

// A file that is no database, or a damaged one, is nobody's and passes: it may be the very reason of a
// restore.
void closeForOthers(const QString &file)
{
    const int result = foldAlone(file);
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
        parts = QDir(folder).filePath(QLatin1String(partsName));
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
            throw EFileError(u"Nepavyko sukurti aplanko „%1“."_s.arg(folder));
        lock.setStaleLockTime(0);
        if (!lock.tryLock(0))
            throw EFileError(
                u"Aplanke „%1“ duomenų bazes jau kuria kita programa arba į jį negalima rašyti."_s.arg(
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
        TPartsFolder::remove(parts);
    }

    QStringList adoptAside() override
    {
        for (const QString &file : {asidePlace.fin.file, asidePlace.ravl.file})
            finishNew(file);
        for (const QString &file : {place.fin.file, place.ravl.file})
            if (QFileInfo::exists(file))
                closeForOthers(file);
        return replaceBooks(folder, closeForOthers);
    }

    QJsonObject dump(const TSessionSettings &session, const QString &file) override
    {
        TSessionSettings reading = session;
        reading.readOnly = true;
        TDatabase db(reading);
        TDatabase copied(reading);
        db.Open();
        copied.Open();
        QFile::remove(file);
        db.nativeExec(u"begin"_s);
        columnOf(db, u"select count(*) from sqlite_master"_s); // its moment is this one
        copied.nativeExec(u"vacuum into "_s + TDatabase::quoted(file));
        const QJsonObject totals = controlTotals(db);
        db.nativeExec(u"commit"_s);
        return totals;
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
