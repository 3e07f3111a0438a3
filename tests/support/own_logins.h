#pragma once

#include "database/server_roles.h"
#include "host/data/connections.h"
#include "tests/support/engines.h"
#include "tests/support/postgres.h"

#include <QCoreApplication>

// On a fixture of two databases of the server: their persons have logins of their own. The roles go with the
// databases.
template<class Base> class WithOwnLogins : public Base {
protected:
    void TearDown() override
    {
        const QString main = databaseOf(this->finSettings());
        Base::TearDown();
        postgresDropRolesOf(main);
    }

    // The login of a person: no other test has the same, and ten characters are enough for it.
    static QString login(const QString &person)
    {
        return person + QString::number(QCoreApplication::applicationPid() % 10'000'000);
    }

    // A row of bd_usr, written by the owner of the books. The password is "slapta".
    void person(int id, const QString &name, bool viewOnly, bool userAdmin)
    {
        const auto owner = this->open(this->ravlSettings());
        owner->nativeExec(
            QStringLiteral("insert into bd_usr values (%1, '%2', 'Ona', 'Onaitė', 'slapta', %3, %4)")
                .arg(id)
                .arg(login(name))
                .arg(int(viewOnly))
                .arg(int(userAdmin)));
    }
    void giveLogins()
    {
        const auto fin = this->open(this->finSettings());
        const auto ravl = this->open(this->ravlSettings());
        EXPECT_EQ(setUpServerRoles(*fin, *ravl), QStringList());
    }

    // How a station names the books: without a user.
    TBooksSettings books() const
    {
        const QString words = this->finSettings().connInfo.section(QStringLiteral("dbname="), 0, 0);
        return TBooksSettings::server(QString(words).remove(QStringLiteral("user=velmora")).simplified(),
                                      databaseOf(this->finSettings()), databaseOf(this->ravlSettings()));
    }

    // The groups of a login, without the name of the books; "nėra" when there is no such login.
    QString groupsOf(const QString &name) const
    {
        return postgresValue(
                   QStringLiteral(
                       "select coalesce(max(groups), 'nėra') from (select coalesce(string_agg(g.rolname, "
                       "' ' order by g.rolname), '') as groups from pg_roles p "
                       "left join pg_auth_members on member = p.oid left join pg_roles g on g.oid = roleid "
                       "where p.rolname = '%1' group by p.oid) s")
                       .arg(name))
            .remove(databaseOf(this->finSettings()) + QLatin1Char('_'));
    }

private:
    static QString databaseOf(const TSessionSettings &settings)
    {
        return settings.connInfo.section(QStringLiteral("dbname="), 1);
    }
};
