#include "host/app/close_check/checks.h"
#include "host/app/close_check/finding_list.h"
#include "toolkit/data/statement.h"
#include "toolkit/text/amount.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace {

// Accounts that counterparties join: one with two accounts says nothing of how its balance is shared between
// them, so such accounts are compared together.
class TJoinedAccounts {
public:
    qlonglong groupOf(qlonglong account) const
    {
        for (qlonglong above = joinedTo.value(account, account); above != account;
             above = joinedTo.value(account, account))
            account = above;
        return account;
    }
    void join(qlonglong one, qlonglong other)
    {
        const qlonglong first = groupOf(one), second = groupOf(other);
        joinedTo.insert(first, qMin(first, second));
        joinedTo.insert(second, qMin(first, second));
    }
    bool contains(qlonglong account) const { return joinedTo.contains(account); }

private:
    QMap<qlonglong, qlonglong> joinedTo;
};

struct TGroup {
    QStringList names;
    qint64 ofAccounts = 0, ofParties = 0;
};

QMap<qlonglong, TGroup> partyBalances(const TClosing &closing, TJoinedAccounts &joined)
{
    QMap<qlonglong, qint64> byAccount;
    const auto add = [&](const QString &sql) {
        eachRowOf(closing.fin, sql, {{u"perid"_s, closing.period}}, [&](const TStatement &row) {
            joined.join(row.integer(0), row.integer(1));
            byAccount[row.integer(0)] += tenThousandths(row.number(2));
        });
    };
    add(u"select dka_sasid, dka_sasid_2, sum(dkl_sum_db - dkl_sum_kr) as suma from bd_dbkrlik, bd_dbkrasm "
        "where dkl_perid = :perid and dka_id = dkl_dkaid group by dka_sasid, dka_sasid_2"_s);
    add(u"select dkl_sasid, dkl_sasid as pati, sum(dkl_sum_db - dkl_sum_kr) as suma from bd_dbkrlik "
        "where dkl_perid = :perid and dkl_dkaid is null and dkl_sasid is not null group by dkl_sasid"_s);
    QMap<qlonglong, TGroup> groups;
    for (auto each = byAccount.cbegin(); each != byAccount.cend(); ++each)
        groups[joined.groupOf(each.key())].ofParties += each.value();
    return groups;
}

} // namespace

std::vector<TCloseFinding> partiesAgainstAccounts(const TClosing &closing)
{
    TJoinedAccounts joined;
    QMap<qlonglong, TGroup> groups = partyBalances(closing, joined);
    if (groups.isEmpty())
        return {};
    const auto balances = amountsByKey(closing.fin,
                                       u"select ssl_sasid, sum(ssl_sum_db - ssl_sum_kr) as suma "
                                       "from bd_saslik where ssl_perid = :perid group by ssl_sasid"_s,
                                       {{u"perid"_s, closing.period}});
    eachRowOf(closing.fin, u"select sas_id, sas_sasnr from bd_sasplan order by sas_sasnr"_s, {},
              [&](const TStatement &row) {
                  const qlonglong account = row.integer(0);
                  if (!joined.contains(account))
                      return;
                  TGroup &group = groups[joined.groupOf(account)];
                  group.names << textAt(row, 1);
                  group.ofAccounts += balances.value(account);
              });
    TFindingList found;
    for (const TGroup &group : std::as_const(groups))
        if (group.ofAccounts != group.ofParties)
            found.add({group.names.join(u", "_s),
                       u"Debitorių ir kreditorių likučių suma %1, o %2 %3."_s.arg(
                           amountText(group.ofParties),
                           group.names.size() > 1 ? u"sąskaitų likučių suma"_s : u"sąskaitos likutis"_s,
                           amountText(group.ofAccounts)),
                       {.screen = u"TDKALikFrm"_s}});
    return found.all();
}
