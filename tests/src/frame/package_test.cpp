#include "host/app/package.h"

#include "src/frame/registry.h"
#include "tests/support/files.h"
#include "toolkit/text/errors.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QSet>

namespace {

QString packageFile()
{
    return buildFolder() + "/lib/libvelmora.so";
}

} // namespace

TEST(Package, ListsItsUnitsInTheirOrder)
{
    const TLoadedPackage package(packageFile());
    EXPECT_EQ(package.info().name, "Velmora");
    EXPECT_EQ(package.info().units,
              QStringList({"Velmora", "SysInit", "DbKrSut", "chDbKr", "CopyDbKr", "NewImok", "Imokos",
                           "SasLikEdit", "SLikuciai", "UsersCh", "confpas", "Period", "PerBack", "DbKr",
                           "ClosePeriod", "UsersList"}));
    EXPECT_EQ(package.info().required,
              QStringList({"HostControls", "HostCommon", "HostData", "HostAccounts", "HostClassifier"}));
}

TEST(Package, EveryEntryBelongsToAListedUnit)
{
    const TLoadedPackage package(packageFile());
    for (const TPackageEntry &entry : package.entries())
        EXPECT_TRUE(package.info().units.contains(entry.unit)) << qPrintable(entry.name);
}

TEST(Package, NoSourceFileIsOutsideTheRegistry)
{
    QSet<QString> listed;
    for (const TUnit *unit : packageUnits())
        listed << unit->name.toLower();
    QDirIterator files(sourceFolder() + "/src", {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString unit = QFileInfo(files.next()).baseName();
        const bool isUnit = contentOf(files.filePath()).contains("TUnit unit(");
        EXPECT_EQ(isUnit, listed.contains(unit.toLower())) << qPrintable(unit);
    }
}

TEST(Package, LoadingKeepsTheLoadCountOfEveryUnit)
{
    {
        const TLoadedPackage package(packageFile());
        for (const TUnit *unit : packageUnits())
            EXPECT_EQ(unit->loadCount(), 1) << qPrintable(unit->name);
    }
    for (const TUnit *unit : packageUnits())
        EXPECT_EQ(unit->loadCount(), 0) << qPrintable(unit->name);
}

TEST(Package, LoadsAgainAfterUnloading)
{
    for (int round = 0; round < 3; ++round) {
        const TLoadedPackage package(packageFile());
        EXPECT_FALSE(package.entries().empty());
    }
}

TEST(Package, AFileThatIsNoPackageIsToldByName)
{
    try {
        const TLoadedPackage package(buildFolder() + "/lib/libtoolkit_text.so");
        FAIL() << "it was loaded";
    } catch (const Exception &error) {
        EXPECT_TRUE(error.message().contains("Initialize")) << qPrintable(error.message());
    }
}
