#include "host/data/connections.h"

#include "host/data/main_datas.h"
#include "tests/support/files.h"
#include "tests/support/private_files.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
constexpr uid_t nobody = 65534;
}

class BooksSettings : public testing::Test {
protected:
    QString file() const { return folder.filePath(u"velmora.ini"_s); }
    void write(const QByteArray &content) { writeFile(file(), content); }
    void expectRefused(const QByteArray &content)
    {
        write(content);
        EXPECT_THROW(readBooksSettings(file()), EConvertError) << content.constData();
    }

    QTemporaryDir folder;
};

TEST_F(BooksSettings, WithoutAFileThereAreNone)
{
    EXPECT_FALSE(readBooksSettings(file()));
}

TEST_F(BooksSettings, WhatIsWrittenIsReadBack)
{
    const QString odd = u"/srv/Buhalterija, \"nauja\" \\ ąčę; 100%"_s;
    writeBooksSettings(file(), TBooksSettings::embedded(odd));
    const auto embedded = readBooksSettings(file());
    ASSERT_TRUE(embedded);
    EXPECT_TRUE(embedded->isEmbedded());
    EXPECT_EQ(embedded->folder, odd);

    const QString words = u"host=a.lt,b.lt port=5432,5433 user='jonas jonaitis' password='a\\'b'"_s;
    writeBooksSettings(file(), TBooksSettings::server(words, u"knygos"_s, u"teisės"_s));
    const auto server = readBooksSettings(file());
    ASSERT_TRUE(server);
    EXPECT_FALSE(server->isEmbedded());
    EXPECT_EQ(server->connection, words + u" fin=knygos ravl=teisės"_s);
}

TEST_F(BooksSettings, TheFileIsItsOwnersAlone)
{
    const OpenMask everybody;
    const QString place = folder.filePath(u"nauja/velmora.ini"_s);
    writeBooksSettings(place, TBooksSettings::server(u"host=a password=b"_s));
    EXPECT_EQ(openToOthers(QFileInfo(place).path()), QStringList());
}

TEST_F(BooksSettings, AListOfHostsNeedsNoQuotes)
{
    write("[Books]\nServer=host=a.lt,b.lt user=jonas\n");
    const auto server = readBooksSettings(file());
    ASSERT_TRUE(server);
    EXPECT_EQ(server->connection, "host=a.lt,b.lt user=jonas");
}

TEST_F(BooksSettings, ADamagedFileIsReportedAndNotReplacedByOtherBooks)
{
    expectRefused("");
    expectRefused("[Books]\n");
    expectRefused("[Books]\nFolder=\n");
    expectRefused("[Books]\nFolder=/a\nServer=host=b\n");
    expectRefused("[Books]\nFoldr=/a\n");
    expectRefused("[Boks]\nFolder=/a\n");
    expectRefused("[Books]\nFolder=/a\nX=1\n");
    expectRefused("[Books]\nServer=just some words\n");
    expectRefused("[Books]\nServer=host=a dbname=b\n");
    expectRefused("[Books\nFolder=/a\n");
}

TEST_F(BooksSettings, AFolderInPlaceOfTheFileIsReported)
{
    EXPECT_THROW(readBooksSettings(folder.path()), EConvertError);
}

TEST_F(BooksSettings, AnUnwritablePlaceIsReported)
{
    write("x");
    EXPECT_THROW(writeBooksSettings(file() + u"/velmora.ini"_s, TBooksSettings::embedded(u"/a"_s)),
                 EConvertError);
}

TEST_F(BooksSettings, ServerBooksAreTwoDatabasesNamedByTheWords)
{
    const TBooks usual = TBooksSettings::server(u"host=a"_s).books();
    EXPECT_EQ(usual.fin.connInfo, "host=a dbname=velmora_fin");
    EXPECT_EQ(usual.ravl.connInfo, "host=a dbname=velmora_ravl");
    const TBooks named = TBooksSettings::server(u"host=a ravl=r"_s, u"f"_s).books();
    EXPECT_EQ(named.fin.connInfo, "host=a dbname=f");
    EXPECT_EQ(named.ravl.connInfo, "host=a dbname=r");
    EXPECT_EQ(named.ravl.engine, Engine::PostgreSql);
}

class FirstStart : public testing::Test {
protected:
    QString path() const { return folder.filePath(u"knygos"_s); }
    QStringList files() const { return QDir(path()).entryList({u"*.db*"_s}, QDir::Files, QDir::Name); }
    TBooks books() const { return embeddedBooks(path()); }
    void expectTheyOpen() const
    {
        EXPECT_EQ(files(), QStringList({u"velmora_fin.db"_s, u"velmora_ravl.db"_s}));
        TMainDatas datas(books().fin, books().ravl);
        datas.Open();
        EXPECT_EQ(datas.mnFin_Db()->fieldResult(u"select count(*) from bd_period"_s).toInt(), 0);
        EXPECT_EQ(datas.mnRavl()->fieldResult(u"select count(*) from bd_usr"_s).toInt(), 0);
    }

    QTemporaryDir folder;
};

TEST_F(FirstStart, CreatesFolderAndBothBooks)
{
    EXPECT_FALSE(embeddedBooksExist(path()));
    createEmbeddedBooks(path());
    EXPECT_TRUE(embeddedBooksExist(path()));
    expectTheyOpen();
}

TEST_F(FirstStart, BooksAndWhatTheEngineKeepsBesideThemAreTheirOwnersAlone)
{
    const OpenMask everybody;
    const QString deep = folder.filePath(u"nauja/vieta"_s);
    createEmbeddedBooks(deep);
    TDatabase fin(embeddedBooks(deep).fin);
    fin.Open();
    fin.ExecSQL(u"insert into bd_period values (6, 2026, 1, 1)"_s);
    ASSERT_TRUE(QFile::exists(embeddedBooks(deep).fin.file + u"-wal"_s));
    EXPECT_EQ(openToOthers(folder.filePath(u"nauja"_s)), QStringList());
}

// Root may enter everything, so the question is asked by a process that gave up its rights.
TEST_F(FirstStart, AFolderThatMayNotBeEnteredIsNotCalledOneWithoutBooks)
{
    const auto askAsStranger = [](const QString &place) {
        if (::geteuid() == 0 && ::setresuid(nobody, nobody, nobody) != 0)
            ::_exit(9);
        try {
            ::_exit(embeddedBooksExist(place) ? 1 : 0);
        } catch (const EDatabaseError &error) {
            std::fputs(error.what(), stderr);
            ::_exit(2);
        }
    };
    createEmbeddedBooks(path());
    QFile::setPermissions(folder.path(), QFile::Permissions::fromInt(0x7755));
    QFile::setPermissions(path(), QFile::Permissions());
    EXPECT_EXIT(askAsStranger(path()), testing::ExitedWithCode(2), "neleista");
    EXPECT_EXIT(askAsStranger(path() + u"/giliau"_s), testing::ExitedWithCode(2), "neleista");
    EXPECT_EXIT(askAsStranger(folder.filePath(u"kita"_s)), testing::ExitedWithCode(0), "");
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(FirstStart, LeavesExistingBooksAlone)
{
    createEmbeddedBooks(path());
    const QByteArray before = contentOf(books().fin.file);
    createEmbeddedBooks(path());
    EXPECT_EQ(contentOf(books().fin.file), before);
}

TEST_F(FirstStart, StoppedWhileFillingStartsAnew)
{
    QDir().mkpath(path());
    writeFile(books().fin.file + u".new"_s, "half of a database");
    writeFile(books().fin.file + u".new-wal"_s, "half of a journal");
    EXPECT_FALSE(embeddedBooksExist(path()));
    createEmbeddedBooks(path());
    expectTheyOpen();
}

TEST_F(FirstStart, StoppedBetweenTheTwoNamesIsFinished)
{
    createEmbeddedBooks(path());
    const QByteArray made = contentOf(books().fin.file);
    QFile::rename(books().fin.file, books().fin.file + u".new"_s);
    EXPECT_FALSE(embeddedBooksExist(path()));
    createEmbeddedBooks(path());
    EXPECT_EQ(contentOf(books().fin.file), made);
    expectTheyOpen();
}

TEST_F(FirstStart, ALostBookIsReportedAndNothingIsCreatedInItsPlace)
{
    for (const QString &lost : {books().fin.file, books().ravl.file}) {
        createEmbeddedBooks(path());
        QFile::remove(lost);
        EXPECT_THROW(embeddedBooksExist(path()), EDatabaseError);
        EXPECT_THROW(createEmbeddedBooks(path()), EDatabaseError);
        EXPECT_EQ(files().size(), 1);
        QDir(path()).removeRecursively();
    }
}

TEST_F(FirstStart, AFolderThatCannotBeMadeIsReported)
{
    writeFile(folder.filePath(u"failas"_s), "x");
    EXPECT_THROW(createEmbeddedBooks(folder.filePath(u"failas/knygos"_s)), EDatabaseError);
}
