#include "host/accounts/accounts.h"

#include "host/data/account_picker.h"
#include "host/data/accounts_chart.h"

#include <QApplication>

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
    return withName ? account->number + QStringLiteral("  ") + account->name : account->number;
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
    return pickAccount(QApplication::activeWindow(), {anyAccount, firstView}, 0);
}
