#include "tests/database/routines_books.h"

#include <QSet>
#include <QThread>

using namespace Qt::StringLiterals;

using Keys = SmallBooks;
ON_BOTH_ENGINES(Keys);

namespace {
const auto nextKey = u"select GetNextTableColumnId('dba','bd_objektai','obj_id') from dummy"_s;
} // namespace

TEST_P(Keys, TheFirstKeyOfAnEmptyTableIsOne)
{
    EXPECT_EQ(one(nextKey), u"1");
    EXPECT_EQ(one(nextKey), u"2");
}

TEST_P(Keys, NoKeyIsBelowTheLargestInTheColumn)
{
    EXPECT_EQ(one(nextKey), u"1");
    run(u"insert into bd_objektai values (40, 'Mokykla')"_s);
    EXPECT_EQ(one(nextKey), u"41");
}

TEST_P(Keys, AKeyIsNotHandedOutAgainWhenItsRowGoes)
{
    EXPECT_EQ(one(nextKey), u"1");
    run(u"insert into bd_objektai values (1, 'Mokykla')"_s);
    run(u"delete from bd_objektai"_s);
    EXPECT_EQ(one(nextKey), u"2");
}

TEST_P(Keys, NamesOfTableAndColumnMayBeOfAnyCase)
{
    EXPECT_EQ(one(u"select GetNextTableColumnId('dba','it_pardTip','Pat_ID') from dummy"_s), u"1");
    EXPECT_EQ(one(u"select GetNextTableColumnId('dba','IT_PARDTIP','pat_id') from dummy"_s), u"2");
}

TEST_P(Keys, AnUnknownColumnIsNamed)
{
    EXPECT_EQ(errorOf(u"select GetNextTableColumnId('dba','bd_objektai','nera') from dummy"_s),
              u"Nėra lentelės „bd_objektai“ stulpelio „nera“.");
}

TEST_P(Keys, KeysOfATransactionThatRollsBackAreFreeForNobodyElse)
{
    mnFin_Db->StartTransaction();
    EXPECT_EQ(one(nextKey), u"1");
    run(u"insert into bd_objektai values (1, 'Mokykla')"_s);
    mnFin_Db->Rollback();
    EXPECT_EQ(one(nextKey), u"1");
    EXPECT_EQ(value(*secondFin(), nextKey), u"2");
}

TEST_P(Keys, TwoStationsNeverDrawTheSameKey)
{
    constexpr int draws = 200;
    const auto draw = [&, this](QStringList &keys) {
        try {
            const std::unique_ptr<TDatabase> station = open(finSettings());
            for (int i = 0; i < draws; ++i)
                keys.append(value(*station, nextKey));
        } catch (const Exception &error) {
            keys.append(error.message());
        }
    };
    QStringList first;
    QStringList second;
    const std::unique_ptr<QThread> other(QThread::create([&] { draw(second); }));
    other->start();
    draw(first);
    other->wait();
    const QStringList all = first + second;
    EXPECT_EQ(all.size(), 2 * draws) << first.last().toStdString() << ' ' << second.last().toStdString();
    EXPECT_EQ(QSet<QString>(all.cbegin(), all.cend()).size(), 2 * draws);
}

TEST_P(Keys, UsesAreCountedThroughTheReferences)
{
    const auto uses = u"select f_CheckUsed('bd_dbkrasm', 'dka_id', '5') from dummy"_s;
    EXPECT_EQ(one(uses), u"0");
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_dkaid) values (1, 6, 5)"_s);
    run(u"insert into bd_dbkrlik values (1, 6, 5, NULL, NULL, NULL, 10, 0, NULL)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid) values (2, 6)"_s);
    EXPECT_EQ(one(uses), u"2");
    EXPECT_EQ(one(u"select f_CheckUsed('BD_DBKRASM', 'DKA_ID', '6') from dummy"_s), u"0");
}

TEST_P(Keys, ACounterpartysContractsAreNoUse)
{
    run(u"insert into bd_dbkrsut (dks_dkaid, dks_nr) values (5, 'S-1')"_s);
    EXPECT_EQ(one(u"select f_CheckUsed('bd_dbkrasm', 'dka_id', '5') from dummy"_s), u"0");
}

TEST_P(Keys, FixedAssetsUseWhatTheyNameAndBanksAreUsedByTheirCode)
{
    run(u"insert into it_pardtip values (3, 'Nurašymas')"_s);
    run(u"insert into it_turtas (tur_id, tur_patid) values (1, 3)"_s);
    EXPECT_EQ(one(u"select f_CheckUsed('it_pardtip', 'pat_id', '3') from dummy"_s), u"1");
    run(u"insert into bd_bankai values (73000, NULL, 'Bankas', 0)"_s);
    run(u"insert into bd_bankai values (73001, 73000, 'Skyrius', 0)"_s);
    EXPECT_EQ(one(u"select f_CheckUsed('BD_BANKAI', 'BNK_KODAS', '73000') from dummy"_s), u"1");
}

TEST_P(Keys, WhatIsNoKeyIsUsedNowhere)
{
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_dkaid) values (1, 6, 5)"_s);
    for (const QString &key : {u""_s, u"x"_s, u"5.5"_s, u"5'"_s})
        EXPECT_EQ(
            one(u"select f_CheckUsed('bd_dbkrasm', 'dka_id', %1) from dummy"_s.arg(TDatabase::quoted(key))),
            u"0");
    EXPECT_EQ(one(u"select f_CheckUsed('bd_dbkrasm', 'dka_id', '5.0') from dummy"_s), u"1");
    EXPECT_EQ(one(u"select f_CheckUsed('pp_imok', 'imo_kod', '001') from dummy"_s), u"0");
}

TEST_P(Keys, ACheckOfAnUnknownTableFailsInsteadOfAllowing)
{
    EXPECT_EQ(errorOf(u"select f_CheckUsed('bd_nera', 'x', '1') from dummy"_s),
              u"Nėra lentelės „bd_nera“ stulpelio „x“.");
}

TEST_P(Keys, AnAccountIsInTheFormWhenALineOfThePatternClaimsIt)
{
    run(u"insert into bd_baleil values ('A0101', 'Kasa')"_s);
    run(u"insert into bd_balsas values (NULL, 'A0101', 1, 'D')"_s);
    const auto asked = u"select CheckSasInBalForm(%1, '%2') from dummy"_s;
    EXPECT_EQ(one(asked.arg(1).arg(u"%"_s)), u"1");
    EXPECT_EQ(one(asked.arg(1).arg(u"A%"_s)), u"1");
    EXPECT_EQ(one(asked.arg(1).arg(u"P%"_s)), u"0");
    EXPECT_EQ(one(asked.arg(2).arg(u"%"_s)), u"0");
}
