#include "host/app/package.h"

#include "src/frame/registry.h"
#include "tests/support/files.h"
#include "tests/support/refusal.h"
#include "toolkit/text/errors.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>

namespace {

QString packageFile()
{
    return buildFolder() + "/lib/libvelmora.so";
}

// Our own libraries that the loader brings with a library, sorted.
QStringList linkedWith(const QString &library)
{
    QProcess reader;
    reader.start("readelf", {"--dynamic", "--wide", library});
    EXPECT_TRUE(reader.waitForFinished());
    static const QRegularExpression needed("\\(NEEDED\\).*\\[lib((?:Host|toolkit_)\\w+)\\.so\\]");
    QStringList names;
    for (auto matches = needed.globalMatch(QString::fromLatin1(reader.readAllStandardOutput()));
         matches.hasNext();)
        names << matches.next().captured(1);
    names.sort();
    return names;
}

// All that the package may have.
const QStringList unitsInOrder{"Velmora",
                               "TableExp",
                               "SysInit",
                               "DbKrSut",
                               "chDbKr",
                               "CopyDbKr",
                               "NuomEdit",
                               "Nuom",
                               "PajamuRusiuKodaiEdit",
                               "PajamuRusiuKodai",
                               "LVEdit",
                               "LaikymoVietos",
                               "DKALikEd",
                               "DKALik",
                               "VTarnNew",
                               "VTarn",
                               "FinEd",
                               "FinList",
                               "EditPirkTip",
                               "BankaiEd",
                               "Bankai",
                               "DrbKlasRed",
                               "DrbKlasSar",
                               "VeiklRed",
                               "VeiklSar",
                               "Objektai",
                               "EditF",
                               "NewImok",
                               "Imokos",
                               "IslLikEdit",
                               "ILikuciai",
                               "SasLikEdit",
                               "SLikuciai",
                               "KorList",
                               "SamKor",
                               "SamForm",
                               "NewSam",
                               "chAtAsm",
                               "UsersCh",
                               "confpas",
                               "SkyriaiList",
                               "PadItem",
                               "PirkTip",
                               "Period",
                               "PerBack",
                               "Pareig",
                               "EditPrg",
                               "PardTip",
                               "OrgAtr",
                               "Opr",
                               "MatAsm",
                               "chMatAsm",
                               "KasosForm",
                               "KasNew",
                               "EinSasForm",
                               "einsasdet",
                               "DbKr",
                               "ClosePeriod",
                               "CheckSas",
                               "UsersList",
                               "AtsAsmList",
                               "Balans"};

} // namespace

TEST(Package, ListsItsUnitsInTheirOrder)
{
    const TLoadedPackage package(packageFile());
    EXPECT_EQ(package.info().name, "Velmora");
    EXPECT_GE(package.info().units.size(), 50);
    QStringList inOrder = unitsInOrder;
    inOrder.removeIf([&](const QString &unit) { return !package.info().units.contains(unit); });
    EXPECT_EQ(package.info().units, inOrder);
}

TEST(Package, RequiresTheFiveHostPackagesAndThenTheLibrariesOfTheToolkitThatItIsLinkedWith)
{
    const TLoadedPackage package(packageFile());
    QStringList required = package.info().required;
    EXPECT_EQ(required.first(5),
              QStringList({"HostControls", "HostCommon", "HostData", "HostAccounts", "HostClassifier"}));
    required.sort();
    EXPECT_EQ(required, linkedWith(packageFile()));
}

TEST(Package, EveryEntryBelongsToAListedUnit)
{
    const TLoadedPackage package(packageFile());
    for (const TPackageEntry &entry : package.entries())
        EXPECT_TRUE(package.info().units.contains(entry.unit)) << qPrintable(entry.name);
}

TEST(Package, TenantsCloseTheCataloguesOfCodes)
{
    QStringList names;
    for (const TPackageEntry &entry : packageEntries())
        names << entry.name;
    EXPECT_GT(names.indexOf("TNuomFrm"), names.indexOf("TImokosFrm"));
    EXPECT_GT(names.indexOf("TImokosFrm"), names.indexOf("TPajamuRusiuKodaiFrm"));
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
    const QString text = refusalOf([] { TLoadedPackage(buildFolder() + "/lib/libtoolkit_text.so"); });
    EXPECT_TRUE(text.contains("Initialize")) << qPrintable(text);
}
