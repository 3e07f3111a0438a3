#include "tests/database/tool/demo_store.h"

#include <QStringEncoder>

using namespace Qt::StringLiterals;

namespace {

using DemoBooks = OnDemoBooks;
ON_BOTH_ENGINES(DemoBooks);

const auto silent = [](const QString &) {};

TEST_P(DemoBooks, AddUp)
{
    EXPECT_EQ(findings(), QStringList());
}

TEST_P(DemoBooks, StandInJulyAfterSixClosedMonths)
{
    EXPECT_EQ(value(*fin, u"select GetDateByPeriodId(get_last_per_id()) from dummy"_s), u"2026-07-01");
    EXPECT_EQ(value(*fin, u"select count(*) from bd_period where per_menuo > 0"_s), u"7");
    EXPECT_EQ(value(*fin, u"select min(per_id) from bd_period where per_menuo > 0"_s), u"6");
}

TEST_P(DemoBooks, HoldASchool)
{
    const auto count = [this](const char16_t *table) {
        return value(*fin, u"select count(*) from %1"_s.arg(QString::fromUtf16(table))).toInt();
    };
    EXPECT_GE(count(u"bd_sasplan"), 200);
    EXPECT_EQ(count(u"bd_savivaldybes"), 60);
    EXPECT_EQ(count(u"bd_bankai"), 20);
    EXPECT_EQ(count(u"bd_dbkrasm"), 300);
    EXPECT_EQ(count(u"bd_org"), 1);
    for (const char16_t *table : {u"bd_dbkrsut", u"bd_asgisl",        u"bd_jve",      u"bd_fun",
                                  u"bd_pad",     u"bd_laikymo_vieta", u"bd_prg",      u"bd_tarn",
                                  u"du_veikl",   u"du_drbklas",       u"bd_objektai", u"bd_pajamurusiukodai",
                                  u"pp_imok",    u"it_pardtip",       u"it_pirktip",  u"bd_nuomasm",
                                  u"bd_kasos",   u"bd_einsas",        u"bd_atsasm",   u"bd_matasm",
                                  u"bd_opr",     u"bd_oprsaskor",     u"bd_baleil",   u"bd_balsas",
                                  u"bd_samatos", u"bd_samkor",        u"bd_isllik",   u"bd_dbkrlik",
                                  u"bd_irasai",  u"it_turtas"})
        EXPECT_GT(count(table), 2) << QString::fromUtf16(table).toStdString();
}

TEST_P(DemoBooks, KnowAnAdministratorABookkeeperAndOneWhoOnlyLooks)
{
    EXPECT_EQ(rows(*ravl, u"select usr_name, usr_perziurai, usr_user_admin from bd_usr order by usr_id"_s),
              QStringList({u"admin|0|1"_s, u"buhaltere|0|0"_s, u"ziurovas|1|0"_s}));
    EXPECT_EQ(
        value(*ravl, u"select count(*) from bd_usr where usr_id in (select udv_usrid from bd_usrkdv)"_s),
        u"3");
    EXPECT_EQ(value(*ravl, u"select count(*) from bd_savivaldybes"_s), u"60");
}

TEST_P(DemoBooks, LeaveOneDetailAccountOutOfTheBalanceFormForItsCheckToShow)
{
    EXPECT_EQ(rows(*fin, u"select sas_sasnr from bd_sasplan where sas_tip = 'D' and "
                         "CheckSasInBalForm(sas_id, '%') = 0"_s),
              QStringList{u"9200003"_s});
}

TEST_P(DemoBooks, LeaveNoBalanceOnASummaryAccount)
{
    EXPECT_EQ(
        rows(*fin, u"select ssl_id from bd_saslik, bd_sasplan where sas_id = ssl_sasid and sas_tip <> 'D'"_s),
        QStringList());
    EXPECT_EQ(
        rows(*fin, u"select irs_id from bd_irasai, bd_sasplan where sas_id = irs_sasid and sas_tip <> 'D'"_s),
        QStringList());
}

TEST_P(DemoBooks, GiveCounterpartiesTheBalanceOfTheirAccount)
{
    EXPECT_EQ(value(*fin, u"select sum(dkl_sum_kr) from bd_dbkrlik where dkl_perid = 6"_s),
              value(*fin, u"select sum(ssl_sum_kr) from bd_saslik, bd_sasplan where sas_id = ssl_sasid and "
                          "ssl_perid = 6 and sas_sasnr like '691%'"_s));
}

TEST_P(DemoBooks, FitTheCodePage)
{
    QStringEncoder encoder("windows-1257");
    for (TDatabase *db : {fin.get(), ravl.get()}) {
        for (const QString &line : dump(*db)) {
            const QByteArray encoded = encoder.encode(line);
            EXPECT_FALSE(encoder.hasError()) << line.toStdString();
            encoder.resetState();
        }
    }
}

TEST_P(DemoBooks, AreTheSameEveryTime)
{
    TestPlace again(GetParam());
    createDemoBooks(*again.store(), 1, silent);
    EXPECT_EQ(dump(*again.fin()), dump(*fin));
    EXPECT_EQ(dump(*again.ravl()), dump(*ravl));
}

TEST_P(DemoBooks, GrowWithTheirSize)
{
    TestPlace larger(GetParam());
    createDemoBooks(*larger.store(), 2, silent);
    const auto db = larger.fin();
    EXPECT_EQ(value(*db, u"select count(*) from bd_dbkrasm"_s), u"600");
    EXPECT_EQ(value(*db, u"select count(*) from bd_irasai"_s).toInt(),
              2 * value(*fin, u"select count(*) from bd_irasai"_s).toInt());
    EXPECT_EQ(findProblems(*db, *larger.ravl(), silent), QStringList());
}

} // namespace
