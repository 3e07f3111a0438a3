#include "src/money/Kasnew.h"

#include <QLineEdit>

namespace Kasnew {

TUnit unit("KasNew");
TKasNewFrm *KasNewFrm = nullptr;

// Whether the row is new is what its state says.
bool ShowKasa(const AnsiString &caption, bool)
{
    return TKasNewFrm(caption).run();
}

TKasNewFrm::TKasNewFrm(const AnsiString &caption)
    : TRecordDialog({.name = "TKasNewFrm",
                     .newCaption = caption.toQString(),
                     .help = 40,
                     .table = "bd_kasos",
                     .keyColumn = "KAS_ID",
                     .key = TKeyRule::drawnAtEverySave(
                         "select GetNextTableColumnId('dba','bd_kasos','kas_id') from dummy"),
                     .rows = {TFieldRow::edit("Kasos pavadinimas", "KAS_PAVAD").required().width(60),
                              SasRow("Sąskaita", "KAS_SASID", {.whenNotDetail = TSasRule::Clear}).required()},
                     .buttons = saveAndCancel("Išsaugoti", "Atšaukti")},
                    TRecordStart::onRowOf("TKasosFrm"))
{
    keepIn(KasNewFrm);
}

// A blank is a character: such a name is refused by the save.
bool TKasNewFrm::CanSave() const
{
    return !control<QLineEdit>("KAS_PAVAD")->text().isEmpty() && form().isFilled("KAS_SASID");
}

} // namespace Kasnew
