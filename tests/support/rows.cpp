#include "tests/support/engines.h"

#include "toolkit/data/statement.h"

#include <QCryptographicHash>
#include <QSqlError>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace {
QString wordingOf(const TStatement &statement, int column)
{
    if (statement.isNull(column))
        return u"NULL"_s;
    switch (statement.columns().at(column).type) {
    case TFieldType::ftInteger:
    case TFieldType::ftBoolean:
        return QString::number(statement.integer(column));
    case TFieldType::ftFloat:
    case TFieldType::ftCurrency:
        return QString::number(statement.number(column), 'f', QLocale::FloatingPointShortest);
    case TFieldType::ftDate:
        return statement.value(column).toDate().toString(Qt::ISODate);
    case TFieldType::ftDateTime:
        return statement.value(column).toDateTime().toString(Qt::ISODateWithMs);
    case TFieldType::ftBlob:
        return QString::fromLatin1(statement.value(column).toByteArray().toHex());
    default:
        return QString::fromUtf8(statement.utf8(column));
    }
}

// Runs a statement in the engine's own wording, past the translator: what is stored is shown as it is.
QStringList column(TDatabase &db, const QString &native)
{
    QSqlQuery query(db.handle());
    query.setForwardOnly(true);
    QStringList values;
    if (!query.exec(native)) {
        ADD_FAILURE() << native.toStdString() << ": " << query.lastError().text().toStdString();
        return values;
    }
    while (query.next())
        values << query.value(0).toString();
    return values;
}

// What the database writes about itself grows with every change and its undoing.
QStringList tablesOf(TDatabase &db)
{
    QStringList tables = column(
        db,
        db.engine() == Engine::Sqlite
            ? u"select name from sqlite_master where type = 'table' and name not like 'sqlite%' order by 1"_s
            : u"select tablename::text from pg_tables where schemaname = 'public' order by 1"_s);
    tables.removeAll(u"bd_istorija"_s);
    tables.removeAll(u"bd_antspaudai"_s);
    return tables;
}

// A select of one text ("eilute") per row that two rows share exactly when they hold the same bytes.
QString rowTexts(TDatabase &db, const QString &table)
{
    if (db.engine() == Engine::PostgreSql)
        return u"select t::text as eilute from \"%1\" t"_s.arg(table);
    QStringList quoted;
    for (const QString &name : column(db, u"select name from pragma_table_info('%1')"_s.arg(table)))
        quoted << u"quote(\"%1\")"_s.arg(name);
    return u"select %1 as eilute from \"%2\""_s.arg(quoted.join(u" || ',' || "_s), table);
}
} // namespace

QStringList rows(TDatabase &db, const QString &sql, const QVariantMap &parameters)
{
    const auto statement = db.prepare(sql);
    for (const auto &[name, value] : parameters.asKeyValueRange())
        statement->bind(name, value);
    statement->exec();
    QStringList all;
    while (statement->next()) {
        QStringList values;
        for (int i = 0; i < statement->columns().size(); ++i)
            values << wordingOf(*statement, i);
        all << values.join(u'|');
    }
    return all;
}

QString value(TDatabase &db, const QString &sql, const QVariantMap &parameters)
{
    const QStringList all = rows(db, sql, parameters);
    EXPECT_EQ(all.size(), 1) << "one row expected of: " << sql.toStdString();
    return all.value(0);
}

QString nativeValue(TDatabase &db, const QString &statement)
{
    return column(db, statement).value(0);
}

QStringList dump(TDatabase &db, const QString &table)
{
    const QString inOrder =
        db.engine() == Engine::Sqlite ? u"%1 order by eilute"_s : u"%1 order by t::text collate \"C\""_s;
    QStringList lines;
    for (const QString &row : column(db, inOrder.arg(rowTexts(db, table))))
        lines << table + u": "_s + row;
    return lines;
}

QStringList dump(TDatabase &db)
{
    QStringList lines;
    for (const QString &table : tablesOf(db))
        lines << dump(db, table);
    return lines;
}

QByteArray fingerprint(TDatabase &db)
{
    // The engine condenses a table, so that a large one does not pass through here row by row.
    const QString condensed =
        db.engine() == Engine::Sqlite
            ? u"select group_concat(eilute, char(10)) from (%1 order by eilute)"_s
            : u"select count(*) || ' ' || sum(hashtextextended(eilute, 0)::numeric) from (%1) t"_s;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString &table : tablesOf(db)) {
        hash.addData((table + u'\n').toUtf8());
        hash.addData(column(db, condensed.arg(rowTexts(db, table))).value(0).toUtf8());
    }
    return hash.result().toHex();
}
