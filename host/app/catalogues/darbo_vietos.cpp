#include "host/app/catalogues/darbo_vietos.h"

#include "host/data/main_datas.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int mostWorkPlaces = 16; // bits of a user's rights

quint16 bitOf(int workPlace)
{
    return quint16(1U << (workPlace - 1));
}

bool editWorkPlace(int &key, bool isNew)
{
    const bool saved = editRecord<TDarboVietaDlg>(key, TRecordStart::rowOrNew(isNew, key));
    if (saved && isNew && CurrentUser().userAdmin)
        CurrentUser().workPlaces |= bitOf(key);
    return saved;
}

} // namespace

TDarboVietosFrm::TDarboVietosFrm(QWidget *owner)
    : TBrowseFrm({.name = u"TDarboVietosFrm"_s,
                  .caption = u"Darbo vietos"_s,
                  .help = 124,
                  .session = TSession::Budget,
                  .keyColumn = u"KDV_ID"_s,
                  .table = u"bd_kdv"_s,
                  .sql = u"select * from bd_kdv order by kdv_id"_s,
                  .columns = {{u"KDV_ID"_s, u"Numeris"_s, 80}, {u"KDV_PAV"_s, u"Pavadinimas"_s, 360}},
                  .editing = TEditing::UnlessViewOnly,
                  .edit = keyed<int>(editWorkPlace)},
                 owner)
{
}

void TDarboVietosFrm::CheckUsed()
{
    const Variant uses = Database()->fieldResult(
        u"select count(*) from bd_usrkdv where (POWER(2, (%1-1)) & udv_kdv) <> 0"_s.arg(
            currentKey().toInt()));
    if (uses.toInt() > 0)
        throw Exception(u"Darbo vieta \"%1\" yra vartotojų teisėse!"_s.arg(
            dataSet()->FieldByName(u"KDV_PAV"_s)->AsString()));
}

// Once more, where no other station comes between.
void TDarboVietosFrm::DeleteRow(const Variant &key)
{
    CheckUsed();
    TBrowseFrm::DeleteRow(key);
}

TDarboVietaDlg::TDarboVietaDlg(const TRecordStart &start)
    : TRecordDialog({.name = u"TDarboVietaDlg"_s,
                     .newCaption = u"Nauja darbo vieta"_s,
                     .editCaption = u"Darbo vieta"_s,
                     .help = 124,
                     .session = TSession::Budget,
                     .table = u"bd_kdv"_s,
                     .keyColumn = u"KDV_ID"_s,
                     .key = TKeyRule::largestPlusOne(u"select max(kdv_id) from bd_kdv"_s),
                     .sql = u"select * from bd_kdv where kdv_id = :id"_s,
                     .unique = {{u"KDV_PAV"_s, u"Darbo vieta \"%s\" jau yra"_s}},
                     .rows = {TFieldRow::edit(u"&Pavadinimas"_s, u"KDV_PAV"_s).required().width(50)}},
                    start)
{
}

// Who may hand out rights hands out his own: a new work place is among them at once, else nobody could.
void TDarboVietaDlg::Save()
{
    if (isNew() && rowKey().toInt() > mostWorkPlaces)
        throw Exception(
            u"Darbo vietų gali būti ne daugiau kaip %1: pakeiskite nereikalingos pavadinimą"_s.arg(
                mostWorkPlaces));
    TRecordDialog::Save();
    if (!isNew() || !CurrentUser().userAdmin)
        return;
    Database()->ExecSQL(u"update bd_usrkdv set udv_kdv = udv_kdv + :bitas where udv_usrid = :id"_s,
                        {{u"bitas"_s, int(bitOf(rowKey().toInt()))}, {u"id"_s, CurrentUser().id}});
}
