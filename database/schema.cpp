#include "database/schema.h"

#include "database/history.h"
#include "database/native_sql.h"
#include "database/seals.h"
#include "toolkit/data/statement.h"
#include "toolkit/sql/sort_key.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// A revision changes tables that others are reading: it waits for them as long as somebody reads a long list.
constexpr auto patience = "set local lock_timeout = '5min'"_L1;
// Any number will do that no other program locks on the same server.
constexpr auto serverLock = "select pg_advisory_xact_lock(7306021947)"_L1;

QString folderOf(Engine engine)
{
    return engine == Engine::Sqlite ? u":/schema/sqlite/"_s : u":/schema/postgresql/"_s;
}

// An index of SQLite cannot name lt_raktas: it is made of the functions that every program knows.
QString worded(Engine engine, QString script)
{
    if (engine != Engine::Sqlite)
        return script;
    static const QRegularExpression key(u"lt_raktas\\((\\w+)\\)"_s);
    for (auto match = key.match(script); match.hasMatch(); match = key.match(script))
        script.replace(match.capturedStart(), match.capturedLength(), sortKeyExpression(match.captured(1)));
    return script;
}

QString contentOf(const QString &path)
{
    QFile file(path);
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT(opened);
    return opened ? QString::fromUtf8(file.readAll()) : QString();
}

// The scripts of both books and those of the one, in the order of their file names; a name begins with the
// number of its revision.
QMap<QString, QString> scriptsOf(Engine engine, Book book)
{
    QMap<QString, QString> paths;
    for (const QString &part : {u"common"_s, nameOf(book)}) {
        const QDir folder(folderOf(engine) + part);
        for (const QString &name : folder.entryList({u"*.sql"_s}, QDir::Files))
            paths.insert(name + u'/' + part, folder.filePath(name));
    }
    return paths;
}

int numberOf(const QString &scriptName)
{
    return scriptName.section(u'_', 0, 0).toInt();
}

QString versionTable(Engine engine)
{
    return contentOf(folderOf(engine) + u"common/000_version.sql"_s);
}

void checkBook(TDatabase &db, Book book)
{
    const QString found = db.fieldResult(u"select ver_knyga from bd_versija"_s).toString();
    if (found != nameOf(book)) {
        throw EDatabaseError(
            u"Duomenų bazė „%1“ yra ne ta: joje laikomi kiti duomenys."_s.arg(db.AliasName()));
    }
}

void checkNotNewer(TDatabase &db, int revision, int last)
{
    if (revision > last) {
        throw ENewerDatabase(
            u"Duomenų bazę „%1“ (redakcija %2) jau atnaujino naujesnė programa; ši programa žino tik "
            u"redakciją %3. Įdiekite naujesnę programą."_s.arg(db.AliasName())
                .arg(revision)
                .arg(last));
    }
}

void lock(TDatabase &db)
{
    if (db.engine() != Engine::PostgreSql)
        return;
    db.nativeExec(patience);
    db.nativeExec(serverLock);
}

void writeRevision(TDatabase &db, Book book, int before, int number)
{
    const QString sql =
        before == 0 ? u"insert into bd_versija (ver_knyga, ver_numeris) values ('%1', %2)"_s.arg(nameOf(book))
                          .arg(number)
                    : u"update bd_versija set ver_numeris = %1"_s.arg(number);
    db.nativeExec(sql);
}

bool hasSeals(TDatabase &db)
{
    return !db.columnsOf(u"bd_antspaudai"_s).isEmpty();
}

// The rows that a revision changes leave no records: the seal after it tells of them.
void runScripts(TDatabase &db, const QStringList &scripts)
{
    if (db.engine() == Engine::PostgreSql)
        db.nativeExec(u"set local velmora.rutina = 'redakcija'"_s);
    for (const QString &script : scripts)
        db.nativeExec(script);
}

// Another station may have applied it while this one waited for the lock.
void apply(TDatabase &db, Book book, const TRevision &revision)
{
    TTransaction tran(&db);
    lock(db);
    const int before = revisionOf(db);
    if (before < revision.number) {
        const bool wasSealed = hasSeals(db);
        const TBookFingerprint contents = wasSealed ? contentsBeforeUpgrade(db) : TBookFingerprint();
        if (before == 0)
            db.nativeExec(versionTable(db.engine()));
        runScripts(db, revision.scripts);
        coverByHistory(db);
        writeRevision(db, book, before, revision.number);
        if (wasSealed)
            sealUpgrade(db, contents);
        else if (hasSeals(db))
            appendSeal(db, TSealEvent::Beginning);
    }
    tran.commit();
}

} // namespace

QString nameOf(Book book)
{
    return book == Book::Main ? u"main"_s : u"budget"_s;
}

QList<TRevision> revisions(Engine engine, Book book)
{
    QMap<int, TRevision> found;
    const QMap<QString, QString> paths = scriptsOf(engine, book);
    for (auto path = paths.cbegin(); path != paths.cend(); ++path) {
        const int number = numberOf(path.key());
        if (number == 0)
            continue;
        found[number].number = number;
        found[number].scripts.append(worded(engine, contentOf(path.value())));
    }
    return found.values();
}

int latestRevision()
{
    return revisions(Engine::Sqlite, Book::Main).constLast().number;
}

// Read in the engine's own words: the catalogue of a database that may be of another revision is not asked.
int revisionOf(TDatabase &db)
{
    const auto single = [&db](const QString &text) {
        const auto statement = nativeQuery(db, text);
        return statement->next() ? int(statement->integer(0)) : 0;
    };
    const bool known = single(db.engine() == Engine::Sqlite
                                  ? u"select count(*) from sqlite_master where name = 'bd_versija'"_s
                                  : u"select count(*) from pg_class where relname = 'bd_versija' "
                                    "and pg_table_is_visible(oid)"_s);
    return known ? single(u"select ver_numeris from bd_versija"_s) : 0;
}

void upgrade(TDatabase &db, Book book, const QList<TRevision> &list, const UpgradeProgress &progress)
{
    const int last = list.isEmpty() ? 0 : list.constLast().number;
    const int now = revisionOf(db);
    if (now > 0)
        checkBook(db, book);
    checkNotNewer(db, now, last);
    for (const TRevision &revision : list) {
        if (revision.number <= now)
            continue;
        if (progress)
            progress(revision.number, last);
        apply(db, book, revision);
    }
}

void upgrade(TDatabase &db, Book book, const UpgradeProgress &progress)
{
    upgrade(db, book, revisions(db.engine(), book), progress);
}
