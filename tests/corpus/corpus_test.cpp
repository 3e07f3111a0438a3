#include "tests/corpus/corpus.h"
#include "tests/support/unguarded.h"

#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

// Fresh books with the rows that the statements of the corpus find.
class Corpus : public OnBothEngines {
protected:
    void SetUp() override
    {
        OnBothEngines::SetUp();
        takeGuardsAway(*mnFin_Db); // statements on rows of closed months run too
        for (const CorpusEntry &entry : corpusRows())
            session(entry.session)->ExecSQL(entry.statement, entry.parameters);
    }

    TDatabase *session(const QString &alias) const { return alias == u"mnRavl" ? mnRavl : mnFin_Db; }

    // Runs to the last row; what it changed is undone.
    static void run(TDatabase *db, const CorpusEntry &entry)
    {
        TTransaction undone(db);
        const auto statement = db->prepare(entry.statement);
        for (auto each = entry.parameters.cbegin(); each != entry.parameters.cend(); ++each)
            statement->bind(each.key(), each.value());
        statement->exec();
        while (statement->next()) {
            for (int column = 0; column < statement->columns().size(); ++column)
                statement->value(column);
        }
    }

    // How the engine would read a statement, as one text.
    static QString plan(TDatabase *db, const QString &statement)
    {
        const TranslatedSql &known = db->translator().translate(statement);
        TranslatedSql asked = known;
        const bool server = db->engine() == Engine::PostgreSql;
        asked.text.prepend(server ? u"explain "_s : u"explain query plan "_s);
        QString text;
        const auto answer = db->prepareNative(asked);
        answer->exec();
        while (answer->next())
            text += answer->value(server ? 0 : 3).toString() + u'\n';
        return text;
    }
};

ON_BOTH_ENGINES(Corpus);

} // namespace

TEST_P(Corpus, EveryStatementRuns)
{
    int runs = 0;
    for (const CorpusEntry &entry : corpusEntries()) {
        for (const QString &alias : {u"mnFin_Db"_s, u"mnRavl"_s}) {
            if (!entry.runsOn(alias))
                continue;
            ++runs;
            try {
                run(session(alias), entry);
            } catch (const EDatabaseError &error) {
                ADD_FAILURE() << entry.screen.toStdString() << ": " << entry.statement.toStdString() << "\n"
                              << error.message().toStdString() << "\n"
                              << error.serverText.toStdString();
            } catch (const Exception &error) {
                ADD_FAILURE() << entry.screen.toStdString() << ": " << entry.statement.toStdString() << "\n"
                              << error.message().toStdString();
            }
        }
    }
    EXPECT_GT(runs, 200);
}

// --- what the statements mean, the same on both engines

TEST_P(Corpus, BalancesOfDebtorsNameTheirPartyByTheRegisterOrTheRow)
{
    QString list;
    for (const CorpusEntry &entry : corpusEntries()) {
        if (entry.screen == u"TDKALikFrm" && entry.statement.contains(u"as IPavad"_s))
            list = entry.statement;
    }
    ASSERT_FALSE(list.isEmpty());
    EXPECT_EQ(rows(*mnFin_Db, list, {{u"PerId"_s, 7}}),
              QStringList({u"2|NULL|Ąžuolas|0|3.25|1|241 Kasa|NULL"_s,
                           u"1|110053842|Žvejų kooperatyvas|10.5|0|1|241 Kasa|Žemės skyrius"_s}));
}

TEST_P(Corpus, ProfessionalGroupsAreSplitByTheirLastDigit)
{
    EXPECT_EQ(rows(*mnFin_Db, u"SELECT kla_kodas, cast(floor(kla_kodas/10) as smallint) as Tipas, "
                              "mod(kla_kodas,10) as Kodas, kla_pavad FROM du_drbklas"_s),
              QStringList({u"47|4|7|Buhalteriai"_s}));
}

TEST_P(Corpus, WorkPlacesOutsideTheMaskAreNotListed)
{
    const QString list = u"SELECT kdv_id FROM bd_kdv WHERE (POWER(2, (KDV_ID-1)) & :ORG_KDV) <> 0"_s;
    EXPECT_EQ(rows(*mnRavl, list, {{u"ORG_KDV"_s, 5}}), QStringList({u"3"_s}));
    EXPECT_EQ(rows(*mnRavl, list, {{u"ORG_KDV"_s, 3}}), QStringList());
}

TEST_P(Corpus, ThePrintedDateReadsAsItsFormat)
{
    EXPECT_EQ(value(*mnFin_Db, u"SELECT DATEFORMAT(GetDateByPeriodId(6),'yyyy.mm.dd') FROM dummy"_s),
              u"2005.01.01"_s);
}

TEST_P(Corpus, ACodeIsFoundWhateverItsCase)
{
    EXPECT_EQ(value(*mnFin_Db, u"select count(pad_kodas) from bd_pad where UCASE(pad_kodas)=UCASE('žs')"_s),
              u"1"_s);
}

TEST_P(Corpus, AQuotientIsNotCutToAWholeNumber)
{
    EXPECT_EQ(value(*mnFin_Db, u"select per_id / 4 from bd_period where per_id = 6"_s), u"1.5"_s);
}

TEST_P(Corpus, TheDatabaseGivesTheKeyThatIsWrittenAsNull)
{
    const QString insert = u"insert into bd_balsas values (NULL, :balkod, :sasid, :tip)"_s;
    const QVariantMap values{{u"balkod"_s, u"A0101"_s}, {u"sasid"_s, 1}, {u"tip"_s, u"D"_s}};
    mnFin_Db->ExecSQL(insert, values);
    mnFin_Db->ExecSQL(insert, values);
    EXPECT_EQ(rows(*mnFin_Db, u"select * from bd_balsas order by 1"_s),
              QStringList({u"1|A0101|1|D"_s, u"2|A0101|1|D"_s}));
}

TEST_P(Corpus, NamesAreInLithuanianOrderWithNullsFirst)
{
    const QStringList names{u"Zita"_s,    u"Žemė"_s,  u"cukrus"_s, u"Čiurlys"_s,
                            u"Ąžuolas"_s, u"Azija"_s, u"yla"_s,    u"ilga"_s};
    mnFin_Db->ExecSQL(u"delete from bd_pad where pad_id > 1"_s);
    int id = 2;
    for (const QString &name : names)
        mnFin_Db->ExecSQL(u"insert into bd_pad (pad_id, pad_pavad) values (:id, :name)"_s,
                          {{u"id"_s, id++}, {u"name"_s, name}});
    mnFin_Db->ExecSQL(u"insert into bd_pad (pad_id) values (99)"_s);
    const QStringList ordered{u"NULL"_s, u"Azija"_s, u"Ąžuolas"_s, u"cukrus"_s, u"Čiurlys"_s,
                              u"yla"_s,  u"ilga"_s,  u"Zita"_s,    u"Žemė"_s,   u"Žemės skyrius"_s};
    EXPECT_EQ(rows(*mnFin_Db, u"select pad_pavad from bd_pad order by pad_pavad"_s), ordered);
    EXPECT_EQ(rows(*mnFin_Db, u"select distinct pad_pavad from bd_pad order by 1"_s), ordered);
    EXPECT_EQ(
        rows(*mnFin_Db, u"select isnull(pad_pavad, '') as p from bd_pad where pad_id < 99 order by p"_s),
        ordered.mid(1));
    QStringList reversed(ordered.crbegin(), ordered.crend());
    EXPECT_EQ(rows(*mnFin_Db, u"select pad_pavad from bd_pad order by pad_pavad desc"_s), reversed);
}

TEST_P(Corpus, AnIndexServesTheOrderByAName)
{
    // Few rows: the server would rather sort them.
    if (engine() == Engine::PostgreSql)
        mnFin_Db->nativeExec(u"set enable_seqscan = off; set enable_sort = off"_s);
    const QString pad = plan(mnFin_Db, u"select * from bd_pad order by pad_pavad"_s);
    EXPECT_TRUE(pad.contains(u"ix_bd_pad_pavad"_s)) << pad.toStdString();
    EXPECT_FALSE(pad.contains(u"TEMP B-TREE"_s) || pad.contains(u"Sort"_s)) << pad.toStdString();
    const QString dka = plan(mnFin_Db, u"select * from bd_dbkrasm a order by a.dka_pavad desc"_s);
    EXPECT_TRUE(dka.contains(u"ix_bd_dbkrasm_pavad"_s)) << dka.toStdString();
    EXPECT_FALSE(dka.contains(u"TEMP B-TREE"_s) || dka.contains(u"Sort"_s)) << dka.toStdString();
    const QString kod = plan(mnFin_Db, u"select * from bd_dbkrasm order by DKA_KOD"_s);
    EXPECT_TRUE(kod.contains(u"ix_bd_dbkrasm_kod"_s)) << kod.toStdString();
}
