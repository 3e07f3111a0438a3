#include "database/backups/replacement.h"
#include "tests/database/tool/demo_store.h"
#include "tests/database/tool/velmora_db.h"
#include "tests/support/files.h"
#include "tests/support/mounts.h"

#include <QStorageInfo>

using namespace Qt::StringLiterals;

// New books beside the old ones; the name of the institution tells which are which.
class Replacement : public testing::Test {
protected:
    void SetUp() override
    {
        createBooks(*place.store(), [](const QString &) {});
        name(u"nauja"_s);
        for (const QString &file : {books.fin.file, books.ravl.file})
            ASSERT_TRUE(QFile::copy(file, file + QLatin1String(newEnding)));
        name(u"sena"_s);
    }

    void name(const QString &institution) const
    {
        const auto fin = place.fin();
        fin->ExecSQL(u"delete from bd_org"_s);
        fin->ExecSQL(u"insert into bd_org (org_pavad) values (:name)"_s, {{u"name"_s, institution}});
    }
    QString named() const { return value(*place.fin(), u"select org_pavad from bd_org"_s); }
    QStringList files() const
    {
        QStringList names = place.everything();
        names.removeIf([](const QString &file) { return file.endsWith(u"-wal") || file.endsWith(u"-shm"); });
        return names;
    }

    const TestPlace place{Engine::Sqlite};
    const QString folder = place.arguments().constLast();
    const TBooks books = embeddedBooks(folder);
};

TEST_F(Replacement, OldBooksInUseAreSeenAtTheLastMomentAndPutBack)
{
    const QStringList before = files();
    const auto user = place.fin();
    QStringList asked;
    EXPECT_THROW(replaceBooks(folder,
                              [&](const QString &kept) {
                                  asked.append(QFileInfo(kept).fileName());
                                  user->ExecSQL(u"update bd_org set org_pavad = 'vėlesnė'"_s);
                                  throw Exception(u"naudoja kita programa"_s);
                              }),
                 Exception);
    ASSERT_EQ(asked.size(), 1);
    EXPECT_TRUE(asked.constFirst().startsWith(u"velmora_fin.db.sena-"_s)) << asked.constFirst().toStdString();
    EXPECT_EQ(named(), u"vėlesnė");
    user->ExecSQL(u"update bd_org set org_pavad = 'dar vėlesnė'"_s);
    EXPECT_EQ(named(), u"dar vėlesnė");
    EXPECT_EQ(files(), before);
}

TEST_F(Replacement, WhatCannotBeRenamedIsPutBack)
{
    const QStringList before = files();
    {
        const HeldFile held(books.ravl.file + QLatin1String(newEnding));
        REQUIRE_MOUNTED(held);
        EXPECT_THROW(replaceBooks(folder, [](const QString &) {}), EFileError);
    }
    EXPECT_EQ(named(), u"sena");
    EXPECT_EQ(files(), before);
}

TEST_F(Replacement, OfADamagedJournalNothingIsDoneAndItIsTold)
{
    for (const char *journal : {"", "VELMORA-KEITIMAS 1 ", "VELMORA-KEITIMAS 1 ../../x\n"}) {
        writeFile(folder + u"/velmora.keitimas"_s, journal);
        const QStringList before = files();
        const TResult check = velmoraDb({u"check"_s, u"--data"_s, folder});
        EXPECT_EQ(check.code, 3);
        EXPECT_TRUE(check.err.contains(u"žurnalas"_s) && check.err.contains(u"sugadintas"_s))
            << check.err.toStdString();
        EXPECT_EQ(files(), before);
    }
    EXPECT_EQ(named(), u"sena");
}

TEST_F(Replacement, ARestoreThatFillsTheDiskLeavesTheBooksAlone)
{
    const QString backup = place.file(u"kopija"_s);
    ASSERT_EQ(velmoraDb({u"backup"_s, backup, u"--data"_s, folder}).code, 0);
    const SmallDisk disk(64 << 20);
    REQUIRE_MOUNTED(disk);
    const QString small = disk.path() + u"/knygos"_s;
    ASSERT_EQ(velmoraDb({u"create"_s, u"--data"_s, small}).code, 0);
    const QDir there(small);
    const QStringList before = there.entryList(QDir::Files | QDir::Hidden);
    const QByteArray fin = contentOf(there.filePath(u"velmora_fin.db"_s));
    const qint64 used = QStorageInfo(disk.path()).bytesTotal() - QStorageInfo(disk.path()).bytesFree();
    const qint64 needed = QFileInfo(backup).size();
    for (const qint64 left : {needed / 10, needed / 2, needed - 4096}) {
        ASSERT_TRUE(disk.resize(used + left));
        const TResult full = velmoraDb({u"restore"_s, backup, u"--data"_s, small});
        EXPECT_EQ(full.code, 3) << left;
        EXPECT_TRUE(full.err.contains(u"vietos"_s)) << left << full.err.toStdString();
        EXPECT_EQ(there.entryList(QDir::Files | QDir::Hidden), before) << left;
        EXPECT_EQ(there.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot), QStringList()) << left;
        EXPECT_EQ(contentOf(there.filePath(u"velmora_fin.db"_s)), fin) << left;
    }
}
