#include "database/tool/keeping/content_checks.h"

#include "database/tool/keeping/findings.h"
#include "database/tool/keeping/native_query.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

constexpr auto secretColumn = "usr_pasw"_L1;
constexpr TWideSum rowNumbers = TWideSum(1) << 32;

// The number of the one row that makes this difference; -1 when no single row does.
qlonglong rowIn(const TFingerprint &difference)
{
    if (difference.values == 0 || difference.keyed % difference.values != 0)
        return -1;
    const TWideSum row = difference.keyed / difference.values;
    return row >= 0 && row < rowNumbers ? qlonglong(row) : -1;
}

// One table whose contents are not what the history says.
class TDifferentTable {
public:
    TDifferentTable(TDatabase &aDb, const QString &aTitle, const QString &aTable,
                    const TTableFingerprint &theDifferences, QStringList &found)
        : db(aDb),
          title(aTitle),
          table(aTable),
          key(tableKeyOf(aDb, aTable)),
          differences(theDifferences),
          rows(differences.take(QString())),
          findings(found)
    {
        differences.removeIf([](const auto &column) { return column.value() == TFingerprint(); });
    }

    void tell()
    {
        if (rows == TFingerprint())
            tellColumns();
        else if (rows.values == 0 && rows.keyed == 0)
            add(u"eilučių raktai pakeisti"_s);
        else if (rows.values == 0)
            tellMoved();
        else
            tellRows();
    }

private:
    void add(const QString &text)
    {
        findings.add(u"%1: lentelės „%2“ %3 ne per programą."_s.arg(title, table, text));
    }

    QString keyExpression() const
    {
        return key.columns.join(db.engine() == Engine::Sqlite ? u" || '|' || "_s : u"::text || '|' || "_s);
    }

    QString numberExpression() const
    {
        if (db.engine() == Engine::Sqlite)
            return u"sys_eilutes_nr(%1)"_s.arg(keyExpression());
        return u"sys_eilutes_nr((%1)::text, %2)"_s.arg(keyExpression(), key.isWhole ? u"true"_s : u"false"_s);
    }

    // The key of a row in words; null when there is no such row.
    QString keyOf(qlonglong row) const
    {
        const QString condition = key.isWhole ? u"%1 = %2"_s.arg(key.columns.constFirst()).arg(row)
                                              : u"%1 = %2"_s.arg(numberExpression()).arg(row);
        return columnOf(db, u"select %1 from %2 where %3"_s.arg(keyExpression(), table, condition)).value(0);
    }

    QString rowTitle(const QString &rowKey) const
    {
        return u"eilutė %1 = %2"_s.arg(key.columns.join(u", "), QString(rowKey).replace(u'|', u", "_s));
    }

    // A number stands for a key that is no whole number.
    QString rowTitle(qlonglong row) const
    {
        return key.isWhole ? rowTitle(QString::number(row)) : u"eilutė"_s;
    }

    bool isShown(const QString &column) const
    {
        const QList<TColumnInfo> columns = db.columnsOf(table);
        const auto info = std::ranges::find(columns, column, &TColumnInfo::name);
        return column != secretColumn && info != columns.end() && info->kind != ColumnKind::Blob;
    }

    QString present(const QString &rowKey, const QString &column) const
    {
        return columnOf(db,
                        u"select cast(%1 as varchar(2000)) from %2 where cast(%3 as varchar(200)) = %4"_s.arg(
                            column, table, keyExpression(), TDatabase::quoted(rowKey)))
            .value(0);
    }

    // What the last record of the row says of the column; null when none does.
    QString recorded(const QString &rowKey, const QString &column) const
    {
        QString last;
        eachRecord(db,
                   u"ist_lentele = %1 and ist_raktas = %2"_s.arg(TDatabase::quoted(table),
                                                                 TDatabase::quoted(rowKey)),
                   [&](const THistoryRecord &record) {
                       const QJsonObject after = QJsonDocument::fromJson(record.after).object();
                       if (after.contains(column))
                           last = after.value(column).toVariant().toString();
                   });
        return last;
    }

    void tellColumn(const QString &rowKey, const QString &column)
    {
        QString text = u"%1: stulpelis „%2“ pakeistas"_s.arg(rowTitle(rowKey), column);
        if (isShown(column)) {
            const QString before = recorded(rowKey, column);
            const QString now = present(rowKey, column);
            text += before.isNull() || before == now ? u" (yra %1)"_s.arg(now)
                                                     : u" (buvo %1, yra %2)"_s.arg(before, now);
        }
        add(text);
    }

    // Each column tells its own row.
    void tellColumns()
    {
        for (const auto &[column, difference] : differences.asKeyValueRange()) {
            const qlonglong row = rowIn(difference);
            const QString rowKey = row < 0 ? QString() : keyOf(row);
            if (!rowKey.isNull())
                tellColumn(rowKey, column);
            else
                tellSeveral(column);
        }
    }

    // What the last records of rows say, for the rows that the history knows.
    void tellSeveral(const QString &column)
    {
        QMap<QString, QString> last;
        eachRecord(db, u"ist_lentele = %1 and ist_veiksmas in ('I', 'U')"_s.arg(TDatabase::quoted(table)),
                   [&](const THistoryRecord &record) {
                       const QJsonObject after = QJsonDocument::fromJson(record.after).object();
                       if (after.contains(column))
                           last.insert(QString::fromUtf8(record.key),
                                       after.value(column).toVariant().toString());
                   });
        add(u"keliose eilutėse stulpelis „%1“ pakeistas"_s.arg(column));
        if (!isShown(column))
            return;
        QStringList changed; // told when the rows are read: a connection answers one question at a time
        eachRow(db, u"select %1, cast(%2 as varchar(2000)) from %3"_s.arg(keyExpression(), column, table),
                [&](const QSqlQuery &row) {
                    const QString rowKey = row.value(0).toString(), now = row.value(1).toString();
                    const auto value = last.constFind(rowKey);
                    if (value != last.cend() && now != *value && !isSameAmount(now, *value))
                        changed.append(rowKey);
                });
        for (const QString &rowKey : std::as_const(changed))
            tellColumn(rowKey, column);
    }

    static bool isSameAmount(const QString &one, const QString &other)
    {
        bool oneOk = false, otherOk = false;
        return one.toDouble(&oneOk) == other.toDouble(&otherOk) && oneOk && otherOk;
    }

    // One row got another key: all its columns moved with it.
    void tellMoved()
    {
        QStringList conditions{u"true"_s};
        for (const auto &[column, difference] : differences.asKeyValueRange()) {
            if (difference.values != 0 || difference.keyed % rows.keyed != 0)
                return add(u"eilutės pakeistos"_s);
            conditions.append(u"%1 = %2"_s.arg(printExpression(column, column))
                                  .arg(qlonglong(difference.keyed / rows.keyed)));
        }
        const QStringList keys = columnOf(
            db, u"select %1 from %2 where %3"_s.arg(keyExpression(), table, conditions.join(u" and "_s)));
        if (keys.size() != 1)
            return add(u"eilučių raktai pakeisti"_s);
        QString text = rowTitle(keys.constFirst()) + u": raktas pakeistas"_s;
        if (key.isWhole)
            text += u" (buvo %1)"_s.arg(keys.constFirst().toLongLong() - qlonglong(rows.keyed));
        add(text);
    }

    // The fingerprint of a value of the column, worded for the engine.
    QString printExpression(const QString &column, const QString &value) const
    {
        if (db.engine() == Engine::Sqlite)
            return u"sys_pedsakas('%1', %2)"_s.arg(column, value);
        return columnOf(db,
                        u"select sys_pedsako_israiska(%1, tipas, stulpelis) from "
                        "sys_pedsako_stulpeliai(%2) where stulpelis = %3"_s.arg(
                            TDatabase::quoted(value), TDatabase::quoted(table), TDatabase::quoted(column)))
            .constFirst();
    }

    void tellRows()
    {
        const qlonglong count = qlonglong(rows.values < 0 ? -rows.values : rows.values);
        const QString what = rows.values < 0 ? u"dingo"_s : u"atsirado"_s;
        const qlonglong row = rowIn(rows);
        const bool isOne = count == 1 && row >= 0 &&
                           std::all_of(differences.cbegin(), differences.cend(),
                                       [row](const TFingerprint &column) { return rowIn(column) == row; });
        if (isOne) {
            const QString rowKey = rows.values > 0 ? keyOf(row) : QString();
            add(u"%1 %2"_s.arg(rowKey.isNull() ? rowTitle(row) : rowTitle(rowKey), what));
        } else {
            add(u"eilučių %1: %2%3"_s.arg(what).arg(count).arg(monthOf(count)));
        }
    }

    // The month of rows that are all of one.
    QString monthOf(qlonglong count) const
    {
        for (const auto &[column, difference] : differences.asKeyValueRange()) {
            if (!column.endsWith(u"_perid") || difference.values % count != 0)
                continue;
            const TWideSum print = difference.values / count;
            const QStringList found = columnOf(
                db, u"select per_id from bd_period where %1 = %2"_s.arg(printExpression(column, u"per_id"_s))
                        .arg(qlonglong(print < 0 ? -print : print)));
            if (found.size() == 1)
                return u" (periodas %1)"_s.arg(found.constFirst());
        }
        return {};
    }

    TDatabase &db;
    QString title;
    QString table;
    TTableKey key;
    TTableFingerprint differences;
    TFingerprint rows;
    TFindings findings;
};

} // namespace

void checkContents(TDatabase &db, const TSealCheck &check, const QString &title, QStringList &found)
{
    if (check.seals.isEmpty())
        return;
    TBookFingerprint expected =
        bookFingerprint(QJsonDocument::fromJson(check.seals.constLast().state).object());
    add(expected, changedByHistory(db, check.unsealed));
    for (const QString &table : fingerprintedTables(db)) {
        const TTableFingerprint differences = differencesOf(fingerprintOf(db, table), expected.value(table));
        if (std::ranges::any_of(differences, [](const TFingerprint &one) { return one != TFingerprint(); }))
            TDifferentTable(db, title, table, differences, found).tell();
    }
}
