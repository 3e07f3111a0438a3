#include "host/app/package.h"

#include "toolkit/text/errors.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

const TPackageEntry *findEntry(const TPackageEntries &entries, const QString &name)
{
    const auto found = std::ranges::find_if(entries, [&](const TPackageEntry &entry) {
        return entry.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == entries.end() ? nullptr : &*found;
}

TLoadedPackage::TLoadedPackage(const QString &file) : library(file)
{
    if (!library.load())
        throw Exception(QString("Nepavyko įkelti paketo %1: %2").arg(file, library.errorString()));
    auto *initialize = resolve<InitializeFn>("Initialize");
    finalize = resolve<FinalizeFn>("Finalize");
    packageInfo = resolve<GetPackageInfoTableFn>("GetPackageInfoTable")();
    packageEntries = resolve<GetEntryTableFn>("GetEntryTable")();
    requireNames();
    initialize();
}

TLoadedPackage::~TLoadedPackage()
{
    finalize();
    library.unload();
}

template<class Function> Function *TLoadedPackage::resolve(const char *name)
{
    auto *found = reinterpret_cast<Function *>(library.resolve(name));
    if (!found)
        throw Exception(QString("Pakete %1 nėra funkcijos %2").arg(library.fileName(), name));
    return found;
}

// Menus, windows and --open find an entry by its name.
void TLoadedPackage::requireNames() const
{
    for (const TPackageEntry &entry : *packageEntries)
        if (findEntry(*packageEntries, entry.name) != &entry)
            throw Exception(QString("Pakete %1 vardas „%2“ pasikartoja").arg(library.fileName(), entry.name));
}

QString installedLibrary(const QString &name)
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char *folder : {"../lib", "../" VELMORA_LIBDIR, "."}) {
        const QString file = program.absoluteFilePath(QString("%1/%2").arg(folder, name));
        if (QFile::exists(file))
            return QDir::cleanPath(file);
    }
    throw Exception(QString("Nerasta programos dalis %1").arg(name));
}
