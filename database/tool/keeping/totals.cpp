#include "database/tool/keeping/totals.h"

#include "database/tool/keeping/native_query.h"

#include <QCryptographicHash>
#include <cstring>

#include <QSqlField>
#include <QSqlRecord>

using namespace Qt::StringLiterals;

namespace {

QStringList tablesOf(TDatabase &db)
{
    return columnOf(
        db, db.engine() == Engine::Sqlite
                ? u"select name from sqlite_master where type = 'table' and name not like 'sqlite~_%' "
                  "escape '~' order by 1"_s
                : u"select relname from pg_class where relkind = 'r' and relnamespace = "
                  "current_schema()::regnamespace order by 1"_s);
}

// Every value as text that tells it exactly; the length in front keeps neighbours apart.
void addValue(QCryptographicHash &hash, const QVariant &value)
{
    if (value.isNull()) {
        hash.addData("-");
        return;
    }
    const QByteArray bytes = value.typeId() == QMetaType::QByteArray ? value.toByteArray()
                             : value.typeId() == QMetaType::Double
                                 ? QByteArray::number(value.toDouble(), 'g', 17)
                                 : value.toString().toUtf8();
    hash.addData(QByteArray::number(bytes.size()) + ':');
    hash.addData(bytes);
}

QByteArray rowChecksum(const QSqlQuery &row, int columns)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (int i = 0; i < columns; ++i)
        addValue(hash, row.value(i));
    return hash.result();
}

// The checksums of the rows are added up, so that their order does not matter.
QJsonObject totalsOf(TDatabase &db, const QString &table)
{
    qlonglong count = 0;
    int columns = 0;
    quint64 sums[4] = {};
    eachRow(db, u"select * from "_s + table, [&](const QSqlQuery &row) {
        if (count == 0)
            columns = row.record().count();
        const QByteArray checksum = rowChecksum(row, columns);
        for (qsizetype i = 0; i < 4; ++i) {
            quint64 part = 0;
            memcpy(&part, checksum.constData() + i * 8, 8);
            sums[i] += part;
        }
        ++count;
    });
    QString total;
    for (const quint64 sum : sums)
        total += u"%1"_s.arg(sum, 16, 16, QLatin1Char('0'));
    return {{u"eilutes"_s, count}, {u"suma"_s, total}};
}

} // namespace

QJsonObject controlTotals(TDatabase &db)
{
    QJsonObject totals;
    for (const QString &table : tablesOf(db))
        totals.insert(table, totalsOf(db, table));
    return totals;
}
