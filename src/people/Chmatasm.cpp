#include "src/people/Chmatasm.h"

namespace Chmatasm {

TUnit unit("chMatAsm");
TEditMatAsmDlg *EditMatAsmDlg = nullptr;
const QString NoEdit = QStringLiteral("Šiuo metu lentelę \"BD_MATASM\" koreguoti negalima");

bool EditMatAsm(const AnsiString &caption, bool isNew, double &id)
{
    return editRecord<TEditMatAsmDlg>(id, caption, TRecordStart::rowOrNew(isNew, id));
}

TEditMatAsmDlg::TEditMatAsmDlg(const AnsiString &caption, const TRecordStart &start)
    : TRecordDialog(
          {.name = "TEditMatAsmDlg",
           .newCaption = caption.toQString(),
           .help = 8,
           .table = "bd_matasm",
           .keyColumn = "MAT_ID",
           .key = TKeyRule::largestPlusOne("select max(mat_id) from bd_matasm"),
           .sql = "select * from Bd_MatAsm where MAT_ID =:id",
           .rows = {TFieldRow::edit("Vardas, pavardė", "MAT_PAVAD").required().width(50),
                    TFieldRow::edit("Asmens kodas", "MAT_ASM_KOD").required().digitsTyped(),
                    TFieldRow::pick("Skyrius", "MAT_PADID", "select PAD_PAVAD, PAD_ID from Bd_Pad")
                        .required()
                        .firstPreselected(),
                    TFieldRow::pick("Pareigybė", "MAT_PRGID", "select PRG_PAVAD, PRG_ID from Bd_Prg")
                        .required()
                        .firstPreselected()},
           .save = TSaveRule::WhenFilledAndChanged,
           .openFailure = NoEdit,
           .saveFailure = NoEdit},
          start)
{
    keepIn(EditMatAsmDlg);
}

} // namespace Chmatasm
