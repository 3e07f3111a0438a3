#include "tests/support/engines.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using EmptyDatabases = OnEmptyDatabases;
ON_BOTH_ENGINES(EmptyDatabases);

TEST_P(EmptyDatabases, StandApartAndHoldNothing)
{
    EXPECT_TRUE(dump(*mnFin_Db).isEmpty());
    mnFin_Db->nativeExec(u"create table a (a_id integer primary key, a_pavad varchar(20))"_s);
    EXPECT_EQ(rows(*mnFin_Db, u"select count(*) from a"_s), QStringList{u"0"_s});
    EXPECT_TRUE(dump(*mnRavl).isEmpty());
}

TEST_P(EmptyDatabases, DumpShowsEveryByteOfEveryTable)
{
    mnFin_Db->nativeExec(u"create table a (a_id integer primary key, a_pavad varchar(20));"
                         "create table b (b_id integer primary key, b_suma numeric(15,4));"
                         "insert into a values (1, 'ąčę');"
                         "insert into b values (1, 1.25)"_s);
    const QStringList before = dump(*mnFin_Db);
    const QByteArray hash = fingerprint(*mnFin_Db);
    EXPECT_EQ(before.size(), 2);
    EXPECT_EQ(dump(*secondFin()), before);
    mnFin_Db->nativeExec(u"update b set b_suma = 1.2501"_s);
    EXPECT_NE(dump(*mnFin_Db), before);
    EXPECT_NE(fingerprint(*mnFin_Db), hash);
    EXPECT_EQ(dump(*mnFin_Db, u"a"_s), before.mid(0, 1));
    mnFin_Db->nativeExec(u"update b set b_suma = 1.25"_s);
    EXPECT_EQ(fingerprint(*mnFin_Db), hash);
}

TEST_P(EmptyDatabases, RowsReadTheSameOnBothEngines)
{
    mnFin_Db->nativeExec(
        u"create table a (a_id integer primary key, a_pavad varchar(20), a_suma numeric(15,4), a_data date);"
        "insert into a values (1, 'ąčę', 10.5, '2005-03-01');"
        "insert into a values (2, null, null, null)"_s);
    EXPECT_EQ(rows(*mnFin_Db, u"select a_id, a_pavad, a_suma, a_data from a order by a_id"_s),
              QStringList({u"1|ąčę|10.5|2005-03-01"_s, u"2|NULL|NULL|NULL"_s}));
    EXPECT_EQ(value(*secondFin(), u"select a_pavad from a where a_id = :id"_s, {{u"id"_s, 1}}), u"ąčę"_s);
}

using FreshBooks = OnBothEngines;
ON_BOTH_ENGINES(FreshBooks);

TEST_P(FreshBooks, HoldTheSchemaAndNoPeriods)
{
    EXPECT_EQ(rows(*mnFin_Db, u"select per_id from bd_period"_s), QStringList());
    EXPECT_EQ(rows(*mnRavl, u"select usr_id from bd_usr"_s), QStringList());
}

TEST_P(FreshBooks, AreNotThoseOfTheTestBefore)
{
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_period"_s), u"0"_s);
        mnFin_Db->ExecSQL(u"insert into bd_period values (6, 2005, 1, 1)"_s);
        EXPECT_EQ(value(*secondFin(), u"select per_metai from bd_period"_s), u"2005"_s);
        TearDown();
        SetUp();
    }
}
