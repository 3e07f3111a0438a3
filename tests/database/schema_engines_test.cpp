#include "database/schema.h"
#include "tests/support/engines.h"
#include "tests/support/postgres.h"
#include "toolkit/data/statement.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

// The two engines hold the same schema: both descriptions are made as texts and compared line by line.

namespace {

QString classOf(const QString &type)
{
    if (type.contains(u"char"))
        return u"text"_s;
    if (type == u"blob" || type == u"bytea")
        return u"picture"_s;
    if (type == u"bigint")
        return u"integer"_s;
    return type;
}

QString described(const QString &table, const TColumnInfo &column)
{
    return QStringList{table,
                       column.name,
                       classOf(column.type),
                       QString::number(column.size),
                       column.required ? u"required"_s : u"optional"_s,
                       column.key ? u"key"_s : QString(),
                       QString::number(int(column.kind))}
        .join(u'|');
}

QStringList tables(TDatabase &db)
{
    return rows(db, u"select table_name from systable order by table_name"_s) << u"bd_istorija"_s;
}

QStringList columns(TDatabase &db)
{
    QStringList lines;
    for (const QString &table : tables(db)) {
        for (const TColumnInfo &column : db.columnsOf(table))
            lines.append(described(table, column));
    }
    return lines;
}

QStringList references(TDatabase &db)
{
    return rows(
        db, u"select rys_lentele, rys_stulpelis, rys_i_lentele, rys_i_stulpelis, rys_sava from sys_rysiai "
            "order by rys_lentele, rys_stulpelis"_s);
}

// Table, name, uniqueness and columns of each index that is not a key's own.
QStringList indexes(TDatabase &db)
{
    TranslatedSql sql;
    sql.text =
        db.engine() == Engine::Sqlite
            ? u"select tbl_name || '|' || name || '|' || (sql like 'create unique%') from sqlite_schema "
              "where type = 'index' and sql is not null order by 1"_s
            : u"select tablename || '|' || indexname || '|' || "
              "(case when indexdef like 'CREATE UNIQUE%' then 1 else 0 end) from pg_indexes "
              "where schemaname = current_schema() and not indexname like '%\\_pkey' "
              "and not indexname like '%\\_key' order by 1"_s;
    const auto statement = db.prepareNative(sql);
    statement->exec();
    QStringList lines;
    while (statement->next())
        lines.append(QString::fromUtf8(statement->utf8(0)));
    return lines;
}

// A book made from nothing on an engine of the caller's choice.
class FreshBook {
public:
    FreshBook(Engine engine, Book book)
    {
        settings.alias = u"book"_s;
        settings.engine = engine;
        settings.file = folder.filePath(u"book.db"_s);
        if (engine == Engine::PostgreSql) {
            postgresExec(u"create database %1 template template0"_s.arg(name));
            settings.connInfo = postgresConnInfo(name);
        }
        db = std::make_unique<TDatabase>(settings);
        db->Open();
        upgrade(*db, book);
    }

    ~FreshBook()
    {
        db.reset();
        if (settings.engine == Engine::PostgreSql)
            postgresExec(u"drop database %1 with (force)"_s.arg(name));
    }

    TDatabase &operator*() { return *db; }

private:
    const QString name = u"schema_%1"_s.arg(QCoreApplication::applicationPid());
    QTemporaryDir folder;
    TSessionSettings settings;
    std::unique_ptr<TDatabase> db;
};

} // namespace

class SchemaOf : public testing::TestWithParam<Book> {
protected:
    void expectSame(QStringList (*describe)(TDatabase &))
    {
        const QStringList lines = describe(*embedded);
        const QStringList others = describe(*server);
        EXPECT_FALSE(lines.isEmpty());
        EXPECT_EQ(lines.size(), others.size());
        for (qsizetype i = 0; i < std::min(lines.size(), others.size()); ++i)
            EXPECT_EQ(lines.at(i), others.at(i));
    }

    FreshBook embedded{Engine::Sqlite, GetParam()};
    FreshBook server{Engine::PostgreSql, GetParam()};
};
INSTANTIATE_TEST_SUITE_P(, SchemaOf, testing::Values(Book::Main, Book::Budget),
                         [](const testing::TestParamInfo<Book> &book) {
                             return std::string(book.param == Book::Main ? "Main" : "Budget");
                         });

TEST_P(SchemaOf, HasTheSameColumnsOnBothEngines)
{
    expectSame(columns);
}

TEST_P(SchemaOf, HasTheSameReferencesOnBothEngines)
{
    expectSame(references);
}

TEST_P(SchemaOf, HasTheSameIndexesOnBothEngines)
{
    expectSame(indexes);
}
