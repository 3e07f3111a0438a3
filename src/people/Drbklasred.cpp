#include "src/people/Drbklasred.h"

namespace Drbklasred {

TUnit unit("DrbKlasRed");
TDrbKlasRedFrm *DrbKlasRedFrm = nullptr;

void DrbKlasShow()
{
    TDrbKlasRedFrm().run();
}

TDrbKlasRedFrm::TDrbKlasRedFrm()
    : TRecordDialog({.name = "TDrbKlasRedFrm",
                     .newCaption = "Nauja profesinė grupė",
                     .editCaption = "Profesinės grupės redagavimas",
                     .help = 71,
                     .table = "du_drbklas",
                     .keyColumn = "kla_kodas",
                     .unique = {{"kla_kodas"}},
                     .rows = {TFieldRow::edit("&Pavadinimas", "kla_pavad").required().width(50),
                              TFieldRow::edit("&Tipas", "Tipas").digitsTyped().between(0, 3276).required(),
                              TFieldRow::edit("&Kodas", "Kodas").digitsTyped().between(0, 9).required()},
                     .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")},
                    TRecordStart::onRowOf("TDrbKlasFrm"))
{
    keepIn(DrbKlasRedFrm);
}

// The code is one digit under its type.
void TDrbKlasRedFrm::Validate()
{
    field("kla_kodas")->setAsFloat(field("Tipas")->AsFloat() * 10 + field("Kodas")->AsFloat());
    TRecordDialog::Validate();
}

} // namespace Drbklasred
