#include "database/backups/replacement.h"
#include "host/data/connections.h"
#include "host/data/known_books.h"
#include "host/data/main_datas.h"
#include "tests/support/engines.h"
#include "tests/support/files.h"

#include <QDir>

using namespace Qt::StringLiterals;

// A program was killed while it replaced the books: the old main database has its other name, the new one has
// none yet. Whoever opens the books finds the new ones.
class DecidedReplacement : public testing::Test {
protected:
    void SetUp() override
    {
        createEmbeddedBooks(folder.path());
        const TBooks books = settings.books();
        {
            TDatabase fin(books.fin);
            fin.Open();
            fin.ExecSQL(u"insert into bd_org (org_pavad) values ('atkurta')"_s);
        }
        for (const QString &file : {books.fin.file, books.ravl.file})
            ASSERT_TRUE(QFile::copy(file, file + QLatin1String(newEnding)));
        ASSERT_TRUE(QFile::rename(books.fin.file, books.fin.file + u".sena-20261122T101500000"_s));
        writeFile(folder.filePath(u"velmora.keitimas"_s), "VELMORA-KEITIMAS 1 20261122T101500000\n");
    }
    void TearDown() override
    {
        EXPECT_FALSE(replacementUnderWay(folder.path()));
        EXPECT_EQ(QDir(folder.path()).entryList({u"*.nauja"_s}), QStringList());
        EXPECT_EQ(QDir(folder.path()).entryList({u"*.sena-20261122T101500000"_s}).size(), 2);
    }

    const QTemporaryDir folder{scratchRoot() + u"/velmora-XXXXXX"_s};
    const TBooksSettings settings = TBooksSettings::embedded(folder.path());
};

TEST_F(DecidedReplacement, IsFinishedByTheSessions)
{
    const TBooks books = settings.books();
    TMainDatas datas(books.fin, books.ravl);
    datas.Open();
    EXPECT_EQ(value(*datas.mnFin_Db(), u"select org_pavad from bd_org"_s), u"atkurta");
}

TEST_F(DecidedReplacement, IsFinishedByWhoLooksForTheBooks)
{
    EXPECT_TRUE(embeddedBooksExist(folder.path()));
}

TEST_F(DecidedReplacement, IsFinishedByWhoAsksForTheirName)
{
    EXPECT_EQ(nameInBooks(settings), u"atkurta");
}
