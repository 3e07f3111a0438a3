#include "src/assets/Pirktip.h"

#include "src/assets/Editpirktip.h"

namespace Pirktip {

TUnit unit("PirkTip");
TPirkTipFrm *PirkTipFrm = nullptr;

namespace {

std::optional<QVariantMap> askMethod(const QString &caption, const QVariantMap &now)
{
    AnsiString name(now.value("pit_pav").toString());
    int tipas = now.value("pit_tipas").toInt();
    int pozymis = now.value("pit_pozymis").toInt();
    if (!Editpirktip::EditPirk(AnsiString(caption), name, tipas, pozymis))
        return {};
    return QVariantMap{{"pit_pav", name.toQString()}, {"pit_tipas", tipas}, {"pit_pozymis", pozymis}};
}

} // namespace

TPirkTipFrm::TPirkTipFrm(QWidget *owner)
    : TBrowseFrm({.name = "TPirkTipFrm",
                  .caption = "Ilgalaikio turto įsigijimo būdų sąrašas",
                  .help = 68,
                  .keyColumn = "pit_id",
                  .table = "it_pirktip",
                  .sql = "select * from IT_PIRKTIP",
                  .columns = {{"pit_pav", "Pavadinimas"},
                              {.field = "pit_tipas", .title = "Už įstaigos lėšas", .text = yesOrNo},
                              {.field = "pit_pozymis", .title = "Parama", .text = yesOrNo}},
                  .editing = TEditing::UnlessViewOnly,
                  .used = {"Įsigijimo būdas \"%s\" panaudotas turto apskaitoje!", "pit_pav"},
                  .newCaption = "Naujo įsigijimo būdo įvedimas",
                  .editCaption = "Įsigijimo būdo redagavimas",
                  .values = {.ask = askMethod,
                             .key = TKeyRule::drawn(
                                 "select GetNextTableColumnId('dba','it_pirkTip','pit_ID') from dummy")}},
                 owner)
{
    keepIn(PirkTipFrm);
}

} // namespace Pirktip
