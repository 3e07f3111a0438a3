#include "host/data/accounts_chart.h"

#include "toolkit/data/statement.h"

namespace {

std::optional<TAccount> firstAccount(TStatement &set)
{
    set.exec();
    if (!set.next())
        return {};
    TAccount account;
    account.id = set.number(0);
    account.number = QString::fromUtf8(set.utf8(1));
    account.name = QString::fromUtf8(set.utf8(2));
    account.kind = QString::fromUtf8(set.utf8(3)).trimmed();
    set.reset();
    return account;
}

} // namespace

std::optional<TAccount> findAccount(TDatabase *database, double id)
{
    const auto set = database->prepare(
        QStringLiteral("select sas_id, sas_sasnr, sas_pavad, sas_tip from bd_sasplan where sas_id = :id"));
    set->bind(QStringLiteral("id"), id);
    return firstAccount(*set);
}

std::optional<TAccount> findAccountByNumber(TDatabase *database, const QString &number)
{
    const auto set = database->prepare(
        QStringLiteral("select sas_id, sas_sasnr, sas_pavad, sas_tip from bd_sasplan where sas_sasnr = :nr"));
    set->bind(QStringLiteral("nr"), number);
    return firstAccount(*set);
}

bool accountHasChildren(TDatabase *database, const QString &number)
{
    const QString children = QStringLiteral("select count(*) from bd_sasplan s, bd_sasplan v "
                                            "where s.sas_tevid = v.sas_id and v.sas_sasnr = :nr");
    return database->fieldResult(children, {{QStringLiteral("nr"), number}}).toInt() > 0;
}

TCodeTree chartOfAccounts(TDatabase *database)
{
    return TCodeTree::read(
        database,
        QStringLiteral("select sas_id, sas_tevid, sas_sasnr, sas_pavad, "
                       "case when sas_tip = 'D' then 1 else 0 end as detali "
                       "from bd_sasplan where ISNULL(sas_tip, 'S') <> 'U' order by sas_sasnr"),
        QStringLiteral("Numeris"));
}
