#include "src/frame/entries.h"
#include "src/money/Bankai.h"
#include "src/money/Bankaied.h"
#include "src/money/Einsasdet.h"
#include "src/money/Einsasform.h"
#include "src/money/Fined.h"
#include "src/money/Finlist.h"
#include "src/money/Kasnew.h"
#include "src/money/Kasosform.h"

namespace {

const QStringList money{Menu::catalogues, "&Pinigai ir bankai"};

void editBank()
{
    double kodas = firstKey(TSession::Main, "bd_bankai", "bnk_kodas");
    Bankaied::EditBankas(kodas, false);
}

void editAccount()
{
    double id = firstKey(TSession::Main, "bd_einsas", "ein_id");
    Einsasdet::ShowEinSas(AnsiString("Koreguojama sąskaita"), id, false);
}

} // namespace

TPackageEntries moneyEntries()
{
    return {
        listScreen<Kasosform::TKasosFrm>(Kasosform::unit, money, "&Kasos…", 40),
        listScreen<Einsasform::TEinSasFrm>(Einsasform::unit, money, "&Einamosios sąskaitos…", 6),
        listScreen<Bankai::TBankaiFrm>(Bankai::unit, money, "&Bankai…", 65),
        listScreen<Finlist::TFinListFrm>(Finlist::unit, money, "&Finansavimo šaltiniai…", 72),
        editorInList<Kasosform::TKasosFrm>("ShowKasa", Kasnew::unit, 40),
        editor("ShowEinSas", Einsasdet::unit, 6, editAccount),
        editor("TBankaiDlg", Bankaied::unit, 65, editBank),
        editorInList<Finlist::TFinListFrm>("TFinEdDlg", Fined::unit, 72),
    };
}
