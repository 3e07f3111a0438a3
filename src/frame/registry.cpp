#include "src/frame/registry.h"

#include "src/balances/Saslikedit.h"
#include "src/balances/Slikuciai.h"
#include "src/catalogues/Imokos.h"
#include "src/catalogues/Newimok.h"
#include "src/debtors/Chdbkr.h"
#include "src/debtors/Copydbkr.h"
#include "src/debtors/Dbkr.h"
#include "src/debtors/Dbkrsut.h"
#include "src/frame/SysInit.h"
#include "src/frame/Velmora.h"
#include "src/period/Closeperiod.h"
#include "src/period/Perback.h"
#include "src/period/Period.h"
#include "src/users/Confpas.h"
#include "src/users/Usersch.h"
#include "src/users/Userslist.h"

#include <algorithm>
#include <iterator>

namespace {

const QString periodMenu = QStringLiteral("Pe&riodas");
const QString balanceMenu = QStringLiteral("Li&kučiai");
const QString registerMenu = QStringLiteral("&Žinynai");

template<class Form>
TPackageEntry listScreen(const char *name, const TUnit &unit, const QString &menu, const QString &caption,
                         int help)
{
    return {QString::fromLatin1(name),
            unit.name,
            TPackageEntry::Kind::ListScreen,
            menu,
            caption,
            help,
            [](QWidget *owner) -> QWidget * { return createForm<Form>(owner); },
            {}};
}

// A dialog that the host creates by class.
template<class Dialog>
TPackageEntry dialog(const char *name, const TUnit &unit, const QString &menu, const QString &caption,
                     int help)
{
    return {QString::fromLatin1(name),
            unit.name,
            TPackageEntry::Kind::Dialog,
            menu,
            caption,
            help,
            [](QWidget *owner) -> QWidget * { return new Dialog(owner); },
            {}};
}

TPackageEntry function(const char *name, const TUnit &unit, const QString &menu, const QString &caption,
                       int help, void (*call)())
{
    return {
        QString::fromLatin1(name), unit.name, TPackageEntry::Kind::Function, menu, caption, help, {}, call};
}

TPackageEntry editor(const char *name, const TUnit &unit, int help, void (*call)())
{
    TPackageEntry entry = function(name, unit, {}, {}, help, call);
    entry.kind = TPackageEntry::Kind::Editor;
    return entry;
}

// The lowest key of a table: that of the row on which an editor is opened.
double firstKey(TSession session, const char *table, const char *key)
{
    return sessionOf(session)->fieldResult(QString("select min(%1) from %2").arg(key, table)).toDouble();
}

void editBalance()
{
    double id = firstKey(TSession::Main, "bd_saslik", "ssl_id");
    Saslikedit::EditLik(true, id);
}

double firstParty()
{
    return firstKey(TSession::Main, "bd_dbkrasm", "dka_id");
}

void editPaymentCode()
{
    AnsiString code(sessionOf(TSession::Main)->fieldResult("select min(imo_kod) from pp_imok").toString());
    Newimok::EditImokos(code, false);
}

void editParty()
{
    double id = firstParty();
    Chdbkr::EditDbKr(AnsiString("Koreguojamas debitorius ar kreditorius"), false, id);
}

TPackageEntries editors()
{
    return {
        editor("EditLik", Saslikedit::unit, 17, &editBalance),
        editor("EditDbKr", Chdbkr::unit, 9, &editParty),
        editor("CopyDbKr", Chdbkr::unit, 9,
               [] {
                   double newId = 0;
                   Chdbkr::CopyDbKr(AnsiString("Naujas debitorius ar kreditorius"), firstParty(), newId);
               }),
        editor("DbKrShow", Dbkrsut::unit, 9, [] { Dbkrsut::DbKrShow(firstParty()); }),
        editor("CopyData", Copydbkr::unit, 9,
               [] {
                   double newId = 0;
                   Copydbkr::CopyData(AnsiString("Naujas debitorius ar kreditorius"), firstParty(), newId);
               }),
        editor("Add_ChUser", Usersch::unit, 2,
               [] { Usersch::Add_ChUser(true, int(firstKey(TSession::Budget, "bd_usr", "usr_id"))); }),
        editor("ShowPass", Confpas::unit, 2, [] { Confpas::ShowPass(AnsiString("slaptas")); }),
        editor("EditImokos", Newimok::unit, 61, &editPaymentCode),
    };
}

TPackageEntry onlyWrites(TPackageEntry entry)
{
    entry.writes = true;
    return entry;
}

} // namespace

const std::vector<TUnit *> &packageUnits()
{
    static const std::vector<TUnit *> units = {
        &Velmora::unit,   &SysInit::unit, &Dbkrsut::unit,     &Chdbkr::unit,
        &Copydbkr::unit,  &Newimok::unit, &Imokos::unit,      &Saslikedit::unit,
        &Slikuciai::unit, &Usersch::unit, &Confpas::unit,     &Period::unit,
        &Perback::unit,   &Dbkr::unit,    &Closeperiod::unit, &Userslist::unit,
    };
    return units;
}

namespace {

TPackageEntries openedFromMenus()
{
    return {
        onlyWrites(dialog<Period::TPeriodDlg>("TPeriodDlg", Period::unit, periodMenu,
                                              "&Darbo pradžios periodas…", 16)),
        onlyWrites(function("StartPerClose", Closeperiod::unit, periodMenu, "Periodo &uždarymas…", 18,
                            &Closeperiod::StartPerClose)),
        onlyWrites(function("PeriodBack", Perback::unit, periodMenu, "Periodo &atsukimas…", 19,
                            &Perback::PeriodBack)),
        listScreen<Slikuciai::TSasLikFrm>("TSasLikFrm", Slikuciai::unit, balanceMenu, "&Sąskaitų likučiai…",
                                          17),
        listScreen<Dbkr::TDbKrFrm>("TDbKrFrm", Dbkr::unit, registerMenu, "&Debitoriai ir kreditoriai…", 9),
        listScreen<Imokos::TImokosFrm>("TImokosFrm", Imokos::unit, registerMenu, "&Mokesčių ir įmokų kodai…",
                                       61),
        listScreen<Userslist::TUsersFrm>("TUsersFrm", Userslist::unit, registerMenu, "&Vartotojai…", 2),
    };
}

} // namespace

const TPackageEntries &packageEntries()
{
    static const TPackageEntries entries = [] {
        TPackageEntries all = openedFromMenus();
        std::ranges::move(editors(), std::back_inserter(all));
        return all;
    }();
    return entries;
}
