// Editing one record: states, what is written, what a failure leaves.

#include "tests/toolkit/data/books.h"

using namespace Qt::StringLiterals;

namespace {

using Editing = OnSmallTable;
ON_BOTH_ENGINES(Editing);

} // namespace

TEST_P(Editing, WalksThroughTheStates)
{
    fill(1);
    TQuery set(mnFin_Db, u"select * from bd_t where t_id = 1"_s);
    set.RequestLive = true;
    EXPECT_EQ(set.State(), dsInactive);
    set.Open();
    EXPECT_EQ(set.State(), dsBrowse);
    set.Edit();
    EXPECT_EQ(set.State(), dsEdit);
    set.Cancel();
    EXPECT_EQ(set.State(), dsBrowse);
    set.Insert();
    EXPECT_EQ(set.State(), dsInsert);
    set.Cancel();
    set.Close();
    EXPECT_EQ(set.State(), dsInactive);
    EXPECT_EQ(stored(u"t_kodas"_s, 1), u"K1"_s);
}

TEST_P(Editing, ANewRecordGetsItsKeyAndDefaultsFromTheDatabase)
{
    fill(3);
    const auto set = record(0);
    set->describe(u"t_suma"_s, [](TField &sum) { sum.DefaultExpression = 0; });
    set->Append();
    EXPECT_EQ(set->FieldByName(u"t_suma"_s)->Value(), Variant(0.0));
    set->FieldByName(u"t_kodas"_s)->setAsString(u"N"_s);
    set->Post();
    EXPECT_EQ(set->State(), dsBrowse);
    EXPECT_EQ(set->FieldByName(u"t_id"_s)->AsInteger(), 4);
    EXPECT_EQ(set->FieldByName(u"t_kiek"_s)->AsInteger(), 1);
    EXPECT_EQ(rows(*secondFin(), u"select t_kodas, t_suma, t_kiek from bd_t where t_id = 4"_s),
              QStringList{u"N|0|1"_s});
}

TEST_P(Editing, APostWritesOnlyWhatChanged)
{
    fill(1);
    const auto set = record(1);
    set->Edit();
    set->FieldByName(u"t_pavad"_s)->setAsString(u"Naujas"_s);
    secondFin()->ExecSQL(u"update bd_t set t_suma = 99 where t_id = 1"_s);
    set->Post();
    EXPECT_EQ(stored(u"t_suma"_s, 1), u"99"_s);
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Naujas"_s);
    EXPECT_EQ(set->FieldByName(u"t_suma"_s)->AsFloat(), 99); // read back
}

TEST_P(Editing, TheKeyItselfCanBeChanged)
{
    fill(1);
    const auto set = record(1);
    set->Edit();
    set->FieldByName(u"t_id"_s)->setAsInteger(50);
    set->Post();
    EXPECT_EQ(rows(*secondFin(), u"select t_id, t_kodas from bd_t"_s), QStringList{u"50|K1"_s});
}

TEST_P(Editing, ARecordThatIsGoneIsTold)
{
    fill(1);
    const auto set = record(1);
    set->Edit();
    set->FieldByName(u"t_pavad"_s)->setAsString(u"Naujas"_s);
    secondFin()->ExecSQL(u"delete from bd_t"_s);
    EXPECT_ERROR(ERowGone, set->Post(), u"Įrašas jau ištrintas kitoje darbo vietoje"_s);
    EXPECT_EQ(set->State(), dsEdit);
}

TEST_P(Editing, AFailedPostKeepsStateRowAndTypedValues)
{
    fill(3);
    const auto set = table();
    set->setRecNo(1);
    set->Edit();
    set->FieldByName(u"t_pavad"_s)->setAsString(u"Naujas"_s);
    set->FieldByName(u"t_kodas"_s)->setAsString(u"K3"_s);
    EXPECT_ERROR(EConstraintError, set->Post(), u"Toks įrašas jau yra"_s);
    EXPECT_EQ(set->State(), dsEdit);
    EXPECT_EQ(set->RecNo(), 1);
    EXPECT_EQ(set->FieldByName(u"t_pavad"_s)->AsString(), u"Naujas"_s);
    EXPECT_EQ(set->FieldByName(u"t_kodas"_s)->OldValue(), Variant(u"K2"_s));
    EXPECT_TRUE(set->Modified());
    EXPECT_FALSE(mnFin_Db->InTransaction());

    set->FieldByName(u"t_kodas"_s)->setAsString(u"K9"_s);
    set->Post();
    EXPECT_EQ(stored(u"t_kodas"_s, 2), u"K9"_s);
}

TEST_P(Editing, AFailedInsertKeepsTheNewRecord)
{
    fill(1);
    const auto set = table();
    set->Append();
    set->FieldByName(u"t_kodas"_s)->setAsString(u"K1"_s);
    EXPECT_THROW(set->Post(), EConstraintError);
    EXPECT_EQ(set->State(), dsInsert);
    EXPECT_EQ(set->rowCount(), 2);
    EXPECT_EQ(set->FieldByName(u"t_kodas"_s)->AsString(), u"K1"_s);
    EXPECT_TRUE(set->FieldByName(u"t_id"_s)->IsNull());
    set->FieldByName(u"t_kodas"_s)->setAsString(u"K2"_s);
    set->Post();
    EXPECT_EQ(value(*secondFin(), u"select count(*) from bd_t"_s), u"2"_s);
}

TEST_P(Editing, ARequiredFieldStopsThePostNamingItsLabel)
{
    fill(1);
    const auto set = record(1);
    TField *name = set->FieldByName(u"t_pavad"_s);
    name->Required = true;
    name->DisplayLabel = u"Pavadinimas"_s;
    for (const Variant &nothing : {Variant(), Variant(u""_s)}) {
        set->Edit();
        name->setValue(nothing);
        EXPECT_ERROR(EFieldRefused, set->Post(), u"Laukas \"Pavadinimas\" negali būti tuščias!"_s);
        EXPECT_EQ(set->State(), dsEdit);
    }
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Vardas 1"_s);
}

TEST_P(Editing, CancelTakesBackWhatWasTyped)
{
    fill(2);
    const auto set = table();
    set->Edit();
    set->FieldByName(u"t_pavad"_s)->setAsString(u"Naujas"_s);
    set->Cancel();
    EXPECT_EQ(set->FieldByName(u"t_pavad"_s)->AsString(), u"Vardas 1"_s);
    set->Next();
    set->Insert();
    EXPECT_EQ(set->rowCount(), 3);
    set->Cancel();
    EXPECT_EQ(set->rowCount(), 2);
    EXPECT_EQ(set->FieldByName(u"t_id"_s)->AsInteger(), 2);
}

TEST_P(Editing, MovingOnPostsAChangedRecordAndCancelsAnUntouchedOne)
{
    fill(3);
    const auto set = table();
    set->Edit();
    set->FieldByName(u"t_pavad"_s)->setAsString(u"Naujas"_s);
    set->Next();
    EXPECT_EQ(set->State(), dsBrowse);
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Naujas"_s);
    set->Insert();
    set->setRecNo(2);
    EXPECT_EQ(set->rowCount(), 3);
    EXPECT_EQ(set->FieldByName(u"t_id"_s)->AsInteger(), 2);
}

TEST_P(Editing, TheRowThatIsMeantIsFoundThoughThePostReadsTheListAnew)
{
    fill(3);
    const auto set = table();
    set->AfterPost = [](TDataSet &posted) {
        posted.Close();
        posted.Open();
    };
    const auto add = [&set](const QString &code) {
        set->First();
        set->Insert();
        set->FieldByName(u"t_kodas"_s)->setAsString(code);
    };
    add(u"K8"_s);
    set->setRecNo(3);
    EXPECT_EQ(set->FieldByName(u"t_kodas"_s)->AsString(), u"K3"_s);
    add(u"K9"_s);
    mnFin_Db->ExecSQL(u"delete from bd_t where t_kodas = 'K3'"_s);
    set->setRecNo(3);
    EXPECT_EQ(set->FieldByName(u"t_kodas"_s)->AsString(), u"K1"_s)
        << "one that is gone: where the post put it";
    EXPECT_EQ(set->rowCount(), 4);
}

TEST_P(Editing, DeleteMovesToTheNeighbour)
{
    fill(3);
    const auto set = table();
    set->setRecNo(1);
    set->Delete();
    EXPECT_EQ(set->FieldByName(u"t_id"_s)->AsInteger(), 3);
    set->Delete();
    EXPECT_EQ(set->FieldByName(u"t_id"_s)->AsInteger(), 1);
    set->Delete();
    EXPECT_EQ(set->RecNo(), -1);
    EXPECT_TRUE(set->IsEmpty());
    EXPECT_TRUE(set->FieldByName(u"t_id"_s)->IsNull());
    EXPECT_ERROR(EDatabaseError, set->Delete(), u"Nėra įrašo"_s);
    EXPECT_EQ(value(*secondFin(), u"select count(*) from bd_t"_s), u"0"_s);
}

TEST_P(Editing, ARefusedDeleteLeavesTheRow)
{
    fill(2);
    mnFin_Db->nativeExec(
        u"create table bd_v (v_id integer primary key, v_tid integer references bd_t (t_id))"_s);
    mnFin_Db->ExecSQL(u"insert into bd_v (v_id, v_tid) values (1, 1)"_s);
    const auto set = table();
    EXPECT_ERROR(EConstraintError, set->Delete(), u"susietas"_s);
    EXPECT_EQ(set->rowCount(), 2);
    EXPECT_EQ(set->FieldByName(u"t_id"_s)->AsInteger(), 1);
}

TEST_P(Editing, PendingTextIsBroughtInFirstAndMayStopThePost)
{
    fill(1);
    const auto set = record(1);
    set->Edit();
    bool bad = true;
    QStringList order;
    const int number = set->addFlusher([&] {
        order.append(u"flush"_s);
        if (bad)
            throw EConvertError(u"Blogas tekstas"_s);
        set->FieldByName(u"t_pavad"_s)->setAsString(u"Įvesta"_s);
    });
    set->BeforePost = [&](TDataSet &) { order.append(u"before"_s); };
    set->AfterPost = [&](TDataSet &) { order.append(u"after"_s); };
    EXPECT_ERROR(EConvertError, set->Post(), u"Blogas tekstas"_s);
    EXPECT_EQ(set->State(), dsEdit);
    bad = false;
    set->Post();
    EXPECT_EQ(order, (QStringList{u"flush"_s, u"flush"_s, u"before"_s, u"after"_s}));
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Įvesta"_s);
    set->removeFlusher(number);
    set->Edit();
    set->Post();
    EXPECT_EQ(order.count(u"flush"_s), 2);
}

TEST_P(Editing, AHookThatRaisesBeforeThePostStopsIt)
{
    fill(1);
    const auto set = record(1);
    set->BeforePost = [](TDataSet &) { throw EDatabaseError(u"Ne"_s); };
    set->Edit();
    set->FieldByName(u"t_pavad"_s)->setAsString(u"Naujas"_s);
    EXPECT_THROW(set->Post(), EDatabaseError);
    EXPECT_EQ(set->State(), dsEdit);
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Vardas 1"_s);
}

TEST_P(Editing, APostInsideATransactionGoesWithIt)
{
    fill(1);
    const auto set = record(1);
    mnFin_Db->StartTransaction();
    set->Edit();
    set->FieldByName(u"t_pavad"_s)->setAsString(u"Naujas"_s);
    set->Post();
    EXPECT_TRUE(mnFin_Db->InTransaction());
    mnFin_Db->Rollback();
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Vardas 1"_s);
}

TEST_P(Editing, IsRefusedWhereNothingMayBeWritten)
{
    fill(1);
    TQuery plain(mnFin_Db, u"select * from bd_t"_s);
    plain.Open();
    EXPECT_TRUE(plain.ReadOnly());
    EXPECT_ERROR(EDatabaseError, plain.Edit(), u"tik peržiūrėti"_s);
    const auto set = table();
    set->setReadOnly(true);
    EXPECT_THROW(set->Edit(), EDatabaseError);
    EXPECT_THROW(set->Insert(), EDatabaseError);
    EXPECT_THROW(set->Delete(), EDatabaseError);
    EXPECT_EQ(set->State(), dsBrowse);
    TQuery closed(mnFin_Db, u"select * from bd_t"_s);
    closed.RequestLive = true;
    EXPECT_ERROR(EDatabaseError, closed.Edit(), u"neatvertas"_s);
}

TEST_P(Editing, ALiveQueryNeedsOneTableWithAKey)
{
    mnFin_Db->nativeExec(u"create table bd_be (b_a integer)"_s);
    TQuery two(mnFin_Db, u"select * from bd_t, bd_be"_s);
    two.RequestLive = true;
    EXPECT_ERROR(EDatabaseError, two.Open(), u"vienos lentelės"_s);
    TQuery keyless(mnFin_Db, u"select * from bd_be"_s);
    keyless.RequestLive = true;
    keyless.Open();
    keyless.Append();
    keyless.FieldByName(u"b_a"_s)->setAsInteger(1);
    EXPECT_ERROR(EDatabaseError, keyless.Post(), u"neturi rakto"_s);
    EXPECT_EQ(keyless.State(), dsInsert);
}

TEST_P(Editing, EditOfAnEmptySetStartsANewRecord)
{
    const auto set = table();
    set->Edit();
    EXPECT_EQ(set->State(), dsInsert);
}

TEST_P(Editing, PresetsOfTheHookAreNoChangeOfTheUser)
{
    const auto set = table();
    set->AfterInsert = [](TDataSet &self) { self.FieldByName(u"t_kiek"_s)->setAsInteger(7); };
    set->Append();
    EXPECT_FALSE(set->Modified());
    set->FieldByName(u"t_kodas"_s)->setAsString(u"A"_s);
    EXPECT_TRUE(set->Modified());
    set->Post();
    EXPECT_EQ(value(*secondFin(), u"select t_kiek from bd_t"_s), u"7"_s);
}
