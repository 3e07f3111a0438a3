#include "src/people/Drbklassar.h"

#include "src/people/Drbklasred.h"

namespace Drbklassar {

TUnit unit("DrbKlasSar");
TDrbKlasFrm *DrbKlasFrm = nullptr;

TDrbKlasFrm::TDrbKlasFrm(QWidget *owner)
    : TBrowseFrm({.name = "TDrbKlasFrm",
                  .caption = "Profesinių grupių sąrašas",
                  .help = 71,
                  .keyColumn = "kla_kodas",
                  .table = "du_drbklas",
                  .sql = "SELECT kla_kodas, cast(floor(kla_kodas/10) as smallint) as Tipas, "
                         "mod(kla_kodas,10) as Kodas, kla_pavad FROM du_drbklas",
                  .columns = {{"Tipas", "Tipas"}, {"Kodas", "Kodas"}, {"kla_pavad", "Pavadinimas"}},
                  .editing = TEditing::UnlessViewOnly,
                  .used = {"Profesinė grupė \"%s\" yra naudojama!", "kla_pavad"},
                  .editRow =
                      [](const QString &, bool) {
                          Drbklasred::DrbKlasShow();
                          return true;
                      },
                  .statements = {"insert into du_drbklas (kla_kodas, kla_pavad) "
                                 "values (:tipas *10 + :kodas, :kla_pavad)",
                                 "update du_drbklas set kla_kodas =  :tipas * 10 + :kodas, "
                                 "kla_pavad = :kla_pavad where kla_kodas = :OLD_kla_kodas",
                                 "delete from du_drbklas where kla_kodas = :OLD_kla_kodas"}},
                 owner)
{
    keepIn(DrbKlasFrm);
}

} // namespace Drbklassar
