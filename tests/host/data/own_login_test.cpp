#include "host/data/backups.h"
#include "host/data/login.h"
#include "host/data/own_login.h"
#include "tests/support/own_logins.h"
#include "tests/support/refusal.h"

using namespace Qt::StringLiterals;

namespace {

class OwnLogin : public WithOwnLogins<OnBothEngines> {
protected:
    void SetUp() override
    {
        OnBothEngines::SetUp();
        CurrentUser() = {};
        person(1, u"adm"_s, false, true);
        person(2, u"buh"_s, false, false);
        person(3, u"ziu"_s, true, false);
        giveLogins();
    }
    void TearDown() override
    {
        setMainDatas(nullptr);
        CurrentUser() = {};
        WithOwnLogins::TearDown();
    }

    // Why this person is not let in; nobody is then.
    QString refusalOf(const QString &name) const
    {
        try {
            EXPECT_FALSE(logIn(books(), name, u"slapta"_s));
        } catch (const EDatabaseError &error) {
            EXPECT_FALSE(MainDatas());
            EXPECT_EQ(CurrentUser().id, 0);
            return error.message();
        }
        return {};
    }
};
ON_ENGINE(OwnLogin, Engine::PostgreSql);

} // namespace

TEST_P(OwnLogin, OpensTheBooksAsThePerson)
{
    ASSERT_TRUE(logIn(books(), u" "_s + login(u"buh"_s).toUpper(), u"slapta"_s));
    EXPECT_EQ(CurrentUser().id, 2);
    EXPECT_EQ(CurrentUser().name, login(u"buh"_s));
    EXPECT_TRUE(hasOwnLogin());
    MainDatas()->mnFin_Db()->ExecSQL(
        u"insert into bd_savivaldybes (sav_kod, sav_pavad) values (1, 'Vilnius')"_s);
    EXPECT_THROW(MainDatas()->mnRavl()->ExecSQL(u"delete from bd_usr"_s), EDatabaseError);
}

TEST_P(OwnLogin, WhoMayOnlyLookCannotWriteInASessionThatCould)
{
    ASSERT_TRUE(logIn(books(), login(u"ziu"_s), u"slapta"_s));
    EXPECT_TRUE(CurrentUser().viewOnly);
    EXPECT_THROW(MainDatas()->mnFin_Db()->ExecSQL(u"insert into bd_savivaldybes (sav_kod) values (1)"_s),
                 EDatabaseError);
    MainDatas()->makeReadOnly();
    EXPECT_EQ(MainDatas()->mnFin_Db()->fieldResult(u"select count(*) from bd_savivaldybes"_s), 0);
}

TEST_P(OwnLogin, AWrongPasswordAndOneThatExpiredAreNotTaken)
{
    EXPECT_FALSE(logIn(books(), login(u"buh"_s), u"Slapta"_s));
    EXPECT_FALSE(logIn(books(), login(u"buh"_s), {}));
    EXPECT_FALSE(logIn(books(), u"nera_tokio"_s, u"slapta"_s));
    postgresExec(u"alter role %1 valid until '2020-01-01'"_s.arg(login(u"buh"_s)));
    EXPECT_FALSE(logIn(books(), login(u"buh"_s), u"slapta"_s));
    EXPECT_FALSE(MainDatas());
}

TEST_P(OwnLogin, WithoutRightsOnTheBooksItIsTold)
{
    const QString role = login(u"s"_s);
    postgresExec(u"create role %1 login password 'slapta'"_s.arg(role));
    const auto goes = qScopeGuard([&role] { postgresExec(u"drop role "_s + role); });
    EXPECT_EQ(refusalOf(role),
              u"Serveris jus priėmė, bet teisių dirbti su šiomis knygomis neturite. Kreipkitės į "
              "vartotojų administratorių.");
}

TEST_P(OwnLogin, WhoIsNotAmongTheUsersIsTold)
{
    const QString main = finSettings().connInfo.section(u"dbname="_s, 1);
    postgresExec(u"create role %1 login password 'slapta' in role %2_buhalteriai"_s.arg(login(u"n"_s), main));
    EXPECT_EQ(refusalOf(login(u"n"_s)),
              u"Serveris jus priėmė, bet tarp šių knygų vartotojų vardo „%1“ nėra. Kreipkitės į vartotojų "
              "administratorių."_s.arg(login(u"n"_s)));
}

TEST_P(OwnLogin, WordsWithAUserAreASharedLogin)
{
    EXPECT_TRUE(haveOwnLogins(books()));
    EXPECT_FALSE(haveOwnLogins(TBooksSettings::server(u"host=a user=b"_s)));
    EXPECT_FALSE(haveOwnLogins(TBooksSettings::embedded(u"/knygos"_s)));
    auto shared = std::make_unique<TMainDatas>(finSettings(), ravlSettings());
    shared->Open();
    setMainDatas(std::move(shared));
    ASSERT_TRUE(logIn(*MainDatas(), login(u"ziu"_s), u"slapta"_s));
    EXPECT_FALSE(hasOwnLogin());
}

TEST_P(OwnLogin, AnOddPasswordIsNothingButAPassword)
{
    const QString odd = u"a' b\\ user='velmora"_s;
    mnRavl->nativeExec(u"update bd_usr set usr_pasw = %1 where usr_id = 2"_s.arg(TDatabase::quoted(odd)));
    ASSERT_TRUE(logIn(books(), login(u"buh"_s), odd));
    EXPECT_EQ(CurrentUser().id, 2);
}
