#include "database/history.h"
#include "database/seals.h"
#include "database/standard/standard.h"
#include "database/tool/keeping/check.h"
#include "tests/support/engines.h"
#include "tests/support/refusal.h"

#include <QThread>

using namespace Qt::StringLiterals;
using enum SetUpStep;

namespace {

const QSet<SetUpStep> standardSteps{Municipalities, Accounts, Classification, Functions,
                                    WorkPlaces,     Sources,  Banks};

TAdministrator someAdministrator()
{
    return {.name = u"rasa"_s, .vardas = u"Rasa"_s, .pavarde = u"Šaulė"_s, .password = u"Raktas 1"_s};
}

TSetUp everything()
{
    return {.institution =
                TInstitution{
                    .pavad = u"Šilų mokykla"_s, .adr = u"Šilo g. 1"_s, .kodas = 190000001, .savivaldybe = 13},
            .administrator = someAdministrator(),
            .standard = standardSteps,
            .startOfWork = QDate(2026, 11, 30)};
}

} // namespace

class SetUpOfBooks : public OnBothEngines {
protected:
    void write(const TSetUp &setUp) { setUpBooks(*mnFin_Db, *mnRavl, setUp); }
    QString fin(const QString &sql) { return value(*mnFin_Db, sql); }
    QString ravl(const QString &sql) { return value(*mnRavl, sql); }
    QStringList both() { return dump(*mnFin_Db) + dump(*mnRavl); }
    QStringList problems()
    {
        return findProblems(*mnFin_Db, *mnRavl, [](const QString &) {});
    }
    // The set-up is refused with these words, and neither book is changed.
    void expectRefused(const TSetUp &setUp, const QString &words)
    {
        const QStringList before = both();
        const QString told = refusalOf([&] { write(setUp); });
        EXPECT_TRUE(told.contains(words)) << told.toStdString();
        EXPECT_EQ(both(), before);
        EXPECT_FALSE(mnFin_Db->InTransaction() || mnRavl->InTransaction());
    }
};
ON_BOTH_ENGINES(SetUpOfBooks);

class SetUpOfBooksOnServer : public SetUpOfBooks {};
ON_ENGINE(SetUpOfBooksOnServer, Engine::PostgreSql);

TEST_P(SetUpOfBooks, WritesEveryStep)
{
    EXPECT_EQ(doneSteps(*mnFin_Db, *mnRavl), QSet<SetUpStep>());
    write(everything());
    EXPECT_EQ(doneSteps(*mnFin_Db, *mnRavl).size(), int(StartOfWork) + 1);
    EXPECT_EQ(fin(u"select org_pavad from bd_org"_s), u"Šilų mokykla");
    EXPECT_EQ(rows(*mnFin_Db, u"select org_i_kod, org_pvm_kod, org_draud_kod, org_savivaldybe from bd_org"_s),
              QStringList{u"190000001|NULL|NULL|13"_s});
    EXPECT_EQ(rows(*mnRavl, u"select usr_name, usr_pasw, usr_perziurai, usr_user_admin from bd_usr"_s),
              QStringList{u"rasa|Raktas 1|0|1"_s});
    EXPECT_EQ(fin(u"select count(*) from bd_savivaldybes"_s), u"60");
    EXPECT_EQ(ravl(u"select count(*) from bd_savivaldybes"_s), u"60");
    EXPECT_GT(fin(u"select count(*) from bd_bankai"_s).toInt(), 10);
    EXPECT_EQ(rows(*mnFin_Db, u"select * from bd_period order by per_id"_s),
              (QStringList{u"1|2026|0|0"_s, u"2|2026|1|0"_s, u"3|2026|2|0"_s, u"4|2026|3|0"_s,
                           u"5|2026|4|0"_s, u"6|2026|4|2"_s}));
}

TEST_P(SetUpOfBooks, AccountsStandBelowTheNumberThatBeginsTheirs)
{
    write({.standard = {Accounts}});
    EXPECT_EQ(rows(*mnFin_Db, u"select c.sas_sasnr, p.sas_sasnr, p.sas_tip, c.sas_tip from bd_sasplan c "
                              "join bd_sasplan p on p.sas_id = c.sas_tevid where c.sas_sasnr in ('12', "
                              "'1201', '1201001') order by 1"_s),
              (QStringList{u"12|1|S|S"_s, u"1201|12|S|S"_s, u"1201001|1201|S|D"_s}));
    EXPECT_EQ(rows(*mnFin_Db, u"select sas_sasnr from bd_sasplan where sas_tevid is null order by 1"_s),
              (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s}));
    EXPECT_EQ(fin(u"select count(*) from bd_sasplan c where (sas_tip = 'D') = exists (select 1 from "
                  "bd_sasplan u where u.sas_tevid = c.sas_id)"_s),
              u"0");
}

TEST_P(SetUpOfBooks, OnlyTheLowestCodesOfTheClassificationCarryAmounts)
{
    write({.standard = {Classification, Functions}});
    EXPECT_EQ(fin(u"select count(*) from bd_asgisl"_s), u"1");
    EXPECT_EQ(rows(*mnFin_Db, u"select c.jve_kodas, p.jve_kodas, c.jve_duom from bd_jve c join bd_jve p on "
                              "p.jve_id = c.jve_tevid where c.jve_kodas in ('2.2', '2.2.1.1.1.01') "
                              "order by 1"_s),
              (QStringList{u"2.2|2|0"_s, u"2.2.1.1.1.01|2.2.1.1.1|1"_s}));
    EXPECT_EQ(fin(u"select count(*) from bd_jve c where (jve_duom = 1) = exists (select 1 from bd_jve u "
                  "where u.jve_tevid = c.jve_id)"_s),
              u"0");
    EXPECT_EQ(fin(u"select p.fun_kodas from bd_fun c join bd_fun p on p.fun_id = c.fun_tevid where "
                  "c.fun_kodas = '09.01'"_s),
              u"09");
}

TEST_P(SetUpOfBooks, BooksCanBeKeptAtOnce)
{
    write(everything());
    keepHistory(*mnFin_Db, {u"ona"_s, u"stotis1"_s});
    mnFin_Db->nativeExec(u"insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr) "
                         "select sas_id, sas_id, 6, case sas_sasnr when '2420001' then 100.25 else 0 end, "
                         "case sas_sasnr when '3100001' then 100.25 else 0 end from bd_sasplan "
                         "where sas_tip = 'D' and sas_sasnr in ('2420001', '3100001')"_s);
    mnFin_Db->nativeExec(u"insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_kas_db) "
                         "select 1, 6, jve_id, 50 from bd_jve where jve_duom = 1 and jve_kodas = "
                         "'2.1.1.1.1.01'"_s);
    mnFin_Db->ExecSQL(u"call Close_Per()"_s);
    appendSeal(*mnFin_Db, TSealEvent::Close, 6);
    EXPECT_EQ(fin(u"select GetDateByPeriodId(get_last_per_id()) from dummy"_s), u"2026-12-01");
    EXPECT_EQ(fin(u"select count(*) from bd_saslik where ssl_perid > 6"_s), u"2");
    EXPECT_EQ(problems(), QStringList());
}

TEST_P(SetUpOfBooks, StepThatHoldsRowsIsRefusedByNameAndNothingIsWritten)
{
    const QList<std::pair<SetUpStep, QString>> rowsOfSteps{
        {Institution, u"bd_org (org_pavad) values ('Kita')"_s},
        {Accounts, u"bd_sasplan (sas_id, sas_sasnr) values (1, '1')"_s},
        {Classification, u"bd_asgisl (isl_id) values (1)"_s},
        {Functions, u"bd_fun (fun_id) values (1)"_s},
        {Banks, u"bd_bankai (bnk_kodas) values (1)"_s},
        {StartOfWork, u"bd_period values (6, 2005, 1, 1)"_s},
        {Administrator, u"bd_usr (usr_id) values (1)"_s},
        {WorkPlaces, u"bd_kdv (kdv_id) values (1)"_s},
        {Sources, u"bd_fin (fin_pavad) values ('Kitas')"_s}};
    for (const auto &[step, row] : rowsOfSteps) {
        TDatabase &book =
            step == Administrator || step == WorkPlaces || step == Sources ? *mnRavl : *mnFin_Db;
        book.nativeExec(u"insert into "_s + row);
        expectRefused(everything(), stepName(step) + u": "_s);
        book.nativeExec(u"delete from "_s + row.section(u' ', 0, 0));
    }
    write(everything());
}

TEST_P(SetUpOfBooksOnServer, TwoAtTheSameMomentMakeOneSetOfBooks)
{
    QStringList failures{QString(), QString()};
    std::vector<std::unique_ptr<QThread>> stations;
    for (QString &failure : failures)
        stations.emplace_back(QThread::create([this, &failure] {
            try {
                setUpBooks(*open(finSettings()), *open(ravlSettings()), everything());
            } catch (const Exception &refused) {
                failure = refused.message();
            }
        }));
    for (const auto &station : stations)
        station->start();
    for (const auto &station : stations)
        station->wait();
    EXPECT_EQ(failures.count(QString()), 1) << failures.join(u'\n').toStdString();
    EXPECT_EQ(doneSteps(*mnFin_Db, *mnRavl).size(), 10);
    EXPECT_EQ(fin(u"select count(*) from bd_period"_s), u"6");
    EXPECT_EQ(ravl(u"select count(*) from bd_usr"_s), u"1");
    EXPECT_EQ(problems(), QStringList());
}

TEST_P(SetUpOfBooks, MunicipalitiesOfBothBooksAreRefused)
{
    write({.standard = {Municipalities}});
    expectRefused(everything(), u"Savivaldybės: "_s);
}

TEST_P(SetUpOfBooks, ValueThatCannotBeStoredIsNamedAndNothingIsWritten)
{
    TSetUp setUp = everything();
    setUp.administrator->name = u"vienuolika1"_s;
    expectRefused(setUp, u"Laukas \"Prisijungimo vardas\": tekstas per ilgas, daugiausia 10 ženklų."_s);
    setUp.administrator->name = u"  "_s;
    expectRefused(setUp, u"prisijungimo vardą"_s);
    setUp = everything();
    setUp.administrator->password.clear();
    expectRefused(setUp, u"slaptažodį"_s);
    setUp = everything();
    setUp.institution->pavad = u"学校"_s;
    expectRefused(setUp, u"Laukas \"Pavadinimas\": ženklo „学“ negalima įrašyti."_s);
    setUp = everything();
    setUp.institution->savivaldybe = 99;
    expectRefused(setUp, u"nurodytas įrašas neegzistuoja"_s);
    setUp = everything();
    setUp.startOfWork = QDate(1996, 12, 1);
    expectRefused(setUp, u"nuo 1997 iki 2100"_s);
}

TEST_P(SetUpOfBooks, MunicipalityOfTheInstitutionBringsTheOthers)
{
    write({.institution = everything().institution});
    EXPECT_EQ(doneSteps(*mnFin_Db, *mnRavl), (QSet<SetUpStep>{Institution, Municipalities}));
    EXPECT_EQ(fin(u"select sav_pavad from bd_org join bd_savivaldybes on sav_kod = org_savivaldybe"_s),
              u"Vilniaus miesto savivaldybė");
}

TEST_P(SetUpOfBooks, AdministratorGetsEveryRightAsSoonAsThereAreSources)
{
    write({.administrator = someAdministrator()});
    EXPECT_EQ(ravl(u"select count(*) from bd_usrkdv"_s), u"0");
    mnRavl->nativeExec(u"insert into bd_usr (usr_id, usr_name, usr_user_admin) values (2, 'kita', 0)"_s);
    write({.standard = {Sources, WorkPlaces}});
    EXPECT_EQ(ravl(u"select count(*) from bd_usrkdv where udv_usrid = 1 and udv_kdv = 65535"_s),
              ravl(u"select count(*) from bd_fin"_s));
    EXPECT_EQ(ravl(u"select count(*) from bd_usrkdv where udv_usrid <> 1"_s), u"0");
}

TEST_P(SetUpOfBooks, InterruptedBetweenTheBooksIsFinishedByTheNextCall)
{
    write({.administrator = someAdministrator(), .standard = {Municipalities, WorkPlaces, Sources}});
    mnFin_Db->nativeExec(u"delete from bd_savivaldybes"_s); // the main book's transaction was lost
    TSetUp rest = everything();
    rest.administrator.reset();
    rest.standard = standardSteps - doneSteps(*mnFin_Db, *mnRavl);
    EXPECT_TRUE(rest.standard.contains(Municipalities));
    write(rest);
    EXPECT_EQ(doneSteps(*mnFin_Db, *mnRavl).size(), int(StartOfWork) + 1);
    EXPECT_EQ(ravl(u"select count(*) from bd_savivaldybes"_s), u"60");
    EXPECT_EQ(problems(), QStringList());
}

TEST(StandardMunicipalities, StandByTheirCodes)
{
    const QList<std::pair<int, QString>> list = standardMunicipalities();
    ASSERT_EQ(list.size(), 60);
    EXPECT_EQ(list.first(), std::pair(11, u"Alytaus miesto savivaldybė"_s));
    EXPECT_TRUE(std::ranges::is_sorted(list));
}
