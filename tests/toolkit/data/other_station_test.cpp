// A row that two stations change at the same time.

#include "tests/toolkit/data/books.h"
#include "toolkit/text/format.h"

using namespace Qt::StringLiterals;

namespace {

class OtherStation : public OnSmallTable {
protected:
    void SetUp() override
    {
        OnSmallTable::SetUp();
        FormatSettings().DecimalSeparator = u',';
        fill(2);
        set = record(1);
        field(u"t_pavad"_s).DisplayLabel = u"Adresas"_s;
        field(u"t_suma"_s).DisplayLabel = u"Suma"_s;
        field(u"t_suma"_s).DisplayFormat = u"0.00"_s;
        set->Edit();
    }

    void TearDown() override
    {
        set.reset();
        OnSmallTable::TearDown();
    }

    TField &field(const QString &name) { return *set->FieldByName(name); }
    void elsewhere(const QString &change) { secondFin()->ExecSQL(u"update bd_t set "_s + change); }

    // Both stations give the row another name, this one first.
    void bothName()
    {
        field(u"t_pavad"_s).setAsString(u"Mano"_s);
        elsewhere(u"t_pavad = 'Jų'"_s);
    }

    // What the post is refused with.
    QList<TChangedColumn> refused()
    {
        try {
            set->Post();
        } catch (const EChangedElsewhere &error) {
            return error.columns;
        }
        ADD_FAILURE() << "the post was not refused";
        return {};
    }

    std::unique_ptr<TQuery> set;
};

ON_BOTH_ENGINES(OtherStation);

} // namespace

TEST_P(OtherStation, TheSameColumnIsNotOverwrittenAndTheUserIsToldInCaptions)
{
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    field(u"t_kiek"_s).setAsInteger(5);
    elsewhere(u"t_pavad = 'Jų'"_s);
    EXPECT_ERROR(EChangedElsewhere, set->Post(),
                 u"Kita darbo vieta tuo tarpu pakeitė: Adresas: buvo „Vardas 1“, dabar „Jų“."_s);
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Jų"_s);
    EXPECT_EQ(stored(u"t_kiek"_s, 1), u"1"_s);
    EXPECT_EQ(set->State(), dsEdit);
    EXPECT_EQ(field(u"t_pavad"_s).AsString(), u"Mano"_s);
    EXPECT_EQ(field(u"t_kiek"_s).AsInteger(), 5);
    EXPECT_FALSE(mnFin_Db->InTransaction());
}

TEST_P(OtherStation, EveryChangedColumnIsCarriedWithItsThreeValues)
{
    field(u"t_pavad"_s).Clear();
    field(u"t_suma"_s).setAsFloat(7);
    field(u"t_data"_s).setValue(QDate(2005, 5, 5));
    elsewhere(u"t_pavad = 'Jų', t_suma = 2.25, t_data = null"_s);
    EXPECT_ERROR(EChangedElsewhere, set->Post(),
                 u"Suma: buvo „1,50“, dabar „2,25“; buvo „2004.01.01“, dabar tuščia."_s);
    const QList<TChangedColumn> columns = refused();
    ASSERT_EQ(columns.size(), 3);
    EXPECT_EQ(columns.at(0).field, u"t_pavad"_s);
    EXPECT_EQ(columns.at(0).label, u"Adresas"_s);
    EXPECT_EQ(columns.at(0).before, Variant(u"Vardas 1"_s));
    EXPECT_EQ(columns.at(0).theirs, Variant(u"Jų"_s));
    EXPECT_TRUE(columns.at(0).own.isNull());
    EXPECT_EQ(columns.at(1).theirs, Variant(2.25));
    EXPECT_EQ(columns.at(1).ownText, u"7,00"_s);
    EXPECT_TRUE(columns.at(2).theirs.isNull());
    EXPECT_EQ(columns.at(2).own, Variant(QDate(2005, 5, 5)));
}

TEST_P(OtherStation, TheirsCanBeTakenColumnByColumn)
{
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    field(u"t_suma"_s).setAsFloat(7);
    elsewhere(u"t_pavad = 'Jų', t_suma = 8"_s);
    const QList<TChangedColumn> columns = refused();
    set->acceptOther({columns.at(0)});
    EXPECT_EQ(field(u"t_pavad"_s).AsString(), u"Jų"_s);
    EXPECT_EQ(field(u"t_pavad"_s).OldValue(), Variant(u"Jų"_s));
    EXPECT_EQ(field(u"t_suma"_s).AsFloat(), 7);
    ASSERT_EQ(refused().size(), 1); // the amount is still to be decided
    set->keepOwn({columns.at(1)});
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_pavad, t_suma from bd_t where t_id = 1"_s),
              QStringList{u"Jų|7"_s});
    EXPECT_EQ(set->State(), dsBrowse);
}

TEST_P(OtherStation, KeepingOnesOwnIsRefusedAgainWhenTheyChangeItAgain)
{
    bothName();
    set->keepOwn(refused());
    elsewhere(u"t_pavad = 'Dar kitaip'"_s);
    const QList<TChangedColumn> again = refused();
    ASSERT_EQ(again.size(), 1);
    EXPECT_EQ(again.at(0).before, Variant(u"Jų"_s));
    set->keepOwn(again);
    set->Post();
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Mano"_s);
}

TEST_P(OtherStation, AfterAcceptingNothingMayBeLeftToWrite)
{
    bothName();
    set->acceptOther(refused());
    set->Post(); // nothing of one's own is left to be written
    EXPECT_EQ(field(u"t_pavad"_s).AsString(), u"Jų"_s);
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Jų"_s);
}

TEST_P(OtherStation, DifferentColumnsMergeAndAreShown)
{
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    elsewhere(u"t_suma = 99, t_data = null"_s);
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_pavad, t_suma, t_data from bd_t where t_id = 1"_s),
              QStringList{u"Mano|99|NULL"_s});
    EXPECT_EQ(field(u"t_suma"_s).AsFloat(), 99);
    EXPECT_TRUE(field(u"t_data"_s).IsNull());
}

// A column of a group that was not touched here is what it was when the group was read.
TEST_P(OtherStation, AColumnWrittenTogetherWithAChangedOneIsComparedAndWrittenToo)
{
    set->WrittenTogether = {{u"T_PAVAD"_s, u"T_SUMA"_s}};
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    elsewhere(u"t_suma = 99, t_kiek = 8"_s);
    const QList<TChangedColumn> columns = refused();
    ASSERT_EQ(columns.size(), 2);
    EXPECT_EQ(columns.at(0).field, u"t_pavad"_s);
    EXPECT_EQ(columns.at(1).field, u"t_suma"_s);
    EXPECT_EQ(columns.at(1).own, Variant(1.5));
    EXPECT_EQ(EChangedElsewhere(columns).message(),
              u"Kita darbo vieta tuo tarpu pakeitė: Suma: buvo „1,50“, dabar „99,00“."_s);
    set->keepOwn(columns);
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_pavad, t_suma, t_kiek from bd_t where t_id = 1"_s),
              QStringList{u"Mano|1.5|8"_s});
}

TEST_P(OtherStation, AGroupThatWasNotTouchedIsLeftAlone)
{
    set->WrittenTogether = {{u"t_kiek"_s, u"t_suma"_s}};
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    elsewhere(u"t_suma = 99"_s);
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_pavad, t_suma from bd_t where t_id = 1"_s),
              QStringList{u"Mano|99"_s});
}

TEST_P(OtherStation, TheLastOneWinsWithAllThatIsWrittenTogether)
{
    set->UpdateMode = upWhereKeyOnly;
    set->WrittenTogether = {{u"t_pavad"_s, u"t_suma"_s}};
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    elsewhere(u"t_suma = 99"_s);
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_pavad, t_suma from bd_t where t_id = 1"_s),
              QStringList{u"Mano|1.5"_s});
}

TEST_P(OtherStation, TheSameNewValueOnBothSidesIsNoQuarrel)
{
    field(u"t_pavad"_s).setAsString(u"Naujas"_s);
    elsewhere(u"t_pavad = 'Naujas'"_s);
    set->Post();
    EXPECT_EQ(set->State(), dsBrowse);
}

TEST_P(OtherStation, NullsAndAmountsThatAreNotExactAreComparedAsTheyWereRead)
{
    set->Cancel();
    elsewhere(u"t_suma = 0.1 + 0.2, t_pavad = null, t_data = null"_s);
    set->Close();
    set->Open();
    set->Edit();
    field(u"t_suma"_s).setAsFloat(0.4);
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    field(u"t_data"_s).setValue(QDate(2004, 2, 29));
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_pavad, t_suma, t_data from bd_t where t_id = 1"_s),
              QStringList{u"Mano|0.4|2004-02-29"_s});
    set->Edit();
    field(u"t_suma"_s).Clear();
    elsewhere(u"t_suma = null"_s);
    set->Post();
    EXPECT_EQ(stored(u"t_suma"_s, 1), u"NULL"_s);
}

TEST_P(OtherStation, ByKeyOnlyTheLastSaveWins)
{
    set->UpdateMode = upWhereKeyOnly;
    bothName();
    set->Post();
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Mano"_s);
}

TEST_P(OtherStation, AStatementOfTheQuerysOwnIsWrittenAsItIsWorded)
{
    set->ModifySQL = u"update bd_t set T_PAVAD = :T_PAVAD where T_ID = :OLD_T_ID"_s;
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    field(u"t_kiek"_s).setAsInteger(5); // the statement leaves it out
    elsewhere(u"t_pavad = 'Jų', t_suma = 99"_s);
    set->keepOwn(refused());
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_pavad, t_kiek, t_suma from bd_t where t_id = 1"_s),
              QStringList{u"Mano|1|99"_s});
    EXPECT_EQ(field(u"t_kiek"_s).AsInteger(), 1);
    EXPECT_EQ(field(u"t_suma"_s).AsFloat(), 99);
}

TEST_P(OtherStation, AStatementThatWritesEveryColumnKeepsWhatOnlyTheyChanged)
{
    set->ModifySQL = u"update bd_t set T_PAVAD = :T_PAVAD, T_KIEK = :T_KIEK, T_SUMA = :T_SUMA "
                     "where T_ID = :OLD_T_ID"_s;
    field(u"t_kiek"_s).setAsInteger(5);
    elsewhere(u"t_pavad = 'Jų', t_suma = null"_s);
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_pavad, t_kiek, t_suma from bd_t where t_id = 1"_s),
              QStringList{u"Jų|5|NULL"_s});
    EXPECT_EQ(field(u"t_pavad"_s).AsString(), u"Jų"_s);
}

TEST_P(OtherStation, ByKeyOnlyAStatementWritesEverythingAsItIsShown)
{
    set->ModifySQL = u"update bd_t set T_PAVAD = :T_PAVAD, T_KIEK = :T_KIEK where T_ID = :OLD_T_ID"_s;
    set->UpdateMode = upWhereKeyOnly;
    field(u"t_kiek"_s).setAsInteger(5);
    elsewhere(u"t_pavad = 'Jų'"_s);
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_pavad, t_kiek from bd_t where t_id = 1"_s),
              QStringList{u"Vardas 1|5"_s});
}

TEST_P(OtherStation, TheCurrentRowCanBeReadAnew)
{
    set->Cancel();
    elsewhere(u"t_pavad = 'Jų'"_s);
    set->RefreshRecord();
    EXPECT_EQ(field(u"t_pavad"_s).AsString(), u"Jų"_s);
    secondFin()->ExecSQL(u"delete from bd_t where t_id = 1"_s);
    set->RefreshRecord();
    EXPECT_EQ(field(u"t_pavad"_s).AsString(), u"Jų"_s);
}

TEST_P(OtherStation, ARowThatIsGoneIsTold)
{
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    secondFin()->ExecSQL(u"delete from bd_t where t_id = 1"_s);
    EXPECT_ERROR(ERowGone, set->Post(), u"Įrašas jau ištrintas kitoje darbo vietoje"_s);
    set->Cancel();
    EXPECT_ERROR(ERowGone, set->Delete(), u"Įrašas jau ištrintas kitoje darbo vietoje"_s);
    EXPECT_EQ(set->rowCount(), 1);
}

TEST_P(OtherStation, InHeldChangesTheRowIsPutBackIntoEditAndDecided)
{
    set->Close();
    set->CachedUpdates = true;
    set->Open();
    set->Edit();
    field(u"t_pavad"_s).setAsString(u"Mano"_s);
    set->Post();
    elsewhere(u"t_pavad = 'Jų'"_s);
    QList<TChangedColumn> columns;
    try {
        set->ApplyUpdates();
        FAIL() << "written over";
    } catch (const EChangedElsewhere &error) {
        columns = error.columns;
    }
    set->Edit();
    EXPECT_EQ(field(u"t_pavad"_s).AsString(), u"Mano"_s);
    set->keepOwn(columns);
    set->Post();
    set->ApplyUpdates();
    set->CommitUpdates();
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Mano"_s);
}
