#include "host/app/catalogues/funkcijos.h"

#include "host/app/catalogues/branch_use.h"

using namespace Qt::StringLiterals;

TFunkcijosFrm::TFunkcijosFrm(QWidget *owner)
    : TTreeFrm({.name = u"TFunkcijosFrm"_s,
                .caption = u"Valstybės funkcijos"_s,
                .help = 123,
                .keyColumn = u"FUN_ID"_s,
                .table = u"bd_fun"_s,
                .sql = u"select fun_id, fun_kodas, fun_pavad from bd_fun "
                       "where 0 = :tevas or fun_id = :tevas or fun_tevid = :tevas order by fun_kodas"_s,
                .columns = {{u"FUN_KODAS"_s, u"Kodas"_s, 130}, {u"FUN_PAVAD"_s, u"Pavadinimas"_s, 420}},
                .editing = TEditing::UnlessViewOnly,
                .used = {u"Funkcija \"%s\" yra naudojama!"_s, u"FUN_KODAS"_s},
                .newCaption = u"Nauja valstybės funkcija"_s,
                .editCaption = u"Valstybės funkcija"_s},
               {.root = u"Visos funkcijos"_s,
                .codeTitle = u"Kodas"_s,
                .parentColumn = u"fun_tevid"_s,
                .nodes = u"select fun_id, fun_tevid, fun_kodas, fun_pavad, 1 as lapas from bd_fun"_s,
                .edit = editBranch<TFunkcijaDlg>,
                .place = placeUnused(u"bd_fun"_s, u"fun_id"_s)},
               owner)
{
}

TFunkcijaDlg::TFunkcijaDlg(const QString &caption, const TRecordStart &start, double parent)
    : TBranchDlg(
          {.name = u"TFunkcijaDlg"_s,
           .newCaption = caption,
           .help = 123,
           .table = u"bd_fun"_s,
           .keyColumn = u"FUN_ID"_s,
           .key = TKeyRule::drawn(u"select GetNextTableColumnId('dba','bd_fun','fun_id') from dummy"_s),
           .sql = u"select * from bd_fun where fun_id = :id"_s,
           .unique = {{u"FUN_KODAS"_s}},
           .rows = {TFieldRow::edit(u"&Kodas"_s, u"FUN_KODAS"_s).required(),
                    TFieldRow::edit(u"&Pavadinimas"_s, u"FUN_PAVAD"_s).required().width(60)}},
          start, u"FUN_TEVID"_s, parent)
{
}
