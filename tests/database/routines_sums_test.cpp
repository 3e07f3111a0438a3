#include "tests/database/routines_books.h"
#include "toolkit/data/statement.h"

#include <cmath>

using namespace Qt::StringLiterals;

using Sums = SmallBooks;
ON_BOTH_ENGINES(Sums);

TEST_P(Sums, TenTimesTenCentsIsOne)
{
    for (int i = 0; i < 10; ++i)
        balance(cash, 6, 0.10, 0);
    EXPECT_EQ(mnFin_Db->fieldResult(u"select sum(ssl_sum_db) from bd_saslik"_s).toDouble(), 1.0);
    EXPECT_EQ(one(u"select sum(ssl_sum_db) - 1 from bd_saslik"_s), u"0");
}

TEST_P(Sums, AHundredThousandTimesTenCentsIsTenThousand)
{
    const QString numbers =
        engine() == Engine::Sqlite
            ? u"with recursive n(i) as (values (1) union all select i + 1 from n where i < 100000)"_s
            : u"with n(i) as (select generate_series(1, 100000))"_s;
    mnFin_Db->nativeExec(numbers + u" insert into bd_saslik select i, 1, 6, 0.10, 0 from n"_s);
    EXPECT_EQ(mnFin_Db->fieldResult(u"select sum(ssl_sum_db) from bd_saslik"_s).toDouble(), 10000.0);
    EXPECT_EQ(mnFin_Db->fieldResult(u"select count(*) from bd_saslik"_s).toInt(), 100000);
}

TEST_P(Sums, AreExactToFourDecimals)
{
    balance(cash, 6, 12345678901.1234, 0);
    balance(cash, 6, 0.0001, 0);
    balance(cash, 6, -12345678901.1235, 0);
    EXPECT_EQ(mnFin_Db->fieldResult(u"select sum(ssl_sum_db) from bd_saslik"_s).toDouble(), 0.0);
}

TEST_P(Sums, OfNoRowsAreNull)
{
    EXPECT_EQ(one(u"select sum(ssl_sum_db) from bd_saslik"_s), u"NULL");
}

TEST_P(Sums, PassOverNulls)
{
    run(u"insert into bd_dbkrsut (dks_dkaid, dks_suma) values (5, NULL)"_s);
    run(u"insert into bd_dbkrsut (dks_dkaid, dks_suma) values (5, 2.5)"_s);
    EXPECT_EQ(one(u"select sum(dks_suma) from bd_dbkrsut"_s), u"2.5");
}

TEST_P(Sums, OfWholeNumbersAreWholeNumbers)
{
    run(u"insert into bd_objektai values (4503599627370497, 'x')"_s);
    run(u"insert into bd_objektai values (3, 'y')"_s);
    EXPECT_EQ(one(u"select sum(obj_id) from bd_objektai"_s), u"4503599627370500");
}

TEST_P(Sums, OfCoefficientsStayClose)
{
    for (int i = 1; i <= 3; ++i) {
        mnFin_Db->ExecSQL(u"insert into bd_tarn values (:id, 'x', :k)"_s, {{u"id"_s, i}, {u"k"_s, 1.0 / 3}});
    }
    EXPECT_NEAR(mnFin_Db->fieldResult(u"select sum(trn_koef) from bd_tarn"_s).toDouble(), 1.0, 1e-15);
}

TEST_P(Sums, OverAWindowAreExactToo)
{
    for (int i = 0; i < 4; ++i)
        balance(cash, 6, 0.10, 0);
    QStringList sums;
    const QString native = u"select sum(ssl_sum_db) over (order by ssl_id rows 1 preceding) from bd_saslik"_s;
    TranslatedSql sql;
    sql.text = native;
    const auto statement = mnFin_Db->prepareNative(sql);
    statement->exec();
    while (statement->next())
        sums.append(QString::number(statement->number(0), 'g', QLocale::FloatingPointShortest));
    EXPECT_EQ(sums, (QStringList{u"0.1"_s, u"0.2"_s, u"0.2"_s, u"0.2"_s}));
}

using Estimates = SmallBooks;
ON_BOTH_ENGINES(Estimates);

namespace {
const auto totals = u"select sam_perid, sam_sam_kor from bd_samatos order by sam_perid"_s;
}

TEST_P(Estimates, KeepTheTotalsOfTheirCorrections)
{
    startOfWork(2005, 1);
    for (int i = 0; i <= 4; ++i)
        run(u"insert into bd_samatos values (%1, 10, %2, 100, 0)"_s.arg(i + 1).arg(i + 1));
    run(u"insert into bd_samkor values (1, 1, '2005-02-01', 'K-1', 10, 0, 0, -5)"_s);
    run(u"insert into bd_samkor values (2, 1, '2005-03-01', 'K-2', 0.1, 0, 3, 0)"_s);
    EXPECT_EQ(select(totals), (QStringList{u"1|8.1"_s, u"2|10.1"_s, u"3|0"_s, u"4|3"_s, u"5|-5"_s}));
    run(u"update bd_samkor set sak_i_ketv = 1 where sak_id = 1"_s);
    EXPECT_EQ(select(totals).mid(0, 2), (QStringList{u"1|-0.9"_s, u"2|1.1"_s}));
    run(u"delete from bd_samkor where sak_id=1"_s);
    EXPECT_EQ(select(totals), (QStringList{u"1|3.1"_s, u"2|0.1"_s, u"3|0"_s, u"4|3"_s, u"5|0"_s}));
}

TEST_P(Estimates, AQuarterAddedLaterHasItsCorrectionsAtOnce)
{
    startOfWork(2005, 1);
    run(u"insert into bd_samatos values (1, 10, 1, 100, 0)"_s);
    run(u"insert into bd_samkor values (1, 1, '2005-02-01', 'K-1', 0, 7, 0, 0)"_s);
    run(u"insert into bd_samatos values (2, 10, 2, 100, 0)"_s);
    run(u"insert into bd_samatos values (3, 10, 3, 100, 0)"_s);
    EXPECT_EQ(select(totals), (QStringList{u"1|7"_s, u"2|0"_s, u"3|7"_s}));
}

TEST_P(Estimates, OfOtherNodesAndYearsAreLeftAlone)
{
    startOfWork(2005, 12);
    close();
    run(u"insert into bd_samatos values (1, 10, 1, 100, 0)"_s);
    run(u"insert into bd_samatos values (2, 11, 1, 100, 0)"_s);
    run(u"insert into bd_samatos values (3, 10, 7, 100, 0)"_s);
    run(u"insert into bd_samkor values (1, 1, '2005-02-01', 'K-1', 4, 0, 0, 0)"_s);
    EXPECT_EQ(select(u"select sam_id, sam_sam_kor from bd_samatos order by sam_id"_s),
              (QStringList{u"1|4"_s, u"2|0"_s, u"3|0"_s}));
}

TEST_P(Estimates, TakeTheirCorrectionsWithThem)
{
    startOfWork(2005, 1);
    run(u"insert into bd_samatos values (1, 10, 1, 100, 0)"_s);
    run(u"insert into bd_samkor values (1, 1, '2005-02-01', 'K-1', 4, 0, 0, 0)"_s);
    run(u"delete from bd_samatos where sam_id = 1"_s);
    EXPECT_EQ(one(u"select count(*) from bd_samkor"_s), u"0");
}
