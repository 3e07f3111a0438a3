#include "tests/toolkit/data/expect_error.h"
#include "tests/toolkit/export/exported.h"
#include "toolkit/data/statement.h"

#include <QRandomGenerator>

#include <bit>

using namespace Qt::StringLiterals;

namespace {

// The rows of a table as a file that can be run again.
class Replay : public OnTablesToExport {
protected:
    QByteArray replayable(const QString &table, const QStringList &columns, bool deletesFirst = false)
    {
        exportForReplay(*mnRavl, {table, columns, deletesFirst}, file());
        return contentOf(file());
    }
    // Makes the table in both databases.
    void make(const QString &columns)
    {
        for (TDatabase *database : {mnRavl, mnFin_Db})
            database->nativeExec(u"create table t (%1)"_s.arg(columns));
    }
    // Runs the file of the table in the other database and compares the two.
    void expectEqualAfterReplay(const QStringList &columns)
    {
        mnFin_Db->nativeExec(QString::fromUtf8(replayable(u"t"_s, columns)));
        EXPECT_EQ(dump(*mnFin_Db, u"t"_s), dump(*mnRavl, u"t"_s));
    }
    // The real numbers of a column to the last bit.
    QList<quint64> bits(TDatabase &database)
    {
        QList<quint64> all;
        const auto rows = database.prepareNative({SqlKind::Select, u"select a from t order by id"_s});
        for (rows->exec(); rows->next();)
            all << std::bit_cast<quint64>(rows->number(0));
        return all;
    }
};
ON_BOTH_ENGINES(Replay);
using EmbeddedReplay = Replay;
ON_ENGINE(EmbeddedReplay, Engine::Sqlite);
using ServerReplay = Replay;
ON_ENGINE(ServerReplay, Engine::PostgreSql);

TEST_P(Replay, DoublesQuotesAndNamesNulls)
{
    make(u"a integer, b varchar(20)"_s);
    mnRavl->nativeExec(u"insert into t values (1, 'l''ėšos'), (null, null), (-2, '')"_s);
    EXPECT_EQ(replayable(u"t"_s, {u"a"_s, u"b"_s}),
              "begin;\n"
              "insert into \"t\" (\"a\", \"b\") values (1, 'l''ėšos');\n"
              "insert into \"t\" (\"a\", \"b\") values (NULL, NULL);\n"
              "insert into \"t\" (\"a\", \"b\") values (-2, '');\n"
              "commit;\n");
    EXPECT_TRUE(replayable(u"t"_s, {u"a"_s}, true).startsWith("begin;\ndelete from \"t\";\ninsert"));
}

TEST_P(Replay, OfATableWithoutRowsCanBeRun)
{
    make(u"a integer"_s);
    expectEqualAfterReplay({u"a"_s});
}

TEST_P(Replay, GivesTheSameTexts)
{
    make(u"id integer primary key, a varchar(2000)"_s);
    int id = 0;
    for (const QString &text :
         {u"'"_s, u"''"_s, u"a'; drop table t; --"_s, u"dvi\neilutės\r\n"_s, u"\\"_s, u"\\'\\x41"_s, u" "_s,
          u""_s, u"NULL"_s, u"☃ 😀 кухня"_s, u"$1 ?1 :a %s"_s, u"\t\x01\x7f"_s, QString(2000, u'\'')})
        mnRavl->ExecSQL(u"insert into t values (:id, :a)"_s, {{u"id"_s, ++id}, {u"a"_s, text}});
    expectEqualAfterReplay({u"id"_s, u"a"_s});
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from t"_s), u"13");
}

TEST_P(Replay, GivesTheSameBlobs)
{
    make(u"id integer primary key, a %1"_s.arg(blob()));
    QByteArray every;
    for (int byte = 0; byte < 256; ++byte)
        every += char(byte);
    const auto add = mnRavl->prepare(u"insert into t values (:id, :a)"_s);
    int id = 0;
    for (const QByteArray &bytes :
         {every, QByteArray(""), QByteArray("'"), QByteArray("\\x00"), every.repeated(1000)}) {
        add->bind(u"id"_s, ++id);
        add->bind(u"a"_s, bytes);
        add->exec();
    }
    expectEqualAfterReplay({u"id"_s, u"a"_s});
}

TEST_P(Replay, GivesTheSameNumbersToTheLastBit)
{
    make(u"id integer primary key, a double precision"_s);
    QList<double> numbers{
        0.1, -0.1, 0, 1, 1e15, 1e300, -1e-300, 5e-324, 1.7976931348623157e308, 2.2250738585072014e-308};
    QRandomGenerator random(9);
    while (numbers.size() < 5000) {
        if (const auto number = std::bit_cast<double>(random.generate64()); std::isfinite(number))
            numbers << number << double(random.bounded(-1000000, 1000000)) / 10000;
    }
    const auto add =
        mnRavl->prepareNative({SqlKind::Insert,
                               mnRavl->engine() == Engine::Sqlite ? u"insert into t values (?1, ?2)"_s
                                                                  : u"insert into t values ($1, $2)"_s,
                               {u"id"_s, u"a"_s}});
    for (int id = 0; id < numbers.size(); ++id) {
        add->bind(u"id"_s, id);
        add->bind(u"a"_s, numbers[id]);
        add->exec();
    }
    mnFin_Db->nativeExec(QString::fromUtf8(replayable(u"t"_s, {u"id"_s, u"a"_s})));
    EXPECT_EQ(bits(*mnFin_Db), bits(*mnRavl));
}

TEST_P(Replay, GivesTheSameAmountsDatesAndWholeNumbers)
{
    make(u"a numeric(15,4), b bigint, c date, d smallint"_s);
    mnRavl->nativeExec(u"insert into t values (12345678901.2345, 9223372036854775807, '2026-07-31', 1), "
                       "(-0.0001, -9223372036854775808, '0001-01-01', 0), (0, 0, '9999-12-31', null)"_s);
    expectEqualAfterReplay({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
}

// What a column of SQLite holds need not be of the column's type, nor have only so many decimals.
TEST_P(EmbeddedReplay, GivesTheSameValuesInColumnsOfOtherTypes)
{
    make(u"a numeric(15,4), b, c blob, d date, e boolean"_s);
    mnRavl->nativeExec(u"insert into t values (0.1 + 0.2, 1.0, 'tekstas', 'ne data', 5), "
                       "('žodis', 1, 2, 3.5, 'taip'), (1e999, -1e999, 1e15, x'00', x'')"_s);
    expectEqualAfterReplay({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
}

TEST_P(EmbeddedReplay, RefusesANulThatNoStatementCanHold)
{
    make(u"a text"_s);
    mnRavl->nativeExec(u"insert into t values (cast(x'610062' as text))"_s);
    EXPECT_ERROR(EConvertError, replayable(u"t"_s, {u"a"_s}), u"1 eilutė (a: a"_s);
    EXPECT_EQ(files(), QStringList());
}

TEST_P(ServerReplay, GivesTheSameValuesOfOtherTypes)
{
    make(u"a double precision, b boolean, c timestamp, d numeric, e timestamptz, f varchar(3)[], g real"_s);
    mnRavl->nativeExec(
        u"insert into t values ('NaN', true, '2026-07-31 08:09:10.123456', 1e-30, now(), "
        "'{a,\"b''\"}', 0.1), ('-Infinity', false, 'infinity', 'NaN', null, '{}', 'Infinity')"_s);
    expectEqualAfterReplay({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s, u"g"_s});
}

TEST_P(Replay, LetsKeysThatTheDatabaseGivesGoOn)
{
    const QString key = engine() == Engine::Sqlite
                            ? u"a integer primary key"_s
                            : u"a integer generated by default as identity primary key"_s;
    make(key + u", b integer"_s);
    mnRavl->nativeExec(u"insert into t values (7, 1), (3, 2)"_s);
    expectEqualAfterReplay({u"a"_s, u"b"_s});
    mnFin_Db->nativeExec(u"insert into t (b) values (3)"_s);
    EXPECT_EQ(value(*mnFin_Db, u"select max(a) from t"_s), u"8");
}

TEST_P(Replay, TakesNamesAsTheyAre)
{
    make(u"\"Order\" integer, \"a b\" integer"_s);
    mnRavl->nativeExec(u"insert into t values (1, 2)"_s);
    expectEqualAfterReplay({u"Order"_s, u"a b"_s});
}

// A replay that fails half way leaves nothing.
TEST_P(Replay, IsOneTransaction)
{
    make(u"a integer"_s);
    mnRavl->nativeExec(u"insert into t values (1), (2)"_s);
    mnFin_Db->nativeExec(u"create unique index i on t (a); insert into t values (2)"_s);
    EXPECT_THROW(mnFin_Db->nativeExec(QString::fromUtf8(replayable(u"t"_s, {u"a"_s}))), EDatabaseError);
    mnFin_Db->Rollback();
    EXPECT_EQ(rows(*mnFin_Db, u"select a from t"_s), QStringList(u"2"_s));
}

} // namespace
