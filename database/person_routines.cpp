#include "database/person_routines.h"

#include <QList>

namespace {

constexpr char duplicatesSql[] = "with kartotiniai (senas, lieka) as (select * from ("
                                 " select mat_id, min(mat_id) over (partition by mat_asm_kod, mat_padid, "
                                 "mat_prgid, ucase(trim(mat_pavad)))"
                                 "        as lieka"
                                 " from bd_matasm) where mat_id <> lieka) ";

constexpr char moveSql[] = "update %1 set %2 = (select lieka from kartotiniai where senas = %2) "
                           "where %2 in (select senas from kartotiniai)";

constexpr char deleteSql[] = "delete from bd_matasm where mat_id in (select senas from kartotiniai)";

QList<QByteArray> moves(sqlite3 *db)
{
    QList<QByteArray> statements;
    Nested references(db, "select rys_lentele, rys_stulpelis from sys_rysiai "
                          "where rys_i_lentele = 'bd_matasm' and rys_i_stulpelis = 'mat_id'");
    while (references.next()) {
        QByteArray sql(moveSql);
        sql.replace("%2", quotedName(references.text(1)));
        statements.append(sql.replace("%1", quotedName(references.text(0))));
    }
    return statements;
}

} // namespace

void mergePersons(RoutineCall &call)
{
    sqlite3 *db = call.db();
    NestedSavepoint savepoint(db);
    takeWriteLock(db);
    for (const QByteArray &sql : moves(db))
        Nested(db, duplicatesSql + sql).run();
    Nested(db, QByteArray(duplicatesSql) + deleteSql).run();
    savepoint.keep();
}
