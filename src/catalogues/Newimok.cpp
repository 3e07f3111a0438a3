#include "src/catalogues/Newimok.h"

namespace Newimok {

TUnit unit("NewImok");
TNewImokDlg *NewImokDlg = nullptr;

bool EditImokos(AnsiString &kodas, bool isNew)
{
    return editRecord<TNewImokDlg>(kodas, TRecordStart::rowOrNew(isNew, kodas.toQString()));
}

TNewImokDlg::TNewImokDlg(const TRecordStart &start)
    : TRecordDialog({.name = "TNewImokDlg",
                     .newCaption = "Įmokos kodas",
                     .help = 61,
                     .table = "pp_imok",
                     .keyColumn = "IMO_KOD",
                     .sql = "SELECT * FROM pp_imok WHERE imo_kod = :kodas",
                     .unique = {{"IMO_KOD"}},
                     .rows = {TFieldRow::edit("Kodas", "IMO_KOD").required(),
                              TFieldRow::edit("Pavadinimas", "IMO_PAVAD").required().width(50)},
                     .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")},
                    start)
{
    keepIn(NewImokDlg);
}

} // namespace Newimok
