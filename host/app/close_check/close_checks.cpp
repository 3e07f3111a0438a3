#include "host/app/close_check/checks.h"
#include "host/app/close_check/finding_list.h"

using namespace Qt::StringLiterals;

namespace {

TCloseCheck statement(const QString &name, const TCheckStatement &described)
{
    return {name, [described](const TClosing &closing) { return findByStatement(closing, described); }};
}

} // namespace

int countOf(const std::vector<TCloseFinding> &findings)
{
    int count = 0;
    for (const TCloseFinding &finding : findings)
        count += finding.count;
    return count;
}

const std::vector<TCloseCheck> &closeChecks()
{
    static const std::vector<TCloseCheck> checks{
        statement(u"Pradžios likučiai"_s,
                  {.sql = u"select 0 as raktas, 'Visos sąskaitos' as kas, sum(ssl_sum_db) as debetas, "
                          "sum(ssl_sum_kr) as kreditas from bd_saslik where ssl_perid = :perid "
                          "group by ssl_perid having sum(ssl_sum_db) <> sum(ssl_sum_kr)"_s,
                   .sentence = u"Debeto suma %1 nelygi kredito sumai %2."_s,
                   .screen = u"TSasLikFrm"_s}),
        {u"Debitoriai ir kreditoriai"_s, partiesAgainstAccounts},
        statement(u"Mėnesio įrašai"_s,
                  {.sql = u"select min(irs_id) as raktas, ISNULL(DATEFORMAT(irs_data, 'yyyy.mm.dd'), '') + "
                          "'  ' + ISNULL(irs_dok, 'be numerio') as kas, sum(irs_sum_db) as debetas, "
                          "sum(irs_sum_kr) as kreditas from bd_irasai where irs_perid = :perid "
                          "group by irs_data, irs_dok having sum(irs_sum_db) <> sum(irs_sum_kr) "
                          "order by irs_data, irs_dok"_s,
                   .sentence = u"Dokumento debetas %1 nelygus kreditui %2."_s,
                   .screen = u"TIrasaiFrm"_s}),
        {u"Balanso forma"_s, accountsInNoForm},
        {u"Biudžeto balanso forma"_s, accountsInNoBudgetForm},
        {u"Sąmatos"_s, estimatesOverrun},
        {u"Kontrolinės sumos"_s, balancesMiscarried},
        {u"Kitų darbo vietų įrašymai"_s, stationsAtWork},
        {u"Atsarginė kopija"_s, backupTooOld},
    };
    return checks;
}
