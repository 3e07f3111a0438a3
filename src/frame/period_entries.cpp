#include "src/frame/entries.h"
#include "src/period/Closeperiod.h"
#include "src/period/Perback.h"
#include "src/period/Period.h"

TPackageEntries periodEntries()
{
    return {
        onlyWrites(
            dialog<Period::TPeriodDlg>(Period::unit, {Menu::periods}, "&Darbo pradžios periodas…", 16)),
        onlyWrites(function("StartPerClose", Closeperiod::unit, {Menu::periods}, "Periodo &uždarymas…", 18,
                            &Closeperiod::StartPerClose)),
        onlyWrites(function("PeriodBack", Perback::unit, {Menu::periods}, "Periodo &atsukimas…", 19,
                            &Perback::PeriodBack)),
    };
}
