#include "database/history.h"

#include "database/schema.h"
#include "tests/database/routines_books.h"
#include "tests/support/refusal.h"
#include "toolkit/data/statement.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace Qt::StringLiterals;

// Small books at which Ona works from here on; what filled them is no matter of these tests.
class History : public SmallBooks {
protected:
    void SetUp() override
    {
        SmallBooks::SetUp();
        for (TDatabase *db : {mnFin_Db, mnRavl})
            keepHistory(*db, {u"ona"_s, u"stotis1"_s});
        begun = one(u"select coalesce(max(ist_id), 0) from bd_istorija"_s).toLongLong();
    }

    // Records since the beginning: table|key|operation|before|after.
    QStringList records()
    {
        return select(u"select ist_lentele, ist_raktas, ist_veiksmas, ist_buvo, ist_yra from bd_istorija "
                      "where ist_id > %1 order by ist_id"_s.arg(begun));
    }

    QJsonObject object(const QString &column, const QString &where)
    {
        const QString json =
            one(u"select %1 from bd_istorija where ist_id > %2 and %3"_s.arg(column).arg(begun).arg(where));
        return QJsonDocument::fromJson(json.toUtf8()).object();
    }

    qlonglong begun = 0;
};
ON_BOTH_ENGINES(History);

TEST_P(History, AnInsertedRowLeavesAllItsValues)
{
    run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    ASSERT_EQ(records().size(), 1);
    EXPECT_TRUE(records().first().startsWith(u"bd_objektai|7|I|NULL|"_s)) << records().first().toStdString();
    EXPECT_EQ(object(u"ist_yra"_s, u"ist_raktas = '7'"_s),
              (QJsonObject{{u"obj_id"_s, 7}, {u"obj_pavad"_s, u"Sandėlis"_s}}));
}

TEST_P(History, AnUpdateLeavesOnlyWhatChanged)
{
    run(u"update bd_dbkrasm set dka_adr = 'Gatvė 1', dka_pavad = dka_pavad where dka_id = 5"_s);
    run(u"update bd_dbkrasm set dka_adr = NULL, dka_tel = '8-5' where dka_id = 5"_s);
    const QStringList found = records();
    ASSERT_EQ(found.size(), 2);
    EXPECT_EQ(found.first(), uR"(bd_dbkrasm|5|U|{"dka_adr": null}|{"dka_adr": "Gatvė 1"})");
    const QString second = u"ist_id = %1"_s.arg(one(u"select max(ist_id) from bd_istorija"_s));
    EXPECT_EQ(object(u"ist_buvo"_s, second),
              (QJsonObject{{u"dka_adr"_s, u"Gatvė 1"_s}, {u"dka_tel"_s, QJsonValue::Null}}));
    EXPECT_EQ(object(u"ist_yra"_s, second),
              (QJsonObject{{u"dka_adr"_s, QJsonValue::Null}, {u"dka_tel"_s, u"8-5"_s}}));
}

TEST_P(History, AnUpdateThatChangesNothingLeavesNone)
{
    run(u"update bd_dbkrasm set dka_kod = dka_kod, dka_adr = NULL where dka_id = 5"_s);
    EXPECT_EQ(records(), QStringList());
}

TEST_P(History, EachRowOfAStatementLeavesItsOwnRecord)
{
    run(u"insert into bd_objektai values (7, 'Sandėlis'), (8, 'Katilinė'), (9, 'Garažas')"_s);
    run(u"update bd_objektai set obj_pavad = obj_pavad || '!' where obj_id in (7, 9)"_s);
    run(u"delete from bd_objektai where obj_id > 7"_s);
    EXPECT_EQ(
        select(u"select ist_raktas, ist_veiksmas from bd_istorija where ist_id > %1 order by ist_id"_s.arg(
            begun)),
        (QStringList{u"7|I"_s, u"8|I"_s, u"9|I"_s, u"7|U"_s, u"9|U"_s, u"8|D"_s, u"9|D"_s}));
    EXPECT_EQ(object(u"ist_buvo"_s, u"ist_veiksmas = 'U' and ist_raktas = '9'"_s),
              (QJsonObject{{u"obj_pavad"_s, u"Garažas"_s}}));
    EXPECT_EQ(object(u"ist_yra"_s, u"ist_veiksmas = 'U' and ist_raktas = '9'"_s),
              (QJsonObject{{u"obj_pavad"_s, u"Garažas!"_s}}));
}

// Each row takes the key that another one had a moment before.
TEST_P(History, KeysThatMoveOnByOneAreToldRowByRow)
{
    run(u"insert into bd_objektai values (5, 'Garažas'), (6, 'Katilinė'), (7, 'Sandėlis')"_s);
    run(u"update bd_objektai set obj_id = obj_id - 1"_s);
    for (const auto &[key, name] : {std::pair(4, u"Garažas"_s), {5, u"Katilinė"_s}, {6, u"Sandėlis"_s}}) {
        const QString record = u"ist_veiksmas = 'U' and ist_raktas = '%1'"_s.arg(key);
        EXPECT_EQ(object(u"ist_buvo"_s, record),
                  (QJsonObject{{u"obj_id"_s, key + 1}, {u"obj_pavad"_s, name}}));
        EXPECT_EQ(object(u"ist_yra"_s, record), (QJsonObject{{u"obj_id"_s, key}, {u"obj_pavad"_s, name}}));
    }
}

TEST_P(History, ADeletedRowLeavesAllItHad)
{
    run(u"delete from bd_jve where jve_id = 11"_s);
    EXPECT_EQ(object(u"ist_buvo"_s, u"ist_veiksmas = 'D' and ist_yra is null"_s),
              (QJsonObject{{u"jve_id"_s, 11},
                           {u"jve_islid"_s, 1},
                           {u"jve_tevid"_s, QJsonValue::Null},
                           {u"jve_kodas"_s, u"2.2"_s},
                           {u"jve_pavad"_s, u"Prekės"_s},
                           {u"jve_duom"_s, 1}}));
}

TEST_P(History, WhoWhereAndWhenStandsInIt)
{
    const QDateTime before = QDateTime::currentDateTime();
    run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    EXPECT_EQ(one(u"select ist_login || '/' || ist_stotis from bd_istorija where ist_raktas = '7'"_s),
              u"ona/stotis1");
    const QString moment = one(u"select ist_laikas from bd_istorija where ist_raktas = '7'"_s);
    const QDateTime when = QDateTime::fromString(moment, u"yyyy-MM-dd hh:mm:ss.zzz"_s);
    ASSERT_TRUE(when.isValid()) << moment.toStdString();
    const qint64 zone =
        nativeValue(*mnFin_Db, engine() == Engine::Sqlite ? u"select 0"_s
                                                          : u"select extract(timezone from now())::integer"_s)
            .toLongLong();
    const QDateTime real = engine() == Engine::Sqlite ? before
                                                      : QDateTime(before.toUTC().addSecs(zone).date(),
                                                                  before.toUTC().addSecs(zone).time());
    EXPECT_LT(qAbs(real.msecsTo(when)), 60'000) << moment.toStdString();
}

TEST_P(History, EveryKindOfValueIsKeptExactly)
{
    const QString name = u"Įmonė \"Ąžuolas\" \\ 'Š'\n\teilutė"_s;
    run(u"insert into bd_dbkrsut (dks_id, dks_dkaid, dks_nr, dks_nuo, dks_suma) "
        "values (3, 5, 'S-1', '2026-02-28', 99999999999.9999)"_s);
    const QJsonObject contract = object(u"ist_yra"_s, u"ist_lentele = 'bd_dbkrsut'"_s);
    EXPECT_EQ(contract[u"dks_nuo"_s], u"2026-02-28"_s);
    EXPECT_EQ(contract[u"dks_suma"_s], 99999999999.9999);
    EXPECT_TRUE(contract[u"dks_iki"_s].isNull());
    mnFin_Db->ExecSQL(u"insert into bd_tarn values (1, :p, :k)"_s, {{u"p"_s, name}, {u"k"_s, 0.1 + 0.2}});
    const QJsonObject category = object(u"ist_yra"_s, u"ist_lentele = 'bd_tarn'"_s);
    EXPECT_EQ(category[u"trn_pavad"_s].toString(), name);
    EXPECT_EQ(category[u"trn_koef"_s].toDouble(), 0.1 + 0.2);
    run(u"insert into bd_bankai (bnk_kodas) values (9007199254740993)"_s);
    EXPECT_TRUE(records().last().contains(u"\"bnk_kodas\": 9007199254740993"_s));
}

TEST_P(History, APictureIsKeptAsItsChecksum)
{
    const QByteArray picture("\x89PNG\0\xff\x01", 7);
    mnFin_Db->ExecSQL(u"insert into bd_org (org_pavad, org_zenklas) values ('Mokykla', :p)"_s,
                      {{u"p"_s, picture}});
    EXPECT_EQ(object(u"ist_yra"_s, u"ist_lentele = 'bd_org'"_s)[u"org_zenklas"_s].toObject(),
              (QJsonObject{{u"baitai"_s, 7},
                           {u"sha256"_s,
                            QString::fromLatin1(
                                QCryptographicHash::hash(picture, QCryptographicHash::Sha256).toHex())}}));
    run(u"update bd_org set org_zenklas = NULL"_s);
    EXPECT_TRUE(records().last().endsWith(u"|{\"org_zenklas\": null}"_s));
}

TEST_P(History, NoPasswordStandsInIt)
{
    mnRavl->ExecSQL(u"insert into bd_usr (usr_id, usr_name, usr_pasw) values (1, 'ona', 'Slapta1')"_s);
    mnRavl->ExecSQL(u"update bd_usr set usr_pasw = 'Slapta2'"_s);
    mnRavl->ExecSQL(u"delete from bd_usr"_s);
    const QStringList found =
        rows(*mnRavl, u"select ist_veiksmas, ist_buvo, ist_yra from bd_istorija where ist_lentele = 'bd_usr' "
                      "order by ist_id"_s);
    ASSERT_EQ(found.size(), 3);
    EXPECT_FALSE(found.join(u'\n').contains(u"slapta"_s, Qt::CaseInsensitive));
    EXPECT_EQ(found.at(1), uR"(U|{"usr_pasw": "pakeista"}|{"usr_pasw": "pakeista"})");
    EXPECT_TRUE(found.at(2).contains(uR"("usr_pasw": "pakeista")"_s));
}

TEST_P(History, AKeyOfTwoColumnsIsJoined)
{
    run(u"insert into bd_opr values (1, 'Algos')"_s);
    run(u"insert into bd_OprSasKor values (1, 2, 'D', '1')"_s);
    EXPECT_TRUE(records().last().startsWith(u"bd_oprsaskor|1|2|D|1|I|"_s)) << records().last().toStdString();
}

TEST_P(History, ARowWhoseKeyChangedIsFoundUnderTheNewOneAndShownAsAWhole)
{
    run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    run(u"update bd_objektai set obj_id = 8"_s);
    EXPECT_EQ(records().last(), uR"(bd_objektai|8|U|{"obj_id": 7, "obj_pavad": "Sandėlis"}|)"
                                uR"({"obj_id": 8, "obj_pavad": "Sandėlis"})");
}

TEST_P(History, WhatGoesAlongLeavesItsOwn)
{
    run(u"insert into bd_dbkrsut (dks_id, dks_dkaid, dks_nr) values (3, 5, 'S-1')"_s);
    run(u"insert into bd_opr values (1, 'Algos')"_s);
    run(u"insert into bd_OprSasKor values (1, 1, 'D', '1')"_s);
    run(u"delete from bd_dbkrasm where dka_id = 5"_s);
    run(u"delete from bd_opr"_s);
    QStringList deleted =
        select(u"select ist_lentele || ist_raktas from bd_istorija where ist_veiksmas = 'D'"_s);
    deleted.sort();
    EXPECT_EQ(deleted,
              (QStringList{u"bd_dbkrasm5"_s, u"bd_dbkrsut3"_s, u"bd_opr1"_s, u"bd_oprsaskor1|1|D|1"_s}));
}

TEST_P(History, WhatTheDatabaseKeepsByItselfLeavesItsOwn)
{
    startOfWork(2005, 1);
    run(u"insert into bd_samatos values (1, 10, 1, 100, 0)"_s);
    run(u"insert into bd_samkor (sak_id, sak_samid, sak_i_ketv) values (1, 1, 25)"_s);
    const QJsonObject after = object(u"ist_yra"_s, u"ist_lentele = 'bd_samatos' and ist_veiksmas = 'U'"_s);
    EXPECT_EQ(after, (QJsonObject{{u"sam_sam_kor"_s, 25}}));
}

TEST_P(History, AChangeThatIsUndoneLeavesNone)
{
    {
        TTransaction tran(mnFin_Db);
        run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    }
    EXPECT_EQ(records(), QStringList());
    {
        TTransaction tran(mnFin_Db);
        run(u"insert into bd_objektai values (8, 'Dirbtuvės')"_s);
        mnFin_Db->nativeExec(u"savepoint vidus"_s);
        run(u"insert into bd_objektai values (9, 'Katilinė')"_s);
        mnFin_Db->nativeExec(u"rollback to savepoint vidus"_s);
        tran.commit();
    }
    EXPECT_EQ(select(u"select ist_raktas from bd_istorija where ist_lentele = 'bd_objektai'"_s),
              (QStringList{u"8"_s}));
}

TEST_P(History, ARefusedStatementLeavesNone)
{
    EXPECT_THROW(run(u"insert into bd_kasos (kas_id, kas_sasid, kas_pavad) values (1, 99, 'Kasa')"_s),
                 EConstraintError);
    EXPECT_EQ(records(), QStringList());
}

TEST_P(History, ItsRecordsCannotBeChangedOrDeleted)
{
    run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    const QStringList before = dump(*mnFin_Db, u"bd_istorija"_s);
    QStringList attempts = {u"update bd_istorija set ist_login = 'petras'"_s, u"delete from bd_istorija"_s};
    attempts.append(engine() == Engine::Sqlite
                        ? u"insert or replace into bd_istorija select * from bd_istorija"_s
                        : u"truncate bd_istorija"_s);
    for (const QString &statement : attempts) {
        const QString refusal = refusalOf([&] { mnFin_Db->nativeExec(statement); });
        EXPECT_TRUE(refusal.contains(u"Pakeitimų istorijos įrašai ne"_s)) << refusal.toStdString();
    }
    EXPECT_EQ(dump(*mnFin_Db, u"bd_istorija"_s), before);
}

TEST_P(History, AnotherPersonOfTheSameSessionIsNamed)
{
    keepHistory(*mnFin_Db, {u"petras"_s, u"stotis1"_s});
    run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    EXPECT_EQ(one(u"select ist_login from bd_istorija where ist_raktas = '7'"_s), u"petras");
}

TEST_P(History, ASessionOpenedAnewIsStillThePersons)
{
    mnFin_Db->Close();
    mnFin_Db->Open();
    run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    EXPECT_EQ(select(u"select ist_login from bd_istorija where ist_raktas = '7'"_s), (QStringList{u"ona"_s}));
}

TEST_P(History, AReadOnlySessionIsLeftAsItIs)
{
    TSessionSettings settings = finSettings();
    settings.readOnly = true;
    const auto viewer = open(settings);
    keepHistory(*viewer, {u"ziurovas"_s, u"stotis2"_s});
    EXPECT_EQ(value(*viewer, u"select count(*) from bd_objektai"_s), u"0");
    EXPECT_THROW(viewer->ExecSQL(u"insert into bd_objektai values (7, 'Sandėlis')"_s), EDatabaseError);
}

TEST_P(History, APauseLeavesNoRecordAndEnds)
{
    {
        const THistoryPause pause(*mnFin_Db);
        run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    }
    EXPECT_EQ(records(), QStringList());
    run(u"insert into bd_objektai values (8, 'Dirbtuvės')"_s);
    EXPECT_EQ(records().size(), 1);
}

TEST_P(History, KeysGivenByTheDatabaseAreReadBackAsBefore)
{
    run(u"insert into bd_dbkrsut (dks_dkaid, dks_nr) values (5, 'S-1')"_s);
    if (engine() == Engine::Sqlite) {
        EXPECT_EQ(nativeValue(*mnFin_Db, u"select last_insert_rowid()"_s), u"1");
    }
    EXPECT_EQ(mnFin_Db->ExecSQL(u"update bd_jve set jve_pavad = 'X'"_s), 2) << "rows, not rows and records";
}

// --- routines

TEST_P(History, ACloseLeavesOneRecordForEachTableOfBalances)
{
    startOfWork(2005, 1);
    balance(cash, 6, 10.5, 0);
    balance(payable, 6, 0, 10.5);
    entry(cash, 6, 0.25, 0);
    const QString before = one(u"select max(ist_id) from bd_istorija"_s);
    close();
    EXPECT_EQ(select(u"select ist_lentele, ist_raktas, ist_veiksmas, ist_login from bd_istorija "
                     "where ist_id > %1 order by ist_lentele"_s.arg(before)),
              (QStringList{u"bd_dbkrlik|7|R|ona"_s, u"bd_isllik|7|R|ona"_s, u"bd_period|7|I|ona"_s,
                           u"bd_saslik|7|R|ona"_s}));
    const QString ofAccounts = u"ist_lentele = 'bd_saslik' and ist_veiksmas = 'R'"_s;
    EXPECT_EQ(object(u"ist_buvo"_s, ofAccounts),
              (QJsonObject{{u"eilutes"_s, 0}, {u"ssl_sum_db"_s, 0}, {u"ssl_sum_kr"_s, 0}}));
    EXPECT_EQ(object(u"ist_yra"_s, ofAccounts),
              (QJsonObject{{u"eilutes"_s, 2}, {u"ssl_sum_db"_s, 10.75}, {u"ssl_sum_kr"_s, 10.5}}));
    run(u"update bd_saslik set ssl_sum_db = 11 where ssl_perid = 7 and ssl_sasid = 1"_s);
    EXPECT_TRUE(records().last().startsWith(u"bd_saslik|"_s)) << "rows are recorded again afterwards";
}

TEST_P(History, ARollBackLeavesOneToo)
{
    startOfWork(2005, 1);
    balance(cash, 6, 10.5, 0);
    close();
    const QString before = one(u"select max(ist_id) from bd_istorija"_s);
    back();
    const QString since = u"ist_id > %1 and "_s.arg(before);
    EXPECT_EQ(select(u"select ist_lentele, ist_veiksmas from bd_istorija where %1 1 = 1 "
                     "order by ist_lentele"_s.arg(since)),
              (QStringList{u"bd_dbkrlik|R"_s, u"bd_isllik|R"_s, u"bd_period|D"_s, u"bd_saslik|R"_s}));
    EXPECT_EQ(object(u"ist_buvo"_s, since + u"ist_lentele = 'bd_saslik'"_s)[u"ssl_sum_db"_s], 10.5);
    EXPECT_EQ(object(u"ist_yra"_s, since + u"ist_lentele = 'bd_saslik'"_s)[u"eilutes"_s], 0);
}

TEST_P(History, DebtorsComputedAnewLeaveOne)
{
    startOfWork(2005, 1);
    entry(receivable, 6, 100, 0);
    run(u"update bd_irasai set irs_dkaid = 5"_s);
    close();
    const QString before = one(u"select max(ist_id) from bd_istorija"_s);
    run(u"call p_CalcDBKRLik(NULL)"_s);
    EXPECT_EQ(select(u"select ist_lentele, ist_raktas, ist_veiksmas, ist_buvo from bd_istorija "
                     "where ist_id > %1"_s.arg(before))
                  .size(),
              1);
    EXPECT_EQ(object(u"ist_yra"_s, u"ist_id > %1"_s.arg(before))[u"dkl_sum_db"_s], 100);
}

TEST_P(History, ARefusedRoutineLeavesNoneAndRowsAreRecordedAgain)
{
    startOfWork(2005, 1);
    const qsizetype before = records().size();
    EXPECT_THROW(back(), EDatabaseError);
    EXPECT_THROW(run(u"call p_CalcDBKRLik(99)"_s), EDatabaseError);
    EXPECT_EQ(records().size(), before);
    run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    EXPECT_EQ(records().size(), before + 1);
}

TEST_P(History, PersonsMadeOneAreRecordedRowByRow)
{
    run(u"insert into bd_matasm (mat_id, mat_pavad) values (1, 'Ona')"_s);
    run(u"insert into bd_matasm (mat_id, mat_pavad) values (2, 'ona ')"_s);
    run(u"insert into it_turtas (tur_id, tur_matid) values (1, 2)"_s);
    run(u"call updMatAsmUnq()"_s);
    EXPECT_EQ(select(u"select ist_lentele, ist_raktas, ist_veiksmas from bd_istorija "
                     "where ist_veiksmas <> 'I' order by ist_id"_s),
              (QStringList{u"it_turtas|1|U"_s, u"bd_matasm|2|D"_s}));
}

TEST_P(History, NoTableIsLeftOut)
{
    for (TDatabase *db : {mnFin_Db, mnRavl}) {
        const QStringList tables = rows(*db, u"select table_name from systable order by table_name"_s);
        for (const QString &table : tables) {
            const QString triggers =
                engine() == Engine::Sqlite
                    ? u"select count(*) from sqlite_temp_master where type = 'trigger' and tbl_name = '%1' "
                      "and name glob 'ist_*'"_s
                    : u"select count(*) from pg_trigger where tgrelid = '%1'::regclass and "
                      "tgname like 'tr_istorija\\_%' and tgenabled = 'O'"_s;
            EXPECT_EQ(nativeValue(*db, triggers.arg(table)), u"3") << table.toStdString();
        }
        EXPECT_GE(tables.size(), 7);
    }
}

// --- tables of a revision to come

class HistoryOfNewTables : public OnEmptyDatabases {};
ON_BOTH_ENGINES(HistoryOfNewTables);

TEST_P(HistoryOfNewTables, AreKeptWithoutAWord)
{
    QList<TRevision> list = revisions(engine(), Book::Main);
    list.append({int(list.size()) + 1,
                 {u"create table bd_nauja (nau_id integer primary key not null, nau_pavad varchar(10))"_s}});
    upgrade(*mnFin_Db, Book::Main, list);
    keepHistory(*mnFin_Db, {u"ona"_s, u"stotis1"_s});
    mnFin_Db->ExecSQL(u"insert into bd_nauja values (1, 'Ąžuolas')"_s);
    EXPECT_EQ(rows(*mnFin_Db, u"select ist_lentele, ist_raktas, ist_login from bd_istorija "
                              "where ist_lentele <> 'bd_antspaudai'"_s),
              (QStringList{u"bd_nauja|1|ona"_s}));
}

// --- other programs

using HistoryBesideTheShell = History;
ON_ENGINE(HistoryBesideTheShell, Engine::Sqlite);

TEST_P(HistoryBesideTheShell, ItReadsAndWritesTheFileAndLeavesNoRecord)
{
    run(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    const qlonglong before = records().size();
    QProcess shell;
    shell.start(u"sqlite3"_s, {finSettings().file, u"update bd_objektai set obj_pavad = 'Kitas'; "
                                                   "select obj_pavad from bd_objektai;"_s});
    ASSERT_TRUE(shell.waitForFinished());
    EXPECT_EQ(shell.readAllStandardError(), QByteArray());
    EXPECT_EQ(shell.readAllStandardOutput().trimmed(), "Kitas");
    EXPECT_EQ(one(u"select obj_pavad from bd_objektai"_s), u"Kitas");
    EXPECT_EQ(records().size(), before);
}

using HistoryBesideOthers = History;
ON_ENGINE(HistoryBesideOthers, Engine::PostgreSql);

TEST_P(HistoryBesideOthers, TheirChangesLeaveARecordWithoutAPerson)
{
    TDatabase *other = secondFin();
    other->nativeExec(u"set velmora.rutina = ''"_s);
    other->ExecSQL(u"insert into bd_objektai values (7, 'Sandėlis')"_s);
    EXPECT_EQ(select(u"select ist_lentele, ist_login from bd_istorija where ist_raktas = '7'"_s),
              (QStringList{u"bd_objektai|NULL"_s}));
}

TEST_P(HistoryBesideOthers, ARoleWithoutRightsOnItStillLeavesRecords)
{
    mnFin_Db->nativeExec(u"drop role if exists buhalteriai; create role buhalteriai role velmora; "
                         "grant select, insert, update, delete on bd_objektai to buhalteriai; "
                         "set role buhalteriai; insert into bd_objektai values (7, 'Sandėlis')"_s);
    const QString refusal = refusalOf(
        [&] { mnFin_Db->nativeExec(u"insert into bd_istorija (ist_lentele) values ('bd_objektai')"_s); });
    mnFin_Db->nativeExec(u"reset role; drop owned by buhalteriai; drop role buhalteriai"_s);
    EXPECT_FALSE(refusal.isEmpty());
    EXPECT_EQ(records().size(), 1);
}

TEST_P(HistoryBesideOthers, AfterALostServerThePersonIsNamedAgain)
{
    const QString own = nativeValue(*mnFin_Db, u"select pg_backend_pid()"_s);
    secondFin()->nativeExec(u"select pg_terminate_backend(%1)"_s.arg(own));
    EXPECT_THROW(run(u"insert into bd_objektai values (7, 'Sandėlis')"_s), EConnectionLost);
    run(u"insert into bd_objektai values (8, 'Dirbtuvės')"_s);
    EXPECT_EQ(one(u"select ist_login from bd_istorija where ist_raktas = '8'"_s), u"ona");
}
