#include "toolkit/data/catalogue.h"

#include "toolkit/data/type_names.h"

using namespace Qt::StringLiterals;

namespace {

// table, column, declared type, required, key position, given by the database
constexpr char16_t sqliteColumns[] = uR"(select lower(m.name), lower(c.name), c.type, c."notnull", c.pk,
       m.type = 'table' and c.pk = 1 and lower(c.type) = 'integer'
           and (select max(k.pk) from pragma_table_info(m.name) k) = 1, c.cid
from sqlite_master m, pragma_table_info(m.name) c
where m.type in ('table', 'view') and m.name not like 'sqlite~_%' escape '~'
order by 1, 7)";

constexpr char16_t serverColumns[] =
    uR"(select lower(t.relname), lower(a.attname), format_type(a.atttypid, a.atttypmod), a.attnotnull,
       coalesce(array_position(i.indkey::int2[], a.attnum), -1) + 1,
       a.attidentity <> '' or coalesce(pg_get_expr(d.adbin, d.adrelid) like 'nextval(%', false)
from pg_class t
join pg_attribute a on a.attrelid = t.oid and a.attnum > 0 and not a.attisdropped
left join pg_index i on i.indrelid = t.oid and i.indisprimary
left join pg_attrdef d on d.adrelid = t.oid and d.adnum = a.attnum
where t.relkind in ('r', 'v', 'm', 'p') and pg_table_is_visible(t.oid)
  and t.relnamespace not in ('pg_catalog'::regnamespace, 'information_schema'::regnamespace)
order by 1, a.attnum)";

// referring table, table referred to, number of the reference, referring column, column referred to (may be
// null)
constexpr char16_t sqliteReferences[] =
    uR"(select lower(m.name), lower(f."table"), f.id, lower(f."from"), lower(f."to")
from sqlite_master m, pragma_foreign_key_list(m.name) f
where m.type = 'table' order by 1, f.id, f.seq)";

constexpr char16_t serverReferences[] =
    uR"(select lower(t.relname), lower(r.relname), c.oid::bigint, lower(a.attname), lower(b.attname)
from pg_constraint c
join pg_class t on t.oid = c.conrelid
join pg_class r on r.oid = c.confrelid
cross join lateral unnest(c.conkey, c.confkey) with ordinality as k(own, other, position)
join pg_attribute a on a.attrelid = c.conrelid and a.attnum = k.own
join pg_attribute b on b.attrelid = c.confrelid and b.attnum = k.other
where c.contype = 'f' and pg_table_is_visible(t.oid) order by 1, 3, k.position)";

// References that the schema declares in a table of its own, because the row referred to may be missing for a
// while.
constexpr char16_t declaredReferences[] = uR"(select lower(nuo_lentele), lower(nuo_i_lentele), 0,
       lower(nuo_stulpelis), lower(nuo_i_stulpelis) from sys_nuorodos order by 1, 4)";

// The functions that the schema taught the engine.
constexpr char16_t sqliteRoutines[] =
    u"select distinct lower(name) from pragma_function_list where builtin = 0";
constexpr char16_t serverRoutines[] = uR"(select distinct lower(proname) from pg_proc
where pronamespace not in ('pg_catalog'::regnamespace, 'information_schema'::regnamespace)
  and pg_function_is_visible(oid))";

std::unique_ptr<TStatement> read(EngineConnection &connection, const char16_t *text)
{
    TranslatedSql sql;
    sql.text = QString::fromUtf16(text);
    std::unique_ptr<TStatement> statement = connection.prepare(sql);
    statement->exec();
    return statement;
}

QString textAt(const TStatement &statement, int column)
{
    return QString::fromUtf8(statement.utf8(column));
}

} // namespace

Catalogue::Catalogue(std::shared_ptr<EngineConnection> theConnection, Engine theEngine)
    : connection(std::move(theConnection)),
      engine(theEngine)
{
}

void Catalogue::forget()
{
    loaded = false;
    tables.clear();
    kinds.clear();
    required.clear();
    routines.clear();
    foreignKeys.clear();
}

void Catalogue::load()
{
    if (loaded)
        return;
    forget();
    loadColumns();
    loadReferences();
    loadRoutines();
    loaded = true;
    completeReferences();
}

void Catalogue::loadColumns()
{
    const auto rows = read(*connection, engine == Engine::Sqlite ? sqliteColumns : serverColumns);
    while (rows->next()) {
        const DeclaredType type = declaredType(textAt(*rows, 2));
        Column column;
        column.info.name = textAt(*rows, 1);
        column.info.type = type.name;
        column.info.size = type.size;
        column.info.key = rows->integer(4) > 0;
        column.info.required = rows->integer(3) != 0 || (column.info.key && engine == Engine::Sqlite);
        column.info.kind = columnKind(column.info.name, type);
        column.given = rows->integer(5) != 0;
        if (column.info.required)
            required.insert(column.info.name);
        tables[textAt(*rows, 0)].append(column);
        if (kinds.value(column.info.name, ColumnKind::Unknown) == ColumnKind::Unknown)
            kinds.insert(column.info.name, column.info.kind);
    }
}

void Catalogue::loadReferences()
{
    const auto rows = read(*connection, engine == Engine::Sqlite ? sqliteReferences : serverReferences);
    QString lastTable;
    qlonglong lastNumber = -1;
    while (rows->next()) {
        const QString from = textAt(*rows, 0);
        if (from != lastTable || rows->integer(2) != lastNumber)
            foreignKeys.append({from, textAt(*rows, 1), {}});
        lastTable = from;
        lastNumber = rows->integer(2);
        foreignKeys.last().columns.append({textAt(*rows, 3), rows->isNull(4) ? QString() : textAt(*rows, 4)});
    }
    if (!tables.contains("sys_nuorodos"))
        return;
    const auto declared = read(*connection, declaredReferences);
    while (declared->next())
        foreignKeys.append(
            {textAt(*declared, 0), textAt(*declared, 1), {{textAt(*declared, 3), textAt(*declared, 4)}}});
}

void Catalogue::loadRoutines()
{
    const auto rows = read(*connection, engine == Engine::Sqlite ? sqliteRoutines : serverRoutines);
    while (rows->next())
        routines.insert(textAt(*rows, 0));
}

// A reference that names no columns of the other table means its key.
void Catalogue::completeReferences()
{
    for (Reference &reference : foreignKeys) {
        const QStringList key = keyOf(reference.to);
        for (qsizetype i = 0; i < reference.columns.size(); ++i) {
            if (reference.columns.at(i).right.isEmpty())
                reference.columns[i].right = key.value(i);
        }
    }
}

QStringList Catalogue::keyOf(const QString &table)
{
    QStringList names;
    for (const TColumnInfo &column : columnsOf(table)) {
        if (column.key)
            names.append(column.name);
    }
    return names;
}

QList<TColumnInfo> Catalogue::columnsOf(const QString &table)
{
    load();
    QList<TColumnInfo> result;
    for (const Column &column : tables.value(table.toLower()))
        result.append(column.info);
    return result;
}

ColumnKind Catalogue::kindOf(const QString &column)
{
    load();
    return kinds.value(column.toLower(), ColumnKind::Unknown);
}

bool Catalogue::isGivenByDatabase(const QString &table, const QString &column)
{
    load();
    for (const Column &each : tables.value(table.toLower())) {
        if (each.info.name == column.toLower())
            return each.given;
    }
    return false;
}

bool Catalogue::isRequired(const QString &column)
{
    load();
    return required.contains(column.toLower());
}

bool Catalogue::isRoutine(const QString &name)
{
    load();
    return routines.contains(name.toLower());
}

QList<Catalogue::Pair> Catalogue::references(const QString &left, const QString &right)
{
    load();
    const QString a = left.toLower();
    const QString b = right.toLower();
    for (const Reference &reference : foreignKeys) {
        if (reference.from == a && reference.to == b)
            return reference.columns;
        if (reference.from != b || reference.to != a)
            continue;
        QList<Pair> turned;
        for (const Pair &pair : reference.columns)
            turned.append({pair.right, pair.left});
        return turned;
    }
    return {};
}
