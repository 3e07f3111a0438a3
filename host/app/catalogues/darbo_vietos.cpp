#include "host/app/catalogues/darbo_vietos.h"

#include "host/app/catalogues/table_lock.h"
#include "host/app/catalogues/work_place_rights.h"
#include "host/data/main_datas.h"

using namespace Qt::StringLiterals;

namespace {

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

// An administrator has every place, whether he works there or not.
void TDarboVietosFrm::CheckUsed()
{
    if (isGivenToOthers(Database(), bitOf(currentKey().toInt())))
        throw Exception(u"Darbo vieta \"%1\" yra vartotojų teisėse!"_s.arg(
            dataSet()->FieldByName(u"KDV_PAV"_s)->AsString()));
}

void TDarboVietosFrm::DeleteRow(const Variant &key)
{
    lockTable(Database(), u"bd_usrkdv"_s);
    CheckUsed();
    TBrowseFrm::DeleteRow(key);
    takeFromAdministrators(Database(), bitOf(key.toInt()));
}

TDarboVietaDlg::TDarboVietaDlg(const TRecordStart &start)
    : TJudgedDialog({.name = u"TDarboVietaDlg"_s,
                     .newCaption = u"Nauja darbo vieta"_s,
                     .editCaption = u"Darbo vieta"_s,
                     .help = 124,
                     .session = TSession::Budget,
                     .table = u"bd_kdv"_s,
                     .keyColumn = u"KDV_ID"_s,
                     .sql = u"select * from bd_kdv where kdv_id = :id"_s,
                     .unique = {{u"KDV_PAV"_s, u"Darbo vieta \"%s\" jau yra"_s}},
                     .rows = {TFieldRow::edit(u"&Pavadinimas"_s, u"KDV_PAV"_s).required().width(50)}},
                    start)
{
}

void TDarboVietaDlg::Judge()
{
    if (isNew())
        field(description.keyColumn)->setAsInteger(lowestFreeNumber(Database()));
}

void TDarboVietaDlg::Save()
{
    TJudgedDialog::Save();
    if (isNew())
        giveToAdministrators(Database(), bitOf(rowKey().toInt()));
}
