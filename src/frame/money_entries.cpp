#include "src/frame/entries.h"
#include "src/money/Bankai.h"
#include "src/money/Bankaied.h"
#include "src/money/Fined.h"
#include "src/money/Finlist.h"

namespace {

const QStringList money{Menu::catalogues, "&Pinigai ir bankai"};

void editBank()
{
    double kodas = firstKey(TSession::Main, "bd_bankai", "bnk_kodas");
    Bankaied::EditBankas(kodas, false);
}

} // namespace

TPackageEntries moneyEntries()
{
    return {
        listScreen<Bankai::TBankaiFrm>(Bankai::unit, money, "&Bankai…", 65),
        listScreen<Finlist::TFinListFrm>(Finlist::unit, money, "&Finansavimo šaltiniai…", 72),
        editor("TBankaiDlg", Bankaied::unit, 65, editBank),
        editorInList<Finlist::TFinListFrm>("TFinEdDlg", Fined::unit, 72),
    };
}
