#include "host/accounts/accounts.h"

#include "host/data/accounts_chart.h"
#include "host/data/code_picker.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

TDatabase *books()
{
    Q_ASSERT(MainDatas());
    return MainDatas()->mnFin_Db();
}

} // namespace

QString GetSasById(double id, bool withName)
{
    const auto account = findAccount(books(), id);
    if (!account)
        return {};
    return withName ? account->number + u"  "_s + account->name : account->number;
}

double GetSasByNr(const QString &nr)
{
    const auto account = findAccountByNumber(books(), nr.trimmed());
    return account ? account->id : 0;
}

bool SasHasChildren(const QString &nr)
{
    return accountHasChildren(books(), nr.trimmed());
}

QString GetSasKind(double id)
{
    const auto account = findAccount(books(), id);
    return account ? account->kind : QString();
}

double OpenSasModal(bool anyAccount, unsigned char firstView)
{
    TCodePick pick;
    pick.caption = u"Sąskaitų planas"_s;
    pick.name = u"SasPicker"_s;
    pick.anyRow = anyAccount;
    pick.view = firstView == 2 ? TCodePick::View::List : TCodePick::View::Tree;
    const auto chart = std::make_shared<const TCodeTree>(chartOfAccounts(books()));
    return TCodePicker(QApplication::activeWindow(), chart, pick).choose();
}
