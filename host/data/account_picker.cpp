#include "host/data/account_picker.h"

#include "host/data/accounts_chart.h"
#include "host/data/code_picker.h"
#include "host/data/main_datas.h"

using namespace Qt::StringLiterals;

double pickAccount(QWidget *owner, const TSasPick &how, double current)
{
    Q_ASSERT(MainDatas());
    TCodePick pick;
    pick.caption = u"Sąskaitų planas"_s;
    pick.name = u"SasPicker"_s;
    pick.anyRow = how.anyAccount;
    pick.view = how.firstView == 2 ? TCodePick::View::List : TCodePick::View::Tree;
    pick.current = current;
    const auto chart = std::make_shared<const TCodeTree>(chartOfAccounts(MainDatas()->mnFin_Db()));
    return TCodePicker(owner, chart, pick).choose();
}
