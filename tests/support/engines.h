#pragma once

#include "tests/support/print.h"
#include "toolkit/data/database.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

// Data tests run on both engines. A test derives its fixture from OnBothEngines (or uses it as it is):
//
//     using Periods = OnBothEngines;
//     ON_BOTH_ENGINES(Periods);
//     TEST_P(Periods, CloseCarriesTheBalances) { mnFin_Db->ExecSQL("…"); EXPECT_EQ(rows(*mnFin_Db, "…"), …);
//     }
//
// Every test gets databases of its own, so tests never see each other's rows.

// How an engine is called in the names of the tests.
QString engineName(Engine engine);
void PrintTo(Engine engine, std::ostream *out);

#define ON_BOTH_ENGINES(Fixture)                                                                             \
    INSTANTIATE_TEST_SUITE_P(                                                                                \
        , Fixture, testing::Values(Engine::Sqlite, Engine::PostgreSql),                                      \
        [](const testing::TestParamInfo<Engine> &engine) { return engineName(engine.param).toStdString(); })

// A fixture of what only one engine has.
#define ON_ENGINE(Fixture, engine)                                                                           \
    INSTANTIATE_TEST_SUITE_P(                                                                                \
        , Fixture, testing::Values(engine),                                                                  \
        [](const testing::TestParamInfo<Engine> &) { return engineName(engine).toStdString(); })

// Two fresh databases without any table, on the engine that the test's parameter names.
class OnEmptyDatabases : public testing::TestWithParam<Engine> {
public:
    OnEmptyDatabases();
    ~OnEmptyDatabases() override;

protected:
    void SetUp() override;
    void TearDown() override;

    Engine engine() const { return GetParam(); }

    // Both sessions, open. A test may close and open them again.
    TDatabase *mnFin_Db = nullptr;
    TDatabase *mnRavl = nullptr;

    // The same two databases as another station opens them; connected on first use.
    TDatabase *secondFin();
    TDatabase *secondRavl();

    // How a session reaches them: for programs started by a test, for read-only sessions and the like.
    TSessionSettings finSettings() const;
    TSessionSettings ravlSettings() const;

    // A further session on the main database, open: session({.readOnly = true}) and the like start from here.
    std::unique_ptr<TDatabase> open(const TSessionSettings &settings) const;

    // A folder of the test's own, removed with the test.
    QString folder() const;

    // The content that new databases start from; empty: none at all.
    struct Origin {
        QString fin;  // SQLite: a file to copy; PostgreSQL: the name of a template database
        QString ravl; // the same for the second database
    };
    virtual Origin origin() { return {}; }

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// Two fresh databases with the full schema and no rows but those that the schema itself brings.
class OnBothEngines : public OnEmptyDatabases {
protected:
    Origin origin() override;
};

// The rows of a select as texts for comparison: values are separated by "|", a null reads "NULL", a number is
// the shortest text that means it, a date is yyyy-mm-dd, a truth is 1 or 0, a blob is hexadecimal.
QStringList rows(TDatabase &db, const QString &sql, const QVariantMap &parameters = {});

// The single value of a select in the same wording.
QString value(TDatabase &db, const QString &sql, const QVariantMap &parameters = {});

// The first value of a statement in the engine's own wording, which the translator would not know; null
// without rows.
QString nativeValue(TDatabase &db, const QString &statement);

// All rows of all tables, except the history and the seals, exactly as the engine stores them, one line per
// row, in a fixed order: two dumps are equal exactly when nothing was changed.
QStringList dump(TDatabase &db);
QStringList dump(TDatabase &db, const QString &table);

// One hash over the dump, for databases whose dump would be large.
QByteArray fingerprint(TDatabase &db);
