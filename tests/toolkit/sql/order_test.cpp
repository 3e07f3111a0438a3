#include "tests/toolkit/sql/sample_catalog.h"

#include "toolkit/sql/sort_key.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

std::string key(const char *column)
{
    return sortKeyExpression(QLatin1String(column)).toStdString();
}

std::string sorted(const QString &statement, const QString &column, bool descending = false)
{
    return withOrderBy(statement, column, descending).toStdString();
}

} // namespace

TEST(Order, ANameColumnFollowsItsSortKey)
{
    const QString statement = u"select * from bd_kasos order by kas_pavad"_s;
    EXPECT_EQ(sqlite(statement), "select * from bd_kasos order by " + key("kas_pavad") + ", kas_pavad");
    EXPECT_EQ(postgres(statement),
              "select * from bd_kasos order by lt_raktas(kas_pavad) collate \"C\", kas_pavad");
}

TEST(Order, NullsStandFirstOnBothEngines)
{
    const QString statement = u"select * from bd_pad order by pad_pavad desc"_s;
    EXPECT_EQ(sqlite(statement),
              "select * from bd_pad order by " + key("pad_pavad") + " desc, pad_pavad desc");
    EXPECT_EQ(postgres(statement),
              "select * from bd_pad order by lt_raktas(pad_pavad) collate \"C\" desc nulls last, "
              "pad_pavad desc nulls last");
    EXPECT_EQ(postgres(u"select * from bd_samkor order by sak_data"_s),
              "select * from bd_samkor order by sak_data nulls first");
}

TEST(Order, CodesStayAsTheyAre)
{
    EXPECT_EQ(postgres(u"select * from bd_dbkrasm order by DKA_KOD"_s),
              "select * from bd_dbkrasm order by DKA_KOD");
    EXPECT_EQ(sqlite(u"select sas_sasnr + '  ' + sas_pavad as SASKAITA from bd_sasplan order by SASKAITA"_s),
              "select sas_sasnr || '  ' || sas_pavad as SASKAITA from bd_sasplan order by SASKAITA");
}

TEST(Order, AnOuterJoinMakesNullsOfARequiredColumn)
{
    EXPECT_EQ(postgres(u"select 1 from t left join bd_dbkrasm on dkl_dkaid=dka_id order by dka_kod"_s),
              "select 1 from t left join bd_dbkrasm on dkl_dkaid = dka_id order by dka_kod nulls first");
}

TEST(Order, AComputedNameIsOrderedByTheFunction)
{
    const QString statement =
        u"select ifnull(dkl_dkaid, dkl_pavad, dka_pavad) as IPavad from t order by IPavad"_s;
    const std::string text = "case when dkl_dkaid is null then dkl_pavad else dka_pavad end";
    EXPECT_EQ(sqlite(statement),
              "select " + text + " as IPavad from t order by lt_raktas(" + text + "), IPavad");
    EXPECT_EQ(postgres(statement), "select " + text + " as IPavad from t order by lt_raktas(" + text +
                                       ") collate \"C\" nulls first, IPavad nulls first");
}

TEST(Order, ByNumberAndByAliasReachTheColumn)
{
    EXPECT_EQ(sqlite(u"select kas_id, kas_pavad from bd_kasos order by 2"_s),
              "select kas_id, kas_pavad from bd_kasos order by " + key("kas_pavad") + ", 2");
    EXPECT_EQ(sqlite(u"select kas_pavad as p from bd_kasos order by p desc"_s),
              "select kas_pavad as p from bd_kasos order by " + key("kas_pavad") + " desc, p desc");
    EXPECT_EQ(refusal(u"select kas_id from bd_kasos order by 3"_s), "Neatpažintas rikiavimo stulpelis: „3“");
}

TEST(Order, DistinctNamesAreOrderedFromOutsideOnTheServer)
{
    const QString statement = u"select distinct dka_bank_pav, 1 from bd_dbkrasm order by 1"_s;
    EXPECT_EQ(sqlite(statement),
              "select distinct dka_bank_pav, 1 from bd_dbkrasm order by " + key("dka_bank_pav") + ", 1");
    EXPECT_EQ(postgres(statement),
              "select * from (select distinct dka_bank_pav, 1 from bd_dbkrasm) as visi order by "
              "lt_raktas(visi.dka_bank_pav) collate \"C\" nulls first, 1 nulls first");
}

TEST(Order, DistinctCodesNeedNoHelp)
{
    EXPECT_EQ(postgres(u"SELECT distinct EIN_NR,1 FROM bd_einsas order by ein_nr"_s),
              "select distinct EIN_NR, 1 from bd_einsas order by ein_nr nulls first");
}

TEST(SortKey, IsMadeOfBuiltInFunctionsOnly)
{
    QString text = sortKeyExpression(u"kas_pavad"_s);
    EXPECT_TRUE(text.contains(u"upper(kas_pavad)"_s));
    text.remove(u"replace("_s).remove(u"upper("_s);
    EXPECT_FALSE(text.contains(u'('));
}

TEST(WithOrderBy, ReplacesTheOutermostOrder)
{
    EXPECT_EQ(sorted(u"select * from bd_pad order by pad_pavad"_s, u"PAD_KODAS"_s),
              "select * from bd_pad order by PAD_KODAS");
    EXPECT_EQ(sorted(u"select * from bd_pad"_s, u"pad_kodas"_s, true),
              "select * from bd_pad order by pad_kodas desc");
}

TEST(WithOrderBy, LeavesInnerOrdersAndLiteralsAlone)
{
    EXPECT_EQ(
        sorted(u"select ' order by ' as x from (select a from t order by a) as q where x = 'y'"_s, u"x"_s),
        "select ' order by ' as x from (select a from t order by a) as q where x = 'y' order by x");
}

TEST(WithOrderBy, StandsOutsideOfATrailingComment)
{
    EXPECT_EQ(sorted(u"select a from t -- pabaiga"_s, u"a"_s), "select a from t order by a");
}

TEST(WithOrderBy, RefusesWhatIsNoSelectAndNoColumn)
{
    EXPECT_THROW(withOrderBy(u"delete from t"_s, u"a"_s, false), ESqlNotUnderstood);
    EXPECT_THROW(withOrderBy(u"select a from t"_s, u"a; delete"_s, false), ESqlNotUnderstood);
    EXPECT_THROW(withOrderBy(u"select a from t"_s, u"a -- b"_s, false), ESqlNotUnderstood);
}
