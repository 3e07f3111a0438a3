#include "src/catalogues/Pajamurusiukodai.h"

#include "src/catalogues/Pajamurusiukodaiedit.h"

namespace Pajamurusiukodai {

TUnit unit("PajamuRusiuKodai");
TPajamuRusiuKodaiFrm *PajamuRusiuKodaiFrm = nullptr;

TPajamuRusiuKodaiFrm::TPajamuRusiuKodaiFrm(QWidget *owner)
    : TBrowseFrm({.name = "TPajamuRusiuKodaiFrm",
                  .caption = "Pajamų rūšių kodai",
                  .help = 64,
                  .keyColumn = "Paj_Kod",
                  .table = "Bd_PajamuRusiuKodai",
                  .sql = "SELECT * FROM Bd_PajamuRusiuKodai",
                  .columns = {{"Paj_Kod", "Kodas"},
                              {"Paj_Pavad", "Pavadinimas"},
                              {.field = "Paj_NeDrbSant", .title = "Ne Drb.Sant.", .text = yesOrNo}},
                  .editing = TEditing::UnlessViewOnly,
                  .edit = keyed<AnsiString>(Pajamurusiukodaiedit::EditPajamuRusiuKodas)},
                 owner)
{
    keepIn(PajamuRusiuKodaiFrm);
}

} // namespace Pajamurusiukodai
