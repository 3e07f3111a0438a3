#include "tests/support/mounts.h"
#include "tests/support/private_files.h"
#include "tests/toolkit/data/expect_error.h"
#include "tests/toolkit/export/exported.h"
#include "toolkit/export/export_file.h"

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// No file may grow beyond so many bytes while it lives.
class FileLimit {
public:
    explicit FileLimit(rlim_t bytes) : signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, signal);
    }
    FileLimit(const FileLimit &) = delete;
    FileLimit &operator=(const FileLimit &) = delete;

private:
    rlimit before{};
    void (*signal)(int);
};

// While it lives the test has no more rights than anybody.
class NobodysRights {
public:
    NobodysRights() : before(geteuid())
    {
        constexpr uid_t nobody = 65534;
        given = before != 0 || seteuid(nobody) == 0;
    }
    ~NobodysRights()
    {
        if (seteuid(before) != 0)
            std::abort();
    }
    NobodysRights(const NobodysRights &) = delete;
    NobodysRights &operator=(const NobodysRights &) = delete;
    bool given;

private:
    uid_t before;
};

class ExportFile : public testing::Test {
protected:
    void SetUp() override { writeFile(name, "sena"); }
    // A line of so many bytes, written.
    void write(qsizetype bytes)
    {
        TExportFile file(name);
        file.pending().append(QByteArray(bytes, 'x'));
        file.endLine();
        file.commit();
    }
    QStringList files() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    void expectTheOldFile()
    {
        EXPECT_EQ(contentOf(name), "sena");
        EXPECT_EQ(files(), QStringList{u"lentelė.sql"_s});
    }

    QTemporaryDir folder{scratchRoot() + u"/eksportas-XXXXXX"_s};
    QString name = folder.filePath(u"lentelė.sql"_s);
};

TEST_F(ExportFile, ReplacesTheOldOneWhenItIsWhole)
{
    {
        TExportFile file(name);
        file.pending().append("nauja");
        file.endLine();
        EXPECT_EQ(contentOf(name), "sena");
        file.commit();
    }
    EXPECT_EQ(contentOf(name), "nauja\n");
    EXPECT_EQ(files(), QStringList{u"lentelė.sql"_s});
}

TEST_F(ExportFile, LeavesTheOldOneWhenItIsNotFinished)
{
    {
        TExportFile file(name);
        file.pending().append(QByteArray(1 << 20, 'x'));
        file.endLine();
    }
    expectTheOldFile();
}

TEST_F(ExportFile, IsItsOwnersAlone)
{
    const OpenMask mask;
    ASSERT_TRUE(QFile::setPermissions(name, QFile::Permissions(0x6666)));
    write(5);
    EXPECT_EQ(openToOthers(folder.path()), QStringList());
}

TEST_F(ExportFile, TellsThatItMayNotGrow)
{
    const FileLimit limit(1 << 20);
    EXPECT_ERROR(EFileError, write(3 << 20), u"lentelė.sql“: failas didesnis, nei čia leidžiama."_s);
    expectTheOldFile();
}

TEST_F(ExportFile, TellsAFullDisk)
{
    const SmallDisk disk(1 << 20);
    REQUIRE_MOUNTED(disk);
    name = disk.path() + u"/lentelė.sql"_s;
    writeFile(name, "sena");
    EXPECT_ERROR(EFileError, write(3 << 20), u"lentelė.sql“: diske nebeliko vietos."_s);
    EXPECT_EQ(contentOf(name), "sena");
    EXPECT_EQ(QDir(disk.path()).count(), 3U); // itself, the one above and the file
}

TEST_F(ExportFile, TellsAFolderWithoutRights)
{
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x5555)));
    {
        const NobodysRights rights;
        ASSERT_TRUE(rights.given);
        EXPECT_ERROR(EFileError, write(5), u"lentelė.sql“: trūksta teisių."_s);
        EXPECT_ERROR(EFileError, TExportFile(folder.filePath(u"kita.sql"_s)), u"trūksta teisių."_s);
    }
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7700)));
    expectTheOldFile();
}

TEST_F(ExportFile, TellsAFileInUse)
{
    {
        const HeldFile held(name);
        REQUIRE_MOUNTED(held);
        EXPECT_ERROR(EFileError, write(5), u"lentelė.sql“: failą naudoja kita programa."_s);
    }
    expectTheOldFile();
}

TEST_F(ExportFile, TellsAFolderThatIsNotThere)
{
    name = folder.filePath(u"nėra/lentelė.sql"_s);
    EXPECT_ERROR(EFileError, write(5), u"tokio aplanko nėra."_s);
}

TEST_F(ExportFile, TellsThatTheNameIsAFolders)
{
    EXPECT_ERROR(EFileError, TExportFile(folder.path()), u"tai aplankas, o ne failas."_s);
}

} // namespace
