#include "src/people/Matasm.h"

#include "src/people/Chmatasm.h"

#include <QAction>

namespace Matasm {

TUnit unit("MatAsm");
TMatAsmFrm *MatAsmFrm = nullptr;

TMatAsmFrm::TMatAsmFrm(QWidget *owner)
    : TBrowseFrm(
          {.name = "TMatAsmFrm",
           .caption = "Materialiai atsakingi asmenys",
           .help = 8,
           .keyColumn = "mat_id",
           .table = "bd_matasm",
           .sql = "select MAT_ID, MAT_ASM_KOD, MAT_PADID, MAT_PAVAD, MAT_PRGID, PAD_PAVAD, PRG_PAVAD "
                  "from bd_matasm, bd_pad, bd_prg where MAT_PADID = PAD_ID and MAT_PRGID = PRG_Id",
           .columns = {{"MAT_ASM_KOD", "Asmens kodas"},
                       {"MAT_PAVAD", "Vardas, Pavardė"},
                       {"PAD_PAVAD", "Skyrius"},
                       {"PRG_PAVAD", "Pareigybė"}},
           .used = {"Materialiai atsakingas asmuo \"%s\" dalyvauja ūkinėse operacijose!", "mat_pavad", true},
           .newCaption = "Naujas materialiai atsakingas asmuo",
           .editCaption = "Koreguojamas materialiai atsakingas asmuo",
           .edit = keyed<double>(Chmatasm::EditMatAsm)},
          owner)
{
    keepIn(MatAsmFrm);
    acMerge = addListAction({.name = "acMerge",
                             .text = "MAA ap&jungimas",
                             .picture = TIcon::Merge,
                             .keys = {Qt::CTRL | Qt::Key_J},
                             .handler = [this] { merge(); },
                             .enabled = [this] { return acDelete->isEnabled(); }});
}

void TMatAsmFrm::merge()
{
    if (StdMsgBox(mkQuestion,
                  "Ar tikrai norite apjungti vienodus materialiai atsakingus asmenis?\r\n"
                  "(Prieš atliekant apjungimą patartina padaryti duomenų bazės kopiją.)") != mrYes)
        return;
    TTransaction transaction(Database());
    DbiQExecDirect(Database(), "CALL updMatAsmUnq()");
    transaction.commit();
    RefreshData(0);
}

} // namespace Matasm
