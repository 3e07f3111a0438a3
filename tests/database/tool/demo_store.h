#pragma once

#include "database/schema.h"
#include "database/tool/keeping/keeper.h"
#include "tests/support/engines.h"

// A place for books of a test's own on either engine; both databases and what the program left beside them go
// with the object.
class TestPlace {
public:
    explicit TestPlace(Engine engine);
    ~TestPlace();
    TestPlace(const TestPlace &) = delete;
    TestPlace &operator=(const TestPlace &) = delete;

    // The arguments that name the place to the program.
    QStringList arguments() const;
    std::unique_ptr<TStore> store() const;
    std::unique_ptr<TDatabase> fin() const;
    std::unique_ptr<TDatabase> ravl() const;
    // A file in a folder of the test's own.
    QString file(const QString &name) const;
    // All databases or files of the place, final ones and others.
    QStringList everything() const;
    // Fingerprints of both databases.
    QByteArrayList fingerprints() const;

private:
    Engine engine;
    QTemporaryDir folder;
    QString words;
    QString prefix;
};

// The demonstration books of an engine, made once for all tests; tests change them in transactions that they
// roll back.
class OnDemoBooks : public testing::TestWithParam<Engine> {
protected:
    void SetUp() override;
    void TearDown() override;

    static TestPlace &place(Engine engine);
    TestPlace &place() { return place(GetParam()); }
    // The findings of the check after a change, which is taken back.
    QStringList findingsAfter(const QStringList &changes, Book book);
    QStringList findings();

    // Ona works in both sessions from here on; before, what they write is as if another program wrote it. Not
    // inside a transaction.
    void logIn();
    qlonglong currentMonth();
    // Closes the current month as the program does, with its seal.
    void closeMonth();

    std::unique_ptr<TDatabase> fin;
    std::unique_ptr<TDatabase> ravl;
};
