// What a field takes, refuses and shows.

#include "tests/toolkit/data/books.h"
#include "toolkit/text/format.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

class Fields : public OnSmallTable {
protected:
    void SetUp() override
    {
        OnSmallTable::SetUp();
        fill(1);
        FormatSettings().DecimalSeparator = u',';
        set = record(1);
        set->FieldByName(u"t_pavad"_s)->DisplayLabel = u"Pavadinimas"_s;
        set->FieldByName(u"t_suma"_s)->DisplayLabel = u"Suma"_s;
        set->Edit();
    }

    void TearDown() override
    {
        set.reset();
        OnSmallTable::TearDown();
    }

    TField &field(const QString &name) { return *set->FieldByName(name); }

    std::unique_ptr<TQuery> set;
};

ON_BOTH_ENGINES(Fields);

// Only a file holds what its column does not declare.
using FieldsOfAFile = OnSmallTable;
ON_ENGINE(FieldsOfAFile, Engine::Sqlite);

} // namespace

TEST_P(Fields, AreFoundByNameWhateverItsCase)
{
    EXPECT_EQ(set->FindField(u"T_SUMA"_s), &field(u"t_suma"_s));
    EXPECT_EQ(set->FindField(u"nera"_s), nullptr);
    EXPECT_ERROR(EDatabaseError, set->FieldByName(u"nera"_s), u"„nera“"_s);
}

TEST_P(Fields, HaveTheTypesOfTheirColumns)
{
    EXPECT_EQ(field(u"t_id"_s).DataType(), TFieldType::ftInteger);
    EXPECT_EQ(field(u"t_kodas"_s).DataType(), TFieldType::ftString);
    EXPECT_EQ(field(u"t_kodas"_s).Size(), 10);
    EXPECT_EQ(field(u"t_suma"_s).DataType(), TFieldType::ftFloat);
    EXPECT_EQ(field(u"t_suma"_s).Decimals(), 4);
    EXPECT_EQ(field(u"t_data"_s).DataType(), TFieldType::ftDate);
}

TEST_P(Fields, RefuseATextThatIsTooLongAndKeepTheOldOne)
{
    const QString twenty = u"ąčęėįšųūžĄČĘĖĮŠŲŪŽ„“"_s;
    field(u"t_pavad"_s).setAsString(twenty);
    EXPECT_ERROR(EFieldRefused, field(u"t_pavad"_s).setAsString(twenty + u'a'),
                 u"Laukas \"Pavadinimas\": tekstas per ilgas, daugiausia 20 ženklų."_s);
    EXPECT_EQ(field(u"t_pavad"_s).AsString(), twenty);
}

TEST_P(Fields, RefuseWhatTheCodePageCannotHold)
{
    EXPECT_ERROR(EFieldRefused, field(u"t_pavad"_s).setAsString(u"Жуков"_s), u"„Ж“"_s);
    EXPECT_ERROR(EFieldRefused, field(u"t_pavad"_s).setAsString(u"a😀"_s), u"„😀“"_s);
    EXPECT_ERROR(EFieldRefused, field(u"t_pavad"_s).setAsString(u"a\0b"_s), u"nulinis ženklas"_s);
    EXPECT_EQ(field(u"t_pavad"_s).AsString(), u"Vardas 1"_s);
}

TEST_P(Fields, WithoutALabelARefusalNamesNoColumnButCarriesIt)
{
    const auto refusal = [this](const QString &column, const Variant &value) {
        try {
            field(column).setValue(value);
        } catch (const EFieldRefused &error) {
            EXPECT_EQ(error.fieldName(), column);
            return error.message();
        }
        return u"taken"_s;
    };
    EXPECT_EQ(refusal(u"t_kiek"_s, u"1,5"_s), u"Reikia sveikojo skaičiaus."_s);
    EXPECT_EQ(refusal(u"t_kodas"_s, u"12345678901"_s), u"Tekstas per ilgas, daugiausia 10 ženklų."_s);
    field(u"t_kiek"_s).DisplayLabel = u"Kiekis 100%1"_s;
    EXPECT_EQ(refusal(u"t_kiek"_s, u"%1x"_s), u"Laukas \"Kiekis 100%1\": „%1x“ nėra skaičius."_s);
}

TEST_P(Fields, ThatMustNotStayEmptyAreCarriedByTheRefusal)
{
    field(u"t_data"_s).Required = true;
    field(u"t_data"_s).Clear();
    try {
        set->Post();
        FAIL() << "posted";
    } catch (const EFieldRefused &error) {
        EXPECT_EQ(error.fieldName(), u"t_data"_s);
        EXPECT_EQ(error.message(), u"Neužpildytas privalomas laukas."_s);
    }
}

TEST_P(Fields, TakeNumbersWithCommaAndPoint)
{
    field(u"t_suma"_s).setEditText(u"12,5"_s);
    EXPECT_EQ(field(u"t_suma"_s).AsFloat(), 12.5);
    field(u"t_suma"_s).setEditText(u"1 234.25"_s);
    EXPECT_EQ(field(u"t_suma"_s).AsFloat(), 1234.25);
    EXPECT_EQ(field(u"t_suma"_s).editText(), u"1234,25"_s);
}

TEST_P(Fields, RefuseWhatIsNoFiniteNumber)
{
    TField &sum = field(u"t_suma"_s);
    EXPECT_ERROR(EFieldRefused, sum.setEditText(u"dvylika"_s),
                 u"Laukas \"Suma\": „dvylika“ nėra skaičius."_s);
    EXPECT_THROW(sum.setEditText(u"1e400"_s), EFieldRefused);
    EXPECT_ERROR(EFieldRefused, sum.setAsFloat(std::numeric_limits<double>::infinity()), u"baigtinis"_s);
    EXPECT_ERROR(EFieldRefused, sum.setAsFloat(std::numeric_limits<double>::quiet_NaN()), u"baigtinis"_s);
    EXPECT_ERROR(EFieldRefused, sum.setAsFloat(1e11), u"per didelis"_s);
    EXPECT_EQ(sum.AsFloat(), 1.5);
}

TEST_P(Fields, RoundAnAmountToTheDecimalsOfItsColumn)
{
    field(u"t_suma"_s).setAsFloat(1.00005);
    EXPECT_EQ(field(u"t_suma"_s).AsFloat(), 1.0001);
    field(u"t_suma"_s).setAsFloat(-0.1 - 0.2);
    EXPECT_EQ(field(u"t_suma"_s).AsFloat(), -0.3);
    set->Post();
    EXPECT_EQ(stored(u"t_suma"_s, 1), u"-0.3"_s);
}

TEST_P(Fields, WholeNumbersRefuseFractions)
{
    EXPECT_ERROR(EFieldRefused, field(u"t_kiek"_s).setEditText(u"1,5"_s), u"sveikojo"_s);
    field(u"t_kiek"_s).setEditText(u"15"_s);
    EXPECT_EQ(field(u"t_kiek"_s).AsInteger(), 15);
}

TEST_P(Fields, TakeDatesInTheUsersFormatAndAsDayCounts)
{
    TField &date = field(u"t_data"_s);
    date.setEditText(u"2004.02.29"_s);
    EXPECT_EQ(date.AsDate(), QDate(2004, 2, 29));
    EXPECT_EQ(date.AsFloat(), 38046);
    date.setAsFloat(38047);
    EXPECT_EQ(date.AsString(), u"2004.03.01"_s);
    EXPECT_ERROR(EFieldRefused, date.setEditText(u"2004.02.30"_s), u"nėra data"_s);
    EXPECT_EQ(date.AsDate(), QDate(2004, 3, 1));
}

TEST_P(Fields, AnEmptyTypedTextIsNull)
{
    for (const QString &name : {u"t_pavad"_s, u"t_suma"_s, u"t_data"_s, u"t_kiek"_s}) {
        field(name).setEditText(QString());
        EXPECT_TRUE(field(name).IsNull()) << name.toStdString();
    }
    set->Post();
    EXPECT_EQ(rows(*mnFin_Db, u"select t_pavad, t_suma, t_kiek, t_data from bd_t"_s),
              QStringList{u"NULL|NULL|NULL|NULL"_s});
}

TEST_P(Fields, OfNumbersAndDaysHaveNoneWhereTheTextIsEmpty)
{
    for (const QString &name : {u"t_suma"_s, u"t_data"_s, u"t_kiek"_s}) {
        field(name).setAsString(u""_s);
        EXPECT_TRUE(field(name).IsNull()) << name.toStdString();
    }
}

TEST_P(Fields, KeepAnEmptyTextApartFromNone)
{
    const auto storedAs = [this](const Variant &name) {
        set->Edit();
        field(u"t_pavad"_s).setValue(name);
        set->Post();
        return stored(u"t_pavad"_s, 1);
    };
    EXPECT_EQ(storedAs({}), u"NULL"_s);
    EXPECT_EQ(storedAs(u""_s), u""_s);
    EXPECT_EQ(storedAs({}), u"NULL"_s);
}

TEST_P(Fields, OfTextTakeANumberWithAllItsDigits)
{
    field(u"t_kodas"_s).setAsFloat(1000000);
    EXPECT_EQ(field(u"t_kodas"_s).AsString(), u"1000000"_s);
}

TEST_P(Fields, ReadADayWhateverItsDigits)
{
    for (const QDate &day : {QDate(1999, 9, 29), QDate(1780, 6, 5), QDate(2034, 12, 10)}) {
        field(u"t_data"_s).setValue(day);
        set->Post();
        EXPECT_EQ(record(1)->FieldByName(u"t_data"_s)->Value(), Variant(day));
        set->Edit();
    }
}

TEST_P(Fields, RunTheirValidatorBeforeAndTheirChangeHookAfterTheValue)
{
    QStringList calls;
    TField &sum = field(u"t_suma"_s);
    sum.OnValidate = [&](TField &self, const Variant &proposed) {
        calls.append(u"%1>%2"_s.arg(self.AsFloat()).arg(proposed.toDouble()));
        if (proposed.toDouble() < 0)
            throw EDatabaseError(u"Neigiama"_s);
    };
    sum.OnChange = [&](TField &self) { calls.append(u"=%1"_s.arg(self.AsFloat())); };
    sum.setAsFloat(2);
    EXPECT_ERROR(EDatabaseError, sum.setAsFloat(-2), u"Neigiama"_s);
    EXPECT_EQ(calls, (QStringList{u"1.5>2"_s, u"=2"_s, u"2>-2"_s}));
    EXPECT_EQ(sum.AsFloat(), 2);
}

TEST_P(Fields, AnIntegerIsTakenUpToItsBoundsAndRefusedBeyond)
{
    TField &sum = field(u"t_suma"_s);
    for (const double bound : {-2147483648.0, 2147483647.0}) {
        sum.setAsFloat(bound);
        EXPECT_EQ(sum.AsInteger(), int(bound));
        sum.setAsFloat(bound + (bound < 0 ? -1 : 1));
        EXPECT_ERROR(EFieldRefused, sum.AsInteger(), u"per didelis"_s);
    }
}

TEST_P(Fields, TellTheOldValueWhileEdited)
{
    field(u"t_suma"_s).setAsFloat(9);
    EXPECT_EQ(field(u"t_suma"_s).OldValue(), Variant(1.5));
    EXPECT_EQ(field(u"t_suma"_s).Value(), Variant(9.0));
}

TEST_P(Fields, ShowByFormatAndHook)
{
    field(u"t_suma"_s).DisplayFormat = u"0.00"_s;
    EXPECT_EQ(field(u"t_suma"_s).DisplayText(), u"1,50"_s);
    field(u"t_data"_s).DisplayFormat = u"yyyy \"m.\" mmmm"_s;
    EXPECT_EQ(field(u"t_data"_s).DisplayText(), u"2004 m. sausis"_s);
    field(u"t_kiek"_s).OnGetText = [](TField &self) { return u"×%1"_s.arg(self.AsInteger()); };
    EXPECT_EQ(field(u"t_kiek"_s).DisplayText(), u"×1"_s);
}

TEST_P(Fields, AreNotSetOutsideEditing)
{
    set->Cancel();
    EXPECT_ERROR(EFieldRefused, field(u"t_suma"_s).setAsFloat(1), u"neredaguojamas"_s);
}

TEST_P(Fields, MarkedReadOnlyRefuseTypedText)
{
    field(u"t_suma"_s).ReadOnly = true;
    EXPECT_ERROR(EFieldRefused, field(u"t_suma"_s).setEditText(u"1"_s), u"nekeičiama"_s);
}

#ifndef QT_NO_DEBUG
TEST_P(Fields, DescribedByAMisspeltNameStopTheProgramInTests)
{
    GTEST_FLAG_SET(death_test_style, "fast");
    EXPECT_DEATH(set->describe(u"t_kiekas"_s, [](TField &) {}), "t_kiekas");
    TQuery closed(mnFin_Db, u"select * from bd_t"_s);
    closed.describe(u"t_kiekas"_s, [](TField &) {});
    if (engine() == Engine::PostgreSql)
        return; // no process may share the server's connection
    EXPECT_DEATH(closed.Open(), "t_kiekas");
}
#endif

TEST_P(Fields, StayTheSameObjectsWhenTheSetIsOpenedAgain)
{
    TField *sum = &field(u"t_suma"_s);
    set->describe(u"t_kiek"_s, [](TField &kiek) { kiek.DisplayLabel = u"Kiekis"_s; });
    set->Close();
    set->Open();
    EXPECT_EQ(set->FieldByName(u"t_suma"_s), sum);
    EXPECT_EQ(sum->label(), u"Suma"_s);
    EXPECT_EQ(field(u"t_kiek"_s).label(), u"Kiekis"_s);
}

TEST_P(FieldsOfAFile, ShowANumberAsItIsStored)
{
    fill(1);
    mnFin_Db->nativeExec(u"update bd_t set t_kiek = 1.5"_s);
    EXPECT_EQ(record(1)->FieldByName(u"t_kiek"_s)->AsFloat(), 1.5);
}
