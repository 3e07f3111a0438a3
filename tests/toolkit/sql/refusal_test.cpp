#include "tests/toolkit/sql/sample_catalog.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Refusal, NamesTheWordThatStopsIt)
{
    EXPECT_EQ(refusal(u"drop table bd_usr"_s), "Neatpažintas sakinio žodis: „drop“");
    EXPECT_EQ(refusal(u"select a from t limit 5"_s), "Netinkamoje sakinio vietoje yra ženklas: „5“");
    EXPECT_EQ(refusal(u"select a from t where a glob 'x'"_s), "Neatpažintas sakinio žodis: „glob“");
    EXPECT_EQ(refusal(u"select a from t union select b from t"_s), "Neatpažintas sakinio žodis: „union“");
    EXPECT_EQ(refusal(u"with x as (select 1) select * from x"_s), "Neatpažintas sakinio žodis: „with“");
}

TEST(Refusal, OfASecondStatement)
{
    EXPECT_EQ(refusal(u"select 1; delete from bd_usr"_s), "Neatpažintas sakinio žodis: „delete“");
}

TEST(Refusal, OfSignsTheDialectDoesNotHave)
{
    EXPECT_EQ(refusal(u"select a from t where a = ?"_s), "Neatpažintas sakinio ženklas: „?“");
    EXPECT_EQ(refusal(u"select a::text from t"_s), "Neatpažintas sakinio ženklas: „:“");
    EXPECT_EQ(refusal(u"select 0x1F"_s), "Neatpažintas skaičius: „0x1F“");
}

TEST(Refusal, OfWhatIsNotFinished)
{
    EXPECT_EQ(refusal(u"select a from t where a = 'x"_s), "Nebaigtas tekstas: 'x");
    EXPECT_EQ(refusal(u"select a /* b"_s), "Nebaigtas paaiškinimas: /* b");
    EXPECT_EQ(refusal(u"select a from t where"_s), "Sakinys nebaigtas");
    EXPECT_EQ(refusal(u""_s), "Sakinys nebaigtas");
}

TEST(Refusal, OfInsertedRowsOfDifferentWidths)
{
    EXPECT_EQ(refusal(u"insert into bd_usr values (1, 2), (3)"_s),
              "Netinkamoje sakinio vietoje yra ženklas: „)“");
    EXPECT_FALSE(refusal(u"insert into bd_usr values (1), (2, 3)"_s).empty());
}

TEST(Refusal, OfANulOrHalfASign)
{
    EXPECT_EQ(refusal(u"select 'a"_s + QChar(0) + u"b'"_s), "Sakinyje yra neleistinas ženklas");
    EXPECT_EQ(refusal(u"select '"_s + QChar(0xD800) + u"'"_s), "Sakinyje yra neleistinas ženklas");
}

TEST(Refusal, OfWhatWouldExhaustTheStack)
{
    EXPECT_EQ(refusal(u"select "_s + QString(5000, u'(') + u"1"_s + QString(5000, u')')),
              "Sakinio sandara per gili");
    EXPECT_EQ(refusal(u"select 1"_s + u" + 1"_s.repeated(5000)), "Sakinio sandara per gili");
    EXPECT_EQ(refusal(u"select "_s + u"not "_s.repeated(5000) + u"1"_s), "Sakinio sandara per gili");
    QString nested = u"select 1"_s;
    for (int i = 0; i < 100; ++i)
        nested = u"select 1 where exists ("_s + nested + u')';
    EXPECT_EQ(refusal(nested), "Sakinio sandara per gili");
}

TEST(Refusal, OfAliasesThatUnfoldWithoutMeasure)
{
    QString statement = u"select 'a' + 'a' as c0"_s;
    for (int i = 1; i < 40; ++i)
        statement += u", c%1 + c%1 as c%2"_s.arg(i - 1).arg(i);
    EXPECT_FALSE(refusal(statement + u" order by c39"_s).empty());
}

TEST(Comments, StayWhereTheyStand)
{
    EXPECT_EQ(postgres(u"select a -- pirmas 'x\n, b /* antras \" */ from t -- galas"_s),
              "select a, -- pirmas 'x\nb from /* antras \" */ t -- galas");
}

TEST(Comments, ThatAnEngineWouldReadOtherwiseAreRefused)
{
    EXPECT_EQ(sqlite(u"select a /* b /* c */ from t"_s), "select a from /* b /* c */ t");
    EXPECT_EQ(refusal(u"select a /* b /* c */ from t"_s), "Neatpažintas įdėtas paaiškinimas: „/* b /* c */“");
}

TEST(Literals, AreNeverAltered)
{
    const QString statement =
        u"select 1 from t where sas_pavad = ' ISNULL(a,b) -- \"D\" /* + key join :p ''commit'' '"_s;
    const std::string expected =
        "select 1 from t where sas_pavad = ' ISNULL(a,b) -- \"D\" /* + key join :p ''commit'' '";
    EXPECT_EQ(sqlite(statement), expected);
    EXPECT_EQ(postgres(statement), expected);
}
