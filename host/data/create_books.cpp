#include "host/data/connections.h"

#include "database/backups/replacement.h"
#include "database/private_place.h"
#include "database/schema.h"
#include "database/sqlite_routines.h"

#include <QFile>
#include <QLockFile>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int lockWaitMs = 60'000;

QString unfinished(const QString &file)
{
    return file + u".new"_s;
}

// Two databases of one folder as the first start goes through them. The order of the renames tells a later
// start how far a stopped one came: the budget file gets its name only when both files are complete.
class TNewBooks {
public:
    explicit TNewBooks(const QString &inFolder) : books(embeddedBooks(inFolder)), folder(inFolder) {}

    bool exist() const
    {
        const bool fin = QFile::exists(books.fin.file);
        const bool ravl = QFile::exists(books.ravl.file);
        if (fin != ravl && !onlyFinNameMissing())
            throw EDatabaseError(
                u"Aplanke „%1“ yra tik vienas iš dviejų duomenų bazės failų; trūksta „%2“."_s.arg(
                    QDir::toNativeSeparators(folder),
                    QFileInfo(fin ? books.ravl.file : books.fin.file).fileName()));
        return fin && ravl;
    }

    void create()
    {
        if (exist())
            return;
        if (!onlyFinNameMissing()) {
            for (const QString &file : {books.fin.file, books.ravl.file})
                removeUnfinished(file);
            fill(books.fin, Book::Main);
            fill(books.ravl, Book::Budget);
            name(books.ravl.file);
        }
        name(books.fin.file);
    }

private:
    bool onlyFinNameMissing() const
    {
        return QFile::exists(books.ravl.file) && !QFile::exists(unfinished(books.ravl.file)) &&
               QFile::exists(unfinished(books.fin.file)) && !QFile::exists(books.fin.file);
    }

    static void removeUnfinished(const QString &file)
    {
        for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s})
            QFile::remove(unfinished(file) + ending);
    }

    static void fill(TSessionSettings settings, Book book)
    {
        settings.file = unfinished(settings.file);
        makePrivateFile(settings.file);
        TDatabase database(settings);
        database.Open();
        upgrade(database, book);
        database.Close();
    }

    void name(const QString &file) const
    {
        if (!QFile::rename(unfinished(file), file))
            throw EDatabaseError(
                u"Nepavyko sukurti duomenų bazės failo „%1“."_s.arg(QDir::toNativeSeparators(file)));
        keepNames();
    }

    // The new name must be on the disk before the next one is given.
    void keepNames() const
    {
        const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        const bool kept = handle >= 0 && ::fsync(handle) == 0;
        if (handle >= 0)
            ::close(handle);
        if (!kept)
            throw EDatabaseError(u"Nepavyko įrašyti aplanko „%1“."_s.arg(QDir::toNativeSeparators(folder)));
    }

    TBooks books;
    QString folder;
};

// A folder that this user may not enter says nothing about what is in it.
void requireAccess(const QString &folder)
{
    if (::faccessat(AT_FDCWD, QFile::encodeName(folder).constData(), X_OK, AT_EACCESS) != 0 &&
        errno == EACCES)
        throw EDatabaseError(
            u"Į aplanką „%1“ jums neleista įeiti, todėl nežinia, ar jame yra duomenų bazė. "
            "Paprašykite teisių arba nurodykite kitą aplanką."_s.arg(QDir::toNativeSeparators(folder)));
}

} // namespace

bool embeddedBooksExist(const QString &folder)
{
    requireAccess(folder);
    finishReplacement(folder);
    return TNewBooks(folder).exist();
}

void createEmbeddedBooks(const QString &folder)
{
    if (!makePrivateFolder(folder))
        throw EDatabaseError(u"Nepavyko sukurti aplanko „%1“."_s.arg(QDir::toNativeSeparators(folder)));
    QLockFile lock(QDir(folder).filePath(u"velmora.lock"_s));
    lock.setStaleLockTime(0);
    if (!lock.tryLock(lockWaitMs))
        throw EDatabaseError(
            u"Aplanke „%1“ duomenų bazę kuria kita programa."_s.arg(QDir::toNativeSeparators(folder)));
    TDatabase::setSqliteTeacher(teachSqlite);
    TNewBooks(folder).create();
}

void upgradeBooks(const TBooks &books)
{
    TDatabase::setSqliteTeacher(teachSqlite);
    const std::array<std::pair<const TSessionSettings &, Book>, 2> both{
        {{books.fin, Book::Main}, {books.ravl, Book::Budget}}};
    for (const auto &[settings, book] : both) {
        TDatabase database(settings);
        database.Open();
        upgrade(database, book);
    }
}
