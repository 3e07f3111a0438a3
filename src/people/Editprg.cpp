#include "src/people/Editprg.h"

namespace Editprg {

TUnit unit("EditPrg");
TEditPrgDlg *EditPrgDlg = nullptr;

namespace {

// Another station may have changed them since they were read.
TQuery *categories()
{
    MainDatas()->RefreshTarn();
    return MainDatas()->Tarn();
}

} // namespace

bool PrgEdit(const bool)
{
    return TEditPrgDlg().run();
}

TEditPrgDlg::TEditPrgDlg()
    : TRecordDialog(
          {.name = "TEditPrgDlg",
           .newCaption = "Nauja pareigybė",
           .editCaption = "Koreguojama pareigybė",
           .help = 69,
           .table = "bd_prg",
           .keyColumn = "PRG_ID",
           .key = TKeyRule::largestPlusOne("select max(prg_id) from bd_prg"),
           .rows = {TFieldRow::edit("&Subordinacija", "PRG_SUBORD").digitsTyped().between(0, 32767),
                    TFieldRow::edit("&Pareigybė", "PRG_PAVAD").named("Pareigybė").required().width(50),
                    TFieldRow::lookup("&Valstybės tarnautojo kategorija", "PRG_TRNID", categories(), "trn_id",
                                      "trn_pavad"),
                    DrbKlasRow("Profesinė &grupė", "PRG_KLA_KOD"),
                    TFieldRow::check("&Mokytojas ar gydytojas", "PRG_MOKGYD").defaultValue(0)},
           .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")},
          TRecordStart::onRowOf("TPareigFrm"))
{
    keepIn(EditPrgDlg);
}

} // namespace Editprg
