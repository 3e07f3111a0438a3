#include "host/data/known_books.h"

#include "tests/host/books_settings.h"
#include "tests/support/engines.h"
#include "tests/support/files.h"
#include "tests/support/private_files.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

TKnownBooks inFolder(const QString &name, const QString &folder)
{
    return {.name = name, .books = TBooksSettings::embedded(folder)};
}

TKnownBooks onServer(const QString &name, const QString &words)
{
    return {.name = name, .books = TBooksSettings::server(words)};
}

QStringList namesOf(const QList<TKnownBooks> &list)
{
    QStringList names;
    for (const TKnownBooks &each : list)
        names << each.name;
    return names;
}

// A text of signs that settings files are known to stumble over.
QString oddText(QRandomGenerator &random)
{
    static const QString signs = u"aąčžŠ \"'\\,;=%#[]{}:/€&\t\r\n"_s;
    QString text;
    for (int left = random.bounded(12); left > 0; --left)
        text += signs.at(random.bounded(signs.size()));
    return text;
}

class KnownBooks : public testing::Test {
protected:
    QString file() const { return folder.filePath(u"nustatymai/istaigos.jsonl"_s); }
    void write(const QByteArray &content)
    {
        QDir().mkpath(QFileInfo(file()).path());
        writeFile(file(), content);
    }
    QList<TKnownBooks> read() const { return readKnownBooks(file()); }

    QTemporaryDir folder{scratchRoot() + u"/velmora-XXXXXX"_s};
};

class NameInBooks : public OnBothEngines {
protected:
    TBooksSettings books() const { return settingsOf(finSettings(), ravlSettings(), folder()); }
};
ON_BOTH_ENGINES(NameInBooks);

} // namespace

TEST_F(KnownBooks, WithoutAFileThereAreNone)
{
    EXPECT_TRUE(read().isEmpty());
}

TEST_F(KnownBooks, AnyListIsReadBackAsItWasWritten)
{
    QRandomGenerator random(20260704);
    for (int round = 0; round < 200; ++round) {
        QList<TKnownBooks> list;
        for (int left = random.bounded(4); left > 0; --left)
            list << (random.bounded(2) ? inFolder(oddText(random), QDir::cleanPath(u"/a"_s + oddText(random)))
                                       : onServer(oddText(random), u"host=a user='b c' password='\\''"_s));
        writeKnownBooks(file(), list);
        const QList<TKnownBooks> back = read();
        ASSERT_EQ(namesOf(back), namesOf(list));
        for (qsizetype i = 0; i < list.size(); ++i) {
            EXPECT_TRUE(back[i].readable()) << qPrintable(back[i].damage);
            EXPECT_EQ(back[i].books.folder, list[i].books.folder);
            EXPECT_EQ(back[i].books.connection, list[i].books.connection);
        }
    }
}

TEST_F(KnownBooks, TheLastOneStandsFirstAndOnceUnderItsNewName)
{
    rememberBooks(file(), inFolder(u"Mokykla"_s, u"/knygos/a"_s));
    rememberBooks(file(), inFolder(u"Darželis"_s, u"/knygos/b"_s));
    rememberBooks(file(), inFolder(u"Gimnazija"_s, u"/knygos//a/"_s));
    EXPECT_EQ(namesOf(read()), QStringList({u"Gimnazija"_s, u"Darželis"_s}));
}

TEST_F(KnownBooks, ANewPasswordIsNoOtherInstitution)
{
    rememberBooks(file(), onServer(u"Mokykla"_s, u"host=a user=b password='sena ir ilga'"_s));
    rememberBooks(file(), onServer(u"Mokykla"_s, u"host=a user=b password=nauja"_s));
    rememberBooks(file(), onServer(u"Kita"_s, u"host=a user=b fin=kita"_s));
    const QList<TKnownBooks> list = read();
    ASSERT_EQ(namesOf(list), QStringList({u"Kita"_s, u"Mokykla"_s}));
    EXPECT_EQ(list[1].books.connection, u"host=a user=b password=nauja");
}

TEST_F(KnownBooks, ThePlaceAndTheKeyTellNoPassword)
{
    const TBooksSettings server = TBooksSettings::server(u"host=a password='la bas' sslpassword=x user=b"_s);
    EXPECT_EQ(placeOf(server), u"host=a user=b");
    EXPECT_EQ(keyOf(server), keyOf(TBooksSettings::server(u"host=a user=b"_s)));
    EXPECT_NE(keyOf(server), keyOf(TBooksSettings::server(u"host=a user=c"_s)));
}

TEST_F(KnownBooks, TheFileIsItsOwnersAlone)
{
    const OpenMask everybody;
    rememberBooks(file(), onServer(u"Mokykla"_s, u"host=a password=b"_s));
    EXPECT_EQ(openToOthers(QFileInfo(file()).path()), QStringList());
}

TEST_F(KnownBooks, AnEntryThatCannotBeReadSaysSoAndNamesNoBooks)
{
    for (const QByteArray line :
         {"\xff\xfe\x00garbage", "{\"name\":\"Mokykla\",\"folder\":\"/kny", "[1]", R"({"name":"Mokykla"})",
          R"({"name":"Mokykla","folder":""})", R"({"name":"Mokykla","folder":"/a","server":"host=a"})",
          R"({"name":"Mokykla","fo1der":"/a"})", R"({"name":"Mokykla","folder":7})",
          R"({"name":"Mokykla","folder":"a"})", R"({"name":"Mokykla","server":"just some words"})",
          R"({"name":"Mokykla","server":"host=a dbname=b"})"}) {
        write(line + "\n{\"name\":\"Sveika\",\"folder\":\"/b\"}\n");
        const QList<TKnownBooks> list = read();
        ASSERT_EQ(list.size(), 2) << line.constData();
        EXPECT_FALSE(list[0].readable()) << line.constData();
        EXPECT_TRUE(list[0].damage.endsWith(u'.')) << qPrintable(list[0].damage);
        EXPECT_EQ(list[0].books.folder + list[0].books.connection, QString()) << line.constData();
        EXPECT_EQ(list[1].books.folder, u"/b");
    }
}

// A folder that differs in one letter may be another institution's.
TEST_F(KnownBooks, NoBitThatChangesMakesOtherBooksOfAnEntry)
{
    rememberBooks(file(), onServer(u"Gimnazija"_s, u"host=a user=b"_s));
    rememberBooks(file(), inFolder(u"Mokykla"_s, u"/knygos/mokykla1"_s));
    const QByteArray sound = contentOf(file());
    const QStringList honest{u"Gimnazija: host=a user=b"_s, u"Mokykla: /knygos/mokykla1"_s};
    int damaged = 0;
    for (int bit = 0; bit < 8 * sound.size(); ++bit) {
        QByteArray changed = sound;
        changed[bit / 8] = char(changed.at(bit / 8) ^ (1 << (bit % 8)));
        write(changed);
        for (const TKnownBooks &each : read()) {
            damaged += each.readable() ? 0 : 1;
            EXPECT_TRUE(!each.readable() || honest.contains(each.name + u": "_s + placeOf(each.books)))
                << bit;
        }
    }
    EXPECT_GT(damaged, 7 * sound.size());
}

TEST_F(KnownBooks, AnEntryMayBeWrittenByHandWithoutASum)
{
    write(R"( { "folder": "/knygos/a", "name": "Mokykla" } )");
    EXPECT_TRUE(read().constFirst().readable());
    EXPECT_EQ(read().constFirst().books.folder, u"/knygos/a");
}

TEST_F(KnownBooks, AFolderIsRememberedWhole)
{
    rememberBooks(file(), inFolder(u"Mokykla"_s, u"knygos/"_s));
    EXPECT_EQ(read().constFirst().books.folder, QDir::currentPath() + u"/knygos"_s);
}

TEST_F(KnownBooks, AnUnreadableEntryStaysAsItIsUntilItIsForgotten)
{
    const QByteArray damaged = "{\"name\":\"Mokykla\",\xff\"folder\":\"/kny";
    write(damaged + '\n');
    rememberBooks(file(), inFolder(u"Kita"_s, u"/b"_s));
    EXPECT_TRUE(contentOf(file()).split('\n').contains(damaged));
    forgetBooks(file(), inFolder({}, u"/b"_s));
    EXPECT_EQ(contentOf(file()), damaged + '\n');
    forgetBooks(file(), read().constFirst());
    EXPECT_TRUE(read().isEmpty());
}

TEST_F(KnownBooks, AFileThatCannotBeReadIsReportedAndLeftAlone)
{
    QDir().mkpath(file());
    EXPECT_THROW(read(), EConvertError);
    EXPECT_THROW(rememberBooks(file(), inFolder(u"Kita"_s, u"/b"_s)), EConvertError);
    EXPECT_TRUE(QFileInfo(file()).isDir());
}

TEST_F(KnownBooks, AFileThatLostItsContentIsNoEmptyList)
{
    writeKnownBooks(file(), {});
    EXPECT_TRUE(readKnownBooks(file()).isEmpty());
    writeFile(file(), "");
    EXPECT_THROW(readKnownBooks(file()), EConvertError);
}

TEST_F(KnownBooks, AnUnwritablePlaceIsReported)
{
    writeFile(folder.filePath(u"nustatymai"_s), "x");
    EXPECT_THROW(rememberBooks(file(), inFolder(u"Kita"_s, u"/b"_s)), EConvertError);
}

TEST_F(KnownBooks, ProgramsThatWriteAtTheSameMomentLoseNothingOfEachOther)
{
    constexpr int programs = 4;
    constexpr int entries = 12;
    QList<pid_t> children;
    for (int program = 0; program < programs; ++program) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (int entry = 0; entry < entries; ++entry)
                rememberBooks(file(), inFolder(u"Įstaiga"_s, u"/%1/%2"_s.arg(program).arg(entry)));
            ::_exit(0);
        }
        children << child;
    }
    for (const pid_t child : children) {
        int status = 1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(read().size(), programs * entries);
}

TEST_P(NameInBooks, IsReadWhileOthersWorkInThem)
{
    EXPECT_EQ(nameInBooks(books()), QString());
    mnFin_Db->ExecSQL(u"insert into bd_org (org_pavad) values ('Šilo \"Ąžuolo\" mokykla')"_s);
    mnFin_Db->StartTransaction();
    mnFin_Db->ExecSQL(u"update bd_org set org_pavad = 'Kita'"_s);
    EXPECT_EQ(nameInBooks(books()), u"Šilo \"Ąžuolo\" mokykla");
    mnFin_Db->Rollback();
}

TEST_P(NameInBooks, IsRefusedWhereThereAreNoBooks)
{
    const TBooksSettings none = engine() == Engine::Sqlite ? TBooksSettings::embedded(folder() + u"/nera"_s)
                                                           : TBooksSettings::server(u"host=/nera port=1"_s);
    EXPECT_THROW(nameInBooks(none), EDatabaseError);
    EXPECT_FALSE(QFileInfo::exists(none.books().fin.file));
}
