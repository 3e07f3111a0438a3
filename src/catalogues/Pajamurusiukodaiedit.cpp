#include "src/catalogues/Pajamurusiukodaiedit.h"

namespace Pajamurusiukodaiedit {

TUnit unit("PajamuRusiuKodaiEdit");
TPajamuRusiuKodaiEditFrm *PajamuRusiuKodaiEditFrm = nullptr;

bool ShowPajamuRusiuKodaiEdit(AnsiString kod, TDataSetState state)
{
    return EditPajamuRusiuKodas(kod, state == dsInsert);
}

bool EditPajamuRusiuKodas(AnsiString &kod, bool isNew)
{
    return editRecord<TPajamuRusiuKodaiEditFrm>(kod, TRecordStart::rowOrNew(isNew, kod.toQString()));
}

TPajamuRusiuKodaiEditFrm::TPajamuRusiuKodaiEditFrm(const TRecordStart &start)
    : TRecordDialog(
          {.name = "TPajamuRusiuKodaiEditFrm",
           .newCaption = "Pajamų rūšies kodas",
           .help = 64,
           .table = "Bd_PajamuRusiuKodai",
           .keyColumn = "Paj_Kod",
           .sql = "SELECT * FROM Bd_PajamuRusiuKodai WHERE Paj_Kod = :Kod",
           .unique = {{"Paj_Kod"}},
           .rows = {TFieldRow::edit("&Kodas", "Paj_Kod").required(),
                    TFieldRow::edit("&Pavadinimas", "Paj_Pavad").blankIsNull().width(50),
                    TFieldRow::check("&Ne darbo santykių pajamos", "Paj_NeDrbSant").defaultValue(0)},
           .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")},
          start)
{
    keepIn(PajamuRusiuKodaiEditFrm);
}

void TPajamuRusiuKodaiEditFrm::Validate()
{
    TRecordDialog::Validate();
    if (field("Paj_Pavad")->IsNull())
        refuse("Paj_Pavad", "Būtina įvesti pavadinimą!");
}

} // namespace Pajamurusiukodaiedit
