#include "src/assets/Editf.h"
#include "src/assets/Editpirktip.h"
#include "src/assets/Objektai.h"
#include "src/assets/Pardtip.h"
#include "src/assets/Pirktip.h"
#include "src/frame/entries.h"

namespace {

const QStringList assets{Menu::catalogues, "&Turtas"};

void nameObject()
{
    AnsiString name("Mokyklos pastatas");
    Editf::EditFin(AnsiString("Objekto pavadinimo redagavimas"), name);
}

void nameAcquisition()
{
    AnsiString name("Pirkta iš paramos lėšų");
    int tipas = 1;
    int pozymis = 1;
    Editpirktip::EditPirk(AnsiString("Įsigijimo būdo redagavimas"), name, tipas, pozymis);
}

} // namespace

TPackageEntries assetEntries()
{
    return {
        listScreen<Objektai::TObjektFrm>(Objektai::unit, assets, "&Objektai…", 66),
        listScreen<Pardtip::TPardTipFrm>(Pardtip::unit, assets, "&Nurašymo ir pardavimo būdai…", 67),
        listScreen<Pirktip::TPirkTipFrm>(Pirktip::unit, assets, "Į&sigijimo būdai…", 68),
        editor("EditFin", Editf::unit, 66, nameObject),
        editor("EditPirk", Editpirktip::unit, 68, nameAcquisition),
    };
}
