#include "src/people/Atsasmlist.h"

#include "src/people/Chatasm.h"

namespace Atsasmlist {

TUnit unit("AtsAsmList");
TAtsAsmFrm *AtsAsmFrm = nullptr;

TAtsAsmFrm::TAtsAsmFrm(QWidget *owner)
    : TBrowseFrm({.name = "TAtsAsmFrm",
                  .caption = "Atskaitingi asmenys",
                  .help = 7,
                  .keyColumn = "ats_id",
                  .table = "bd_atsasm",
                  .sql = "select ats_id, ats_asm_kod, sas_sasnr+'  '+sas_pavad saskaita, ats_pav, prg_pavad "
                         "from bd_atsasm, bd_prg, bd_sasplan where prg_id=ats_prgid and sas_id=ats_sasid",
                  .columns = {{"ats_pav", "Vardas, Pavardė", 200},
                              {"ats_asm_kod", "Asmens kodas", 110},
                              {"saskaita", "Sąskaita", 260},
                              {"prg_pavad", "Pareigybė", 200}},
                  .closesReports = true,
                  .used = {"Atskaitingas asmuo \"%s\" dalyvauja ūkinėse operacijose!", "ats_pav", true},
                  .newCaption = "Naujas atskaitingas asmuo",
                  .editCaption = "Koreguojamas atskaitingas asmuo",
                  .edit = keyed<double>(Chatasm::ChAtsAsm)},
                 owner)
{
    keepIn(AtsAsmFrm);
}

} // namespace Atsasmlist
