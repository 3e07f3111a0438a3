#include "src/frame/entries.h"

TPackageEntries moneyEntries()
{
    return {};
}
