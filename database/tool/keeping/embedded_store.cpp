#include "database/private_place.h"
#include "database/tool/keeping/store.h"
#include "database/tool/keeping/whole_file.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLockFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// A database file and what the engine keeps beside it.
const QStringList companions{u""_s, u"-wal"_s, u"-shm"_s, u"-journal"_s};

void removeDatabase(const QString &file)
{
    for (const QString &companion : companions)
        QFile::remove(file + companion);
}

// The files of a database that exist, as pairs of ending and file name.
QStringList existingCompanions(const QString &file)
{
    QStringList existing;
    for (const QString &companion : companions) {
        if (QFileInfo::exists(file + companion))
            existing.append(companion);
    }
    return existing;
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

class TEmbeddedStore : public TStore {
public:
    explicit TEmbeddedStore(const QString &name) : folder(name), lock(QDir(name).filePath(u"velmora.lock"_s))
    {
        place = embeddedBooks(folder);
        asidePlace = place;
        asidePlace.fin.file += u".nauja"_s;
        asidePlace.ravl.file += u".nauja"_s;
    }

    int present() override { return QFileInfo::exists(place.fin.file) + QFileInfo::exists(place.ravl.file); }

    void prepareAside() override
    {
        if (!makePrivateFolder(folder))
            throw EFileError(u"Nepavyko sukurti katalogo „%1“."_s.arg(folder));
        lock.setStaleLockTime(0);
        if (!lock.tryLock(0))
            throw EFileError(
                u"Kataloge „%1“ duomenų bazes jau kuria kita programa arba į jį negalima rašyti."_s.arg(
                    folder));
        discardAside();
        makePrivateFile(asidePlace.fin.file);
        makePrivateFile(asidePlace.ravl.file);
    }

    void discardAside() override
    {
        removeDatabase(asidePlace.fin.file);
        removeDatabase(asidePlace.ravl.file);
    }

    // At no moment do an old and a new file stand together under the final names, nor none of the two: a run
    // that is killed in between leaves the budget file alone, which every program refuses to open.
    QStringList adoptAside() override
    {
        const QString stamp = u".sena-"_s + QDateTime::currentDateTime().toString(u"yyyyMMddTHHmmsszzz"_s);
        const QStringList files{place.fin.file, place.ravl.file};
        for (const QString &file : files)
            makeReady(file);
        QStringList kept;
        bool budgetIsNew = false;
        try {
            for (const QString &file : files) {
                moveCompanions(file, stamp);
                if (!QFileInfo::exists(file))
                    continue;
                nameAgain(file, file + stamp);
                kept.append(file + stamp);
            }
            QFile::remove(place.fin.file); // it keeps its second name
            syncFolder(folder);
            renameOver(asidePlace.ravl.file, place.ravl.file);
            budgetIsNew = true;
            syncFolder(folder);
            renameOver(asidePlace.fin.file, place.fin.file);
        } catch (const Exception &) {
            if (budgetIsNew)
                QFile::remove(place.ravl.file);
            putBack(files, stamp);
            throw;
        }
        syncFolder(folder);
        return kept;
    }

    void dump(const TSessionSettings &session, const QString &file) override
    {
        TSessionSettings reading = session;
        reading.readOnly = true;
        TDatabase db(reading);
        db.Open();
        db.nativeExec(u"vacuum into "_s + TDatabase::quoted(file));
    }

    void load(const QString &file, const TSessionSettings &session) override
    {
        renameOver(file, session.file);
    }

private:
    static void makeReady(const QString &file)
    {
        closeForOthers(file + u".nauja"_s);
        syncFile(file + u".nauja"_s);
        if (QFileInfo::exists(file))
            closeForOthers(file);
    }

    // What the engine keeps beside a file that it could not close; it must never meet a new file.
    static void moveCompanions(const QString &file, const QString &stamp)
    {
        for (const QString &companion : existingCompanions(file)) {
            if (!companion.isEmpty())
                renameOver(file + companion, file + stamp + companion);
        }
    }

    static void putBack(const QStringList &files, const QString &stamp)
    {
        for (const QString &file : files) {
            for (const QString &companion : existingCompanions(file + stamp)) {
                renameOver(file + stamp + companion, file + companion);
                QFile::remove(file + stamp +
                              companion); // a second name of the same file survives the renaming
            }
        }
    }

    QString folder;
    QLockFile lock;
};

} // namespace

std::unique_ptr<TStore> embeddedStore(const QString &folder)
{
    return std::make_unique<TEmbeddedStore>(folder);
}
