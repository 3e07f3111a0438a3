#include "database/history_records.h"
#include "database/value_prints.h"
#include "toolkit/data/statement.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

// What records changed in the fingerprints: of a file it is added up here, of a server by the server.

namespace {

QJsonObject objectOf(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}

QByteArray keyText(const QJsonValue &value)
{
    return value.isString() ? value.toString().toUtf8() : QByteArray::number(value.toInteger());
}

// Adds up the records of one table of a file.
class TTableFold {
public:
    TTableFold(TDatabase &db, const QString &table) : key(tableKeyOf(db, table))
    {
        for (const QString &column : db.columnNames(table)) {
            if (!key.columns.contains(column))
                printers.insert(column, ValuePrinter(column.toUtf8()));
        }
    }

    void add(const THistoryRecord &record)
    {
        const QJsonObject secrets = objectOf(record.prints);
        addSide(objectOf(record.before), record, secrets, 0, -1);
        addSide(objectOf(record.after), record, secrets, 1, 1);
    }

    TTableFingerprint changes;

private:
    // A record that shows the key moved the row from one key to the other.
    quint32 rowOf(const QJsonObject &side, const THistoryRecord &record) const
    {
        QByteArrayList parts;
        for (const QString &column : key.columns) {
            if (side.contains(column))
                parts.append(keyText(side.value(column)));
        }
        return rowNumber(parts.size() == key.columns.size() ? parts.join('|') : record.key, key.isWhole);
    }

    void addSide(const QJsonObject &side, const THistoryRecord &record, const QJsonObject &secrets,
                 int secretSide, int sign)
    {
        if (record.operation == (sign < 0 ? "I" : "D"))
            return;
        const quint32 row = rowOf(side, record);
        addPrint({}, 1, row, sign);
        for (auto value = side.begin(); value != side.end(); ++value) {
            const auto printer = printers.constFind(value.key());
            if (printer == printers.cend())
                continue;
            addPrint(value.key(),
                     value.key() == secretColumn
                         ? quint32(secrets.value(secretColumn).toArray().at(secretSide).toInteger())
                         : printer->of(value.value()),
                     row, sign);
        }
    }

    void addPrint(const QString &column, quint32 print, quint32 row, int sign)
    {
        const TWideSum value = sign * TWideSum(print);
        changes[column] += {value, value * row, sign * TWideSum(placedPrint(print, row))};
    }

    TTableKey key;
    QHash<QString, ValuePrinter> printers;
};

// A routine says itself what it did to the fingerprints.
void addRoutine(const THistoryRecord &record, TBookFingerprint &to)
{
    add(to[QString::fromUtf8(record.table)], tableFingerprint(objectOf(record.prints)));
}

TBookFingerprint changedInFile(TDatabase &db, const TNumbers &numbers, const QString &range)
{
    TBookFingerprint changes;
    std::map<QByteArray, TTableFold> folds;
    eachRecord(db, range, [&](const THistoryRecord &record) {
        if (!numbers.contains(record.id))
            return;
        if (record.operation == "R")
            addRoutine(record, changes);
        else
            folds.try_emplace(record.table, db, QString::fromUtf8(record.table)).first->second.add(record);
    });
    for (const auto &[table, fold] : folds)
        add(changes[QString::fromUtf8(table)], fold.changes);
    return changes;
}

TBookFingerprint changedOnServer(TDatabase &db, const TNumbers &numbers, const QString &range)
{
    TBookFingerprint changes;
    eachRecord(db, u"ist_veiksmas = 'R' and "_s + range, [&](const THistoryRecord &record) {
        if (numbers.contains(record.id))
            addRoutine(record, changes);
    });
    const QString intervals =
        TDatabase::quoted(QString::fromUtf8(QJsonDocument(numbers.toJson()).toJson(QJsonDocument::Compact)));
    TranslatedSql sql;
    sql.text = u"select ist_lentele, sys_istorijos_pedsakai(ist_lentele, %1)::text from (select distinct "
               "ist_lentele from bd_istorija where ist_veiksmas <> 'R' and %2) l "
               "where to_regclass(ist_lentele) is not null"_s.arg(intervals, range);
    const auto statement = db.prepareNative(sql);
    for (statement->exec(); statement->next();)
        add(changes[QString::fromUtf8(statement->utf8(0))],
            tableFingerprint(objectOf(statement->utf8(1).toByteArray())));
    return changes;
}

} // namespace

TBookFingerprint changedByHistory(TDatabase &db, const TNumbers &numbers)
{
    if (numbers.isEmpty())
        return {};
    const QString range = u"ist_id between %1 and %2"_s.arg(numbers.first()).arg(numbers.last());
    return db.engine() == Engine::Sqlite ? changedInFile(db, numbers, range)
                                         : changedOnServer(db, numbers, range);
}
