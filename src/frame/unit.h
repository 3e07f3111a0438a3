#pragma once

#include "src/frame/host_services.h"

#include <QString>

// One unit of the package. Loading and unloading keep its load count and do nothing else.
class TUnit {
public:
    explicit TUnit(const char *unitName) : name(QString::fromLatin1(unitName)) {}

    void initialize() { ++loads; }
    void finalize() { --loads; }
    int loadCount() const { return loads; }

    const QString name; // as the package information lists it

private:
    int loads = 0;
};
