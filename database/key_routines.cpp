#include "database/key_routines.h"

using namespace Qt::StringLiterals;

namespace {

void checkColumn(sqlite3 *db, const QByteArray &table, const QByteArray &column)
{
    Nested found(db, "select 1 from systable join syscolumn using (table_id) "
                     "where table_name = ?1 and column_name = ?2");
    if (!found.bind(1, table).bind(2, column).next())
        throw RoutineError{
            u"Nėra lentelės „%1“ stulpelio „%2“."_s.arg(QString::fromUtf8(table), QString::fromUtf8(column))};
}

// Comes first: a statement that writes waits for other stations, one that reads before could not.
constexpr char counterSql[] = "insert into sys_raktai (rak_lentele, rak_stulpelis, rak_paskutinis) "
                              "values (?1, ?2, 0) on conflict do nothing";

constexpr char drawSql[] =
    "update sys_raktai "
    "set rak_paskutinis = max(rak_paskutinis, (select coalesce(max(%2), 0) from %1)) + 1 "
    "where rak_lentele = ?1 and rak_stulpelis = ?2 returning rak_paskutinis";

QByteArray worded(const char *sql, const QByteArray &table, const QByteArray &column)
{
    QByteArray text(sql);
    text.replace("%2", quotedName(column));
    return text.replace("%1", quotedName(table));
}

qint64 drawKey(sqlite3 *db, const QByteArray &table, const QByteArray &column)
{
    Nested(db, counterSql).bind(1, table).bind(2, column).run();
    checkColumn(db, table, column);
    Nested draw(db, worded(drawSql, table, column));
    draw.bind(1, table).bind(2, column);
    qint64 key = 0;
    while (draw.next())
        key = draw.integer(0);
    return key;
}

} // namespace

void nextKey(RoutineCall &call)
{
    sqlite3 *db = call.db();
    const QByteArray table = call.text(1).toLower();
    const QByteArray column = call.text(2).toLower();
    if (sqlite3_txn_state(db, "main") == SQLITE_TXN_WRITE) {
        call.give(drawKey(db, table, column));
        return;
    }
    NestedSavepoint savepoint(db);
    const qint64 key = drawKey(db, table, column);
    savepoint.keep();
    call.give(key);
}

void countUses(RoutineCall &call)
{
    sqlite3 *db = call.db();
    const QByteArray table = call.text(0).toLower();
    const QByteArray column = call.text(1).toLower();
    const QByteArray key = call.text(2);
    checkColumn(db, table, column);
    Nested references(db, "select rys_lentele, rys_stulpelis from sys_rysiai "
                          "where rys_i_lentele = ?1 and rys_i_stulpelis = ?2 and not rys_sava");
    references.bind(1, table).bind(2, column);
    qint64 uses = 0;
    while (references.next()) {
        Nested count(db,
                     worded("select count(*) from %1 where %2 = ?1", references.text(0), references.text(1)));
        if (count.bind(1, key).next())
            uses += count.integer(0);
    }
    call.give(uses);
}
