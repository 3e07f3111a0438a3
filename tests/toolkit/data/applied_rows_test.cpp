// Held changes of a list whose statement joins and computes: what a dialog over its rows sees.

#include "tests/toolkit/data/books.h"
#include "toolkit/text/format.h"

using namespace Qt::StringLiterals;

namespace {

class AppliedRows : public OnSmallTable {
protected:
    void SetUp() override
    {
        OnSmallTable::SetUp();
        fill(3);
        FormatSettings().DecimalSeparator = u',';
        mnFin_Db->nativeExec(u"create table bd_v (v_id integer primary key, v_pavad varchar(20))"_s);
        mnFin_Db->nativeExec(u"insert into bd_v (v_id, v_pavad) values (1, 'Pirma'), (2, 'Antra')"_s);
        set = std::make_unique<TQuery>(
            mnFin_Db, u"select t_kodas, t_suma, t_kiek, v_pavad, t_suma * 2 as dvigubai, t_id from bd_t "
                      "left outer join bd_v on v_id = t_kiek where t_suma < :riba order by t_id"_s);
        set->setParam(u"riba"_s, 1000);
        set->CachedUpdates = true;
        set->InsertSQL = u"insert into bd_t (T_KODAS, T_SUMA, T_KIEK) values (:T_KODAS, :T_SUMA, :T_KIEK)"_s;
        set->ModifySQL = u"update bd_t set T_KODAS = :T_KODAS, T_SUMA = :T_SUMA, T_KIEK = :T_KIEK "
                         "where T_ID = :OLD_T_ID and T_KODAS = :OLD_T_KODAS"_s;
        set->DeleteSQL = u"delete from bd_t where T_ID = :OLD_T_ID"_s;
        set->addCalculated(u"tekstas"_s, TFieldType::ftString, 30);
        set->OnCalcFields = [](TDataSet &row) {
            row.FieldByName(u"tekstas"_s)->setAsString(u"#"_s + row.FieldByName(u"t_id"_s)->AsString());
        };
        set->Open();
    }

    void TearDown() override
    {
        set.reset();
        OnSmallTable::TearDown();
    }

    void type(const QString &code, double sum, int count)
    {
        set->FieldByName(u"t_kodas"_s)->setAsString(code);
        set->FieldByName(u"t_suma"_s)->setAsFloat(sum);
        set->FieldByName(u"t_kiek"_s)->setAsInteger(count);
    }

    void add(const QString &code, double sum, int count)
    {
        set->Append();
        type(code, sum, count);
        set->Post();
    }

    void apply()
    {
        set->ApplyUpdates();
        set->CommitUpdates();
    }

    QStringList shown() const
    {
        QStringList lines;
        for (int row = 0; row < set->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < set->columnCount(); ++column)
                cells.append(set->index(row, column).data().toString());
            lines.append(cells.join(u'|'));
        }
        return lines;
    }

    std::unique_ptr<TQuery> set;
};

ON_BOTH_ENGINES(AppliedRows);

} // namespace

TEST_P(AppliedRows, ShowTheKeyThatTheDatabaseGaveAndWhatTheStatementComputes)
{
    add(u"N"_s, 5, 2);
    EXPECT_EQ(shown().last(), u"N|5|2||||#"_s);
    apply();
    EXPECT_EQ(shown().last(), u"N|5|2|Antra|10|4|#4"_s);
    set->First();
    EXPECT_TRUE(set->Locate(u"t_id"_s, 4));
    EXPECT_EQ(set->RecNo(), 3);
}

TEST_P(AppliedRows, TakeAKeyThatIsWrittenAsNull)
{
    set->InsertSQL = u"insert into bd_t (T_ID, T_KODAS, T_SUMA) values (NULL, :T_KODAS, :T_SUMA)"_s;
    add(u"N"_s, 5, 2);
    apply();
    EXPECT_EQ(set->FieldByName(u"t_id"_s)->AsInteger(), 4);
    EXPECT_EQ(stored(u"t_kodas"_s, 4), u"N"_s);
}

TEST_P(AppliedRows, ThatWereChangedShowWhatTheStatementComputes)
{
    set->Edit();
    type(u"X"_s, 7, 2);
    set->Post();
    secondFin()->ExecSQL(u"update bd_v set v_pavad = 'Kita' where v_id = 2"_s);
    apply();
    EXPECT_EQ(shown(),
              (QStringList{u"X|7|2|Kita|14|1|#1"_s, u"K2|2,5|2|Antra|5|2|#2"_s, u"K3|3,5|3||7|3|#3"_s}));
}

TEST_P(AppliedRows, ThatTheStatementDoesNotShowKeepWhatWasWritten)
{
    add(u"N"_s, 5000, 2);
    apply();
    EXPECT_EQ(set->FieldByName(u"t_id"_s)->AsInteger(), 4);
    EXPECT_EQ(set->FieldByName(u"t_suma"_s)->AsFloat(), 5000);
    EXPECT_TRUE(set->FieldByName(u"v_pavad"_s)->IsNull());
}

TEST_P(AppliedRows, CanBeEditedAgainAndTheOldValuesAreTheAppliedOnes)
{
    add(u"N"_s, 5, 2);
    apply();
    set->Edit();
    set->FieldByName(u"t_kodas"_s)->setAsString(u"M"_s);
    set->Post();
    apply();
    EXPECT_EQ(stored(u"t_kodas"_s, 4), u"M"_s);
    set->Delete();
    apply();
    EXPECT_EQ(value(*secondFin(), u"select count(*) from bd_t"_s), u"3"_s);
}

TEST_P(AppliedRows, ThatWereRefusedGoBackIntoEditWithEverythingTyped)
{
    set->InsertSQL = u"insert into bd_t (T_ID, T_KODAS, T_SUMA) values (:T_ID, :T_KODAS, :T_SUMA)"_s;
    set->Append();
    type(u"K1"_s, 5, 2);
    set->FieldByName(u"t_id"_s)->setAsInteger(50);
    set->Post();
    EXPECT_THROW(set->ApplyUpdates(), EUniqueViolation);
    EXPECT_FALSE(mnFin_Db->InTransaction());
    set->Edit();
    EXPECT_EQ(set->FieldByName(u"t_kodas"_s)->AsString(), u"K1"_s);
    EXPECT_EQ(set->FieldByName(u"t_suma"_s)->AsFloat(), 5);
    set->FieldByName(u"t_id"_s)->Clear(); // the drawn key is given back
    set->FieldByName(u"t_kodas"_s)->setAsString(u"N"_s);
    set->FieldByName(u"t_id"_s)->setAsInteger(51);
    set->Post();
    apply();
    EXPECT_EQ(rows(*secondFin(), u"select t_id, t_kodas, t_suma from bd_t where t_id > 3"_s),
              QStringList{u"51|N|5"_s});
}

TEST_P(AppliedRows, AreAsTypedWhenTheOuterTransactionFailsAndCanBeAppliedAgain)
{
    add(u"N"_s, 5, 2);
    mnFin_Db->StartTransaction();
    set->ApplyUpdates();
    mnFin_Db->Rollback();
    EXPECT_TRUE(set->UpdatesPending());
    EXPECT_TRUE(set->FieldByName(u"t_id"_s)->IsNull());
    apply();
    EXPECT_FALSE(set->UpdatesPending());
    EXPECT_EQ(stored(u"t_kodas"_s, set->FieldByName(u"t_id"_s)->AsInteger()), u"N"_s);
}

TEST_P(AppliedRows, CancelledShowWhatWasReadAndNewOnesVanish)
{
    const QStringList before = shown();
    set->Edit();
    type(u"X"_s, 7, 1);
    set->Post();
    add(u"N"_s, 5, 2);
    set->Edit();
    set->FieldByName(u"t_suma"_s)->setAsFloat(6);
    set->CancelUpdates();
    EXPECT_EQ(set->State(), dsBrowse);
    EXPECT_EQ(shown(), before);
}

TEST_P(AppliedRows, ThatAreGoneAreToldOnDeletionToo)
{
    secondFin()->ExecSQL(u"delete from bd_t where t_id in (1, 2)"_s);
    set->Delete();
    EXPECT_ERROR(ERowGone, set->ApplyUpdates(), u"Įrašas jau ištrintas kitoje darbo vietoje"_s);
    EXPECT_EQ(shown().size(), 2);
    set->CancelUpdates();
    EXPECT_EQ(shown().size(), 3);
}

TEST_P(AppliedRows, OfAListThatIsStillBeingReadDoNotReadItToTheEnd)
{
    set->Close();
    mnFin_Db->ExecSQL(u"delete from bd_t"_s);
    fill(5000);
    set->readsAside = true;
    set->setParam(u"riba"_s, 100000);
    set->Open();
    set->Edit();
    type(u"X"_s, 7, 1);
    set->Post();
    EXPECT_FALSE(set->fetchedAll());
    EXPECT_EQ(set->RecordCount(), 5000);
    set->CancelUpdates();
    EXPECT_EQ(set->rowCount(), 5000);
    EXPECT_EQ(set->index(0, 0).data().toString(), u"K1"_s);
    EXPECT_EQ(set->index(4999, 0).data().toString(), u"K5000"_s);
}

TEST_P(AppliedRows, AChangeThatLeavesTheKeyOutKeepsTheOldOne)
{
    set->Edit();
    set->FieldByName(u"t_id"_s)->setAsInteger(50);
    set->FieldByName(u"t_kiek"_s)->setAsInteger(2);
    set->Post();
    apply();
    EXPECT_EQ(shown().first(), u"K1|1,5|2|Antra|3|1|#1"_s);
}
