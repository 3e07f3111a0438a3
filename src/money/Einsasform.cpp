#include "src/money/Einsasform.h"

#include "src/money/Einsasdet.h"
#include "toolkit/text/format.h"

namespace Einsasform {

TUnit unit("EinSasForm");
TEinSasFrm *EinSasFrm = nullptr;

TEinSasFrm::TEinSasFrm(QWidget *owner)
    : TBrowseFrm(
          {.name = "TEinSasFrm",
           .caption = "Einamosios sąskaitos",
           .help = 6,
           .keyColumn = "ein_id",
           .table = "bd_einsas",
           .sql =
               "select EIN_ID, EIN_BANK_KOD, (SAS_SASNR + '  ' + SAS_PAVAD) as SAS_NR_PAVAD, EIN_BANK_PAV, "
               "EIN_NR FROM bd_einsas inner join bd_sasplan on (EIN_SASID = SAS_ID)",
           .columns = {{"EIN_NR", "Ein sąs. Nr", 180},
                       {"SAS_NR_PAVAD", "Sąskaita", 270},
                       {"EIN_BANK_PAV", "Banko pavadinimas", 230},
                       {"EIN_BANK_KOD", "Banko kodas", 100}},
           .report = 82,
           .closesReports = true,
           .used = {"Einamoji sąskaita Nr:%s yra naudojama!", "EIN_NR", true},
           .newCaption = "Nauja sąskaita",
           .editCaption = "Koreguojama sąskaita",
           .edit = keyed<double>(Einsasdet::ShowEinSas)},
          owner)
{
    keepIn(EinSasFrm);
}

// A current account cannot be deleted here: the placeholder takes whole numbers alone, and the key is none,
// so every deletion ends in the error of the format.
void TEinSasFrm::CheckUsed()
{
    DbiQExecDirect(Database(), Format("select f_CheckUsed('bd_einsas', 'ein_id', '%d') from dummy",
                                      {currentKey().toDouble()}));
}

} // namespace Einsasform
