#include "tests/database/tool/demo_store.h"
#include "tests/database/tool/velmora_db.h"
#include "tests/support/files.h"
#include "tests/support/mounts.h"
#include "tests/support/private_files.h"

#include <QProcess>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

TBackup backup(BackupKind kind, const QString &made)
{
    TBackup one{.kind = kind, .made = QDateTime::fromString(made, Qt::ISODate)};
    one.file = backupName(kind, one.made, u"2026-10"_s);
    return one;
}

// Daily ones of the days up to and including the last, newest first.
QList<TBackup> dailyUpTo(const QDate &last, int days)
{
    QList<TBackup> list;
    for (int i = 0; i < days; ++i)
        list.append(backup(BackupKind::Day, last.addDays(-i).toString(Qt::ISODate) + u"T08:30:00"_s));
    return list;
}

QStringList namesOf(const QList<TBackup> &backups)
{
    QStringList names;
    for (const TBackup &each : backups)
        names.append(QFileInfo(each.file).fileName());
    return names;
}

const QDate today(2026, 11, 22);
const QDateTime morning(today, QTime(9, 0));

} // namespace

TEST(BackupFolder, OfThirteenDaysTheFirstMayGo)
{
    EXPECT_EQ(namesOf(surplusOf(dailyUpTo(today, 12), morning)), QStringList());
    EXPECT_EQ(namesOf(surplusOf(dailyUpTo(today, 13), morning)),
              QStringList{u"2026-11-10-083000-diena.velmora"_s});
}

TEST(BackupFolder, OnlyDailyOnesEverGo)
{
    QList<TBackup> list = dailyUpTo(today, 12);
    for (const BackupKind kind :
         {BackupKind::Close, BackupKind::RollBack, BackupKind::StartOfWork, BackupKind::ByHand})
        list.append(backup(kind, u"2020-01-31T12:00:00"_s));
    EXPECT_EQ(namesOf(surplusOf(list, morning)), QStringList());
}

TEST(BackupFolder, WhatIsDamagedIsNotCounted)
{
    QList<TBackup> list = dailyUpTo(today, 13);
    list[3].damage = u"sugadinta"_s;
    EXPECT_EQ(namesOf(surplusOf(list, morning)), QStringList());
}

TEST(BackupFolder, AClockThatWasSetBackRemovesNothing)
{
    const QList<TBackup> list = dailyUpTo(today, 12);
    EXPECT_EQ(namesOf(surplusOf(list, morning.addDays(-1))), QStringList());
    QList<TBackup> madeAnew = list;
    madeAnew.insert(1, backup(BackupKind::Day, u"2026-11-21T09:00:00"_s));
    EXPECT_EQ(namesOf(surplusOf(madeAnew, morning.addDays(-1))), QStringList());
    EXPECT_EQ(namesOf(surplusOf(list, morning.addYears(-1))), QStringList());
}

TEST(BackupFolder, NamesSortByTheirMoment)
{
    QStringList names{backupName(BackupKind::Close, morning.addSecs(1), u"2026-10"_s),
                      backupName(BackupKind::Day, morning, {}),
                      backupName(BackupKind::RollBack, morning.addDays(1), u"2026-11"_s)};
    names.sort();
    EXPECT_EQ(names,
              (QStringList{u"2026-11-22-090000-diena.velmora"_s, u"2026-11-22-090001-menuo-2026-10.velmora"_s,
                           u"2026-11-23-090000-atsukimas-2026-11.velmora"_s}));
}

// Books of a test's own and a folder for their backups.
class Keeping : public testing::TestWithParam<Engine> {
protected:
    void SetUp() override
    {
        createDemoBooks(*place.store(), 1, [](const QString &) {});
    }

    QStringList arguments(const QString &why) const
    {
        return QStringList{u"keep"_s, why, u"--into"_s, folder} + place.arguments();
    }
    TResult keep(const QString &why) const { return velmoraDb(arguments(why)); }
    TResult verify(const QString &file) const
    {
        return velmoraDb(QStringList{u"verify"_s, file} + place.arguments());
    }
    QStringList files() const
    {
        QStringList names = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
        names.removeAll(u"velmora.lock"_s);
        return names;
    }
    void expectOneSound() const
    {
        const QList<TBackup> backups = backupsIn(folder);
        ASSERT_EQ(backups.size(), 1);
        EXPECT_EQ(backups.constFirst().damage, QString());
        EXPECT_EQ(verify(backups.constFirst().file).code, 0);
        EXPECT_EQ(files().size(), 1);
    }

    const TestPlace place{GetParam()};
    const QString folder = place.file(u"atsargines"_s);
};
ON_BOTH_ENGINES(Keeping);

TEST_P(Keeping, ABackupTellsWhatItHolds)
{
    const OpenMask everybody;
    const TResult kept = keep(u"menuo"_s);
    ASSERT_EQ(kept.code, 0) << kept.err.toStdString();
    const TBackup backup = backupsIn(folder).value(0);
    EXPECT_EQ(backup.kind, BackupKind::Close);
    EXPECT_TRUE(backup.file.endsWith(u"-menuo-2026-07.velmora"_s)) << backup.file.toStdString();
    EXPECT_EQ(backup.holds.month, u"2026-07");
    EXPECT_EQ(backup.holds.institution, value(*place.fin(), u"select org_pavad from bd_org"_s));
    EXPECT_EQ(backup.holds.revision, latestRevision());
    EXPECT_LE(qAbs(backup.made.secsTo(QDateTime::currentDateTime())), 60);
    EXPECT_EQ(openToOthers(folder), QStringList());
    expectOneSound();
}

TEST_P(Keeping, ADayHasOneDailyBackup)
{
    ASSERT_EQ(keep(u"diena"_s).code, 0);
    const TResult again = keep(u"diena"_s);
    EXPECT_EQ(again.code, 0);
    EXPECT_TRUE(again.out.contains(u"jau padaryta"_s)) << again.out.toStdString();
    expectOneSound();
    writeFile(backupsIn(folder).constFirst().file, "sugadinta");
    EXPECT_EQ(keep(u"diena"_s).code, 0);
    EXPECT_EQ(files().size(), 2);
}

TEST_P(Keeping, OldDailyOnesGoAndStrangersStay)
{
    ASSERT_EQ(keep(u"ranka"_s).code, 0);
    const QString model = backupsIn(folder).constFirst().file;
    const QDateTime now = QDateTime::currentDateTime();
    for (int day = 1; day <= 14; ++day)
        ASSERT_TRUE(
            QFile::copy(model, QDir(folder).filePath(backupName(BackupKind::Day, now.addDays(-day), {}))));
    const QStringList strangers{u"laiskas.txt"_s,
                                u"2001-01-01-080000-diena.velmora.kopija"_s,
                                u"2001-01-01-diena.velmora"_s,
                                u"2001-01-01-080000-kazkas.velmora"_s,
                                u"2001-01-01-080000-kazkas.velmora.dalinis"_s,
                                u"velmora-kopija"_s,
                                u"velmora-XyZaBc"_s};
    for (const QString &name : strangers.first(5))
        writeFile(QDir(folder).filePath(name), "ne atsarginė kopija");
    for (const QString &name : strangers.sliced(5)) {
        ASSERT_TRUE(QDir(folder).mkdir(name));
        writeFile(QDir(folder).filePath(name + u"/laiskas.txt"_s), "svarbu");
    }
    ASSERT_EQ(keep(u"diena"_s).code, 0);
    const QList<TBackup> left = backupsIn(folder);
    EXPECT_EQ(left.size(), 13); // with the one made by hand
    EXPECT_EQ(left.constLast().made.date(), now.date().addDays(-11));
    for (const QString &name : strangers)
        EXPECT_TRUE(files().contains(name)) << name.toStdString();
    EXPECT_EQ(contentOf(QDir(folder).filePath(u"velmora-kopija/laiskas.txt"_s)), "svarbu");
}

TEST_P(Keeping, TwoProgramsAtTheSameMomentDoNotMeet)
{
    for (const QString &why : {u"diena"_s, u"ranka"_s}) {
        QProcess programs[2];
        for (QProcess &program : programs)
            program.start(buildFolder() + u"/bin/velmora-db"_s, arguments(why));
        for (QProcess &program : programs) {
            ASSERT_TRUE(program.waitForFinished(120'000));
            EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        }
    }
    const QList<TBackup> backups = backupsIn(folder);
    EXPECT_EQ(backups.size(), 3);
    for (const TBackup &each : backups)
        EXPECT_EQ(verify(each.file).code, 0) << each.file.toStdString();
}

TEST_P(Keeping, TwoProgramsWithFoldersOfTheirOwnDoNotMeet)
{
    const QStringList folders{folder, place.file(u"kitos"_s), place.file(u"trecios"_s)};
    QProcess programs[3];
    for (qsizetype i = 0; i < folders.size(); ++i)
        programs[i].start(buildFolder() + u"/bin/velmora-db"_s,
                          QStringList{u"keep"_s, u"ranka"_s, u"--into"_s, folders.at(i)} + place.arguments());
    for (QProcess &program : programs) {
        ASSERT_TRUE(program.waitForFinished(120'000));
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
    }
    for (const QString &each : folders)
        EXPECT_EQ(backupsIn(each).size(), 1) << each.toStdString();
}

TEST_P(Keeping, ADamagedBackupIsToldAndLeavesTheBooksAlone)
{
    ASSERT_EQ(keep(u"ranka"_s).code, 0);
    const QString file = backupsIn(folder).constFirst().file;
    QByteArray content = contentOf(file);
    content[content.size() / 2] = char(content.at(content.size() / 2) ^ 1);
    writeFile(file, content);
    const QByteArrayList before = place.fingerprints();
    const TResult refused = verify(file);
    EXPECT_EQ(refused.code, 3);
    EXPECT_TRUE(refused.err.contains(u"sugadinta"_s)) << refused.err.toStdString();
    EXPECT_EQ(place.fingerprints(), before);
    EXPECT_EQ(place.everything().size(), 2);
    writeFile(file, content.first(content.size() - 1));
    EXPECT_FALSE(backupsIn(folder).constFirst().sound());
}

TEST_P(Keeping, WhoeverWorksMeanwhileDoesNotDisturb)
{
    const auto user = place.fin();
    QProcess program;
    program.start(buildFolder() + u"/bin/velmora-db"_s, arguments(u"ranka"_s));
    for (int i = 0; program.state() != QProcess::NotRunning && i < 6000; ++i) {
        user->ExecSQL(u"update bd_org set org_adr = :adr"_s, {{u"adr"_s, u"Gatvė %1"_s.arg(i)}});
        program.waitForFinished(20);
    }
    ASSERT_EQ(program.state(), QProcess::NotRunning);
    EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
    expectOneSound();
}

class EmbeddedKeeping : public Keeping {};
ON_ENGINE(EmbeddedKeeping, Engine::Sqlite);

TEST_P(EmbeddedKeeping, WithoutAnotherFolderTheyStandBesideTheBooks)
{
    const QString books = place.arguments().constLast();
    ASSERT_EQ(velmoraDb({u"keep"_s, u"diena"_s, u"--data"_s, books}).code, 0);
    EXPECT_EQ(backupsIn(books + u"/atsargines"_s).size(), 1);
}

TEST_P(EmbeddedKeeping, KilledAtAnyStepLeavesNoHalfBackup)
{
    bool ended = false;
    for (int step = 1; !ended && step < 100; ++step) {
        ended = velmoraDbEndsBefore(step, arguments(u"diena"_s));
        const QList<TBackup> backups = backupsIn(folder);
        EXPECT_LE(backups.size(), 1) << step;
        for (const TBackup &each : backups) {
            EXPECT_EQ(verify(each.file).code, 0) << step;
            if (!ended)
                QFile::remove(each.file);
        }
    }
    EXPECT_TRUE(ended);
    expectOneSound();
}

TEST_P(EmbeddedKeeping, AFullDiskIsToldAndLeavesNothing)
{
    const SmallDisk disk(300'000);
    REQUIRE_MOUNTED(disk);
    const TResult full = velmoraDb(
        QStringList{u"keep"_s, u"ranka"_s, u"--into"_s, disk.path() + u"/atsargines"_s} + place.arguments());
    EXPECT_EQ(full.code, 3);
    EXPECT_TRUE(full.err.contains(u"vietos"_s)) << full.err.toStdString();
    EXPECT_EQ(QDir(disk.path() + u"/atsargines"_s).entryList(QDir::Files | QDir::Hidden), QStringList());
}

TEST_P(EmbeddedKeeping, AFolderThatCannotBeWrittenIsNamed)
{
    writeFile(folder, "ne aplankas");
    const TResult refused = keep(u"ranka"_s);
    EXPECT_EQ(refused.code, 3);
    EXPECT_TRUE(refused.err.contains(folder)) << refused.err.toStdString();
}

// Root may write everywhere and becomes somebody else; anybody else takes the right from himself.
TEST_P(EmbeddedKeeping, AFolderThatMayNotBeWrittenIsNamed)
{
    const QString books = place.arguments().constLast(), backups = books + u"/atsargines"_s;
    ASSERT_TRUE(QDir().mkpath(backups));
    constexpr uid_t nobody = 65534;
    const bool isRoot = getuid() == 0;
    for (const QString &each :
         {place.file({}), books, books + u"/velmora_fin.db"_s, books + u"/velmora_ravl.db"_s})
        ASSERT_TRUE(!isRoot || chown(QFile::encodeName(each).constData(), nobody, nobody) == 0);
    ASSERT_TRUE(QFile::setPermissions(backups, QFile::ReadOwner | QFile::ExeOwner | QFile::ExeOther));
    QProcess program;
    program.setChildProcessModifier([isRoot] {
        if (isRoot && (setgid(nobody) != 0 || setuid(nobody) != 0))
            _exit(9);
    });
    program.start(buildFolder() + u"/bin/velmora-db"_s, {u"keep"_s, u"diena"_s, u"--data"_s, books});
    ASSERT_TRUE(program.waitForFinished(60'000));
    EXPECT_EQ(program.exitCode(), 3);
    const QString told = QString::fromUtf8(program.readAllStandardError());
    EXPECT_TRUE(told.contains(u"atsargines"_s) && told.contains(u"negalima rašyti"_s)) << told.toStdString();
    QFile::setPermissions(backups, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}
