#include "src/departments/Lvedit.h"

namespace Lvedit {

TUnit unit("LVEdit");
TLVEditFrm *LVEditFrm = nullptr;

bool ShowLVEdit(double &id, double padId, TDataSetState state)
{
    return editRecord<TLVEditFrm>(id, id, padId, state);
}

TLVEditFrm::TLVEditFrm(double id, double department, TDataSetState state)
    : TRecordDialog({.name = "TLVEditFrm",
                     .newCaption = "Laikymo vietos Pavadinimas",
                     .help = 5,
                     .table = "bd_laikymo_vieta",
                     .keyColumn = "LV_ID",
                     .key = TKeyRule::drawn("SELECT ISNULL(MAX(lv_id),0)+1 FROM bd_laikymo_vieta"),
                     .sql = "SELECT * FROM bd_laikymo_vieta WHERE lv_id=:ID",
                     .rows = {TFieldRow::edit("&Pavadinimas", "LV_PAV").blankIsNull().width(50)},
                     .buttons = saveAndCancel("&Gerai", "&Atsisakyti")},
                    TRecordStart::rowOrNew(state == dsInsert, id)),
      padId(department),
      onlyShown(state != dsInsert && state != dsEdit)
{
    keepIn(LVEditFrm);
}

void TLVEditFrm::Loaded()
{
    if (isNew())
        field("LV_PADID")->setAsFloat(padId);
}

// The dialog stays open for the name; it can still be left.
void TLVEditFrm::Validate()
{
    if (field("LV_PAV")->IsNull()) {
        StdMsgBox(mkWarning, "Būtina įvesti laikymo vietos pavadinimą!");
        form().focusFirst();
        throw EAbort();
    }
    TRecordDialog::Validate();
}

bool TLVEditFrm::mayChange() const
{
    return !onlyShown && TRecordDialog::mayChange();
}

} // namespace Lvedit
