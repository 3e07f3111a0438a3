// What a SQLite file may be instead of a database, told in words.

#include "tests/support/files.h"
#include "tests/toolkit/data/expect_error.h"
#include "toolkit/data/database.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class SqliteFiles : public testing::Test {
protected:
    TSessionSettings at(const QString &name, bool readOnly = false) const
    {
        TSessionSettings settings;
        settings.alias = u"mnFin_Db"_s;
        settings.file = folder.filePath(name);
        settings.readOnly = readOnly;
        settings.busyTimeoutMs = 50;
        return settings;
    }

    QTemporaryDir folder{scratchRoot() + u"/velmora-files-XXXXXX"_s};
};

} // namespace

TEST_F(SqliteFiles, AMissingFileIsCreatedUnlessReadOnly)
{
    EXPECT_ERROR(EDatabaseError, TDatabase(at(u"a.db"_s, true)).Open(), u"Nerastas duomenų bazės failas"_s);
    EXPECT_FALSE(QFile::exists(folder.filePath(u"a.db"_s)));
    TDatabase(at(u"a.db"_s)).Open();
    EXPECT_TRUE(QFile::exists(folder.filePath(u"a.db"_s)));
}

TEST_F(SqliteFiles, AMissingFolderIsNamed)
{
    EXPECT_ERROR(EDatabaseError, TDatabase(at(u"nera/a.db"_s)).Open(), folder.filePath(u"nera"_s));
}

TEST_F(SqliteFiles, AFolderIsNoDatabase)
{
    EXPECT_ERROR(EDatabaseError, TDatabase(at(u"."_s)).Open(), u"yra aplankas"_s);
}

TEST_F(SqliteFiles, AForeignFileIsRefusedAndStaysAsItWas)
{
    const QByteArray content("Tai ne duomenų bazė, o paprastas tekstas. ", 30);
    writeFile(folder.filePath(u"a.txt"_s), content.repeated(100));
    EXPECT_ERROR(EDatabaseError, TDatabase(at(u"a.txt"_s)).Open(), u"Tai ne duomenų bazės failas"_s);
    EXPECT_EQ(contentOf(folder.filePath(u"a.txt"_s)), content.repeated(100));
}

TEST_F(SqliteFiles, TheFileIsHardenedAgainstPowerCuts)
{
    TDatabase db(at(u"a.db"_s));
    db.Open();
    QSqlQuery query(db.handle());
    const auto pragma = [&query](const QString &name) {
        return query.exec(u"pragma "_s + name) && query.next() ? query.value(0).toString() : QString();
    };
    EXPECT_EQ(pragma(u"journal_mode"_s), u"wal"_s);
    EXPECT_EQ(pragma(u"synchronous"_s), u"2"_s);
    EXPECT_EQ(pragma(u"foreign_keys"_s), u"1"_s);
    query.finish();
}

TEST_F(SqliteFiles, BeginTakesTheWriteLockAtOnce)
{
    TDatabase one(at(u"a.db"_s));
    TDatabase two(at(u"a.db"_s));
    one.Open();
    two.Open();
    one.StartTransaction();
    EXPECT_ERROR(EDatabaseBusy, two.StartTransaction(), u"užrakino"_s);
    EXPECT_FALSE(two.InTransaction());
    one.Rollback();
    two.StartTransaction();
    EXPECT_TRUE(two.InTransaction());
    two.Rollback();
}
