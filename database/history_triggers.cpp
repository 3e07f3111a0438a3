#include "database/history_triggers.h"

#include "database/history_records.h"
#include "database/native_sql.h"
#include "database/value_prints.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

// In the engine's own words: what the file holds, not what a view of some revision lists.
constexpr char16_t tablesSql[] =
    u"select name from sqlite_schema t where type = 'table' and name not glob 'sqlite_*' "
    "and name not glob 'sys_*' and name not in ('bd_versija', 'bd_istorija', 'bd_antspaudai') "
    "and exists (select 1 from pragma_table_info(t.name) where pk > 0) order by name";

// What of the columns goes into a trigger: pattern with %1 for the column's name.
QString each(const QStringList &columns, const QString &pattern, const QString &between)
{
    QStringList parts;
    for (const QString &column : columns)
        parts.append(QString(pattern).replace(u"%1"_s, column));
    return parts.join(between);
}

struct Table {
    QString name;
    QStringList columns;
    QStringList key;

    QString trigger(const QString &event, QChar letter, const QString &when, const QString &key,
                    const QString &before, const QString &after) const;
    QString secretPrints(QChar letter) const;
    QString triggers() const;
};

QString Table::trigger(const QString &event, QChar letter, const QString &when, const QString &rowKey,
                       const QString &before, const QString &after) const
{
    const QString head = u"create temp trigger if not exists ist_%1_%2 after %3 on main.%1 when "
                         "sys_istorija()%4 begin "_s.arg(name, letter.toLower(), event, when);
    const TRecordSql record{.table = TDatabase::quoted(name),
                            .key = rowKey,
                            .operation = TDatabase::quoted(letter),
                            .before = before,
                            .after = after,
                            .prints = secretPrints(letter)};
    return head + record.text() + u"; end;\n"_s;
}

// A record does not tell a password, but its fingerprints before and after.
QString Table::secretPrints(QChar letter) const
{
    if (!columns.contains(secretColumn))
        return u"null"_s;
    const auto print = [](const QString &row) {
        return u"sys_pedsakas('%1', %2.%1)"_s.arg(secretColumn, row);
    };
    return uR"('{"%1": [' || %2 || ', ' || %3 || ']}')"_s.arg(
        secretColumn, letter == u'I' ? u"0"_s : print(u"old"_s), letter == u'D' ? u"0"_s : print(u"new"_s));
}

QString Table::triggers() const
{
    const QString all = u"sys_json(%1)"_s;
    const QString newRow = all.arg(each(columns, u"'%1', new.%1"_s, u", "_s));
    const QString oldRow = all.arg(each(columns, u"'%1', old.%1"_s, u", "_s));
    // Where the key changed the record shows the whole row: the history of the old key ends with it.
    const QString sameKey = each(key, u"old.%1 is new.%1"_s, u" and "_s);
    const QString changed = u"case when %1 then sys_json_keista(%2) else %3 end"_s;
    const QString oldKey = each(key, u"old.%1"_s, u" || '|' || "_s);
    const QString newKey = each(key, u"new.%1"_s, u" || '|' || "_s);
    const QString differs = each(columns, u"old.%1 is not new.%1"_s, u" or "_s);
    return trigger(u"insert"_s, u'I', {}, newKey, u"null"_s, newRow) +
           trigger(u"update"_s, u'U', u" and (%1)"_s.arg(differs), newKey,
                   changed.arg(sameKey, each(columns, u"'%1', old.%1, new.%1"_s, u", "_s), oldRow),
                   changed.arg(sameKey, each(columns, u"'%1', new.%1, old.%1"_s, u", "_s), newRow)) +
           trigger(u"delete"_s, u'D', {}, oldKey, oldRow, u"null"_s);
}

} // namespace

QString historyTriggers(TDatabase &db)
{
    QString script;
    for (const QString &name : nativeColumn(db, QString::fromUtf16(tablesSql)))
        script += Table{name, db.columnNames(name), db.keyOf(name)}.triggers();
    return script;
}
