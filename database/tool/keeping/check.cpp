#include "database/tool/keeping/check.h"

#include "database/schema.h"
#include "database/tool/keeping/book_checks.h"
#include "database/tool/keeping/content_checks.h"
#include "database/tool/keeping/native_query.h"
#include "database/tool/keeping/schema_checks.h"

using namespace Qt::StringLiterals;

namespace {

const QString databaseTitle(Book book)
{
    return QLatin1String(book == Book::Main ? BooksNames::fin : BooksNames::ravl);
}

// Every table is read several times in another order each.
constexpr int checkCacheKiB = 256 * 1024;

// The engine's own opinion of its file.
void checkSqliteFile(TDatabase &db, const QString &title, QStringList &found)
{
    db.nativeExec(u"pragma cache_size = -%1"_s.arg(checkCacheKiB));
    for (const QString &answer : columnOf(db, u"pragma integrity_check(20)"_s)) {
        if (answer != u"ok")
            found.append(u"%1: pažeistas duomenų bazės failas: %2"_s.arg(title, answer));
    }
}

// Reads every page of every table, and looks through the indexes where the server has the means.
void checkServerPages(TDatabase &db, const QString &title, QStringList &found)
{
    const QStringList tables =
        columnOf(db, u"select relname from pg_class where relkind = 'r' and relnamespace = "
                     "current_schema()::regnamespace order by 1"_s);
    const bool indexCheck =
        !columnOf(db, u"select 1 from pg_proc where proname = 'bt_index_check' limit 1"_s).isEmpty();
    for (const QString &table : tables) {
        try {
            columnOf(db, u"select sum(length(t::text)) from %1 t"_s.arg(table));
            if (indexCheck) {
                columnOf(db,
                         u"select bt_index_check(indexrelid)::text from pg_index join pg_class c on c.oid = "
                         "indexrelid join pg_am a on a.oid = relam and amname = 'btree' "
                         "where indrelid = '%1'::regclass"_s.arg(table));
            }
        } catch (const EConnectionLost &) {
            throw;
        } catch (const EDatabaseError &error) {
            found.append(u"%1: pažeista lentelė „%2“: %3"_s.arg(title, table, error.serverText));
        }
    }
}

bool checkRevision(TDatabase &db, Book book, QStringList &found)
{
    const QString title = databaseTitle(book);
    const int revision = revisionOf(db);
    if (revision == 0)
        found.append(u"%1: duomenų bazėje nėra sistemos lentelių."_s.arg(title));
    else if (revision != latestRevision())
        found.append(u"%1: duomenų bazės redakcija %2, o programai reikia %3."_s.arg(title).arg(revision).arg(
            latestRevision()));
    if (revision == latestRevision() &&
        columnOf(db, u"select ver_knyga from bd_versija"_s).value(0) != nameOf(book)) {
        found.append(u"%1: duomenų bazė yra ne ta: joje laikomi kiti duomenys."_s.arg(title));
        return false;
    }
    return revision == latestRevision();
}

// Balances and estimates that no period is left for, as after the start of work was set anew over running
// books. Journal lines stay for the month when it comes again.
void checkPeriods(TDatabase &db, const QString &title, QStringList &found)
{
    QList<std::pair<QString, QString>> references;
    eachRow(db,
            u"select rys_lentele, rys_stulpelis from sys_rysiai "
            "where rys_i_lentele = 'bd_period' and rys_lentele <> 'bd_irasai' order by 1, 2"_s,
            [&](const QSqlQuery &row) {
                references.append({row.value(0).toString(), row.value(1).toString()});
            });
    for (const auto &[table, column] : references) {
        qlonglong rows = 0;
        QStringList periods;
        eachRow(db,
                u"select %2, count(*) from %1 where not exists (select 1 from bd_period where per_id = %2) "
                "group by %2 order by 1"_s.arg(table, column),
                [&](const QSqlQuery &row) {
                    rows += row.value(1).toLongLong();
                    periods.append(
                        u"%1 (eilučių: %2)"_s.arg(row.value(0).toString(), row.value(1).toString()));
                });
        if (rows > 0)
            found.append(
                u"%1: lentelėje „%2“ be periodo liko eilučių: %3; nebėra periodo %4."_s.arg(title, table)
                    .arg(rows)
                    .arg(periods.join(u", "_s)));
    }
}

// Rows that refer to nothing. References that may lead nowhere for a while are not looked at.
void checkReferences(TDatabase &db, const QString &title, QStringList &found)
{
    struct TReference {
        QString table, column, toTable, toColumn;
    };
    QList<TReference> references;
    eachRow(db,
            u"select rys_lentele, rys_stulpelis, rys_i_lentele, rys_i_stulpelis from sys_rysiai "
            "where not exists "
            "(select 1 from sys_nuorodos where nuo_lentele = rys_lentele and nuo_stulpelis = rys_stulpelis) "
            "order by 1, 2"_s,
            [&references](const QSqlQuery &row) {
                references.append({row.value(0).toString(), row.value(1).toString(), row.value(2).toString(),
                                   row.value(3).toString()});
            });
    for (const TReference &r : references) {
        const QString sql =
            u"select count(*), min(%2) from %1 a where %2 is not null and not exists "
            "(select 1 from %3 b where b.%4 = a.%2)"_s.arg(r.table, r.column, r.toTable, r.toColumn);
        eachRow(db, sql, [&](const QSqlQuery &row) {
            if (row.value(0).toLongLong() > 0)
                found.append(
                    u"%1: lentelės „%2“ eilutės (%3) rodo į nesamą lentelės „%4“ eilutę (%5 = %6)."_s.arg(
                        title, r.table, row.value(0).toString(), r.toTable, r.column,
                        row.value(1).toString()));
        });
    }
}

// All that is read while it lives is of one moment, whatever other stations write. Inside the caller's
// transaction that one decides.
class TSnapshot {
public:
    explicit TSnapshot(TDatabase &aDb) : db(aDb), own(!aDb.InTransaction())
    {
        if (!own)
            return;
        if (db.engine() == Engine::Sqlite) {
            db.nativeExec(u"savepoint patikra"_s);
            return;
        }
        db.nativeExec(u"begin isolation level repeatable read, read only"_s);
    }
    ~TSnapshot()
    {
        try {
            if (own && db.engine() == Engine::Sqlite)
                db.nativeExec(u"release patikra"_s);
            else if (own)
                db.nativeExec(u"rollback"_s);
        } catch (const Exception &) { // the connection is gone, and the snapshot with it
        }
    }
    TSnapshot(const TSnapshot &) = delete;
    TSnapshot &operator=(const TSnapshot &) = delete;

private:
    TDatabase &db;
    bool own;
};

// Seals, history and contents against one another.
void checkGuards(TDatabase &db, Book book, const TProgress &progress, QStringList &found)
{
    const QString title = databaseTitle(book);
    try {
        const TSnapshot snapshot(db);
        const TSealCheck seals = checkSeals(db, title, found, progress);
        checkContents(db, seals, title, found);
        if (book == Book::Main)
            checkSealedMonths(db, seals, found);
    } catch (const EConnectionLost &) {
        throw;
    } catch (const EDatabaseError &error) {
        found.append(u"%1: nepavyko patikrinti antspaudų: %2"_s.arg(title, error.message()));
    }
}

bool checkDatabase(TDatabase &db, Book book, const TProgress &progress, QStringList &found)
{
    const QString title = databaseTitle(book);
    if (db.engine() == Engine::Sqlite)
        checkSqliteFile(db, title, found);
    else
        checkServerPages(db, title, found);
    if (!checkRevision(db, book, found))
        return false;
    if (db.engine() == Engine::Sqlite)
        checkSchema(db, book, title, found);
    checkReferences(db, title, found);
    checkPeriods(db, title, found);
    checkGuards(db, book, progress, found);
    return true;
}

} // namespace

QStringList findProblems(TDatabase &fin, TDatabase &ravl, const TProgress &progress)
{
    QStringList found;
    progress(u"Tikrinama duomenų bazė %1…"_s.arg(databaseTitle(Book::Main)));
    const bool finReadable = checkDatabase(fin, Book::Main, progress, found);
    progress(u"Tikrinama duomenų bazė %1…"_s.arg(databaseTitle(Book::Budget)));
    const bool ravlReadable = checkDatabase(ravl, Book::Budget, progress, found);
    if (finReadable) {
        progress(u"Tikrinami periodai ir kontrolinės sumos…"_s);
        found += checkBooks(fin);
    }
    if (ravlReadable)
        found += checkUsers(ravl);
    return found;
}
