#include "host/data/login.h"

#include "tests/host/books.h"

using namespace Qt::StringLiterals;

class Login : public WithMainDatas {
protected:
    void SetUp() override
    {
        WithMainDatas::SetUp();
        addUser(1, u"Ąžuolas"_s, u"Slapta1"_s, 0, 1);
        addUser(2, u"ona"_s, QString(), 1, 0);
        ravl->ExecSQL(u"insert into bd_fin (fin_id, fin_pavad) values (1, 'Biudžetas')"_s);
        ravl->ExecSQL(u"insert into bd_fin (fin_id, fin_pavad) values (2, 'Fondas')"_s);
        ravl->ExecSQL(u"insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) values (1, 1, 5)"_s);
        ravl->ExecSQL(u"insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) values (1, 2, 196610)"_s);
    }

    void addUser(int id, const QString &name, const QString &password, int viewOnly, int admin)
    {
        ravl->ExecSQL(
            u"insert into bd_usr (usr_id, usr_name, usr_vardas, usr_pavarde, usr_pasw, usr_perziurai, "
            "usr_user_admin) values (:id, :name, 'Vardas', 'Pavardė', :pasw, :per, :adm)"_s,
            {{u"id"_s, id},
             {u"name"_s, name},
             {u"pasw"_s, password.isNull() ? Variant() : Variant(password)},
             {u"per"_s, viewOnly},
             {u"adm"_s, admin}});
    }
};
ON_BOTH_ENGINES(Login);

TEST_P(Login, FillsTheUserWithHisFlagsAndAllWorkPlaces)
{
    ASSERT_TRUE(logIn(*MainDatas(), u"Ąžuolas"_s, u"Slapta1"_s));
    EXPECT_EQ(CurrentUser().id, 1);
    EXPECT_EQ(CurrentUser().name, u"Ąžuolas");
    EXPECT_EQ(CurrentUser().fullName, u"Vardas Pavardė");
    EXPECT_EQ(CurrentUser().workPlaces, 7) << "5 of one source, 2 of the other, bits above 16 dropped";
    EXPECT_FALSE(CurrentUser().viewOnly);
    EXPECT_TRUE(CurrentUser().userAdmin);
}

TEST_P(Login, TheNameMayBeTypedInAnyCaseWithBlanksAround)
{
    EXPECT_TRUE(logIn(*MainDatas(), u"  ąŽUOLAS "_s, u"Slapta1"_s));
}

TEST_P(Login, ThePasswordMustBeTypedExactly)
{
    EXPECT_FALSE(logIn(*MainDatas(), u"Ąžuolas"_s, u"slapta1"_s));
    EXPECT_FALSE(logIn(*MainDatas(), u"Ąžuolas"_s, u"Slapta1 "_s));
    EXPECT_FALSE(logIn(*MainDatas(), u"Ąžuolas"_s, QString()));
}

TEST_P(Login, AFailedLoginLeavesTheUserAsHeWas)
{
    ASSERT_TRUE(logIn(*MainDatas(), u"ona"_s, QString()));
    EXPECT_FALSE(logIn(*MainDatas(), u"Ąžuolas"_s, u"ne"_s));
    EXPECT_FALSE(logIn(*MainDatas(), u"nėra"_s, u"Slapta1"_s));
    EXPECT_FALSE(logIn(*MainDatas(), u""_s, QString()));
    EXPECT_EQ(CurrentUser().id, 2);
}

TEST_P(Login, AUserWithoutPasswordAndRightsLogsInWithNothing)
{
    ASSERT_TRUE(logIn(*MainDatas(), u"ONA"_s, u""_s));
    EXPECT_TRUE(CurrentUser().viewOnly);
    EXPECT_FALSE(CurrentUser().userAdmin);
    EXPECT_EQ(CurrentUser().workPlaces, 0);
}

TEST_P(Login, ANameIsNeverPartOfAStatement)
{
    EXPECT_FALSE(logIn(*MainDatas(), u"x' or '1'='1"_s, u"x' or '1'='1"_s));
}
