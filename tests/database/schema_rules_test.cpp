#include "tests/database/routines_books.h"
#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

using Rules = SmallBooks;
ON_BOTH_ENGINES(Rules);

// --- what the database answers about itself

TEST_P(Rules, DummyHasOneRowInBothBooks)
{
    EXPECT_EQ(one(u"select count(*) from dummy"_s), u"1");
    EXPECT_EQ(value(*mnRavl, u"select 5 from dummy"_s), u"5");
}

TEST_P(Rules, SystableListsTheTablesOfTheBudgetBook)
{
    EXPECT_EQ(rows(*mnRavl, u"select table_name from systable order by table_name"_s),
              (QStringList{u"bd_baleil"_s, u"bd_balsas"_s, u"bd_fin"_s, u"bd_kdv"_s, u"bd_savivaldybes"_s,
                           u"bd_usr"_s, u"bd_usrkdv"_s}));
    EXPECT_EQ(value(*mnRavl, u"select count(distinct table_id) from systable"_s), u"7");
}

TEST_P(Rules, SyscolumnListsTheColumnsInTheirOrder)
{
    const QString table = value(*mnRavl, u"select table_id from systable where table_name = 'bd_usrkdv'"_s);
    EXPECT_EQ(rows(*mnRavl, u"SELECT column_id, column_name FROM syscolumn where table_id = :tblid"_s,
                   {{u"tblid"_s, table.toLongLong()}}),
              (QStringList{u"1|udv_usrid"_s, u"2|udv_finid"_s, u"3|udv_kdv"_s}));
}

TEST_P(Rules, ThePeriodTableHasItsFourColumnsInOrder)
{
    QStringList names;
    for (const TColumnInfo &column : mnFin_Db->columnsOf(u"bd_period"_s))
        names.append(column.name);
    EXPECT_EQ(names, (QStringList{u"per_id"_s, u"per_metai"_s, u"per_ketv"_s, u"per_menuo"_s}));
}

// --- keys

TEST_P(Rules, KeysGivenByTheDatabaseComeWithoutBeingNamed)
{
    run(u"insert into bd_dbkrsut (dks_dkaid, dks_nr) values (0, 'S-1')"_s);
    run(u"insert into bd_dbkrsut (dks_dkaid, dks_nr) values (0, 'S-2')"_s);
    EXPECT_EQ(select(u"select dks_id, dks_nr from bd_dbkrsut order by dks_id"_s),
              (QStringList{u"1|S-1"_s, u"2|S-2"_s}));
    mnRavl->ExecSQL(u"insert into bd_fin (fin_pavad) values ('Valstybės biudžetas')"_s);
    EXPECT_EQ(value(*mnRavl, u"select fin_id from bd_fin"_s), u"1");
}

TEST_P(Rules, TheSameCodeOfACounterpartyIsRefused)
{
    EXPECT_THROW(run(u"insert into bd_dbkrasm (dka_id, dka_kod, dka_pavad, dka_sasid, dka_sasid_2) "
                     "values (6, 'A1', 'Kitas', 2, 3)"_s),
                 EConstraintError);
}

TEST_P(Rules, CodesOfDepartmentsAreUniqueWithoutRegardToCase)
{
    run(u"insert into bd_pad (pad_id, pad_kodas) values (2, 'žą1')"_s);
    run(u"insert into bd_pad (pad_id, pad_kodas) values (3, NULL)"_s);
    run(u"insert into bd_pad (pad_id, pad_kodas) values (4, 'ža1')"_s);
    EXPECT_THROW(run(u"insert into bd_pad (pad_id, pad_kodas) values (5, 'ŽĄ1')"_s), EConstraintError);
}

TEST_P(Rules, OneExpenseRowForANodeAndPeriod)
{
    run(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid) values (1, 6, 10)"_s);
    run(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid) values (2, 7, 10)"_s);
    EXPECT_THROW(run(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid) values (3, 6, 10)"_s),
                 EConstraintError);
}

TEST_P(Rules, ASecondBalanceOfAnAccountInAPeriodIsTaken)
{
    balance(cash, 6, 1, 0);
    balance(cash, 6, 2, 0);
    EXPECT_EQ(one(u"select count(*) from bd_saslik"_s), u"2");
}

TEST_P(Rules, TheSameAccountTwiceInOneListOfAnOperationIsRefused)
{
    run(u"insert into bd_opr values (1, 'Algos')"_s);
    run(u"insert into bd_OprSasKor values (1, 1, 'D', '1')"_s);
    run(u"insert into bd_OprSasKor values (1, 1, 'K', '1')"_s);
    EXPECT_THROW(run(u"insert into bd_OprSasKor values (1, 1, 'D', '1')"_s), EConstraintError);
}

TEST_P(Rules, TheInstitutionIsOneRow)
{
    run(u"insert into bd_org (org_pavad) values ('Mokykla')"_s);
    EXPECT_THROW(run(u"insert into bd_org (org_pavad) values ('Kita')"_s), EConstraintError);
}

// --- references

TEST_P(Rules, AnUnknownAccountIsRefused)
{
    EXPECT_THROW(balance(99, 6, 1, 0), EConstraintError);
}

TEST_P(Rules, ACounterpartyMayNameAMissingAccount)
{
    run(u"update bd_dbkrasm set dka_sasid = 99 where dka_id = 5"_s);
    EXPECT_EQ(one(u"select dka_sasid from bd_dbkrasm"_s), u"99");
}

TEST_P(Rules, AContractOfNobodyIsTaken)
{
    run(u"insert into bd_dbkrsut (dks_dkaid) values (0)"_s);
    EXPECT_EQ(one(u"select count(*) from bd_dbkrsut where dks_dkaid = 0"_s), u"1");
}

TEST_P(Rules, ContractsGoWithTheirCounterparty)
{
    run(u"insert into bd_dbkrsut (dks_dkaid, dks_nr) values (5, 'S-1')"_s);
    run(u"insert into bd_dbkrsut (dks_dkaid, dks_nr) values (0, 'S-2')"_s);
    run(u"delete from bd_dbkrasm where dka_id=5"_s);
    EXPECT_EQ(select(u"select dks_nr from bd_dbkrsut"_s), (QStringList{u"S-2"_s}));
}

TEST_P(Rules, AssignmentsGoWithTheirFormLine)
{
    run(u"insert into bd_baleil values ('A0101', 'Kasa')"_s);
    run(u"insert into bd_balsas values (NULL, 'A0101', 1, 'D')"_s);
    run(u"DELETE FROM bd_baleil"_s);
    EXPECT_EQ(one(u"select count(*) from bd_balsas"_s), u"0");
}

TEST_P(Rules, AccountsOfAnOperationGoWithIt)
{
    run(u"insert into bd_opr values (1, 'Algos')"_s);
    run(u"insert into bd_OprSasKor values (1, 1, 'D', '1')"_s);
    run(u"delete from bd_opr where opr_id = 1"_s);
    EXPECT_EQ(one(u"select count(*) from bd_OprSasKor"_s), u"0");
}

TEST_P(Rules, PeriodsCanBeSetUpAnewWhileBalancesStand)
{
    startOfWork(2005, 1);
    balance(cash, 6, 1, 0);
    close();
    run(u"delete from bd_period"_s);
    startOfWork(2006, 3);
    EXPECT_EQ(one(u"select count(*) from bd_saslik where ssl_perid = 6"_s), u"1");
}

TEST_P(Rules, ADepartmentKeepsAnActivityThatIsNotThere)
{
    run(u"insert into bd_pad (pad_id, pad_vklid) values (2, 1)"_s);
    EXPECT_EQ(one(u"select pad_vklid from bd_pad where pad_id = 2"_s), u"1");
}

// --- what columns take

TEST_P(Rules, ATextThatIsTooLongIsRefused)
{
    run(u"insert into bd_objektai values (1, '%1')"_s.arg(QString(100, u'ž')));
    EXPECT_THROW(run(u"insert into bd_objektai values (2, '%1')"_s.arg(QString(101, u'ž'))), EDatabaseError);
}

TEST_P(Rules, AnAmountThatIsTooLargeIsRefused)
{
    EXPECT_THROW(balance(cash, 6, 1e11, 0), EDatabaseError);
}

TEST_P(Rules, WhatIsNoNumberOrDateIsRefused)
{
    EXPECT_THROW(mnFin_Db->nativeExec(u"insert into bd_tarn values (1, 'x', 'daug')"_s), EDatabaseError);
    EXPECT_THROW(mnFin_Db->nativeExec(u"insert into bd_samatos values (1, 10, 1, 'daug', 0)"_s),
                 EDatabaseError);
    EXPECT_THROW(mnFin_Db->nativeExec(u"insert into bd_dbkrsut (dks_nuo) values ('2005-02-30')"_s),
                 EDatabaseError);
    EXPECT_THROW(mnFin_Db->nativeExec(u"insert into bd_einsas (ein_id, ein_bank_kod) values (1, 'x')"_s),
                 EDatabaseError);
}

TEST_P(Rules, ARequiredColumnLeftOutIsRefused)
{
    EXPECT_THROW(run(u"insert into bd_kasos (kas_id, kas_sasid) values (1, 1)"_s), EConstraintError);
}

// --- the order of names

TEST_P(Rules, NamesAreReadInLithuanianOrder)
{
    const QStringList names = {u"Žąsis"_s, u"abc"_s, u"Ąžuolas"_s, u"Cukrus"_s, u"Čiurlys"_s, u"Zuikis"_s};
    for (int i = 0; i < names.size(); ++i)
        mnFin_Db->ExecSQL(u"insert into bd_objektai values (:id, :p)"_s,
                          {{u"id"_s, i + 1}, {u"p"_s, names.at(i)}});
    EXPECT_EQ(select(u"select obj_pavad from bd_objektai order by obj_pavad"_s),
              (QStringList{u"abc"_s, u"Ąžuolas"_s, u"Cukrus"_s, u"Čiurlys"_s, u"Zuikis"_s, u"Žąsis"_s}));
    EXPECT_EQ(select(u"select UCASE(obj_pavad) from bd_objektai where obj_id = 3"_s),
              (QStringList{u"ĄŽUOLAS"_s}));
}

namespace {

// How the engine reads a list, in its own words; the server is asked as for a table that is large.
QString planOf(TDatabase &db, const QString &statement)
{
    const bool embedded = db.engine() == Engine::Sqlite;
    if (!embedded)
        db.nativeExec(u"set enable_seqscan = off; set enable_sort = off"_s);
    TranslatedSql sql = db.translator().translate(statement);
    sql.text.prepend(embedded ? u"explain query plan "_s : u"explain "_s);
    const auto plan = db.prepareNative(sql);
    plan->exec();
    QStringList lines;
    while (plan->next())
        lines.append(QString::fromUtf8(plan->utf8(embedded ? 3 : 0)));
    return lines.join(u'\n');
}

} // namespace

TEST_P(Rules, ListsAreReadThroughTheirIndexes)
{
    const QList<QPair<QString, QString>> lists = {
        {u"select * from bd_pad order by pad_pavad"_s, u"ix_bd_pad_pavad"_s},
        {u"select * from bd_kasos order by kas_pavad"_s, u"ix_bd_kasos_pavad"_s},
        {u"SELECT * FROM BD_BANKAI ORDER BY BNK_PAVAD"_s, u"ix_bd_bankai_pavad"_s},
        {u"select * from bd_dbkrasm order by dka_pavad"_s, u"ix_bd_dbkrasm_pavad"_s},
        {u"select * from bd_dbkrasm order by dka_kod"_s, u"ix_bd_dbkrasm_kod"_s},
        {u"SELECT * FROM Bd_Savivaldybes ORDER BY Sav_Pavad"_s, u"ix_bd_savivaldybes_pavad"_s}};
    for (const auto &[list, index] : lists) {
        const QString plan = planOf(*mnFin_Db, list);
        const bool sorted = plan.contains(u"Sort"_s) || plan.contains(u"TEMP B-TREE"_s);
        EXPECT_FALSE(sorted) << list.toStdString() << '\n' << plan.toStdString();
        EXPECT_TRUE(plan.contains(index)) << plan.toStdString();
    }
}

TEST_P(Rules, ReferencesThatAreNoForeignKeysAreListedWithThem)
{
    const auto referred =
        u"select rys_i_lentele, rys_i_stulpelis, rys_sava from sys_rysiai where rys_stulpelis = '%1'"_s;
    EXPECT_EQ(select(referred.arg(u"sml_perid"_s)), (QStringList{u"bd_period|per_id|0"_s}));
    EXPECT_EQ(select(referred.arg(u"dks_dkaid"_s)), (QStringList{u"bd_dbkrasm|dka_id|1"_s}));
    EXPECT_EQ(select(referred.arg(u"kas_sasid"_s)), (QStringList{u"bd_sasplan|sas_id|0"_s}));
    EXPECT_EQ(select(referred.arg(u"bss_balkod"_s)), (QStringList{u"bd_baleil|bel_kod|1"_s}));
}

TEST_P(Rules, TheFirstDayOfAPeriodIsADate)
{
    startOfWork(2005, 2);
    const QVariant day =
        mnFin_Db->fieldResult(u"select GetDateByPeriodId(per_id) as data from bd_period where per_id = 6"_s);
    EXPECT_EQ(day.toDate(), QDate(2005, 2, 1));
    EXPECT_EQ(day.typeId(), QMetaType::QDate);
}
