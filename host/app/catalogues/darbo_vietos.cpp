#include "host/app/catalogues/darbo_vietos.h"

#include "host/app/catalogues/table_lock.h"
#include "host/data/main_datas.h"
#include "toolkit/data/statement.h"

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

QString ofAdministrators(const QString &rights = u"in"_s)
{
    return u"udv_usrid %1 (select usr_id from bd_usr where usr_user_admin = 1)"_s.arg(rights);
}

const QString notIn = u"not in"_s;

QString hasBit(int bit)
{
    return u"(udv_kdv & %1) <> 0"_s.arg(bit);
}

void takeBit(TDatabase *budget, int bit, const QString &whose)
{
    budget->ExecSQL(u"update bd_usrkdv set udv_kdv = udv_kdv - %1 where %2 and %3"_s.arg(QString::number(bit),
                                                                                         hasBit(bit), whose));
}

// Who may hand out rights hands out his own: a new work place is among them at once, for every source, else
// nobody could. A mask may have had the bit before there was such a place; it is no right of anybody else.
void giveToAdministrators(TDatabase *budget, int bit)
{
    takeBit(budget, bit, ofAdministrators(notIn));
    budget->ExecSQL(u"update bd_usrkdv set udv_kdv = udv_kdv + %1 where (udv_kdv & %1) = 0 and %2"_s.arg(
        QString::number(bit), ofAdministrators()));
    budget->ExecSQL(u"insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) select usr_id, fin_id, %1 from "
                    u"bd_usr, bd_fin "
                    "where usr_user_admin = 1 and not exists "
                    "(select 1 from bd_usrkdv where udv_usrid = usr_id and udv_finid = fin_id)"_s.arg(bit));
}

int lowestFreeNumber(TDatabase *budget)
{
    QSet<int> taken;
    const auto places = budget->prepare(u"select kdv_id from bd_kdv"_s);
    for (places->exec(); places->next();)
        taken.insert(int(places->integer(0)));
    for (int number = 1; number <= mostWorkPlaces; ++number)
        if (!taken.contains(number))
            return number;
    throw Exception(u"Darbo vietų gali būti ne daugiau kaip %1: ištrinkite nereikalingą arba pakeiskite jos "
                    "pavadinimą"_s.arg(mostWorkPlaces));
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
    const Variant uses = Database()->fieldResult(u"select count(*) from bd_usrkdv where %1 and %2"_s.arg(
        hasBit(bitOf(currentKey().toInt())), ofAdministrators(notIn)));
    if (uses.toInt() > 0)
        throw Exception(u"Darbo vieta \"%1\" yra vartotojų teisėse!"_s.arg(
            dataSet()->FieldByName(u"KDV_PAV"_s)->AsString()));
}

void TDarboVietosFrm::DeleteRow(const Variant &key)
{
    lockTable(Database(), u"bd_usrkdv"_s);
    CheckUsed();
    TBrowseFrm::DeleteRow(key);
    takeBit(Database(), bitOf(key.toInt()), ofAdministrators());
}

TDarboVietaDlg::TDarboVietaDlg(const TRecordStart &start)
    : TRecordDialog({.name = u"TDarboVietaDlg"_s,
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

void TDarboVietaDlg::Save()
{
    lockTable(Database(), description.table);
    Validate();
    if (isNew())
        field(description.keyColumn)->setAsInteger(lowestFreeNumber(Database()));
    TRecordDialog::Save();
    if (isNew())
        giveToAdministrators(Database(), bitOf(rowKey().toInt()));
}
