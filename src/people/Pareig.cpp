#include "src/people/Pareig.h"

#include "src/people/Editprg.h"

namespace Pareig {

TUnit unit("Pareig");
TPareigFrm *PareigFrm = nullptr;

TPareigFrm::TPareigFrm(QWidget *owner)
    : TBrowseFrm(
          {.name = "TPareigFrm",
           .caption = "Pareigybės",
           .help = 69,
           .keyColumn = "PRG_ID",
           .table = "bd_prg",
           .sql = "select * from bd_prg",
           .columns = {{"PRG_PAVAD", "Pareigybės", 250},
                       {"PRG_SUBORD", "Subordinacija"},
                       {"PRG_KLA_KOD", "Klas."},
                       {.field = "PRG_MOKGYD", .title = "Mok.Gyd.", .text = yesOrNo},
                       {.field = "PRG_TRNID",
                        .title = "Valst. Tarn.",
                        .width = 220,
                        .lookup =
                            "select TRN_ID, cast(TRN_ID as varchar(12)) + '  ' + TRN_PAVAD from bd_tarn"}},
           .editing = TEditing::UnlessViewOnly,
           .used = {"Pareigybė \"%s\" yra naudojama!", "PRG_PAVAD"},
           .editRow = [](const QString &, bool isNew) { return Editprg::PrgEdit(isNew); },
           .statements = heldStatements(
               "bd_prg", "PRG_ID",
               {"PRG_ID", "PRG_PAVAD", "PRG_SUBORD", "PRG_KLA_KOD", "PRG_MOKGYD", "PRG_TRNID"})},
          owner)
{
    keepIn(PareigFrm);
}

} // namespace Pareig
