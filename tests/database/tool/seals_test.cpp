#include "database/history.h"
#include "database/schema.h"
#include "database/seals.h"
#include "tests/database/tool/demo_store.h"

using namespace Qt::StringLiterals;

namespace {

// The demonstration books; what a test changes is taken back. The session has no person: what it writes is as
// if another program had written it.
class Seals : public OnDemoBooks {
protected:
    bool embedded() const { return GetParam() == Engine::Sqlite; }

    void rollBack()
    {
        const qlonglong month = currentMonth();
        fin->ExecSQL(u"call Back_Per()"_s);
        appendSeal(*fin, TSealEvent::RollBack, month);
    }

    // Takes the guards away as somebody would who may do everything.
    void disarm(const QString &table, const QStringList &triggers)
    {
        for (const QString &trigger : triggers)
            fin->nativeExec(embedded() ? u"drop trigger "_s + trigger
                                       : u"alter table %1 disable trigger %2"_s.arg(table, trigger));
    }
    void disarmSeals()
    {
        disarm(u"bd_antspaudai"_s,
               embedded() ? QStringList{u"tr_bd_antspaudai_keisti"_s, u"tr_bd_antspaudai_trinti"_s}
                          : QStringList{u"tr_bd_antspaudai"_s});
    }
    void disarmHistory()
    {
        disarm(u"bd_istorija"_s, {u"tr_bd_istorija_keista"_s, u"tr_bd_istorija_trinta"_s});
    }
    // What is changed in the table from here on leaves no record.
    void forget(const QString &table)
    {
        fin->nativeExec(embedded() ? u"drop trigger temp.ist_%1_u"_s.arg(table)
                                   : u"set local velmora.rutina = 'pildymas'"_s);
    }

    void expectTold(const QStringList &findings, const QString &onFile, const QString &onServer)
    {
        EXPECT_TRUE(findings.join(u'\n').contains(embedded() ? onFile : onServer))
            << findings.join(u'\n').toStdString();
    }
};
ON_BOTH_ENGINES(Seals);

TEST_P(Seals, TheDemonstrationIsInOrder)
{
    EXPECT_EQ(findings(), QStringList());
}

TEST_P(Seals, AHandMadeUpdateIsNamedWithTableKeyAndColumn)
{
    const QString id = value(*fin, u"select max(ssl_id) from bd_saslik where ssl_perid = 12"_s);
    const QStringList found =
        findingsAfter({u"update bd_saslik set ssl_sum_db = 76543.25 where ssl_id = "_s + id}, Book::Main);
    expectTold(found,
               u"velmora_fin: lentelės „bd_saslik“ eilutė ssl_id = %1: stulpelis „ssl_sum_db“ pakeistas (yra "
               "76543.25) ne per programą."_s.arg(id),
               u"kita programa pakeitė lentelės „bd_saslik“ eilutę %1: „ssl_sum_db“ buvo "_s.arg(id));
}

TEST_P(Seals, AHandMadeUpdateTellsWhatAPersonWroteBefore)
{
    logIn();
    TTransaction undone(fin.get());
    fin->ExecSQL(u"update bd_kasos set kas_pavad = 'Didžioji „kasa“' where kas_id = 1"_s);
    if (!embedded())
        fin->nativeExec(u"set local velmora.login = ''"_s);
    fin->nativeExec(embedded() ? u"drop trigger temp.ist_bd_kasos_u"_s : u"select 1"_s);
    fin->nativeExec(u"update bd_kasos set kas_pavad = 'Mažoji' where kas_id = 1"_s);
    expectTold(findings(), u"stulpelis „kas_pavad“ pakeistas (buvo Didžioji „kasa“, yra Mažoji)"_s,
               u"„kas_pavad“ buvo Didžioji „kasa“, yra Mažoji"_s);
}

TEST_P(Seals, AHandMadeRowIsNamed)
{
    const QStringList found = findingsAfter(
        {u"insert into bd_objektai (obj_id, obj_pavad) values (777, 'Svetimas')"_s}, Book::Main);
    expectTold(found, u"lentelės „bd_objektai“ eilutė obj_id = 777 atsirado ne per programą"_s,
               u"kita programa įrašė lentelės „bd_objektai“ eilutę 777"_s);
}

TEST_P(Seals, ARowDeletedByHandIsNamed)
{
    const QStringList found =
        findingsAfter({u"delete from bd_usrkdv where udv_usrid = 1 and udv_finid = (select "
                       "min(udv_finid) from bd_usrkdv where udv_usrid = 1)"_s,
                       u"delete from bd_kdv where kdv_id = 3"_s},
                      Book::Budget);
    expectTold(found, u"lentelės „bd_kdv“ eilutė kdv_id = 3 dingo"_s,
               u"kita programa ištrynė lentelės „bd_kdv“ eilutę 3"_s);
    expectTold(found, u"lentelės „bd_usrkdv“ eilutė dingo"_s,
               u"kita programa ištrynė lentelės „bd_usrkdv“ eilutę 1|"_s);
}

TEST_P(Seals, AKeyChangedByHandIsNamed)
{
    const QStringList found =
        findingsAfter({u"update du_veikl set vkl_id = 950 where vkl_id = 1"_s}, Book::Main);
    expectTold(found, u"lentelės „du_veikl“ eilutė vkl_id = 950: raktas pakeistas (buvo 1)"_s,
               u"kita programa pakeitė lentelės „du_veikl“ eilutę 950: "_s);
}

TEST_P(Seals, APasswordChangedByHandIsNamedButNotShown)
{
    const QStringList found =
        findingsAfter({u"update bd_usr set usr_pasw = 'visai kitas' where usr_id = 1"_s}, Book::Budget);
    expectTold(found,
               u"lentelės „bd_usr“ eilutė usr_id = 1: stulpelis „usr_pasw“ pakeistas ne per programą."_s,
               u"kita programa pakeitė lentelės „bd_usr“ eilutę 1"_s);
    EXPECT_FALSE(found.join(u'\n').contains(u"visai kitas"_s));
}

TEST_P(Seals, RowsDeletedByHandOfOneMonthNameThePeriod)
{
    const QString recorded = u"kita programa ištrynė lentelės „bd_dbkrlik“ eilutę "_s;
    expectTold(findingsAfter({u"delete from bd_dbkrlik where dkl_perid = 12"_s}, Book::Main),
               u"(periodas 12)"_s, recorded);
    expectTold(findingsAfter({u"delete from bd_dbkrlik"_s}, Book::Main),
               u"lentelės „bd_dbkrlik“ eilučių dingo: "_s, recorded);
}

// Every kind of value, of key and of change.
TEST_P(Seals, WhatAPersonChangesIsInOrder)
{
    logIn();
    TTransaction finUndone(fin.get()), ravlUndone(ravl.get());
    fin->ExecSQL(
        u"insert into bd_objektai (obj_id, obj_pavad) values (777, 'Kabutės \"\" ir ''čia'' \\ ąčęė')"_s);
    fin->ExecSQL(u"update bd_objektai set obj_pavad = NULL where obj_id = 1"_s);
    fin->ExecSQL(u"delete from bd_objektai where obj_id = 777"_s);
    fin->ExecSQL(
        u"insert into bd_dbkrsut (dks_dkaid, dks_nr, dks_nuo, dks_suma) values (1, 'S-1', '2026-02-03', "
        "12.5)"_s);
    fin->ExecSQL(u"update bd_dbkrsut set dks_suma = 0.1234, dks_nuo = '2026-03-01' where dks_nr = 'S-1'"_s);
    fin->ExecSQL(u"insert into bd_tarn (trn_id, trn_pavad, trn_koef) values (990, 'Kategorija', 1.1)"_s);
    fin->ExecSQL(u"update bd_tarn set trn_koef = 0.30000000000000004 where trn_id = 990"_s);
    fin->ExecSQL(
        u"update bd_bankai set bnk_kodas = bnk_kodas + 100000 where bnk_kodas = (select min(bnk_kodas) from "
        "bd_bankai)"_s);
    fin->ExecSQL(u"insert into pp_imok (imo_kod, imo_pavad) values ('007', 'Kodas')"_s);
    fin->ExecSQL(u"update pp_imok set imo_kod = '008' where imo_kod = '007'"_s);
    fin->ExecSQL(u"update bd_org set org_zenklas = :zenklas"_s,
                 {{u"zenklas"_s, QByteArray("\x89PNG\0\xff", 6)}});
    fin->ExecSQL(u"delete from bd_oprsaskor where osk_oprid = 1"_s);
    ravl->ExecSQL(u"update bd_usr set usr_pasw = 'naujas' where usr_id = 1"_s);
    ravl->ExecSQL(u"insert into bd_usr (usr_id, usr_name, usr_pasw) values (91, 'nauja', 'slapta')"_s);
    ravl->ExecSQL(u"delete from bd_usr where usr_id = 91"_s);
    ravl->ExecSQL(u"delete from bd_usrkdv where udv_usrid = 2"_s);
    EXPECT_EQ(findings(), QStringList());
}

TEST_P(Seals, AMonthClosedRolledBackAndClosedAgainKeepsTheChain)
{
    logIn();
    TTransaction undone(fin.get());
    closeMonth();
    rollBack();
    fin->ExecSQL(u"call p_CalcDBKRLik(NULL)"_s);
    closeMonth();
    EXPECT_EQ(rows(*fin,
                   u"select ant_ivykis, ant_login from bd_antspaudai where ant_login is not null order by "
                   "ant_id"_s),
              (QStringList{u"uždarymas|ona"_s, u"atšaukimas|ona"_s, u"uždarymas|ona"_s}));
    EXPECT_EQ(findings(), QStringList());
}

TEST_P(Seals, AMonthClosedWithoutASealIsNamed)
{
    logIn();
    TTransaction undone(fin.get());
    fin->ExecSQL(u"call Close_Per()"_s);
    EXPECT_EQ(findings(),
              QStringList{u"Einamasis mėnuo pakeistas be antspaudo: pagal paskutinį antspaudą periodas 12, "
                          "yra 13."_s});
}

TEST_P(Seals, ARemovedSealIsNamed)
{
    logIn();
    TTransaction undone(fin.get());
    closeMonth();
    rollBack();
    const QString last = value(*fin, u"select max(ant_id) from bd_antspaudai"_s);
    disarmSeals();
    fin->nativeExec(u"delete from bd_antspaudai where ant_id = "_s + last);
    EXPECT_TRUE(findings().contains(u"velmora_fin: dingo antspaudas Nr. %1."_s.arg(last)))
        << findings().join(u'\n').toStdString();
}

TEST_P(Seals, AChangedSealIsNamed)
{
    TTransaction undone(fin.get());
    disarmSeals();
    fin->nativeExec(u"update bd_antspaudai set ant_laikas = '2020-01-01 10:00:00.000' where ant_id = 1"_s);
    EXPECT_TRUE(findings().contains(
        u"velmora_fin: pakeistas antspaudas Nr. 1 (pradinis, 2020-01-01 10:00:00.000)."_s))
        << findings().join(u'\n').toStdString();
}

TEST_P(Seals, AChangedAndARemovedRecordOfHistoryAreNamed)
{
    logIn();
    TTransaction undone(fin.get());
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
        fin->ExecSQL(u"update bd_kasos set kas_pavad = '%1' where kas_id = 1"_s.arg(name));
    closeMonth();
    const QString number = value(*fin, u"select min(ist_id) from bd_istorija where ist_login = 'ona'"_s);
    disarmHistory();
    fin->nativeExec(u"update bd_istorija set ist_login = 'petras' where ist_id = "_s + number);
    EXPECT_TRUE(findings().join(u'\n').contains(
        u"pakeistas pakeitimų istorijos įrašas Nr. %1, kurį saugo"_s.arg(number)))
        << findings().join(u'\n').toStdString();
    fin->nativeExec(u"delete from bd_istorija where ist_id = "_s + number);
    EXPECT_EQ(findings(),
              QStringList{u"velmora_fin: dingo pakeitimų istorijos įrašas Nr. %1."_s.arg(number)});
}

// Neither its moment nor its person nor its password's fingerprint shows in what the tables hold.
TEST_P(Seals, ARecordThatNoSealCoversYetIsNamedWhateverChangedInIt)
{
    logIn();
    for (const QString &change :
         {u"ist_laikas = '2026-01-01 00:00:00.000'"_s, u"ist_login = 'petras'"_s, u"ist_stotis = null"_s,
          u"ist_lentele = 'bd_pad'"_s, u"ist_raktas = '2'"_s, u"ist_veiksmas = 'D'"_s, u"ist_buvo = '{}'"_s,
          u"ist_yra = null"_s, u"ist_pedsakas = '{}'"_s, u"ist_suma = 5"_s}) {
        TTransaction undone(fin.get());
        fin->ExecSQL(u"update bd_kasos set kas_pavad = 'Kita' where kas_id = 1"_s);
        ASSERT_EQ(findings(), QStringList());
        disarmHistory();
        const QString number = value(*fin, u"select max(ist_id) from bd_istorija"_s);
        fin->nativeExec(u"update bd_istorija set %1 where ist_id = %2"_s.arg(change, number));
        EXPECT_TRUE(
            findings().contains(u"velmora_fin: pakeistas pakeitimų istorijos įrašas Nr. %1."_s.arg(number)))
            << change.toStdString() << '\n'
            << findings().join(u'\n').toStdString();
    }
}

TEST_P(Seals, ADamagedRecordIsNotHiddenByTheNextSeal)
{
    logIn();
    TTransaction undone(fin.get());
    fin->ExecSQL(u"update bd_kasos set kas_pavad = 'Kita' where kas_id = 1"_s);
    disarmHistory();
    const QString number = value(*fin, u"select max(ist_id) from bd_istorija"_s);
    fin->nativeExec(u"update bd_istorija set ist_login = 'petras' where ist_id = "_s + number);
    closeMonth();
    EXPECT_EQ(findings(),
              QStringList{u"velmora_fin: pakeistas pakeitimų istorijos įrašas Nr. %1."_s.arg(number)});
}

TEST_P(Seals, WhatIsAcceptedIsToldNoMoreAndTheReasonStays)
{
    logIn();
    TTransaction undone(fin.get());
    fin->ExecSQL(u"update bd_kasos set kas_pavad = 'Kita' where kas_id = 1"_s);
    disarmHistory();
    fin->nativeExec(u"update bd_istorija set ist_stotis = 'svetima' where ist_id = (select max(ist_id) from "
                    "bd_istorija)"_s);
    forget(u"bd_kasos"_s);
    fin->nativeExec(u"update bd_kasos set kas_pavad = 'Ne per programą' where kas_id = 1"_s);
    ASSERT_EQ(findings().size(), 2);
    acceptContents(*fin, u"atkurta iš popierių"_s);
    QStringList told;
    EXPECT_EQ(findProblems(*fin, *ravl, [&told](const QString &text) { told.append(text); }), QStringList());
    EXPECT_TRUE(told.join(u'\n').contains(u"duomenys priimti tokie, kokie buvo: atkurta iš popierių."_s))
        << told.join(u'\n').toStdString();
    fin->nativeExec(u"update bd_kasos set kas_pavad = 'Ir vėl' where kas_id = 1"_s);
    EXPECT_EQ(findings().size(), 1);
}

// A revision seals what it did itself; what another program did before stays a finding.
TEST_P(Seals, AnUpgradeHidesNothing)
{
    QList<TRevision> list = revisions(GetParam(), Book::Main);
    list.append({latestRevision() + 1, {u"update bd_kasos set kas_pavad = kas_pavad || '!';"_s}});
    TTransaction undone(fin.get());
    disarmHistory();
    fin->nativeExec(u"update du_veikl set vkl_pavad = 'Svetima' where vkl_id = 1"_s);
    const QStringList before = findings();
    ASSERT_NE(before, QStringList());
    upgrade(*fin, Book::Main, list);
    fin->nativeExec(u"update bd_versija set ver_numeris = %1"_s.arg(latestRevision()));
    EXPECT_EQ(findings(), before);
}

TEST_P(Seals, ARecordOfASealThatSaysSomethingElseIsNamed)
{
    logIn();
    TTransaction undone(fin.get());
    closeMonth();
    disarmHistory();
    const QString number =
        value(*fin, u"select max(ist_id) from bd_istorija where ist_lentele = 'bd_antspaudai'"_s);
    fin->nativeExec(u"update bd_istorija set ist_yra = replace(ist_yra, 'ant_ivykis', 'ant_ivykas') "
                    "where ist_id = "_s +
                    number);
    EXPECT_TRUE(
        findings().join(u'\n').contains(u"pakeitimų istorijos įrašas Nr. %1 ir antspaudas"_s.arg(number)))
        << findings().join(u'\n').toStdString();
}

// Neither the sum of the values nor the sum by rows changes when the middle ones trade places with the
// others.
TEST_P(Seals, ValuesThatOnlyChangePlacesAreFound)
{
    logIn();
    TTransaction undone(fin.get());
    fin->ExecSQL(u"insert into du_veikl (vkl_id, vkl_kodas, vkl_pavad) values (901, 1, 'Aa')"_s);
    fin->ExecSQL(u"insert into du_veikl (vkl_id, vkl_kodas, vkl_pavad) values (902, 2, 'Bb')"_s);
    fin->ExecSQL(u"insert into du_veikl (vkl_id, vkl_kodas, vkl_pavad) values (903, 3, 'Bb')"_s);
    fin->ExecSQL(u"insert into du_veikl (vkl_id, vkl_kodas, vkl_pavad) values (904, 4, 'Aa')"_s);
    ASSERT_EQ(findings(), QStringList());
    forget(u"du_veikl"_s);
    fin->nativeExec(u"update du_veikl set vkl_pavad = case vkl_pavad when 'Aa' then 'Bb' else 'Aa' end "
                    "where vkl_id > 900"_s);
    const QStringList found = findings();
    EXPECT_TRUE(found.join(u'\n').contains(u"lentelės „du_veikl“ keliose eilutėse stulpelis „vkl_pavad“"_s));
    for (const int id : {901, 902, 903, 904})
        EXPECT_TRUE(found.join(u'\n').contains(u"eilutė vkl_id = %1: stulpelis „vkl_pavad“"_s.arg(id))) << id;
}

// What cannot be read back would keep every later seal from being made.
TEST_P(Seals, ARecordThatIsNoJsonIsRefused)
{
    TTransaction undone(fin.get());
    for (const QString &row : {u"'bd_kasos', 'ne JSON'"_s, u"'Ne lentelė;', '{}'"_s}) {
        fin->nativeExec(u"savepoint bandymas"_s);
        EXPECT_THROW(fin->nativeExec(
                         u"insert into bd_istorija (ist_laikas, ist_raktas, ist_veiksmas, "
                         "ist_lentele, ist_yra) values ('2026-01-01 00:00:00.000', '1', 'I', %1)"_s.arg(row)),
                     EDatabaseError)
            << row.toStdString();
        fin->nativeExec(u"rollback to bandymas"_s);
    }
}

TEST_P(Seals, SealsAreNeitherChangedNorDeleted)
{
    TTransaction undone(fin.get());
    for (const QString &sql :
         {u"update bd_antspaudai set ant_login = 'x'"_s, u"delete from bd_antspaudai"_s,
          embedded() ? u"insert or replace into bd_antspaudai select * from bd_antspaudai where ant_id = 1"_s
                     : u"truncate bd_antspaudai"_s}) {
        fin->nativeExec(u"savepoint bandymas"_s);
        EXPECT_THROW(fin->nativeExec(sql), EDatabaseError) << sql.toStdString();
        fin->nativeExec(u"rollback to bandymas"_s);
    }
}

TEST_P(Seals, AClockSetBackIsARemarkAndNoFinding)
{
    logIn();
    TTransaction undone(fin.get());
    fin->ExecSQL(u"update bd_kasos set kas_pavad = 'Kasa' where kas_id = 1"_s);
    fin->nativeExec(
        embedded()
            ? TRecordSql{.moment = u"'2020-01-01 00:00:00.000'"_s,
                         .table = u"'bd_kasos'"_s,
                         .key = u"'1'"_s,
                         .operation = u"'U'"_s,
                         .before = u"'{}'"_s,
                         .after = u"'{}'"_s}
                  .text()
            : u"insert into bd_istorija (ist_laikas, ist_login, ist_lentele, ist_raktas, ist_veiksmas, "
              "ist_buvo, ist_yra) values ('2020-01-01 00:00:00.000', 'ona', 'bd_kasos', '1', 'U', '{}', "
              "'{}')"_s);
    QStringList told;
    EXPECT_EQ(findProblems(*fin, *ravl, [&told](const QString &text) { told.append(text); }), QStringList());
    EXPECT_TRUE(told.join(u'\n').contains(u"buvo atsuktas laikrodis"_s)) << told.join(u'\n').toStdString();
}

using SchemaOfAFile = OnDemoBooks;
ON_ENGINE(SchemaOfAFile, Engine::Sqlite);

TEST_P(SchemaOfAFile, ThatAnotherProgramChangedIsNamed)
{
    EXPECT_EQ(
        findingsAfter(
            {u"create index ix_svetimas on bd_kasos (kas_pavad)"_s, u"drop index ix_bd_dbkrasm_i_kod"_s},
            Book::Main),
        (QStringList{u"velmora_fin: duomenų bazės schemoje nėra arba pakeista: index ix_bd_dbkrasm_i_kod."_s,
                     u"velmora_fin: duomenų bazės schemoje nereikalinga: index ix_svetimas."_s}));
}

TEST(AcceptedBooks, HaveAReasonInBothSeals)
{
    const auto silent = [](const QString &) {};
    const TestPlace place(Engine::Sqlite);
    createBooks(*place.store(), silent);
    const auto last =
        u"select ant_id || ant_ivykis || ant_sumos from bd_antspaudai where ant_id = (select max(ant_id) from bd_antspaudai)"_s;
    EXPECT_THROW(acceptBooks(*place.store(), u" "_s, silent), Exception);
    EXPECT_TRUE(value(*place.fin(), last).startsWith(u"1pradinis"_s));
    acceptBooks(*place.store(), u"patikrinta ranka "_s, silent);
    for (const auto &book : {place.fin(), place.ravl()})
        EXPECT_TRUE(value(*book, last).startsWith(u"2priimta{"_s) &&
                    value(*book, last).contains(u"\"patikrinta ranka\""_s))
            << value(*book, last).toStdString();
}

// Books of the first revision with a row in them.
using OldBooks = OnEmptyDatabases;
ON_BOTH_ENGINES(OldBooks);

TEST_P(OldBooks, GetABeginningWhenTheyAreUpgraded)
{
    for (const auto &[db, book] : {std::pair(mnFin_Db, Book::Main), std::pair(mnRavl, Book::Budget)}) {
        upgrade(*db, book, revisions(engine(), book).mid(0, 1));
        db->nativeExec(u"insert into bd_savivaldybes (sav_kod, sav_pavad) values (13, 'Vilnius')"_s);
        upgrade(*db, book);
        EXPECT_EQ(rows(*db, u"select ant_id, ant_ivykis from bd_antspaudai"_s), QStringList{u"1|pradinis"_s});
    }
    EXPECT_EQ(findProblems(*mnFin_Db, *mnRavl, [](const QString &) {}),
              QStringList{u"Nėra einamojo periodo: darbo pradžios periodas nenustatytas."_s});
    mnRavl->nativeExec(u"update bd_savivaldybes set sav_pavad = 'Kaunas'"_s);
    EXPECT_EQ(findProblems(*mnFin_Db, *mnRavl, [](const QString &) {}).size(), 2);
}

// Two stations of a server.
using SealsOfStations = OnBothEngines;
ON_ENGINE(SealsOfStations, Engine::PostgreSql);

TEST_P(SealsOfStations, ARecordThatIsCommittedLateIsCoveredByALaterSeal)
{
    TDatabase *other = secondFin();
    keepHistory(*mnFin_Db, {u"ona"_s, u"stotis1"_s});
    keepHistory(*other, {u"petras"_s, u"stotis2"_s});
    {
        TTransaction late(other);
        other->ExecSQL(u"insert into bd_objektai values (1, 'Vėluoja')"_s);
        mnFin_Db->ExecSQL(u"insert into bd_objektai values (2, 'Spėja')"_s);
        appendSeal(*mnFin_Db, TSealEvent::SetUp);
        late.commit();
    }
    const auto findings = [this] { return findProblems(*mnFin_Db, *mnRavl, [](const QString &) {}); };
    const QStringList onlyNoMonth{u"Nėra einamojo periodo: darbo pradžios periodas nenustatytas."_s};
    EXPECT_EQ(findings(), onlyNoMonth);
    appendSeal(*mnFin_Db, TSealEvent::SetUp);
    EXPECT_EQ(findings(), onlyNoMonth);
    EXPECT_EQ(value(*mnFin_Db, u"select count(*) from bd_istorija where ist_login in ('ona', 'petras')"_s),
              u"4");
}

TEST_P(SealsOfStations, ARoutineWaitsForBalancesThatAnotherStationIsWriting)
{
    TDatabase *other = secondFin();
    keepHistory(*mnFin_Db, {u"ona"_s, u"stotis1"_s});
    keepHistory(*other, {u"petras"_s, u"stotis2"_s});
    TTransaction writing(other);
    other->ExecSQL(u"insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_pavad, dkl_sum_db, dkl_sum_kr) "
                   "values (1, 1, 'Rašoma', 5, 0)"_s);
    TTransaction routine(mnFin_Db);
    mnFin_Db->nativeExec(u"set local lock_timeout = 100"_s);
    EXPECT_THROW(mnFin_Db->nativeExec(u"select sys_rutina_prasideda(1, 'bd_dbkrlik')"_s), EDatabaseError);
}

} // namespace
