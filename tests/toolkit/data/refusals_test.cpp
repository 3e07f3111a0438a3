// What the database refuses, and what a transaction is after it.

#include "tests/toolkit/data/books.h"

using namespace Qt::StringLiterals;

namespace {

class Refusals : public OnSmallTable {
protected:
    void SetUp() override
    {
        OnSmallTable::SetUp();
        fill(2);
    }

    // A table whose reference is looked at by the commit only.
    void createDeferred()
    {
        mnFin_Db->nativeExec(
            u"create table bd_v (v_id integer primary key, v_tid integer references bd_t (t_id) "
            "deferrable initially deferred)"_s);
    }

    const QString dangling = u"insert into bd_v (v_id, v_tid) values (1, 77)"_s;
};

ON_BOTH_ENGINES(Refusals);

} // namespace

TEST_P(Refusals, ATakenKeyIsToldApartAndNamesItsColumns)
{
    try {
        mnFin_Db->ExecSQL(u"insert into bd_t (t_kodas) values ('K1')"_s);
        FAIL() << "written twice";
    } catch (const EUniqueViolation &error) {
        EXPECT_EQ(error.message(), u"Toks įrašas jau yra."_s);
        EXPECT_EQ(error.columns, QStringList{u"t_kodas"_s});
        EXPECT_FALSE(error.serverText.isEmpty());
    }
    EXPECT_ERROR(EUniqueViolation, mnFin_Db->ExecSQL(u"insert into bd_t (t_id, t_kodas) values (1, 'Z')"_s),
                 u"Toks įrašas jau yra."_s);
}

TEST_P(Refusals, AnIndexOfSeveralColumnsOrOfAnExpressionIsToldToo)
{
    mnFin_Db->nativeExec(u"create unique index bd_t_dvi on bd_t (t_pavad, t_kiek)"_s);
    try {
        mnFin_Db->ExecSQL(u"update bd_t set t_pavad = 'A', t_kiek = 1"_s);
        FAIL() << "written twice";
    } catch (const EUniqueViolation &error) {
        EXPECT_EQ(error.columns, (QStringList{u"t_pavad"_s, u"t_kiek"_s}));
    }
    mnFin_Db->nativeExec(u"create unique index bd_t_mazos on bd_t (lower(t_pavad))"_s);
    try {
        mnFin_Db->ExecSQL(u"update bd_t set t_pavad = 'a'"_s);
        FAIL() << "written twice";
    } catch (const EUniqueViolation &error) {
        EXPECT_EQ(error.constraint, u"bd_t_mazos"_s);
    }
}

TEST_P(Refusals, APostTellsTheTakenKeyByItsLabel)
{
    const auto set = table();
    set->Append();
    set->FieldByName(u"t_kodas"_s)->setAsString(u"K1"_s);
    EXPECT_ERROR(EUniqueViolation, set->Post(), u"Toks įrašas jau yra."_s);
    set->FieldByName(u"t_kodas"_s)->DisplayLabel = u"Kodas"_s;
    EXPECT_ERROR(EUniqueViolation, set->Post(), u"Toks įrašas jau yra: Kodas „K1“."_s);
    EXPECT_EQ(set->State(), dsInsert);
}

TEST_P(Refusals, OtherRulesAreNoTakenKeys)
{
    createDeferred();
    const auto kind = [this](const QString &statement) {
        try {
            mnFin_Db->ExecSQL(statement);
        } catch (const EUniqueViolation &) {
            return u"unique"_s;
        } catch (const EConstraintError &error) {
            return error.message() + u'|' + error.columns.join(u',');
        }
        return u"written"_s;
    };
    EXPECT_EQ(kind(u"update bd_t set t_kodas = null"_s), u"Neužpildytas privalomas laukas.|t_kodas"_s);
    EXPECT_TRUE(kind(dangling).startsWith(u"Įrašas susietas"_s));
}

TEST_P(Refusals, ARefusedCommitLeavesNoTransactionOpen)
{
    createDeferred();
    const auto write = [this](const QString &statement) {
        TTransaction tran(mnFin_Db);
        mnFin_Db->ExecSQL(statement);
        tran.commit();
    };
    EXPECT_THROW(write(dangling), EConstraintError);
    EXPECT_FALSE(mnFin_Db->InTransaction());
    write(u"update bd_t set t_pavad = 'Po to' where t_id = 1"_s);
    EXPECT_EQ(stored(u"t_pavad"_s, 1), u"Po to"_s);
    EXPECT_EQ(value(*secondFin(), u"select count(*) from bd_v"_s), u"0"_s);
}
