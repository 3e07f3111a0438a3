#include "host/app/catalogues/knygos.h"

#include "host/app/catalogues/klasifikacija.h"

using namespace Qt::StringLiterals;

namespace {

bool editBook(double &key, bool isNew)
{
    return editRecord<TKnygaDlg>(key, TRecordStart::rowOrNew(isNew, key));
}

} // namespace

TKnygosFrm::TKnygosFrm(QWidget *owner)
    : TBrowseFrm({.name = u"TKnygosFrm"_s,
                  .caption = u"Klasifikacijos knygos"_s,
                  .help = 122,
                  .keyColumn = u"ISL_ID"_s,
                  .table = u"bd_asgisl"_s,
                  .sql = u"select * from bd_asgisl order by isl_pavad"_s,
                  .columns = {{u"ISL_PAVAD"_s, u"Pavadinimas"_s, 360}},
                  .editing = TEditing::UnlessViewOnly,
                  .used = {u"Knyga \"%s\" yra naudojama!"_s, u"ISL_PAVAD"_s},
                  .edit = keyed<double>(editBook)},
                 owner)
{
    addListAction({.name = u"acKodai"_s,
                   .text = u"Ko&dai"_s,
                   .hint = u"Knygos kodų medis"_s,
                   .picture = TIcon::Browse,
                   .keys = {Qt::CTRL | Qt::Key_K},
                   .handler = [this] { createForm<TMazgaiFrm>(this, currentKey().toDouble())->ShowModal(); },
                   .enabled = [this] { return !currentKey().isNull(); }});
}

TKnygaDlg::TKnygaDlg(const TRecordStart &start)
    : TJudgedDialog(
          {.name = u"TKnygaDlg"_s,
           .newCaption = u"Nauja klasifikacijos knyga"_s,
           .editCaption = u"Klasifikacijos knyga"_s,
           .help = 122,
           .table = u"bd_asgisl"_s,
           .keyColumn = u"ISL_ID"_s,
           .key = TKeyRule::drawn(u"select GetNextTableColumnId('dba','bd_asgisl','isl_id') from dummy"_s),
           .sql = u"select * from bd_asgisl where isl_id = :id"_s,
           .unique = {{u"ISL_PAVAD"_s, u"Knyga \"%s\" jau yra"_s}},
           .rows = {TFieldRow::edit(u"&Pavadinimas"_s, u"ISL_PAVAD"_s).required().width(50)}},
          start)
{
}
