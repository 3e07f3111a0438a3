// Persons as logins of the server: what an administrator of users writes into bd_usr.

#include "database/tool/keeping/server_console.h"
#include "tests/database/tool/server_logins.h"
#include "tests/support/postgres.h"
#include "tests/support/refusal.h"

using namespace Qt::StringLiterals;

namespace {

class ServerPersons : public OwnLogins {
protected:
    void SetUp() override
    {
        OwnLogins::SetUp();
        adm = session(u"ravl"_s, u"adm"_s);
    }
    void TearDown() override
    {
        adm.reset();
        OwnLogins::TearDown();
    }

    void add(int id, const QString &name, const QString &password = u"slapta"_s)
    {
        adm->nativeExec(u"insert into bd_usr values (%1, '%2', 'Rasa', 'Rasaitė', '%3', 0, 0)"_s.arg(id).arg(
            name, password));
    }
    bool canLogIn(const QString &role, const QString &password) const
    {
        return psql(database(u"fin"_s), role, u"select 1;"_s, password).isEmpty();
    }
    // Why the administrator's statement is refused; empty: it is not.
    QString refusalOf(const QString &statement) const
    {
        try {
            adm->nativeExec(statement);
            return {};
        } catch (const EDatabaseError &error) {
            return error.message();
        }
    }
    int users() const { return ravl->fieldResult(u"select count(*) from bd_usr"_s).toInt(); }

    std::unique_ptr<TDatabase> adm;
};

QString superuserWords()
{
    return postgresConnInfo(u"postgres"_s).replace(u"user=velmora"_s, u"user=postgres"_s);
}

// Whether somebody to whom nothing was granted may connect. The role is one of the test server's.
bool publicEnters(const QString &name)
{
    return postgresValue(u"select has_database_privilege('velmora_password', '%1', 'connect')::int"_s.arg(
               name)) == u"1";
}

const auto taken = u"serveryje jau užimtas: parinkite kitą."_s;

} // namespace

TEST_F(ServerPersons, TheUpgradeGivesALoginToEach)
{
    EXPECT_EQ(groupsOf(login(u"adm"_s)), u"administratoriai buhalteriai");
    EXPECT_EQ(groupsOf(login(u"buh"_s)), u"buhalteriai");
    EXPECT_EQ(groupsOf(login(u"ziu"_s)), u"ziurovai");
    EXPECT_TRUE(canLogIn(login(u"ziu"_s), u"slapta"_s));
    EXPECT_FALSE(canLogIn(login(u"ziu"_s), u"Slapta"_s));
}

TEST_F(ServerPersons, ALoginFollowsItsRow)
{
    const QString first = login(u"ž"_s);
    const QString second = login(u"r"_s);
    add(9, u" "_s + first.toUpper());
    EXPECT_EQ(groupsOf(first), u"buhalteriai");
    EXPECT_TRUE(canLogIn(first, u"slapta"_s));

    adm->nativeExec(u"update bd_usr set usr_name = '%1' where usr_id = 9"_s.arg(second));
    EXPECT_EQ(groupsOf(first), u"nėra");
    EXPECT_TRUE(canLogIn(second, u"slapta"_s)) << "a new name keeps the password";

    adm->nativeExec(u"update bd_usr set usr_pasw = 'ką\\tik''' where usr_id = 9"_s);
    EXPECT_TRUE(canLogIn(second, u"ką\\tik'"_s));
    EXPECT_FALSE(canLogIn(second, u"slapta"_s));

    adm->nativeExec(u"update bd_usr set usr_perziurai = 1, usr_user_admin = 1 where usr_id = 9"_s);
    EXPECT_EQ(groupsOf(second), u"administratoriai ziurovai");

    adm->nativeExec(u"delete from bd_usr where usr_id = 9"_s);
    EXPECT_EQ(groupsOf(second), u"nėra");
}

TEST_F(ServerPersons, ThePasswordIsKeptAsScram)
{
    add(9, login(u"r"_s));
    const QString dump =
        u"select count(*) from pg_authid where rolname = '%1' and rolpassword like 'SCRAM-SHA-256$%'"_s.arg(
            login(u"r"_s));
    TServerConsole server(superuserWords());
    EXPECT_EQ(server.run(dump), QStringList{u"1"_s});
}

TEST_F(ServerPersons, WithoutAPasswordNobodyLogsInByOne)
{
    add(9, login(u"r"_s), {});
    EXPECT_EQ(groupsOf(login(u"r"_s)), u"buhalteriai");
    EXPECT_FALSE(canLogIn(login(u"r"_s), {}));
}

TEST_F(ServerPersons, ANewPasswordEndsTheExpiryOfTheFormerOne)
{
    add(9, login(u"r"_s));
    postgresExec(u"alter role %1 valid until '2020-01-01'"_s.arg(login(u"r"_s)));
    EXPECT_FALSE(canLogIn(login(u"r"_s), u"slapta"_s));
    adm->nativeExec(u"update bd_usr set usr_pasw = 'nauja' where usr_id = 9"_s);
    EXPECT_TRUE(canLogIn(login(u"r"_s), u"nauja"_s));
}

TEST_F(ServerPersons, WhatIsTakenBackLeavesNoLogin)
{
    {
        const TTransaction undone(adm.get());
        add(9, login(u"r"_s));
        adm->nativeExec(u"delete from bd_usr where usr_id = 3"_s);
    }
    EXPECT_EQ(groupsOf(login(u"r"_s)), u"nėra");
    EXPECT_EQ(groupsOf(login(u"ziu"_s)), u"ziurovai");
    EXPECT_NE(
        refusalOf(
            u"insert into bd_usr values (9, '%1', '', '', 'a', 0, 0), (9, 'kitas', '', '', 'a', 0, 0)"_s.arg(
                login(u"r"_s))),
        QString());
    EXPECT_EQ(groupsOf(login(u"r"_s)), u"nėra");
    EXPECT_EQ(users(), 3);
}

TEST_F(ServerPersons, SomebodyElsesLoginIsNeverTouched)
{
    const QString strange = login(u"s"_s);
    postgresExec(u"create role %1 login password 'jo'"_s.arg(strange));
    const auto goes = qScopeGuard([&] { postgresExec(u"drop role "_s + strange); });
    for (const QString &name : {u"postgres"_s, u"Velmora"_s, strange}) {
        EXPECT_TRUE(refusalOf(u"insert into bd_usr values (9, '%1', '', '', 'mano', 0, 0)"_s.arg(name))
                        .endsWith(taken))
            << name.toStdString();
        EXPECT_TRUE(
            refusalOf(u"update bd_usr set usr_name = '%1' where usr_id = 3"_s.arg(name)).endsWith(taken))
            << name.toStdString();
    }
    EXPECT_TRUE(refusalOf(u"insert into bd_usr values (9, 'pg_mano', '', '', 'a', 0, 0)"_s)
                    .contains(u"serveris neleidžia"));
    // A row that came past the administrators: its password and its end are nothing to the other's login.
    ravl->nativeExec(u"insert into bd_usr values (9, '%1', '', '', 'jo', 0, 0)"_s.arg(strange));
    EXPECT_TRUE(refusalOf(u"update bd_usr set usr_pasw = 'mano' where usr_id = 9"_s).endsWith(taken));
    adm->nativeExec(u"delete from bd_usr where usr_id = 9"_s);
    EXPECT_EQ(groupsOf(strange), QString());
    EXPECT_TRUE(psql(u"postgres"_s, strange, u"select 1;"_s, u"jo"_s).isEmpty());
}

TEST_F(ServerPersons, ALoginOfTwoInstitutionsKeepsItsPasswordAndName)
{
    const TestPlace other(Engine::PostgreSql);
    createBooks(*other.store(), [](const QString &) {});
    const QString otherMain = databaseOf(other.store()->books().fin.connInfo);
    const QString both = login(u"ziu"_s);
    postgresExec(u"grant %1_buhalteriai to %2"_s.arg(otherMain, both));
    EXPECT_TRUE(refusalOf(u"update bd_usr set usr_pasw = 'mano' where usr_id = 3"_s)
                    .contains(u"slaptažodį keičia serverio administratorius"));
    EXPECT_TRUE(refusalOf(u"update bd_usr set usr_name = '%1' where usr_id = 3"_s.arg(login(u"kita"_s)))
                    .contains(u"vardą keičia serverio administratorius"));
    adm->nativeExec(u"delete from bd_usr where usr_id = 3"_s);
    EXPECT_EQ(groupsOf(both), otherMain + u"_buhalteriai"_s);
}

TEST_F(ServerPersons, NobodyRenamesDeletesOrDeposesHimself)
{
    EXPECT_TRUE(refusalOf(u"update bd_usr set usr_name = 'kita' where usr_id = 1"_s)
                    .contains(u"Savo prisijungimo vardo pakeisti negalite"));
    EXPECT_TRUE(refusalOf(u"delete from bd_usr where usr_id = 1"_s).contains(u"Savęs ištrinti negalite"));
    EXPECT_TRUE(refusalOf(u"update bd_usr set usr_user_admin = 0 where usr_id = 1"_s)
                    .contains(u"Savo teisės administruoti vartotojus atimti negalite"));
    adm->nativeExec(u"update bd_usr set usr_pasw = 'nauja' where usr_id = 1"_s);
    EXPECT_TRUE(canLogIn(login(u"adm"_s), u"nauja"_s));
}

TEST_F(ServerPersons, ALoginThatOwnsSomethingIsShutInsteadOfDropped)
{
    const QString role = login(u"ziu"_s);
    TServerConsole server(superuserWords());
    server.run(u"create schema %1 authorization %1"_s.arg(role));
    adm->nativeExec(u"delete from bd_usr where usr_id = 3"_s);
    EXPECT_EQ(groupsOf(role), QString());
    EXPECT_FALSE(psql(u"postgres"_s, role, u"select 1;"_s).isEmpty());
    server.run(u"drop schema %1; drop role %1"_s.arg(role));
}

TEST_F(ServerPersons, TheSharedLoginKeepsTheLoginsInStep)
{
    const QString renamed = login(u"n"_s);
    ravl->nativeExec(u"insert into bd_usr values (9, '%1', '', '', 'a', 0, 0);"
                     "update bd_usr set usr_pasw = 'kita', usr_name = '%2' where usr_id = 3;"
                     "delete from bd_usr where usr_id = 2"_s.arg(login(u"r"_s), renamed));
    EXPECT_EQ(groupsOf(login(u"r"_s)), u"buhalteriai");
    EXPECT_TRUE(canLogIn(renamed, u"kita"_s));
    EXPECT_FALSE(canLogIn(renamed, u"slapta"_s));
    EXPECT_EQ(groupsOf(login(u"ziu"_s)), u"nėra");
    EXPECT_EQ(groupsOf(login(u"buh"_s)), u"nėra");
}

// The shared login works without them: a login that cannot follow is no reason to refuse the row.
TEST_F(ServerPersons, TheSharedLoginIsNotHinderedByOtherLogins)
{
    const TestPlace other(Engine::PostgreSql);
    createBooks(*other.store(), [](const QString &) {});
    const QString otherMain = databaseOf(other.store()->books().fin.connInfo);
    const QString both = login(u"ziu"_s);
    postgresExec(u"grant %1_buhalteriai to %2"_s.arg(otherMain, both));
    ravl->nativeExec(u"insert into bd_usr values (9, 'postgres', '', '', 'a', 0, 0);"
                     "update bd_usr set usr_pasw = 'kita', usr_name = 'velmora' where usr_id = 9;"
                     "update bd_usr set usr_pasw = 'kita' where usr_id = 3"_s);
    EXPECT_TRUE(canLogIn(login(u"buh"_s), u"slapta"_s));
    EXPECT_TRUE(groupsOf(both).split(u' ').contains(u"ziurovai"));
    ravl->nativeExec(u"update bd_usr set usr_name = '%1' where usr_id = 3"_s.arg(login(u"n"_s)));
    EXPECT_EQ(groupsOf(both), otherMain + u"_buhalteriai"_s);
    EXPECT_TRUE(canLogIn(login(u"n"_s), u"kita"_s));
    ravl->nativeExec(u"update bd_usr set usr_name = 'postgres' where usr_id = 3"_s);
    EXPECT_EQ(groupsOf(login(u"n"_s)), u"nėra");
}

TEST_F(ServerPersons, TheUpgradeEndsTheLoginsOfNobody)
{
    const QString left = login(u"l"_s);
    const QString service = login(u"s"_s);
    postgresExec(u"create role %1 login password 'slapta' in role %2_ziurovai, %2_buhalteriai"_s.arg(
        left, database(u"fin"_s)));
    postgresExec(u"create role %1 login createdb password 'slapta' in role %2_ziurovai"_s.arg(
        service, database(u"fin"_s)));
    QStringList said;
    upgradeBooks(*place->store(), [&said](const QString &remark) { said << remark; });
    EXPECT_EQ(said, QStringList{
                        u"Prisijungimas prie serverio „%1“ panaikintas: tokio vartotojo nėra."_s.arg(left)});
    EXPECT_EQ(groupsOf(left), u"nėra");
    EXPECT_EQ(groupsOf(service), u"ziurovai") << "what may do more is nobody's person";
    postgresExec(u"drop role "_s + service);
    EXPECT_EQ(groupsOf(login(u"buh"_s)), u"buhalteriai");
}

TEST_F(ServerPersons, ANewPersonGetsTheLoginThatWasLeftWithHisOwnPassword)
{
    const QString left = login(u"l"_s);
    postgresExec(u"create role %1 login password 'sena' valid until '2020-01-01' in role %2_ziurovai"_s.arg(
        left, database(u"fin"_s)));
    add(9, left, u"nauja"_s);
    EXPECT_EQ(groupsOf(left), u"buhalteriai");
    EXPECT_TRUE(canLogIn(left, u"nauja"_s));
    EXPECT_FALSE(canLogIn(left, u"sena"_s));
}

TEST_F(ServerPersons, ALoginCalledAsAGroupIsNotTakenOver)
{
    const TestPlace other(Engine::PostgreSql);
    const QString main = databaseOf(other.store()->books().fin.connInfo);
    const QString mine = main + u"_administratoriai"_s;
    postgresExec(u"create role %1 login"_s.arg(mine));
    QStringList said;
    createBooks(*other.store(), [&said](const QString &remark) { said << remark; });
    EXPECT_TRUE(said.constLast().contains(
        u"Vardu „%1“, kurio reikia naudotojų grupei, serveryje jau kažkas jungiasi."_s.arg(mine)))
        << said.constLast().toStdString();
    EXPECT_EQ(postgresValue(u"select count(*) from pg_auth_members join pg_roles m on m.oid = member "
                            "where m.rolname = '%1'"_s.arg(mine)),
              u"0");
}

TEST_F(ServerPersons, WhoseNameIsTakenIsToldAtTheUpgrade)
{
    ravl->nativeExec(u"insert into bd_usr values (9, 'postgres', '', '', 'a', 0, 0)"_s);
    QStringList said;
    upgradeBooks(*place->store(), [&said](const QString &remark) { said << remark; });
    EXPECT_EQ(said, QStringList{u"Prisijungimo vardas „postgres“ "_s + taken});
    EXPECT_EQ(groupsOf(login(u"adm"_s)), u"administratoriai buhalteriai");
}

TEST_F(ServerPersons, BooksInTheMakingAreShut)
{
    const TestPlace other(Engine::PostgreSql);
    int asked = 0;
    createBooks(*other.store(), [&](const QString &) {
        for (const QString &name : other.everything()) {
            ++asked;
            EXPECT_FALSE(publicEnters(name)) << name.toStdString();
        }
    });
    EXPECT_GT(asked, 3);
}

TEST_F(ServerPersons, AnOwnerWhoMayMakeNoRolesGetsBooksWithOneLogin)
{
    TestPlace other(Engine::PostgreSql);
    const QString owner = login(u"o"_s);
    postgresExec(u"create role %1 login createdb password 'slapta'"_s.arg(owner));
    {
        QString words = other.arguments().constLast();
        words.replace(u"user=velmora"_s, u"user=%1 password=slapta"_s.arg(owner));
        QStringList said;
        createBooks(*serverStore(words), [&said](const QString &remark) { said << remark; });
        EXPECT_EQ(said.constLast(),
                  u"Savi vartotojų prisijungimai prie serverio nesutvarkyti: Naudotojui „%1“ "
                  "neleista kurti serverio naudotojų. Prisijungti galima tik bendru "
                  "prisijungimu."_s.arg(owner));
        EXPECT_EQ(other.everything().size(), 2);
        for (const QString &name : other.everything())
            EXPECT_FALSE(publicEnters(name));
    }
    for (const QString &name : other.everything())
        TServerConsole(superuserWords()).run(u"drop database "_s + name);
    postgresExec(u"drop role "_s + owner);
}
