#include "database/schema.h"
#include "tests/faults/raised.h"
#include "tests/faults/victim_process.h"
#include "tests/support/engines.h"
#include "tests/support/files.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

// What stands where the books should be, or does not.

namespace {
class Place : public testing::Test {
protected:
    TSessionSettings at(const QString &name) const
    {
        TSessionSettings settings;
        settings.alias = u"mnFin_Db"_s;
        settings.file = folder.filePath(name);
        return settings;
    }
    static void open(const TSessionSettings &settings) { TDatabase(settings).Open(); }

    // Opens, and where there is nothing creates, as somebody who is not the folder's owner.
    QString failureOfStranger(const TSessionSettings &settings)
    {
        VictimProcess victim(u"create"_s, settings, withoutRightsOfRoot());
        EXPECT_FALSE(victim.finish());
        return victim.failure();
    }

    void makeBooks(const TSessionSettings &settings)
    {
        TDatabase db(settings);
        db.Open();
        upgrade(db, Book::Main);
    }

    void setFolderWritable(bool writable)
    {
        QFile::Permissions all = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
        all.setFlag(QFile::WriteOwner, writable);
        QFile::setPermissions(folder.path(), all);
    }
    void TearDown() override { setFolderWritable(true); } // else it could not be removed

    QTemporaryDir folder{scratchRoot() + u"/velmora-place-XXXXXX"_s};
};
} // namespace

TEST_F(Place, FolderThatIsNotWritableGetsNoBooks)
{
    setFolderWritable(false);
    const QString failure = failureOfStranger(at(u"naujos.db"_s));
    EXPECT_TRUE(tells(failure, u"Nepavyko atverti"_s));
    EXPECT_TRUE(tells(failure, u"naujos.db"_s));
    EXPECT_FALSE(QFile::exists(at(u"naujos.db"_s).file));
}

TEST_F(Place, BooksThatAreNotWritableStayAsTheyAre)
{
    const TSessionSettings books = at(u"svetimos.db"_s);
    makeBooks(books);
    const QByteArray before = contentOf(books.file);
    QFile::setPermissions(books.file, QFile::ReadOwner | QFile::ReadOther);
    setFolderWritable(false);
    const QString failure = failureOfStranger(books);
    EXPECT_TRUE(tells(failure, u"svetimos.db"_s));
    EXPECT_TRUE(tells(failure, u"negalima rašyti"_s) || tells(failure, u"Nepavyko atverti"_s));
    EXPECT_EQ(contentOf(books.file), before);
}

TEST_F(Place, FileThatIsNoDatabaseIsRefusedAndLeftAlone)
{
    const QByteArray letter = QByteArray("Gerbiamasis direktoriau, siunčiame sąskaitą.\n").repeated(100);
    writeFile(at(u"laiskas.db"_s).file, letter);
    const QString failure = raised<EDatabaseError>([this] { open(at(u"laiskas.db"_s)); });
    EXPECT_TRUE(tells(failure, u"ne duomenų bazės failas"_s));
    EXPECT_TRUE(tells(failure, u"laiskas.db"_s));
    EXPECT_EQ(contentOf(at(u"laiskas.db"_s).file), letter);
}

TEST_F(Place, MissingFolderIsNamed)
{
    const QString failure = raised<EDatabaseError>([this] { open(at(u"nera/knygos.db"_s)); });
    EXPECT_TRUE(tells(failure, u"Nerastas"_s));
    EXPECT_TRUE(tells(failure, u"nera"_s));
}

TEST_F(Place, DamagedBooksAreCalledDamaged)
{
    const TSessionSettings books = at(u"knygos.db"_s);
    makeBooks(books);
    QByteArray content = contentOf(books.file);
    constexpr qsizetype firstPage = 4096;
    content.replace(firstPage, content.size() - firstPage, QByteArray(content.size() - firstPage, '\x5a'));
    writeFile(books.file, content);
    const QString failure = raised<EDatabaseError>([&books] {
        TDatabase db(books);
        db.Open();
        db.fieldResult(u"select count(*) from bd_period"_s);
    });
    EXPECT_TRUE(tells(failure, u"sugadintas"_s));
    EXPECT_EQ(contentOf(books.file), content);
}

using Revision = OnBothEngines;
ON_BOTH_ENGINES(Revision);

TEST_P(Revision, OfANewerProgramIsRefusedAndLeftAlone)
{
    mnFin_Db->nativeExec(u"update bd_versija set ver_numeris = ver_numeris + 1"_s);
    const QStringList before = dump(*mnFin_Db);
    const QString failure = raised<ENewerDatabase>([this] { upgrade(*secondFin(), Book::Main); });
    EXPECT_TRUE(tells(failure, u"naujesn"_s));
    EXPECT_EQ(dump(*mnFin_Db), before);
}

TEST_P(Revision, OfTheOtherBookIsRefusedAndLeftAlone)
{
    const QStringList before = dump(*mnRavl);
    const QString failure = raised<EDatabaseError>([this] { upgrade(*secondRavl(), Book::Main); });
    EXPECT_TRUE(tells(failure, u"ne ta"_s));
    EXPECT_EQ(dump(*mnRavl), before);
}
