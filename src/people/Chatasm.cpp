#include "src/people/Chatasm.h"

namespace Chatasm {

TUnit unit("chAtAsm");
TEditAtAsmDlg *EditAtAsmDlg = nullptr;

bool ChAtsAsm(const AnsiString &caption, double &id, bool isNew)
{
    return editRecord<TEditAtAsmDlg>(id, caption, TRecordStart::rowOrNew(isNew, id));
}

TEditAtAsmDlg::TEditAtAsmDlg(const AnsiString &caption, const TRecordStart &start)
    : TRecordDialog(
          {.name = "TEditAtAsmDlg",
           .newCaption = caption.toQString(),
           .help = 7,
           .table = "bd_atsasm",
           .keyColumn = "ATS_ID",
           .key = TKeyRule::largestPlusOne("select MAX(ats_id) from bd_atsasm"),
           .sql = "select * from BD_ATSASM where ats_id =:id",
           .rows = {TFieldRow::edit("Vardas Pavardė", "ATS_PAV").required().width(50),
                    TFieldRow::edit("Asmens kodas", "ATS_ASM_KOD").required().digitsTyped(),
                    SasRow("Sąskaita", "ATS_SASID", {.whenNotDetail = TSasRule::Clear}).required(),
                    TFieldRow::pick("Pareigybė", "ATS_PRGID", "select prg_Pavad, prg_Id from bd_prg")
                        .required()
                        .firstPreselected()},
           .save = TSaveRule::WhenFilledAndChanged,
           .openFailure = "Šiuo metu lentelės \"BD_ATSASM\" atidaryti negalima",
           .saveFailure = "Šiuo metu koreguoti lentelės \"BD_ATSASM\" negalima"},
          start)
{
    keepIn(EditAtAsmDlg);
}

} // namespace Chatasm
