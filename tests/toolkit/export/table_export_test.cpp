#include "tests/toolkit/data/expect_error.h"
#include "tests/toolkit/export/exported.h"
#include "toolkit/data/query.h"
#include "toolkit/text/ansistring.h"

#include <QRandomGenerator>

#include <bit>

using namespace Qt::StringLiterals;

namespace {

class TableExport : public OnTablesToExport {
protected:
    // The same rows as the fields of a data set show them.
    QByteArray asFieldsShow(const QString &table, const QStringList &columns)
    {
        FormatSettings().DecimalSeparator = u'.';
        QByteArray lines;
        TQuery set(mnRavl, selectOf(table, columns));
        for (set.Open(); !set.Eof(); set.Next()) {
            QStringList values;
            for (const QString &column : columns)
                values << u'\'' + set.FieldByName(column)->AsString() + u'\'';
            lines += AnsiString(u"insert into %1(%2) values(%3);\n"_s.arg(table, columns.join(u','),
                                                                          values.join(u',')))
                         .bytes();
        }
        return lines;
    }
};
ON_BOTH_ENGINES(TableExport);

TEST_P(TableExport, OfOneColumn)
{
    mnRavl->nativeExec(u"create table t (a integer); insert into t values (1)"_s);
    EXPECT_EQ(exported(u"t"_s, {u"a"_s}), "insert into t(a) values('1');\n");
}

TEST_P(TableExport, HasNoBlankInItsListsAndOneLineForARow)
{
    mnRavl->nativeExec(u"create table t (a integer, b varchar(9), c varchar(9));"
                       "insert into t values (1, 'x', 'y z'), (-2, '', ' ')"_s);
    EXPECT_EQ(selectOf(u"t"_s, {u"a"_s, u"b"_s, u"c"_s}), u"select a, b, c from t");
    EXPECT_EQ(exported(u"t"_s, {u"a"_s, u"b"_s, u"c"_s}), "insert into t(a,b,c) values('1','x','y z');\n"
                                                          "insert into t(a,b,c) values('-2','',' ');\n");
}

TEST_P(TableExport, OfATableWithoutRowsIsEmpty)
{
    mnRavl->nativeExec(u"create table t (a integer)"_s);
    EXPECT_EQ(exported(u"t"_s, {u"a"_s}), "");
    EXPECT_EQ(exported(u"t"_s, {u"a"_s}, true), "delete from t;\n");
}

TEST_P(TableExport, EmptiesTheTableFirstWhenAsked)
{
    mnRavl->nativeExec(u"create table t (a integer); insert into t values (1)"_s);
    EXPECT_EQ(exported(u"t"_s, {u"a"_s}, true), "delete from t;\ninsert into t(a) values('1');\n");
}

TEST_P(TableExport, WritesANullAsAnEmptyText)
{
    mnRavl->nativeExec(u"create table t (a integer, b varchar(9), c date);"
                       "insert into t values (null, null, null)"_s);
    EXPECT_EQ(exported(u"t"_s, {u"a"_s, u"b"_s, u"c"_s}), "insert into t(a,b,c) values('','','');\n");
}

TEST_P(TableExport, LeavesQuotesAndEndsOfLinesAsTheyAre)
{
    mnRavl->nativeExec(u"create table t (a varchar(20)); insert into t values ('l''ete ''\n; \\')"_s);
    EXPECT_EQ(exported(u"t"_s, {u"a"_s}), "insert into t(a) values('l'ete '\n; \\');\n");
}

TEST_P(TableExport, WritesNumbersWithAPointWhateverTheSettings)
{
    mnRavl->nativeExec(u"create table t (a double precision, b numeric(15,4));"
                       "insert into t values (0.5, 12.3400), (1e30, -0.0001), (1.5e-9, 7)"_s);
    FormatSettings().DecimalSeparator = u',';
    EXPECT_EQ(exported(u"t"_s, {u"a"_s, u"b"_s}), "insert into t(a,b) values('0.5','12.34');\n"
                                                  "insert into t(a,b) values('1E30','-0.0001');\n"
                                                  "insert into t(a,b) values('1.5E-9','7');\n");
    EXPECT_EQ(FormatSettings().DecimalSeparator, u',');
    EXPECT_THROW(exported(u"t"_s, {u"nera"_s}), EDatabaseError);
    EXPECT_EQ(FormatSettings().DecimalSeparator, u',');
}

TEST_P(TableExport, WritesDatesAsFieldsShowThem)
{
    mnRavl->nativeExec(u"create table t (a date, b timestamp);"
                       "insert into t values ('2026-07-05', '2026-07-05 08:09:10')"_s);
    EXPECT_EQ(exported(u"t"_s, {u"a"_s, u"b"_s}),
              "insert into t(a,b) values('2026.07.05','2026.07.05 08:09:10');\n");
    FormatSettings().ShortDateFormat = u"dd/mm/yy"_s;
    EXPECT_EQ(exported(u"t"_s, {u"a"_s, u"b"_s}),
              "insert into t(a,b) values('05.07.26','05.07.26 08:09:10');\n");
}

TEST_P(TableExport, OfATableWithoutTexts)
{
    mnRavl->nativeExec(u"create table t (a integer, b double precision); insert into t values (1, 2.25)"_s);
    EXPECT_EQ(exported(u"t"_s, {u"a"_s, u"b"_s}), "insert into t(a,b) values('1','2.25');\n");
}

TEST_P(TableExport, WritesAPictureAsTheTextOfItsField)
{
    mnRavl->nativeExec(u"create table t (a integer, b %1)"_s.arg(blob()));
    const auto add = mnRavl->prepare(u"insert into t values (1, :b)"_s);
    add->bind(u"b"_s, QByteArray("\x89PNG\0\xff'", 7));
    add->exec();
    EXPECT_EQ(exported(u"t"_s, {u"a"_s, u"b"_s}), "insert into t(a,b) values('1','');\n");
}

TEST_P(TableExport, WritesEveryValueAsItsFieldShowsIt)
{
    mnRavl->nativeExec(u"create table t (a double precision, b numeric(15,4), c bigint, d date)"_s);
    const auto add = mnRavl->prepare(u"insert into t values (:a, :b, :c, :d)"_s);
    QRandomGenerator random(12);
    for (int i = 0; i < 2000; ++i) {
        const auto bits = std::bit_cast<double>(random.generate64());
        const double scaled =
            double(random.bounded(-1000000, 1000000)) * std::pow(10, random.bounded(-12, 15));
        add->bind(u"a"_s, i % 2 && std::isfinite(bits) ? bits : scaled);
        add->bind(u"b"_s, double(random.bounded(-1000000, 1000000)) / 10000);
        add->bind(u"c"_s, qlonglong(random.generate64()));
        add->bind(u"d"_s, QDate(1900, 1, 1).addDays(random.bounded(100000)));
        add->exec();
    }
    const QStringList columns{u"a"_s, u"b"_s, u"c"_s, u"d"_s};
    const QList<QByteArray> expected = asFieldsShow(u"t"_s, columns).split('\n');
    const QList<QByteArray> written = exported(u"t"_s, columns).split('\n');
    ASSERT_EQ(written.size(), 2001);
    for (int i = 0; i < 2001; ++i)
        ASSERT_EQ(written[i], expected[i]);
}

TEST_P(TableExport, IsInCodePage1257)
{
    QByteArray bytes; // all that the code page has and a text may hold
    for (int byte = 1; byte <= 0xff; ++byte) {
        if (firstOutsideCodePage(AnsiString::fromBytes(QByteArray(1, char(byte))).toQString()) < 0)
            bytes += char(byte);
    }
    ASSERT_GT(bytes.size(), 230);
    mnRavl->nativeExec(u"create table t (a varchar(300))"_s);
    mnRavl->ExecSQL(u"insert into t values (:a)"_s, {{u"a"_s, AnsiString::fromBytes(bytes).toQString()}});
    EXPECT_EQ(exported(u"t"_s, {u"a"_s}), "insert into t(a) values('" + bytes + "');\n");
}

TEST_P(TableExport, NamesRowColumnAndSignOfATextOutsideTheCodePage)
{
    struct {
        QString text;
        QString named;
    } cases[] = {{u"gera ☃"_s, u"„☃“"_s}, {u"a😀b"_s, u"„😀“"_s}, {u"Ñ"_s, u"„Ñ“"_s}, {u"ё"_s, u"„ё“"_s}};
    writeFile(file(), "sena");
    mnRavl->nativeExec(u"create table t (a integer, b varchar(9))"_s);
    for (const auto &each : cases) {
        mnRavl->nativeExec(u"delete from t; insert into t values (16, 'ąčę'), (17, '%1')"_s.arg(each.text));
        EXPECT_ERROR(EConvertError, exported(u"t"_s, {u"a"_s, u"b"_s}),
                     u"Lentelės „t“ 2 eilutė (a: 17), stulpelis „b“: simbolio %1 negalima"_s.arg(each.named));
        EXPECT_EQ(contentOf(file()), "sena");
        EXPECT_EQ(files().size(), 1);
    }
}

// The server holds no NUL in a text.
using EmbeddedTableExport = OnTablesToExport;
ON_ENGINE(EmbeddedTableExport, Engine::Sqlite);

TEST_P(EmbeddedTableExport, LeavesWhatIsNoDayAsItIs)
{
    mnRavl->nativeExec(u"create table t (a date, b timestamp); insert into t values ('abcd-01-01', 'x'), "
                       "('2026-02-30', '2026'), ('rytoj', 5)"_s);
    EXPECT_EQ(exported(u"t"_s, {u"a"_s, u"b"_s}), "insert into t(a,b) values('abcd-01-01','x');\n"
                                                  "insert into t(a,b) values('2026-02-30','2026');\n"
                                                  "insert into t(a,b) values('rytoj','5');\n");
}

TEST_P(EmbeddedTableExport, RefusesANulThatWouldEndTheTextWhenItIsRead)
{
    mnRavl->nativeExec(u"create table t (a text); insert into t values (cast(x'610062' as text))"_s);
    EXPECT_ERROR(EConvertError, exported(u"t"_s, {u"a"_s}), u"simbolio „U+0000“"_s);
}

TEST_P(TableExport, OfATableThatIsNotThereWritesNothing)
{
    EXPECT_THROW(exported(u"t"_s, {u"a"_s}), EDatabaseError);
    EXPECT_EQ(files(), QStringList());
}

TEST_P(TableExport, StoppedInTheMiddleLeavesTheOldFile)
{
    manyRows(200000);
    writeFile(file(), "sena");
    qlonglong seen = 0;
    const TTableExport what{u"t"_s, {u"a"_s, u"b"_s}, false, [&seen](qlonglong rows) {
                                seen = rows;
                                throw EAbort();
                            }};
    EXPECT_THROW(exportTable(*mnRavl, what, file()), EAbort);
    EXPECT_GT(seen, 0);
    EXPECT_LT(seen, 200000);
    EXPECT_EQ(contentOf(file()), "sena");
    EXPECT_EQ(files().size(), 1);
}

TEST_P(TableExport, TellsHowFarItIsAtMost25TimesASecond)
{
    manyRows(200000);
    QElapsedTimer clock;
    clock.start();
    QList<qlonglong> told;
    const TTableExport what{u"t"_s, {u"a"_s, u"b"_s}, false, [&told](qlonglong rows) { told << rows; }};
    EXPECT_EQ(exportTable(*mnRavl, what, file()), 200000);
    EXPECT_FALSE(told.isEmpty());
    EXPECT_LE(told.size(), clock.elapsed() / 40);
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_EQ(contentOf(file()).count('\n'), 200000);
}

} // namespace
