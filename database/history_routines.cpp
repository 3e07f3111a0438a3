#include "database/history_routines.h"

#include "database/history_records.h"
#include "database/nested.h"
#include "database/print_sums.h"

using namespace Qt::StringLiterals;

BalancesMoved::BalancesMoved(sqlite3 *theDb, qint64 thePeriod, const QList<QByteArray> &tables)
    : db(theDb),
      period(thePeriod)
{
    if (nestedInteger(db, "select sys_yra_asmuo()") == 0)
        return;
    for (const QByteArray &table : tables)
        moved.append({table, balanceTotals(db, table, period), monthPrints(db, table, period)});
    nestedInteger(db, "select sys_rutina(1)");
}

BalancesMoved::~BalancesMoved()
{
    if (!moved.isEmpty())
        sqlite3_exec(db, "select sys_rutina(-1)", nullptr, nullptr, nullptr);
}

void BalancesMoved::record()
{
    const QByteArray sql = TRecordSql{.table = u"?1"_s,
                                      .key = u"?2"_s,
                                      .operation = u"'R'"_s,
                                      .before = u"?3"_s,
                                      .after = u"?4"_s,
                                      .prints = u"?5"_s}
                               .text()
                               .toUtf8();
    const QByteArray key = QByteArray::number(period);
    for (const Table &table : std::as_const(moved)) {
        const QByteArray after = balanceTotals(db, table.name, period);
        const QByteArray prints = printsDifference(table.printsBefore, monthPrints(db, table.name, period));
        Nested(db, sql)
            .bind(1, table.name)
            .bind(2, key)
            .bind(3, table.before)
            .bind(4, after)
            .bind(5, prints)
            .run();
    }
}

QByteArray balanceTotals(sqlite3 *db, const QByteArray &table, qint64 period)
{
    QByteArray sums;
    QByteArray condition;
    Nested columns(db, "select name, type glob 'numeric*', name glob '*_perid' from pragma_table_info(?1)");
    columns.bind(1, table);
    while (columns.next()) {
        const QByteArray name = columns.text(0);
        if (columns.integer(1) != 0)
            sums += ", '" + name + "', coalesce(sum(" + name + "), 0)";
        else if (columns.integer(2) != 0)
            condition = name + " = ?1";
    }
    Nested totals(db,
                  "select sys_json('eilutes', count(*)" + sums + ") from " + table + " where " + condition);
    totals.bind(1, period).next();
    return totals.text(0);
}
