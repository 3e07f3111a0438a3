#include "database/tool/keeping/store.h"
#include "database/tool/keeping/whole_file.h"

#include <QDateTime>
#include <QFileInfo>

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
    run("pragma locking_mode = exclusive");
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
    explicit TEmbeddedStore(const QString &name) : folder(name)
    {
        place = embeddedBooks(folder);
        asidePlace = place;
        asidePlace.fin.file += u".nauja"_s;
        asidePlace.ravl.file += u".nauja"_s;
    }

    int present() override { return QFileInfo::exists(place.fin.file) + QFileInfo::exists(place.ravl.file); }

    void prepareAside() override
    {
        if (!QDir().mkpath(folder))
            throw EFileError(u"Nepavyko sukurti katalogo „%1“."_s.arg(folder));
        discardAside();
    }

    void discardAside() override
    {
        removeDatabase(asidePlace.fin.file);
        removeDatabase(asidePlace.ravl.file);
    }

    QStringList adoptAside() override
    {
        const QString stamp = u".sena-"_s + QDateTime::currentDateTime().toString(u"yyyyMMddTHHmmsszzz"_s);
        const QStringList files{place.fin.file, place.ravl.file};
        for (const QString &file : files) {
            closeForOthers(file + u".nauja"_s);
            syncFile(file + u".nauja"_s);
            if (QFileInfo::exists(file))
                closeForOthers(file);
        }
        QStringList kept;
        try {
            for (const QString &file : files)
                moveIn(file, stamp, kept);
        } catch (const Exception &) {
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
    static void moveIn(const QString &file, const QString &stamp, QStringList &kept)
    {
        const QStringList existing = existingCompanions(file);
        for (const QString &companion : existing)
            renameOver(file + companion, file + stamp + companion);
        if (!existing.isEmpty())
            kept.append(file + stamp);
        renameOver(file + u".nauja"_s, file);
    }

    static void putBack(const QStringList &files, const QString &stamp)
    {
        for (const QString &file : files) {
            for (const QString &companion : existingCompanions(file + stamp))
                renameOver(file + stamp + companion, file + companion);
        }
    }

    QString folder;
};

} // namespace

std::unique_ptr<TStore> embeddedStore(const QString &folder)
{
    return std::make_unique<TEmbeddedStore>(folder);
}
