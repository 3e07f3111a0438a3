#include "src/frame/entries.h"

TPackageEntries peopleEntries()
{
    return {};
}
