#include "tests/database/routines_books.h"

using namespace Qt::StringLiterals;

using Debtors = SmallBooks;
ON_BOTH_ENGINES(Debtors);

namespace {
const auto balances =
    u"select dkl_perid, dkl_dkaid, dkl_pavad, dkl_sum_db, dkl_sum_kr, dkl_padid from bd_dbkrlik "
    "order by dkl_perid, dkl_id"_s;
}

TEST_P(Debtors, AreComputedFromTheEntriesOfAllMonthsBefore)
{
    startOfWork(2005, 11);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db, irs_dkaid) values (1, 6, 2, 10, 5)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_kr, irs_dkaid) values (2, 7, 3, 4, 5)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db, irs_dkaid) values (4, 6, 1, 70, 5)"_s);
    close(2);
    run(u"delete from bd_dbkrlik"_s);
    const QString last = one(u"select get_last_per_id() from dummy"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_kr, irs_dkaid) values (3, %1, 3, 90, 5)"_s
            .arg(last));
    run(u"insert into bd_dbkrlik values (1, %1, NULL, 2, 1, 'Senas', 99, 0, NULL)"_s.arg(last));
    run(u"call p_CalcDBKRLik(null)"_s);
    EXPECT_EQ(select(balances), (QStringList{last + u"|5|NULL|6|0|NULL"_s}));
}

TEST_P(Debtors, StartFromTheBalancesOfTheFirstMonth)
{
    startOfWork(2005, 1);
    run(u"insert into bd_dbkrlik values (1, 6, NULL, 2, 1, 'Jonas', 7, 0, NULL)"_s);
    run(u"insert into bd_dbkrlik values (2, 6, 5, NULL, NULL, NULL, 0, 2, 1)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_db, irs_dkaid, irs_padid) "
        "values (1, 6, 3, 2, 5, 1)"_s);
    run(u"insert into bd_period values (7, 2005, 1, 2)"_s);
    run(u"call p_CalcDBKRLik(7)"_s);
    EXPECT_EQ(select(balances),
              (QStringList{u"6|NULL|Jonas|7|0|NULL"_s, u"6|5|NULL|0|2|1"_s, u"7|NULL|Jonas|7|0|NULL"_s}));
}

TEST_P(Debtors, GiveTheSameAsTheCloses)
{
    startOfWork(2005, 11);
    run(u"insert into bd_dbkrlik values (1, 6, 5, NULL, NULL, NULL, 10, 0, NULL)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_sasid, irs_sum_kr, irs_dkaid) values (1, 6, 2, 12.05, 5)"_s);
    close(2);
    const QStringList carried = select(balances);
    EXPECT_EQ(carried.size(), 3);
    run(u"call p_CalcDBKRLik(null)"_s);
    EXPECT_EQ(select(balances), carried);
}

TEST_P(Debtors, OfTheFirstMonthHaveNothingBeforeThem)
{
    startOfWork(2005, 1);
    run(u"insert into bd_dbkrlik values (1, 6, 5, NULL, NULL, NULL, 10, 0, NULL)"_s);
    run(u"call p_CalcDBKRLik(null)"_s);
    EXPECT_EQ(select(balances), QStringList());
}

TEST_P(Debtors, OfNoMonthAreRefused)
{
    startOfWork(2005, 1);
    EXPECT_EQ(errorOf(u"call p_CalcDBKRLik(1)"_s), u"Nėra mėnesio, kurio likučius reikia suskaičiuoti.");
}

using Persons = SmallBooks;
ON_BOTH_ENGINES(Persons);

TEST_P(Persons, AlikeBecomeTheOneWithTheLowestKey)
{
    run(u"insert into bd_matasm values (3, 'Jonas Žilinskas', '38001010000', 1, 1)"_s);
    run(u"insert into bd_matasm values (4, ' jonas žilinskas ', '38001010000', 1, 1)"_s);
    run(u"insert into bd_matasm values (5, 'JONAS ŽILINSKAS', '38001010000', 1, 1)"_s);
    run(u"insert into it_turtas (tur_id, tur_matid) values (1, 5)"_s);
    run(u"insert into bd_irasai (irs_id, irs_perid, irs_matid) values (1, 6, 4)"_s);
    run(u"CALL updMatAsmUnq()"_s);
    EXPECT_EQ(select(u"select mat_id, mat_pavad from bd_matasm"_s), (QStringList{u"3|Jonas Žilinskas"_s}));
    EXPECT_EQ(one(u"select tur_matid from it_turtas"_s), u"3");
    EXPECT_EQ(one(u"select irs_matid from bd_irasai"_s), u"3");
}

TEST_P(Persons, ThatDifferInAnythingStayApart)
{
    run(u"insert into bd_pad (pad_id, pad_pavad) values (2, 'Sandėlis')"_s);
    run(u"insert into bd_prg (prg_id, prg_pavad) values (2, 'Vairuotojas')"_s);
    run(u"insert into bd_matasm values (1, 'Ona', '1', 1, 1)"_s);
    run(u"insert into bd_matasm values (2, 'Ona', '2', 1, 1)"_s);
    run(u"insert into bd_matasm values (3, 'Ona', '1', 2, 1)"_s);
    run(u"insert into bd_matasm values (4, 'Ona', '1', 1, 2)"_s);
    run(u"insert into bd_matasm values (5, 'Ona P', '1', 1, 1)"_s);
    const QStringList before = dump(*mnFin_Db);
    run(u"CALL updMatAsmUnq()"_s);
    EXPECT_EQ(dump(*mnFin_Db), before);
}
