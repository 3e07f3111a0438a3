#pragma once

#include "host/common/package.h"

#include <QLibrary>

// A library of this program: beside it in the build folder, in the folder of libraries in an installed tree.
// Raises Exception when there is none.
QString installedLibrary(const QString &file);

// The entry of a screen class or entry function; null when there is none. Upper and lower case are one.
const TPackageEntry *findEntry(const TPackageEntries &entries, const QString &name);

// A package loaded at run time: initialized while this object lives, finalized and unloaded with it. Every
// widget and function taken from it must be gone before.
class TLoadedPackage {
public:
    // Loads the shared object. Raises Exception naming the file and what is missing, and when two entries
    // have one name.
    explicit TLoadedPackage(const QString &file);
    ~TLoadedPackage();
    TLoadedPackage(const TLoadedPackage &) = delete;
    TLoadedPackage &operator=(const TLoadedPackage &) = delete;

    const TPackageInfo &info() const { return *packageInfo; }
    const TPackageEntries &entries() const { return *packageEntries; }

private:
    template<class Function> Function *resolve(const char *name);
    void requireNames() const;

    QLibrary library;
    FinalizeFn *finalize = nullptr;
    const TPackageInfo *packageInfo = nullptr;
    const TPackageEntries *packageEntries = nullptr;
};
