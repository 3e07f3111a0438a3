#include "tests/database/tool/demo_store.h"

using namespace Qt::StringLiterals;

namespace {

using Check = OnDemoBooks;
ON_BOTH_ENGINES(Check);

// Whether one of the findings holds the text.
testing::AssertionResult tells(const QStringList &findings, const QString &text)
{
    if (findings.join(u'\n').contains(text))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << text.toStdString() << " is not told by: " << findings.join(u'\n').toStdString();
}

// The account of one balance row.
QString accountOf(TDatabase &fin, const QString &balance)
{
    return value(fin,
                 u"select sas_sasnr from bd_sasplan, bd_saslik where ssl_sasid = sas_id and ssl_id = "_s +
                     balance);
}

// A balance of the fourth month that moves in no month.
QString someBalance(TDatabase &fin)
{
    return value(fin, u"select max(ssl_id) from bd_saslik where ssl_perid = 9 and ssl_sum_db > 0"_s);
}

TEST_P(Check, FindsAChangedBalanceOfAnyMonth)
{
    const QString id = someBalance(*fin);
    const QStringList found = findingsAfter(
        {u"update bd_saslik set ssl_sum_db = ssl_sum_db + 0.01 where ssl_id = "_s + id}, Book::Main);
    EXPECT_TRUE(tells(found, u"Periodas 9: pradžios likučių debetas"_s));
    EXPECT_TRUE(tells(found, u"Sąskaita %1: 2026.04 pradžios likutis"_s.arg(accountOf(*fin, id))));
    EXPECT_TRUE(tells(found, u"Sąskaita %1: 2026.05 pradžios likutis"_s.arg(accountOf(*fin, id))));
}

TEST_P(Check, FindsAMissingBalance)
{
    const QString id = someBalance(*fin);
    const QString account = accountOf(*fin, id);
    const QStringList found = findingsAfter({u"delete from bd_saslik where ssl_id = "_s + id}, Book::Main);
    EXPECT_TRUE(tells(found, u"Sąskaita %1: 2026.04 pradžios likutis 0.00"_s.arg(account)));
}

TEST_P(Check, FindsTwoChangesThatLeaveTheSidesEqual)
{
    const QStringList found = findingsAfter(
        {u"update bd_saslik set ssl_sum_db = ssl_sum_db + 5 where ssl_id = "_s + someBalance(*fin),
         u"update bd_saslik set ssl_sum_kr = ssl_sum_kr + 5 where ssl_id = (select min(ssl_id) from "
         u"bd_saslik where "
         "ssl_perid = 9 and ssl_sum_kr > 0)"_s},
        Book::Main);
    EXPECT_FALSE(tells(found, u"nelygus kreditui"_s));
    EXPECT_TRUE(tells(found, u"2026.04 pradžios likutis"_s));
}

TEST_P(Check, FindsAChangedEntry)
{
    const QStringList found =
        findingsAfter({u"update bd_irasai set irs_sum_db = irs_sum_db + 64 where irs_id = 1"_s}, Book::Main);
    EXPECT_TRUE(tells(found, u"Periodas 6: įrašų debetas"_s));
    EXPECT_TRUE(tells(found, u"2026.02 pradžios likutis"_s));
}

TEST_P(Check, FindsAChangedBalanceOfACounterparty)
{
    const QStringList found = findingsAfter(
        {u"update bd_dbkrlik set dkl_sum_kr = dkl_sum_kr + 1 where dkl_id = (select max(dkl_id) from bd_dbkrlik)"_s},
        Book::Main);
    EXPECT_TRUE(tells(found, u"Debitorius ar kreditorius"_s));
}

TEST_P(Check, FindsSwappedBalancesOfTwoCounterparties)
{
    const QString two = u"dkl_id in ((select min(dkl_id) from bd_dbkrlik where dkl_perid = 12), "
                        "(select max(dkl_id) from bd_dbkrlik where dkl_perid = 12))"_s;
    const QString other = u"(select sum(%1) from bd_dbkrlik where %2) - %1"_s;
    const QStringList found =
        findingsAfter({u"update bd_dbkrlik set dkl_sum_db = %2, dkl_sum_kr = %3 where %1"_s.arg(
                          two, other.arg(u"dkl_sum_db"_s, two), other.arg(u"dkl_sum_kr"_s, two))},
                      Book::Main);
    EXPECT_EQ(found.filter(u"Debitorius ar kreditorius"_s).size(), 2) << found.join(u'\n').toStdString();
}

TEST_P(Check, FindsAChangedBalanceOfExpenses)
{
    const QStringList found = findingsAfter(
        {u"update bd_isllik set sml_kas_db = sml_kas_db + 1 where sml_id = (select max(sml_id) from bd_isllik)"_s},
        Book::Main);
    EXPECT_TRUE(tells(found, u"Kasinių išlaidų mazgas"_s));
    EXPECT_FALSE(tells(found, u"Faktinių išlaidų mazgas"_s));
}

TEST_P(Check, AcceptsExpensesEnteredAnewForJanuary)
{
    logIn();
    TTransaction undone(fin.get());
    for (int month = 7; month <= 12; ++month)
        closeMonth();
    ASSERT_EQ(findings(), QStringList());
    fin->ExecSQL(u"update bd_isllik set sml_kas_db = 7 where sml_perid = get_last_per_id()"_s);
    EXPECT_EQ(findings(), QStringList());
}

TEST_P(Check, AcceptsBalancesOfCounterpartiesDeletedForAllMonths)
{
    logIn();
    EXPECT_EQ(findingsAfter({u"delete from bd_dbkrlik"_s}, Book::Main), QStringList());
}

TEST_P(Check, FindsTwoCurrentPeriods)
{
    const QStringList found = findingsAfter({u"insert into bd_period values (14, 2025, 4, 3)"_s}, Book::Main);
    EXPECT_TRUE(tells(
        found,
        u"Du einamieji periodai: pagal datą 2026.07 (periodas 12), pagal numerį 2025.12 (periodas 14)."_s));
}

TEST_P(Check, FindsAGapBetweenMonths)
{
    const QStringList found = findingsAfter(
        {u"delete from bd_saslik where ssl_perid = 8"_s, u"delete from bd_period where per_id = 8"_s},
        Book::Main);
    EXPECT_TRUE(tells(found, u"Nutrūkusi mėnesių seka: po 2026.02 eina 2026.04."_s));
}

TEST_P(Check, FindsBooksWithoutAnyMonth)
{
    EXPECT_TRUE(tells(findingsAfter({u"delete from bd_period where per_menuo > 0"_s}, Book::Main),
                      u"Nėra einamojo periodo"_s));
}

TEST_P(Check, FindsAReferenceToNothing)
{
    const QString change = u"update bd_kasos set kas_sasid = 999999 where kas_id = 1"_s;
    const QStringList changes =
        GetParam() == Engine::Sqlite
            ? QStringList{u"pragma defer_foreign_keys = on"_s, change}
            : QStringList{
                  u"alter table bd_kasos drop constraint bd_kasos_kas_sasid_fkey"_s, change,
                  u"alter table bd_kasos add constraint bd_kasos_kas_sasid_fkey foreign key (kas_sasid) "
                  "references bd_sasplan (sas_id) not valid"_s};
    EXPECT_TRUE(tells(
        findingsAfter(changes, Book::Main),
        u"lentelės „bd_kasos“ eilutės (1) rodo į nesamą lentelės „bd_sasplan“ eilutę (kas_sasid = 999999)"_s));
}

TEST_P(Check, FindsBalancesOfNoPeriod)
{
    EXPECT_TRUE(tells(
        findingsAfter({u"update bd_saslik set ssl_perid = 77 where ssl_id = 1"_s,
                       u"update bd_saslik set ssl_perid = 78 where ssl_id in (2, 3)"_s},
                      Book::Main),
        u"velmora_fin: lentelėje „bd_saslik“ be periodo liko eilučių: 3; nebėra periodo 77 (eilučių: 1), "
        "78 (eilučių: 2)."_s));
}

TEST_P(Check, FindsWhatTheStartOfWorkSetAnewLeavesWithoutAPeriod)
{
    const QStringList found = findingsAfter({u"delete from bd_period where per_id > 6"_s}, Book::Main);
    for (const QString &table : {u"bd_saslik"_s, u"bd_isllik"_s, u"bd_dbkrlik"_s})
        EXPECT_TRUE(tells(found, u"lentelėje „%1“ be periodo liko eilučių: "_s.arg(table)));
    EXPECT_FALSE(tells(found, u"lentelėje „bd_irasai“"_s));
}

TEST_P(Check, FindsAWrongTotalOfCorrections)
{
    const QString change = u"update bd_samatos set sam_sam_kor = sam_sam_kor + 1 where sam_id = 1"_s;
    EXPECT_TRUE(tells(findingsAfter({change}, Book::Main), u"metinė sąmata: koregavimų suma"_s));
}

TEST_P(Check, FindsThatNobodyMayAdministerUsers)
{
    EXPECT_TRUE(tells(findingsAfter({u"update bd_usr set usr_user_admin = 0"_s}, Book::Budget),
                      u"Nė vienas vartotojas neturi teisės administruoti vartotojų."_s));
}

TEST_P(Check, FindsAnotherRevision)
{
    EXPECT_TRUE(tells(findingsAfter({u"update bd_versija set ver_numeris = ver_numeris + 1"_s}, Book::Budget),
                      u"velmora_ravl: duomenų bazės redakcija"_s));
}

} // namespace
