#include "database/backups/archive.h"
#include "tests/database/tool/demo_store.h"
#include "tests/database/tool/velmora_db.h"
#include "tests/support/files.h"
#include "tests/support/private_files.h"
#include "tests/support/unguarded.h"

#include <QLockFile>
#include <QProcess>
#include <QtEndian>

#include <bit>

using namespace Qt::StringLiterals;

namespace {

TEST(ToolCommandLine, HelpNamesCommandsAndExitCodes)
{
    const TResult help = velmoraDb({u"--help"_s});
    EXPECT_EQ(help.code, 0);
    for (const QString &word :
         {u"create"_s,     u"demo"_s,          u"upgrade"_s, u"check"_s,     u"backup"_s,
          u"restore"_s,    u"export"_s,        u"keep"_s,    u"verify"_s,    u"--into"_s,
          u"--data"_s,     u"--server"_s,      u"--size"_s,  u"--escaped"_s, u"--drop"_s,
          u"--standard"_s, u"--institution"_s, u"--start"_s, u"--admin"_s,   u"Baigimo kodai"_s})
        EXPECT_TRUE(help.out.contains(word)) << word.toStdString();
    EXPECT_EQ(help.err, QString());
}

TEST(ToolCommandLine, WrongWordsAreRefused)
{
    QTemporaryDir folder;
    const QString place = folder.path();
    const QList<QPair<QStringList, QString>> cases{
        {{}, u"Nenurodyta komanda."_s},
        {{u"daryk"_s, u"--data"_s, place}, u"Nežinoma komanda „daryk“."_s},
        {{u"create"_s}, u"Nurodykite vieną iš dviejų"_s},
        {{u"create"_s, u"--data"_s, place, u"--server"_s, u"host=x"_s}, u"Nurodykite vieną iš dviejų"_s},
        {{u"create"_s, u"--data"_s}, u"Parinkčiai trūksta reikšmės."_s},
        {{u"create"_s, u"--data="_s}, u"Po --data reikia aplanko."_s},
        {{u"create"_s, u"--datos"_s, place}, u"Nežinoma parinktis „datos“."_s},
        {{u"create"_s, u"dar"_s, u"--data"_s, place}, u"Nereikalingas žodis „dar“."_s},
        {{u"backup"_s, u"--data"_s, place}, u"Komandai „backup“ reikia failo vardo."_s},
        {{u"export"_s, u"bd_usr"_s, u"--data"_s, place},
         u"Komandai „export“ reikia lentelės ir failo vardų."_s},
        {{u"export"_s, u"bd_usr"_s, u"f"_s, u"dar"_s, u"--data"_s, place}, u"Nereikalingas žodis „dar“."_s},
        {{u"keep"_s, u"--data"_s, place}, u"reikia priežasties"_s},
        {{u"keep"_s, u"kasdien"_s, u"--data"_s, place}, u"Nežinoma priežastis „kasdien“."_s},
        {{u"keep"_s, u"diena"_s, u"--server"_s, u"host=x"_s}, u"reikia --into"_s},
        {{u"backup"_s, u"f"_s, u"--into"_s, place, u"--data"_s, place}, u"tinka tik komandai „keep“"_s},
        {{u"check"_s, u"--server"_s, u"-"_s}, u"reikia prisijungimo žodžių"_s},
        {{u"create"_s, u"--data"_s, place, u"--escaped"_s}, u"tinka tik komandai „export“"_s},
        {{u"create"_s, u"--data"_s, place, u"--drop"_s}, u"tinka tik komandai „export“"_s},
        {{u"demo"_s, u"--data"_s, place, u"--standard"_s}, u"tinka tik komandai „create“"_s},
        {{u"create"_s, u"--data"_s, place, u"--admin"_s, u"rasa"_s}, u"tinka tik kartu su --standard"_s},
        {{u"create"_s, u"--data"_s, place, u"--standard"_s, u"--start"_s, u"2026-13"_s},
         u"Po --start reikia metų ir mėnesio"_s},
        {{u"demo"_s, u"--data"_s, place, u"--size"_s, u"0"_s}, u"sveikojo skaičiaus"_s},
        {{u"create"_s, u"--data"_s, place, u"--size"_s, u"2"_s}, u"tinka tik komandai „demo“"_s}};
    for (const auto &[arguments, message] : cases) {
        const TResult result = velmoraDb(arguments);
        EXPECT_EQ(result.code, 2) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(result.err.contains(message)) << result.err.toStdString();
    }
    EXPECT_TRUE(folder.isValid() && QDir(place).isEmpty());
}

TEST(ToolCommandLine, ServerWordsMustBeWords)
{
    for (const QString &words :
         {u"serveris"_s, u"host='x"_s, u"host=x dbname=kita"_s, u"fin=a ravl=a"_s, u"zodis=x"_s}) {
        const TResult result = velmoraDb({u"check"_s, u"--server"_s, words});
        EXPECT_EQ(result.code, 3) << words.toStdString();
        EXPECT_FALSE(result.err.isEmpty()) << words.toStdString();
    }
}

TEST(ToolCommandLine, TooLongNamesOfDatabasesAreRefused)
{
    const QString longest(40, u'f');
    const TResult refused = velmoraDb({u"check"_s, u"--server"_s, u"host=/nera fin=%1g"_s.arg(longest)});
    EXPECT_EQ(refused.code, 3);
    EXPECT_TRUE(refused.err.contains(u"per ilgas"_s)) << refused.err.toStdString();
    const TResult taken = velmoraDb({u"check"_s, u"--server"_s, u"host=/nera fin="_s + longest});
    EXPECT_TRUE(taken.err.contains(u"prisijungti"_s)) << taken.err.toStdString();
}

class Tool : public testing::TestWithParam<Engine> {
protected:
    TestPlace place{GetParam()};

    TResult run(const QStringList &words) const { return velmoraDb(words + place.arguments()); }
};
ON_BOTH_ENGINES(Tool);

TEST_P(Tool, CreatesBothDatabasesAndNothingElse)
{
    const TResult created = run({u"create"_s});
    EXPECT_EQ(created.code, 0) << created.err.toStdString();
    EXPECT_EQ(place.everything().size(), 2);
    EXPECT_EQ(value(*place.fin(), u"select count(*) from bd_sasplan"_s), u"0");
    EXPECT_EQ(value(*place.ravl(), u"select count(*) from bd_usr"_s), u"0");
}

TEST(EmbeddedTool, BooksAndBackupsAreTheirOwnersAlone)
{
    const OpenMask everybody;
    const QTemporaryDir root;
    const QString books = root.filePath(u"nauja/knygos"_s);
    const QString copies = root.filePath(u"kopijos"_s);
    QDir().mkdir(copies, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_EQ(velmoraDb({u"demo"_s, u"--data"_s, books}).code, 0);
    ASSERT_EQ(velmoraDb({u"backup"_s, copies + u"/kopija"_s, u"--data"_s, books}).code, 0);
    ASSERT_EQ(velmoraDb({u"restore"_s, copies + u"/kopija"_s, u"--data"_s, books}).code, 0);
    EXPECT_GE(QDir(books).entryList(QDir::Files).size(), 4);
    EXPECT_EQ(openToOthers(root.path()), QStringList());
}

TEST_P(Tool, NeverOverwritesBooks)
{
    ASSERT_EQ(run({u"create"_s}).code, 0);
    place.ravl()->nativeExec(u"insert into bd_usr (usr_id, usr_name) values (7, 'likęs')"_s);
    const QByteArrayList before = place.fingerprints();
    for (const QString &command : {u"create"_s, u"demo"_s}) {
        const TResult again = run({command});
        EXPECT_EQ(again.code, 3);
        EXPECT_TRUE(again.err.contains(u"Duomenų bazės jau yra."_s)) << again.err.toStdString();
    }
    EXPECT_EQ(place.fingerprints(), before);
    EXPECT_EQ(place.everything().size(), 2);
}

TEST_P(Tool, TellsThatThereAreNoBooks)
{
    for (const QStringList &command :
         {QStringList{u"check"_s}, {u"upgrade"_s}, {u"backup"_s, place.file(u"k"_s)}}) {
        const TResult result = run(command);
        EXPECT_EQ(result.code, 3) << command.join(u' ').toStdString();
        EXPECT_TRUE(result.err.contains(u"duomenų bazių nėra"_s)) << result.err.toStdString();
    }
    EXPECT_EQ(place.everything(), QStringList());
    EXPECT_FALSE(QFile::exists(place.file(u"k"_s)));
}

TEST_P(Tool, UpgradesBooksThatNeedNothing)
{
    ASSERT_EQ(run({u"create"_s}).code, 0);
    const QByteArrayList before = place.fingerprints();
    EXPECT_EQ(run({u"upgrade"_s}).code, 0);
    EXPECT_EQ(place.fingerprints(), before);
}

TEST_P(Tool, CheckEndsWithOneWhenSomethingIsFound)
{
    ASSERT_EQ(run({u"demo"_s}).code, 0);
    const TResult clean = run({u"check"_s});
    EXPECT_EQ(clean.code, 0);
    EXPECT_TRUE(clean.out.contains(u"Neatitikimų nerasta."_s)) << clean.out.toStdString();
    const auto fin = place.fin();
    takeGuardsAway(*fin);
    fin->nativeExec(u"update bd_saslik set ssl_sum_db = ssl_sum_db + 1 where ssl_id = 1"_s);
    const TResult found = run({u"check"_s});
    EXPECT_EQ(found.code, 1);
    EXPECT_TRUE(found.out.contains(u"nelygus kreditui"_s)) << found.out.toStdString();
}

// Demonstration books of the test's own with a backup of them.
class Backup : public Tool {
protected:
    void SetUp() override
    {
        createDemoBooks(*place.store(), 1, [](const QString &) {});
        const TResult written = run({u"backup"_s, file});
        ASSERT_EQ(written.code, 0) << written.err.toStdString();
    }

    QString file = place.file(u"kopija.vatsarga"_s);
};
ON_BOTH_ENGINES(Backup);

TEST_P(Backup, RestoresTheSameRows)
{
    const QStringList fin = dump(*place.fin()), ravl = dump(*place.ravl());
    TestPlace other(GetParam());
    const TResult restored = velmoraDb(QStringList{u"restore"_s, file} + other.arguments());
    ASSERT_EQ(restored.code, 0) << restored.err.toStdString();
    EXPECT_EQ(dump(*other.fin()), fin);
    EXPECT_EQ(dump(*other.ravl()), ravl);
    EXPECT_EQ(other.everything().size(), 2);
    EXPECT_EQ(velmoraDb(QStringList{u"check"_s} + other.arguments()).code, 0);
}

TEST_P(Backup, RestoredBooksGoOn)
{
    TestPlace other(GetParam());
    ASSERT_EQ(velmoraDb(QStringList{u"restore"_s, file} + other.arguments()).code, 0);
    const auto fin = other.fin();
    fin->ExecSQL(u"call Close_Per()"_s);
    EXPECT_EQ(value(*fin, u"select GetDateByPeriodId(get_last_per_id()) from dummy"_s), u"2026-08-01");
    fin->ExecSQL(u"insert into bd_dbkrsut (dks_dkaid, dks_nr) values (1, 'S-99')"_s);
    EXPECT_EQ(value(*fin, u"select count(*) from bd_dbkrsut where dks_nr = 'S-99'"_s), u"1");
}

TEST_P(Backup, LeavesNothingBesideIt)
{
    EXPECT_EQ(place.everything().size(), 2);
    EXPECT_EQ(QDir(QFileInfo(file).absolutePath()).entryList(QDir::Files), QStringList{u"kopija.vatsarga"_s});
}

TEST_P(Backup, IsNeverOverwritten)
{
    const QByteArray before = contentOf(file);
    EXPECT_EQ(run({u"backup"_s, file}).code, 3);
    EXPECT_EQ(contentOf(file), before);
}

TEST_P(Backup, OfTwoProgramsWithOneNameOneIsRefused)
{
    const QString name = place.file(u"bendra"_s);
    QProcess programs[2];
    for (QProcess &program : programs)
        program.start(buildFolder() + u"/bin/velmora-db"_s,
                      QStringList{u"backup"_s, name} + place.arguments());
    QString complaints;
    int refused = 0;
    for (QProcess &program : programs) {
        ASSERT_TRUE(program.waitForFinished(120'000));
        refused += program.exitCode() == 3;
        complaints += QString::fromUtf8(program.readAllStandardError());
    }
    EXPECT_EQ(refused, 1) << complaints.toStdString();
    EXPECT_TRUE(complaints.contains(u"jau yra"_s)) << complaints.toStdString();
    EXPECT_EQ(run({u"verify"_s, name}).code, 0);
}

TEST_P(Backup, KeepsTheBooksThatARestoreReplaces)
{
    place.ravl()->nativeExec(u"update bd_usr set usr_vardas = 'Vėlesnė' where usr_id = 1"_s);
    const TResult restored = run({u"restore"_s, file});
    ASSERT_EQ(restored.code, 0) << restored.err.toStdString();
    EXPECT_EQ(value(*place.ravl(), u"select usr_vardas from bd_usr where usr_id = 1"_s), u"Rūta");
    EXPECT_EQ(restored.out.count(u"Buvusi duomenų bazė palikta: "_s), 2);
    EXPECT_EQ(place.everything().size(), 4);
}

TEST_P(Backup, IsRefusedWhenCutShortOrChanged)
{
    const QByteArray whole = contentOf(file);
    const QByteArrayList before = place.fingerprints();
    const QString damaged = place.file(u"sugadinta"_s);
    QList<QByteArray> contents{
        {}, "VELMORA-ATSARGA 1\n", whole.first(whole.size() - 1), whole.first(whole.size() / 2), whole + 'x'};
    for (const qsizetype at : {qsizetype(3), qsizetype(40), whole.size() / 3, whole.size() - 1}) {
        QByteArray flipped = whole;
        flipped[at] = char(flipped.at(at) ^ 1);
        contents.append(flipped);
    }
    for (const QByteArray &content : contents) {
        writeFile(damaged, content);
        const TResult refused = run({u"restore"_s, damaged});
        EXPECT_EQ(refused.code, 3);
        EXPECT_TRUE(refused.err.contains(u"sugadinta"_s)) << refused.err.toStdString();
    }
    EXPECT_EQ(place.fingerprints(), before);
    EXPECT_EQ(place.everything().size(), 2);
}

TEST_P(Backup, IsNotRestoredUnderARunningProgram)
{
    const auto user = place.fin();
    user->ExecSQL(u"update bd_org set org_adr = 'Nauja g. 1'"_s);
    EXPECT_EQ(run({u"restore"_s, file}).code, 3);
    EXPECT_EQ(value(*user, u"select org_adr from bd_org"_s), u"Nauja g. 1");
    EXPECT_EQ(value(*place.fin(), u"select org_adr from bd_org"_s), u"Nauja g. 1");
}

TEST_P(Backup, OfTheOtherEngineIsRefused)
{
    TestPlace other(GetParam() == Engine::Sqlite ? Engine::PostgreSql : Engine::Sqlite);
    const TResult refused = velmoraDb(QStringList{u"restore"_s, file} + other.arguments());
    EXPECT_EQ(refused.code, 3);
    EXPECT_TRUE(refused.err.contains(u"kito variklio"_s)) << refused.err.toStdString();
    EXPECT_EQ(other.everything(), QStringList());
}

TEST(EmbeddedTool, WorksAloneInItsFolder)
{
    TestPlace place(Engine::Sqlite);
    const QString folder = place.arguments().last();
    ASSERT_TRUE(QDir().mkpath(folder));
    QLockFile other(folder + u"/velmora.lock"_s);
    ASSERT_TRUE(other.tryLock());
    const TResult refused = velmoraDb(QStringList{u"create"_s} + place.arguments());
    EXPECT_EQ(refused.code, 3);
    EXPECT_TRUE(refused.err.contains(u"kita programa"_s)) << refused.err.toStdString();
    EXPECT_EQ(place.everything(), QStringList{u"velmora.lock"_s});
}

TEST(EmbeddedTool, FindsAFlippedBitThatTheEngineDoesNot)
{
    TestPlace place(Engine::Sqlite);
    createDemoBooks(*place.store(), 1, [](const QString &) {});
    const QString amount =
        value(*place.fin(), u"select max(ssl_sum_db) from bd_saslik where ssl_perid = 12 and "
                            "ssl_sum_db <> round(ssl_sum_db)"_s);
    const quint64 stored = qToBigEndian(std::bit_cast<quint64>(amount.toDouble()));
    const QString file = place.store()->books().fin.file;
    QByteArray content = contentOf(file);
    const qsizetype at =
        content.lastIndexOf(QByteArray(reinterpret_cast<const char *>(&stored), sizeof stored));
    ASSERT_GE(at, 0);
    content[at + 3] = char(content.at(at + 3) ^ 1);
    writeFile(file, content);
    const TResult found = velmoraDb(QStringList{u"check"_s} + place.arguments());
    EXPECT_EQ(found.code, 1);
    EXPECT_FALSE(found.out.contains(u"pažeistas duomenų bazės failas"_s)) << found.out.toStdString();
    EXPECT_TRUE(found.out.contains(u"nelygus kreditui"_s)) << found.out.toStdString();
}

TEST(EmbeddedTool, RestoresOverADamagedFile)
{
    TestPlace place(Engine::Sqlite);
    createDemoBooks(*place.store(), 1, [](const QString &) {});
    const QByteArrayList before = place.fingerprints();
    const QString backup = place.file(u"kopija"_s);
    ASSERT_EQ(velmoraDb(QStringList{u"backup"_s, backup} + place.arguments()).code, 0);
    const QString file = place.store()->books().fin.file;
    writeFile(file, "sugadinta");
    writeFile(file + u"-wal"_s, "sugadinta");
    const TResult restored = velmoraDb(QStringList{u"restore"_s, backup} + place.arguments());
    EXPECT_EQ(restored.code, 0) << restored.err.toStdString();
    EXPECT_EQ(place.fingerprints(), before);
    const QStringList kept = place.everything().filter(u"velmora_fin.db.sena-"_s);
    ASSERT_FALSE(kept.isEmpty());
    EXPECT_EQ(contentOf(QFileInfo(file).dir().filePath(kept.first())), "sugadinta");
}

TEST(WholeFile, ReportsAFullDiskAndLeavesNothing)
{
    QTemporaryDir folder;
    const QString target = folder.filePath(u"kopija"_s);
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, target + u".dalinis"_s));
    try {
        TWholeFile file(target);
        file.write("duomenys");
        FAIL() << "written to a full disk";
    } catch (const EFileError &error) {
        EXPECT_TRUE(error.message().contains(u"diske nebeliko vietos"_s)) << error.what();
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(WholeFile, TakesNobodysName)
{
    QTemporaryDir folder;
    const QString target = folder.filePath(u"kopija"_s);
    {
        TWholeFile file(target);
        file.write("mano");
        writeFile(target, "kito");
        EXPECT_THROW(file.publish(), EFileError);
    }
    EXPECT_EQ(contentOf(target), "kito");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"kopija"_s});
}

} // namespace
