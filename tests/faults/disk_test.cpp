#include "tests/faults/large_books.h"
#include "tests/faults/raised.h"
#include "tests/faults/victim_process.h"
#include "tests/support/files.h"
#include "tests/support/mounts.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

// A disk that fills up in the middle of a close.

namespace {
// How much room a close is given beside the books themselves: less than its journal takes.
constexpr qint64 room = 1'000'000;
} // namespace

class FullDisk : public LargeBooks {
protected:
    // The close fails for want of room, in words, and leaves the books as they are; with room it succeeds.
    void closeWithout(const TSessionSettings &settings, const QStringList &environment)
    {
        const QByteArray before = fingerprint(*open(settings));
        VictimProcess starved(u"close"_s, settings, environment);
        EXPECT_FALSE(starved.finish());
        EXPECT_TRUE(tells(starved.failure(), u"vietos"_s) || tells(starved.failure(), u"Nepavyko"_s));
        EXPECT_EQ(fingerprint(*open(settings)), before);
    }
};
ON_ENGINE(FullDisk, Engine::Sqlite);

TEST_P(FullDisk, DuringACloseDamagesNothing)
{
    TSessionSettings settings = finSettings();
    mnFin_Db->Close();
    const qint64 size = QFileInfo(settings.file).size();
    const SmallDisk disk(size + room);
    REQUIRE_MOUNTED(disk);
    const QString file = disk.path() + u"/knygos.db"_s;
    ASSERT_TRUE(QFile::copy(settings.file, file));
    settings.file = file;
    closeWithout(settings, {});
    ASSERT_TRUE(disk.resize(size * 4));
    VictimProcess fed(u"close"_s, settings);
    EXPECT_TRUE(fed.finish()) << fed.failure().toStdString();
}

TEST_P(FullDisk, FilesThatMayNotGrowAreNotDamaged)
{
    const TSessionSettings settings = finSettings();
    mnFin_Db->Close();
    closeWithout(settings, {u"VELMORA_FILE_LIMIT=%1"_s.arg(room)});
    VictimProcess fed(u"close"_s, settings);
    EXPECT_TRUE(fed.finish()) << fed.failure().toStdString();
}
