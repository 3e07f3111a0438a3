#include "tests/toolkit/sql/sample_catalog.h"

#include "toolkit/sql/sort_key.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// A statement that reads the same on both engines.
void expectSame(const QString &statement, const char *expected)
{
    EXPECT_EQ(sqlite(statement), expected);
    EXPECT_EQ(postgres(statement), expected);
}

} // namespace

// --- texts

TEST(TextJoin, ColumnsOfTextJoin)
{
    expectSame(u"select sas_sasnr+'  '+sas_pavad saskaita from bd_sasplan"_s,
               "select sas_sasnr || '  ' || sas_pavad as saskaita from bd_sasplan");
}

TEST(TextJoin, ParenthesesAndQualifiersDoNotHideATextColumn)
{
    expectSame(u"select (a.SAS_SASNR + '  ')  + a.SAS_PAVAD as SASKAITA from bd_sasplan a"_s,
               "select (a.SAS_SASNR || '  ') || a.SAS_PAVAD as SASKAITA from bd_sasplan as a");
}

TEST(TextJoin, NumbersStillAdd)
{
    expectSame(u"select max(usr_id)+1 from bd_usr"_s, "select max(usr_id) + 1 from bd_usr");
    expectSame(u"select ssl_sum_db + ssl_sum_kr from bd_saslik"_s,
               "select ssl_sum_db + ssl_sum_kr from bd_saslik");
}

TEST(TextJoin, NumbersAddBeforeTheyJoinAText)
{
    expectSame(u"select per_id + 1 + ' m.' from bd_period"_s, "select (per_id + 1) || ' m.' from bd_period");
}

TEST(TextJoin, FunctionsAndAliasesTellATextToo)
{
    expectSame(
        u"select isnull(pad_pavad, '') as p, p + sas_sasnr from bd_pad, bd_sasplan"_s,
        "select coalesce(pad_pavad, '') as p, coalesce(pad_pavad, '') || sas_sasnr from bd_pad, bd_sasplan");
    expectSame(u"select ucase(pad_kodas) + pad_kodas from bd_pad"_s,
               "select ucase(pad_kodas) || pad_kodas from bd_pad");
}

TEST(TextJoin, TwoColumnsThatNobodyKnowsAreRefused)
{
    EXPECT_EQ(refusal(u"select x + y from t"_s), "Neaišku, ar „+“ jungia tekstus: „x“");
}

TEST(TextLiteral, DoubleQuotesMakeATextToo)
{
    expectSame(u"select * from bd_OprSasKor where osk_oprid=:oprid and osk_1_2=\"1\" and osk_tip=\"D'\"\"\""_s
                   .replace(u":oprid"_s, u"1"_s),
               "select * from bd_OprSasKor where osk_oprid = 1 and osk_1_2 = '1' and osk_tip = 'D''\"'");
}

// --- the first that is not null

TEST(FirstNotNull, TwoArgumentsCoalesce)
{
    expectSame(u"select ISNULL(per_menuo,0) from bd_period"_s,
               "select coalesce(per_menuo, 0) from bd_period");
    expectSame(u"select IfNull(per_menuo,0) from bd_period"_s,
               "select coalesce(per_menuo, 0) from bd_period");
}

TEST(FirstNotNull, NumberBesideATextIsCastOnTheServer)
{
    const QString statement = u"select 1 from bd_dbkrasm where ISNULL(dka_bank_kod,'') <> ''"_s;
    EXPECT_EQ(sqlite(statement), "select 1 from bd_dbkrasm where coalesce(dka_bank_kod, '') <> ''");
    EXPECT_EQ(postgres(statement),
              "select 1 from bd_dbkrasm where coalesce(cast(dka_bank_kod as text), '') <> ''");
}

TEST(FirstNotNull, ThreeArgumentsChooseByTheFirst)
{
    expectSame(u"select ifnull(dkl_dkaid, dkl_pavad, dka_pavad) as IPavad from t"_s,
               "select case when dkl_dkaid is null then dkl_pavad else dka_pavad end as IPavad from t");
    EXPECT_EQ(postgres(u"select ifnull(dkl_dkaid, dkl_pavad, dka_i_kod) from t"_s),
              "select case when dkl_dkaid is null then dkl_pavad else cast(dka_i_kod as text) end from t");
}

// --- functions

TEST(Functions, EmptyCountCountsRows)
{
    expectSame(u"select count() from bd_usr where usr_user_admin = 1"_s,
               "select count(*) from bd_usr where usr_user_admin = 1");
    expectSame(u"select count(*), count(dka_id), count(distinct dka_kod) from bd_dbkrasm"_s,
               "select count(*), count(dka_id), count(distinct dka_kod) from bd_dbkrasm");
}

TEST(Functions, BitsOfAPower)
{
    const QString statement = u"select kdv_pav from bd_kdv where (POWER(2, (KDV_ID-1)) & :ORG_KDV) <> 0"_s;
    EXPECT_EQ(sqlite(statement),
              "select kdv_pav from bd_kdv where (cast(min(POWER(2, (KDV_ID - 1)), 9e18) as integer) & "
              "cast(?1 as integer)) <> 0");
    EXPECT_EQ(postgres(statement),
              "select kdv_pav from bd_kdv where (cast(least(POWER(2, (KDV_ID - 1)), 9e18) as bigint) & "
              "cast($1 as bigint)) <> 0");
}

TEST(Functions, ProfessionalGroupsAreSplit)
{
    const QString statement =
        u"SELECT cast(floor(kla_kodas/10) as smallint) as Tipas, mod(kla_kodas,10) as Kodas FROM du_drbklas"_s;
    EXPECT_EQ(sqlite(statement), "select cast(floor(cast(kla_kodas as real) / 10) as integer) as Tipas, "
                                 "(kla_kodas % 10) as Kodas from du_drbklas");
    EXPECT_EQ(
        postgres(statement),
        "select cast(trunc(cast(floor(cast(kla_kodas as numeric) / 10) as numeric)) as smallint) as Tipas, "
        "mod(cast(kla_kodas as numeric), cast(10 as numeric)) as Kodas from du_drbklas");
}

TEST(Functions, DateFormatIsTaughtInTheSchema)
{
    expectSame(u"SELECT DATEFORMAT(GetDateByPeriodId(6),'yyyy.mm.dd') FROM dummy"_s,
               "select DATEFORMAT(GetDateByPeriodId(6), 'yyyy.mm.dd') from dummy");
}

TEST(Functions, AmountsAreCastToTheirScale)
{
    const QString statement = u"select cast(SUM(sam_samata) as numeric(11,2)) as sum_sam from bd_samatos"_s;
    EXPECT_EQ(sqlite(statement), "select round(SUM(sam_samata), 2) as sum_sam from bd_samatos");
    EXPECT_EQ(postgres(statement),
              "select cast(SUM(sam_samata) as numeric(11, 2)) as sum_sam from bd_samatos");
}

TEST(Functions, TheCatalogueMayKnowFurtherOnes)
{
    expectSame(u"select knygos_kodas(isl_id) from bd_asgisl"_s, "select knygos_kodas(isl_id) from bd_asgisl");
}

TEST(Functions, OfOtherNamesOrCountsAreRefused)
{
    EXPECT_EQ(refusal(u"select pg_sleep(5)"_s), "Neatpažinta funkcija: „pg_sleep“");
    EXPECT_EQ(refusal(u"select isnull(a) from t"_s), "Netinkamas funkcijos argumentų skaičius: „isnull“");
    EXPECT_EQ(refusal(u"select count(distinct *) from t"_s), "Netinkamoje sakinio vietoje yra ženklas: „*“");
    EXPECT_EQ(refusal(u"select sum(*) from t"_s), "Neatpažinta funkcija: „sum(*)“");
    EXPECT_EQ(refusal(u"select ifnull(distinct a, b, c) from t"_s),
              "Netinkamas funkcijos argumentų skaičius: „ifnull“");
    EXPECT_EQ(refusal(u"select cast(a as geometry) from t"_s), "Neatpažintas tipas: „geometry“");
}

// --- comparisons

TEST(Comparison, TextLiteralBesideANumberColumn)
{
    expectSame(u"select 1 from bd_dbkrasm where dka_id = '17'"_s,
               "select 1 from bd_dbkrasm where dka_id = '17'");
    EXPECT_EQ(sqlite(u"select 1 from bd_dbkrasm where max(dka_id) = '17'"_s),
              "select 1 from bd_dbkrasm where max(dka_id) = cast('17' as numeric)");
}

TEST(Comparison, NumberBesideATextColumnBecomesAText)
{
    expectSame(u"select 1 from t where dka_kod = 17"_s, "select 1 from t where dka_kod = cast(17 as text)");
}

TEST(Comparison, DateLiteralReadsAsTheEngineKeepsDates)
{
    const QString statement = u"select 1 from bd_dbkrsut where dks_nuo >= '2007.01.01'"_s;
    EXPECT_EQ(sqlite(statement), "select 1 from bd_dbkrsut where dks_nuo >= replace('2007.01.01', '.', '-')");
    EXPECT_EQ(postgres(statement), "select 1 from bd_dbkrsut where dks_nuo >= cast('2007.01.01' as date)");
}

TEST(Comparison, LikeIgnoresCaseAndHasNoHiddenEscape)
{
    const QString statement = u"select 1 from systable where table_name not like 'ul_%'"_s;
    EXPECT_EQ(sqlite(statement), "select 1 from systable where cast(table_name as text) not like 'ul_%'");
    EXPECT_EQ(postgres(statement), "select 1 from systable where cast(table_name as text) not ilike 'ul_%'");
    EXPECT_EQ(postgres(u"select 1 from t where sas_sasnr like :nr"_s),
              "select 1 from t where sas_sasnr ilike $1 escape ''");
    expectSame(
        u"select 1 from t where sas_sasnr between '1' and '2' or sas_id in (1,2) or not sas_tip is null"_s,
        "select 1 from t where sas_sasnr between '1' and '2' or sas_id in (1, 2) or not sas_tip is null");
}

TEST(Precedence, ParenthesesStandWhereTheEnginesDisagree)
{
    expectSame(u"select per_id - 1 + per_metai * 2 - (per_ketv - 1) from bd_period"_s,
               "select per_id - 1 + per_metai * 2 - (per_ketv - 1) from bd_period");
    expectSame(u"select sas_sasnr + (per_id - 1) from t"_s, "select sas_sasnr || (per_id - 1) from t");
    expectSame(u"select - - per_id, -5, per_id - -5 from bd_period"_s,
               "select - -per_id, -5, per_id - -5 from bd_period");
}

// --- names of the select

TEST(Alias, StandsForItsExpressionInWhere)
{
    expectSame(
        u"select ifnull(dkl_dkaid, dkl_sasid, dka_sasid) as sasid from t, s where sasid=sas_id"_s,
        "select case when dkl_dkaid is null then dkl_sasid else dka_sasid end as sasid from t, s where "
        "case when dkl_dkaid is null then dkl_sasid else dka_sasid end = sas_id");
}

TEST(Alias, AColumnOfTheSchemaGoesBefore)
{
    expectSame(u"select isnull(dkl_sasid, 0) as dkl_sasid from bd_dbkrlik where dkl_sasid > 0"_s,
               "select coalesce(dkl_sasid, 0) as dkl_sasid from bd_dbkrlik where dkl_sasid > 0");
}

TEST(Alias, AnOperatorInsideKeepsItsParentheses)
{
    expectSame(u"select per_id + 1 as kitas from bd_period where kitas * 2 > 4"_s,
               "select per_id + 1 as kitas from bd_period where (per_id + 1) * 2 > 4");
}

// --- tables

TEST(Tables, OneInstanceNamedTwiceGetsBothJoins)
{
    expectSame(u"select 1 from bd_dbkrlik as a left outer join bd_dbkrasm on dkl_dkaid=dka_id, "
               "bd_dbkrlik as a left outer join bd_pad on dkl_padid = pad_id, bd_sasplan where dkl_id=1"_s,
               "select 1 from bd_dbkrlik as a left join bd_dbkrasm on dkl_dkaid = dka_id "
               "left join bd_pad on dkl_padid = pad_id, bd_sasplan where dkl_id = 1");
}

TEST(Tables, TheSameTableUnderTwoNamesStaysTwo)
{
    expectSame(u"select 1 from bd_dbkrasm, bd_sasplan as a, bd_sasplan as b where a.sas_id=b.sas_id"_s,
               "select 1 from bd_dbkrasm, bd_sasplan as a, bd_sasplan as b where a.sas_id = b.sas_id");
}

TEST(Tables, ACommaBeforeWhereIsDropped)
{
    expectSame(u"select 1 from bd_dbkrasm, bd_sasplan as b, where b.sas_id=dka_sasid"_s,
               "select 1 from bd_dbkrasm, bd_sasplan as b where b.sas_id = dka_sasid");
}

TEST(Tables, KeyJoinFollowsTheForeignKey)
{
    expectSame(u"select count() from bd_isllik key join bd_period where per_id<>7"_s,
               "select count(*) from bd_isllik join bd_period on sml_perid = per_id where per_id <> 7");
    expectSame(u"select count() from bd_period key join bd_isllik"_s,
               "select count(*) from bd_period join bd_isllik on sml_perid = per_id");
    EXPECT_EQ(refusal(u"select count() from bd_usr key join bd_period"_s),
              "Nežinomas lentelių ryšys: „bd_usr key join bd_period“");
}

TEST(Tables, AreListedInLowerCaseOnceEach)
{
    const SampleCatalog catalog;
    SqlTranslator translator(SqlDialect::Sqlite, catalog);
    const QString statement = u"select 1 from Bd_B, bd_a as x, bd_A as y where exists (select 1 from BD_C)"_s;
    EXPECT_EQ(translator.translate(statement).tables, QStringList({u"bd_b"_s, u"bd_a"_s, u"bd_c"_s}));
}

TEST(Names, ReservedOnesAreQuoted)
{
    const QString statement = u"select User, t.Index from t"_s;
    EXPECT_EQ(sqlite(statement), "select User, t.[index] from t");
    EXPECT_EQ(postgres(statement), "select \"user\", t.Index from t");
}

// --- writing

TEST(Writing, NullAsksForAKeyOfTheDatabase)
{
    const QString statement = u"insert into bd_balsas values (NULL, :balkod, :sasid, :tip)"_s;
    EXPECT_EQ(sqlite(statement), "insert into bd_balsas values (null, ?1, ?2, ?3)");
    EXPECT_EQ(postgres(statement), "insert into bd_balsas values (default, $1, $2, $3)");
    EXPECT_EQ(postgres(u"insert into bd_balsas (bss_tip, bss_id) values (null, null)"_s),
              "insert into bd_balsas (bss_tip, bss_id) values (null, default)");
    const QString several = u"insert into bd_balsas values (NULL, :k1, 7, :tip), (NULL, :k2, NULL, :tip)"_s;
    EXPECT_EQ(sqlite(several), "insert into bd_balsas values (null, ?1, 7, ?2), (null, ?3, null, ?2)");
    EXPECT_EQ(postgres(several),
              "insert into bd_balsas values (default, $1, 7, $2), (default, $3, null, $2)");
}

TEST(Writing, ParametersThatAreReckonedWithHaveAType)
{
    const QString statement = u"insert into du_drbklas (kla_kodas) values (:tipas *10 + :kodas)"_s;
    EXPECT_EQ(sqlite(statement), "insert into du_drbklas (kla_kodas) values (?1 * 10 + ?2)");
    EXPECT_EQ(postgres(statement),
              "insert into du_drbklas (kla_kodas) values (cast($1 as numeric) * 10 + cast($2 as numeric))");
}

TEST(Writing, UpdateAndDelete)
{
    EXPECT_EQ(postgres(u"update bd_kasos set KAS_PAVAD = :KAS_PAVAD where KAS_ID = :OLD_KAS_ID"_s),
              "update bd_kasos set KAS_PAVAD = $1 where KAS_ID = $2");
    expectSame(u"DELETE FROM bd_baleil;"_s, "delete from bd_baleil");
}

TEST(Writing, ATrailingCommitIsToldAndLeftOut)
{
    const SampleCatalog catalog;
    SqlTranslator translator(SqlDialect::Sqlite, catalog);
    const TranslatedSql &sql =
        translator.translate(u"insert into bd_period\nvalues (6, 2005, 1, 1) commit"_s);
    EXPECT_EQ(sql.text.toStdString(), "insert into bd_period values (6, 2005, 1, 1)");
    EXPECT_TRUE(sql.commits);
    EXPECT_EQ(sql.kind, SqlKind::Insert);
    EXPECT_FALSE(translator.translate(u"delete from bd_period"_s).commits);
}

TEST(Routine, IsCalledAsTheEngineCallsIt)
{
    EXPECT_EQ(sqlite(u"call Close_Per()"_s), "select Close_Per()");
    EXPECT_EQ(postgres(u"CALL p_CalcDBKRLik(null)"_s), "call p_CalcDBKRLik(null)");
    EXPECT_EQ(refusal(u"call drop_all()"_s), "Neatpažinta procedūra: „drop_all“");
}

// --- parameters

TEST(Parameters, OneNameHasOnePosition)
{
    const SampleCatalog catalog;
    SqlTranslator translator(SqlDialect::PostgreSql, catalog);
    const TranslatedSql &sql = translator.translate(
        u"select 1 from t where sam_perid>:perid and sam_jveid=:j and sam_perid<:PERID+5"_s);
    EXPECT_EQ(sql.parameters, QStringList({u"perid"_s, u"j"_s}));
    EXPECT_EQ(
        sql.text.toStdString(),
        "select 1 from t where sam_perid > $1 and sam_jveid = $2 and sam_perid < cast($1 as numeric) + 5");
}

TEST(Parameters, ATestForNullGetsTheTypeOfTheOtherPlaces)
{
    EXPECT_EQ(postgres(u"select 1 from t where :p is null or dka_id = :p"_s),
              "select 1 from t where cast($1 as numeric) is null or dka_id = $1");
    EXPECT_EQ(sqlite(u"select 1 from t where :p is null"_s), "select 1 from t where ?1 is null");
}

// --- cache

TEST(Cache, GivesTheSameTranslationAgain)
{
    const SampleCatalog catalog;
    SqlTranslator translator(SqlDialect::Sqlite, catalog);
    const QString statement = u"select 1 from t"_s;
    const TranslatedSql *first = &translator.translate(statement);
    for (int i = 0; i < 900; ++i)
        translator.translate(u"select %1 from t"_s.arg(i + 2));
    EXPECT_EQ(first, &translator.translate(statement));
    EXPECT_EQ(first->text.toStdString(), "select 1 from t");
}

TEST(Cache, ForgetsOnDemandWhatTheCatalogueSaid)
{
    struct Changing : SampleCatalog {
        ColumnKind kindOf(const QString &) const override { return kind; }
        ColumnKind kind = ColumnKind::Number;
    } catalog;
    SqlTranslator translator(SqlDialect::Sqlite, catalog);
    const auto translated = [&translator] { return translator.translate(u"select a + b from t"_s).text; };
    EXPECT_EQ(translated(), u"select a + b from t"_s);
    catalog.kind = ColumnKind::Code;
    EXPECT_EQ(translated(), u"select a + b from t"_s);
    translator.clear();
    EXPECT_EQ(translated(), u"select a || b from t"_s);
}
