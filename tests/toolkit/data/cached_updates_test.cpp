// Changes held in the set until they are applied together.

#include "tests/toolkit/data/books.h"

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;

namespace {

class CachedUpdates : public OnSmallTable {
protected:
    void SetUp() override
    {
        OnSmallTable::SetUp();
        fill(3);
        set = std::make_unique<TQuery>(mnFin_Db, u"select t_id, t_kodas, t_suma from bd_t order by t_id"_s);
        set->CachedUpdates = true;
        set->InsertSQL = u"insert into bd_t (T_ID, T_KODAS, T_SUMA) values (:T_ID, :T_KODAS, :T_SUMA)"_s;
        set->ModifySQL = u"update bd_t set T_KODAS = :T_KODAS, T_SUMA = :T_SUMA where T_ID = :OLD_T_ID"_s;
        set->DeleteSQL = u"delete from bd_t where T_ID = :OLD_T_ID"_s;
        set->Open();
        tester = std::make_unique<QAbstractItemModelTester>(
            set.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    }

    void TearDown() override
    {
        tester.reset();
        set.reset();
        OnSmallTable::TearDown();
    }

    void change(int row, const QString &code)
    {
        set->setRecNo(row);
        set->Edit();
        set->FieldByName(u"t_kodas"_s)->setAsString(code);
        set->Post();
    }

    void add(int id, const QString &code)
    {
        set->Append();
        set->FieldByName(u"t_id"_s)->setAsInteger(id);
        set->FieldByName(u"t_kodas"_s)->setAsString(code);
        set->Post();
    }

    void remove(int row)
    {
        set->setRecNo(row);
        set->Delete();
    }

    QStringList shown() const
    {
        QStringList codes;
        for (int row = 0; row < set->rowCount(); ++row)
            codes.append(set->index(row, 1).data().toString());
        return codes;
    }

    QStringList written() { return rows(*secondFin(), u"select t_id, t_kodas from bd_t order by t_id"_s); }

    std::unique_ptr<TQuery> set;
    std::unique_ptr<QAbstractItemModelTester> tester;
    const QStringList untouched{u"1|K1"_s, u"2|K2"_s, u"3|K3"_s};
};

ON_BOTH_ENGINES(CachedUpdates);

} // namespace

TEST_P(CachedUpdates, AreSeenButNotWrittenBeforeTheyAreApplied)
{
    change(0, u"X"_s);
    remove(1);
    add(9, u"Y"_s);
    EXPECT_TRUE(set->UpdatesPending());
    EXPECT_EQ(shown(), (QStringList{u"X"_s, u"K3"_s, u"Y"_s}));
    EXPECT_EQ(written(), untouched);
}

TEST_P(CachedUpdates, AreWrittenTogetherAndThenDone)
{
    change(0, u"X"_s);
    remove(1);
    add(9, u"Y"_s);
    mnFin_Db->StartTransaction();
    set->ApplyUpdates();
    mnFin_Db->Commit();
    set->CommitUpdates();
    EXPECT_FALSE(set->UpdatesPending());
    EXPECT_EQ(written(), (QStringList{u"1|X"_s, u"3|K3"_s, u"9|Y"_s}));
    set->CancelUpdates();
    EXPECT_EQ(shown(), (QStringList{u"X"_s, u"K3"_s, u"Y"_s}));
}

TEST_P(CachedUpdates, CancelBringsEverythingBack)
{
    change(0, u"X"_s);
    change(0, u"XX"_s);
    remove(1);
    add(9, u"Y"_s);
    set->CancelUpdates();
    EXPECT_FALSE(set->UpdatesPending());
    EXPECT_EQ(shown(), (QStringList{u"K1"_s, u"K2"_s, u"K3"_s}));
    set->ApplyUpdates();
    EXPECT_EQ(written(), untouched);
}

TEST_P(CachedUpdates, TheKeyIsFoundByItsOldValue)
{
    set->ModifySQL = u"update bd_t set T_ID = :T_ID, T_KODAS = :T_KODAS where T_ID = :OLD_T_ID"_s;
    set->Edit();
    set->FieldByName(u"t_id"_s)->setAsInteger(50);
    set->Post();
    change(0, u"X"_s);
    set->ApplyUpdates();
    EXPECT_EQ(written(), (QStringList{u"2|K2"_s, u"3|K3"_s, u"50|X"_s}));
}

TEST_P(CachedUpdates, WhatWasAddedAndRemovedAgainIsNeverWritten)
{
    add(9, u"Y"_s);
    remove(3);
    EXPECT_FALSE(set->UpdatesPending());
    set->ApplyUpdates();
    EXPECT_EQ(written(), untouched);
}

TEST_P(CachedUpdates, AreWrittenInTheOrderOfTheFirstChange)
{
    remove(0);
    add(9, u"K1"_s); // the code is free only after the deletion
    change(0, u"Z"_s);
    add(10, u"K2"_s);
    set->ApplyUpdates();
    EXPECT_EQ(written(), (QStringList{u"2|Z"_s, u"3|K3"_s, u"9|K1"_s, u"10|K2"_s}));
}

TEST_P(CachedUpdates, AFailureWritesNothingAndKeepsThemForAnotherTry)
{
    change(0, u"X"_s);
    change(1, u"K3"_s);
    EXPECT_THROW(set->ApplyUpdates(), EConstraintError);
    EXPECT_EQ(written(), untouched);
    EXPECT_TRUE(set->UpdatesPending());
    change(1, u"Z"_s);
    set->ApplyUpdates();
    EXPECT_EQ(written(), (QStringList{u"1|X"_s, u"2|Z"_s, u"3|K3"_s}));
}

TEST_P(CachedUpdates, ARecordThatIsGoneIsTold)
{
    change(0, u"X"_s);
    secondFin()->ExecSQL(u"delete from bd_t where t_id = 1"_s);
    EXPECT_ERROR(ERowGone, set->ApplyUpdates(), u"Įrašas jau ištrintas kitoje darbo vietoje"_s);
}

TEST_P(CachedUpdates, WithoutStatementsALiveQueryWritesThem)
{
    set->InsertSQL.clear();
    set->ModifySQL.clear();
    set->DeleteSQL.clear();
    EXPECT_TRUE(set->ReadOnly());
    set->Close();
    set->RequestLive = true;
    set->Open();
    change(0, u"X"_s);
    remove(1);
    add(9, u"Y"_s);
    set->ApplyUpdates();
    EXPECT_EQ(written(), (QStringList{u"1|X"_s, u"3|K3"_s, u"9|Y"_s}));
}
