#include "database/fingerprints.h"

#include "database/native_sql.h"
#include "toolkit/data/statement.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

QString textOf(TWideSum sum)
{
    const bool negative = sum < 0;
    __extension__ unsigned __int128 rest = negative ? -static_cast<unsigned __int128>(sum) : sum;
    QString text;
    do {
        text.prepend(QChar(u'0' + int(rest % 10)));
        rest /= 10;
    } while (rest > 0);
    return negative ? u'-' + text : text;
}

TWideSum sumOf(const QString &text)
{
    TWideSum sum = 0;
    for (const QChar digit : text) {
        if (digit != u'-')
            sum = sum * 10 + digit.digitValue();
    }
    return text.startsWith(u'-') ? -sum : sum;
}

TTableFingerprint fingerprintIn(TDatabase &db, const QString &sql)
{
    const QString json = nativeColumn(db, sql).value(0);
    return tableFingerprint(QJsonDocument::fromJson(json.toUtf8()).object());
}

QString passOfFile(TDatabase &db, const QString &table, const QString &condition)
{
    const QStringList key = tableKeyOf(db, table).columns;
    QStringList columns;
    for (const QString &column : db.columnNames(table)) {
        if (!key.contains(column))
            columns.append(column);
    }
    const QStringList arguments =
        QStringList{TDatabase::quoted(columns.join(u',')), key.join(u" || '|' || ")} + columns;
    return u"select sys_pedsakai(%1) from %2 where %3"_s.arg(arguments.join(u", "), table, condition);
}

} // namespace

TFingerprint &TFingerprint::operator+=(const TFingerprint &other)
{
    values += other.values;
    keyed += other.keyed;
    placed += other.placed;
    return *this;
}

TFingerprint TFingerprint::operator-(const TFingerprint &other) const
{
    return {values - other.values, keyed - other.keyed, placed - other.placed};
}

void add(TTableFingerprint &to, const TTableFingerprint &more)
{
    for (const auto &[column, print] : more.asKeyValueRange())
        to[column] += print;
}

void add(TBookFingerprint &to, const TBookFingerprint &more)
{
    for (const auto &[table, prints] : more.asKeyValueRange())
        add(to[table], prints);
}

TTableFingerprint differencesOf(const TTableFingerprint &now, const TTableFingerprint &before)
{
    TTableFingerprint differences = now;
    for (const auto &[column, print] : before.asKeyValueRange())
        differences.insert(column, now.value(column) - print);
    return differences;
}

void addDifference(TBookFingerprint &to, const TBookFingerprint &now, const TBookFingerprint &before)
{
    for (const auto &[table, prints] : now.asKeyValueRange())
        add(to[table], differencesOf(prints, before.value(table)));
    for (const auto &[table, prints] : before.asKeyValueRange()) {
        if (!now.contains(table))
            add(to[table], differencesOf({}, prints));
    }
}

QJsonObject toJson(const TTableFingerprint &prints)
{
    QJsonObject json;
    for (const auto &[column, print] : prints.asKeyValueRange())
        json.insert(column, QJsonArray{textOf(print.values), textOf(print.keyed), textOf(print.placed)});
    return json;
}

QJsonObject toJson(const TBookFingerprint &prints)
{
    QJsonObject json;
    for (const auto &[table, columns] : prints.asKeyValueRange())
        json.insert(table, toJson(columns));
    return json;
}

TTableFingerprint tableFingerprint(const QJsonObject &json)
{
    TTableFingerprint prints;
    for (auto column = json.begin(); column != json.end(); ++column) {
        const QJsonArray sums = column.value().toArray();
        prints.insert(column.key(), {sumOf(sums.at(0).toString()), sumOf(sums.at(1).toString()),
                                     sumOf(sums.at(2).toString())});
    }
    return prints;
}

TBookFingerprint bookFingerprint(const QJsonObject &json)
{
    TBookFingerprint prints;
    for (auto table = json.begin(); table != json.end(); ++table)
        prints.insert(table.key(), tableFingerprint(table.value().toObject()));
    return prints;
}

QStringList fingerprintedTables(TDatabase &db)
{
    if (db.engine() == Engine::Sqlite)
        return nativeColumn(
            db, u"select name from sqlite_schema t where type = 'table' and name not glob 'sqlite_*' "
                "and name not in ('bd_versija', 'bd_istorija', 'bd_antspaudai', 'sys_raktai') "
                "and exists (select 1 from pragma_table_info(t.name) where pk > 0) order by name"_s);
    return nativeColumn(
        db, u"select relname from pg_class c join pg_index on indrelid = c.oid and indisprimary "
            "where relkind = 'r' and relnamespace = current_schema()::regnamespace and relname not in "
            "('bd_versija', 'bd_istorija', 'bd_antspaudai', 'sys_raktai') order by 1"_s);
}

TTableKey tableKeyOf(TDatabase &db, const QString &table)
{
    TTableKey key{db.keyOf(table)};
    if (key.columns.size() != 1)
        return key;
    const QList<TColumnInfo> columns = db.columnsOf(table);
    const auto column = std::ranges::find(columns, key.columns.constFirst(), &TColumnInfo::name);
    key.isWhole = column != columns.end() && column->type.contains(u"int");
    return key;
}

TTableFingerprint fingerprintOf(TDatabase &db, const QString &table, const QString &condition)
{
    if (db.engine() == Engine::Sqlite)
        return fingerprintIn(db, passOfFile(db, table, condition));
    return fingerprintIn(db, u"select sys_pedsakai(%1, %2)::text"_s.arg(TDatabase::quoted(table),
                                                                        TDatabase::quoted(condition)));
}

TBookFingerprint fingerprintOf(TDatabase &db)
{
    TBookFingerprint prints;
    for (const QString &table : fingerprintedTables(db))
        prints.insert(table, fingerprintOf(db, table));
    return prints;
}
