#include "database/backups/replacement.h"

#include "database/backups/whole_file.h"
#include "database/books.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLockFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int lockWaitMs = 10'000;
constexpr qint64 longestJournal = 200;
constexpr char journalLine[] = "VELMORA-KEITIMAS 1 ";

// One of the two databases under the three names that it may have.
struct TReplaced {
    QString file;    // the final name
    QString newFile; // where the new one was built
    QString kept;    // where the old one goes
};

QString journalOf(const QString &folder)
{
    return QDir(folder).filePath(u"velmora.keitimas"_s);
}

QList<TReplaced> bothDatabases(const QString &folder, const QString &stamp)
{
    const TBooks books = embeddedBooks(folder);
    QList<TReplaced> both;
    for (const QString &file : {books.fin.file, books.ravl.file})
        both.append({file, file + QLatin1String(newEnding), file + u".sena-"_s + stamp});
    return both;
}

void renameWhereThere(const QString &from, const QString &to)
{
    if (QFileInfo::exists(from))
        renameOver(from, to);
}

// May be done once more from wherever it was stopped: what is still to be done shows in the new file, which
// is there until it has its final name. What the engine kept beside an old file must never meet a new one.
void replace(const TReplaced &database, const QString &folder)
{
    if (!QFileInfo::exists(database.newFile))
        return;
    for (const QString &companion : databaseCompanions())
        renameWhereThere(database.file + companion, database.kept + companion);
    renameWhereThere(database.file, database.kept);
    syncFolder(folder);
    renameOver(database.newFile, database.file);
    syncFolder(folder);
}

void putBack(const TReplaced &database)
{
    if (!QFileInfo::exists(database.newFile))
        renameOver(database.file, database.newFile);
    renameWhereThere(database.kept, database.file);
    for (const QString &companion : databaseCompanions())
        renameWhereThere(database.kept + companion, database.file + companion);
}

void writeJournal(const QString &folder, const QString &stamp)
{
    TWholeFile journal(journalOf(folder));
    journal.write(journalLine + stamp.toLatin1() + '\n');
    journal.publish();
}

void removeJournal(const QString &folder)
{
    QFile journal(journalOf(folder));
    if (!journal.remove())
        throw EFileError(
            u"Nepavyko pašalinti failo „%1“: %2."_s.arg(journal.fileName(), fileTrouble(journal)));
    syncFolder(folder);
}

QStringList keptOf(const QList<TReplaced> &both)
{
    QStringList kept;
    for (const TReplaced &database : both)
        if (QFileInfo::exists(database.kept))
            kept.append(database.kept);
    return kept;
}

QString stampOf(const QString &folder)
{
    QFile journal(journalOf(folder));
    if (!journal.open(QIODevice::ReadOnly))
        throw EFileError(
            u"Nepavyko perskaityti failo „%1“: %2."_s.arg(journal.fileName(), fileTrouble(journal)));
    const QString line = QString::fromLatin1(journal.read(longestJournal)).trimmed();
    static const QRegularExpression form(u"^%1(\\d{8}T\\d{9})$"_s.arg(QLatin1String(journalLine)));
    const QRegularExpressionMatch match = form.match(line);
    if (!match.hasMatch())
        throw EFileError(u"Knygų keitimas nebaigtas, o jo žurnalas „%1“ sugadintas. Knygos neatvertos; "
                         "kreipkitės į administratorių."_s.arg(journal.fileName()));
    return match.captured(1);
}

} // namespace

const QStringList &databaseCompanions()
{
    static const QStringList companions{u"-wal"_s, u"-shm"_s, u"-journal"_s};
    return companions;
}

QStringList replaceBooks(const QString &folder, const std::function<void(const QString &)> &checkKept)
{
    const QString stamp = QDateTime::currentDateTime().toString(u"yyyyMMddTHHmmsszzz"_s);
    const QList<TReplaced> both = bothDatabases(folder, stamp);
    try {
        writeJournal(folder, stamp);
        for (const TReplaced &database : both)
            replace(database, folder);
        for (const QString &kept : keptOf(both))
            checkKept(kept);
        removeJournal(folder);
    } catch (const Exception &) {
        for (const TReplaced &database : both)
            putBack(database);
        if (replacementUnderWay(folder))
            removeJournal(folder);
        throw;
    }
    return keptOf(both);
}

void finishReplacementLocked(const QString &folder)
{
    if (!replacementUnderWay(folder))
        return;
    for (const TReplaced &database : bothDatabases(folder, stampOf(folder)))
        replace(database, folder);
    removeJournal(folder);
}

void finishReplacement(const QString &folder)
{
    if (!replacementUnderWay(folder))
        return;
    QLockFile lock(booksLock(folder));
    lock.setStaleLockTime(0);
    if (!lock.tryLock(lockWaitMs))
        throw EFileError(u"Aplanke „%1“ knygas kaip tik keičia kita programa, arba keitimo negalima baigti, "
                         "nes į aplanką negalima rašyti. Palaukite ir bandykite dar kartą."_s.arg(folder));
    finishReplacementLocked(folder);
}

bool replacementUnderWay(const QString &folder)
{
    return QFileInfo::exists(journalOf(folder));
}

QString booksLock(const QString &folder)
{
    return QDir(folder).filePath(u"velmora.lock"_s);
}
