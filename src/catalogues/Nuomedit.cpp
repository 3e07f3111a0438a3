#include "src/catalogues/Nuomedit.h"

namespace Nuomedit {

TUnit unit("NuomEdit");
TNuomDlg *NuomDlg = nullptr;

bool EditNuom(const AnsiString &caption, bool isNew, double &id)
{
    return editRecord<TNuomDlg>(id, caption, TRecordStart::rowOrNew(isNew, id));
}

TNuomDlg::TNuomDlg(const AnsiString &caption, const TRecordStart &start)
    : TRecordDialog(
          {.name = "TNuomDlg",
           .newCaption = caption.toQString(),
           .help = 62,
           .table = "bd_nuomasm",
           .keyColumn = "nuom_id",
           .key = TKeyRule::largestPlusOne("select max(nuom_id) from bd_nuomasm"),
           .sql = "select * from bd_nuomasm where nuom_id = :ID",
           .unique = {{"nuom_kod"}},
           .rows = {TFieldRow::edit("Pavadinimas", "NUOM_PAVAD").required().width(60),
                    TFieldRow::edit("Adresas", "NUOM_ADR"), TFieldRow::edit("Telefonas", "NUOM_TEL"),
                    TFieldRow::edit("Įmonės kodas", "NUOM_I_KOD")
                        .digitsTyped()
                        .maxLength(11)
                        .between(1, 99999999999)
                        .format("#"),
                    TFieldRow::edit("PVM kodas", "NUOM_PVM_KOD"),
                    TFieldRow::edit("Banko sąskaita", "NUOM_EIN_SAS"),
                    TFieldRow::edit("Bankas", "NUOM_BANK_PAV"),
                    TFieldRow::edit("Kodas", "NUOM_KOD").required(),
                    SasRow("Sąskaita", "NUOM_SASID", {.whenNotDetail = TSasRule::Clear}),
                    SasRow("Antroji sąskaita", "NUOM_SASID2", {.whenNotDetail = TSasRule::Clear})},
           .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")},
          start)
{
    keepIn(NuomDlg);
}

} // namespace Nuomedit
