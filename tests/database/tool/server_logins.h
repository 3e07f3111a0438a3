#pragma once

#include "tests/database/tool/demo_store.h"

// The engine's own shell on a database, as this login; all logins of these tests have the password "slapta".
// What it prints is its errors, nothing but their SQL states, and what \warn says, in order.
QStringList psql(const QString &database, const QString &login, const QString &script,
                 const QString &password = QStringLiteral("slapta"));

// Books on the server whose persons log in by themselves: "buh", "ziu" (only looks) and "adm" (administers
// users too), each followed by the test's own number.
class OwnLogins : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // The login of a person of these books: no two tests have the same.
    QString login(const QString &person) const;
    // The name of a database: "fin" or "ravl".
    QString database(const QString &book) const;
    // A session of the person.
    std::unique_ptr<TDatabase> session(const QString &book, const QString &person,
                                       const QString &password = QStringLiteral("slapta")) const;
    // The groups of a role without the name of the books, or "nėra".
    QString groupsOf(const QString &role) const;

    std::unique_ptr<TestPlace> place;
    std::unique_ptr<TDatabase> fin, ravl; // of the owner
};
