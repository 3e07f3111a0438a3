#include "host/app/close_check/checks.h"
#include "host/app/close_check/finding_list.h"
#include "toolkit/data/statement.h"
#include "toolkit/text/amount.h"

using namespace Qt::StringLiterals;

namespace {

struct TExpenses {
    QString name;
    QString column; // of the journal and of the balances, between their prefix and the side
};
const TExpenses cash{u"Kasinės"_s, u"kas"_s};
const TExpenses factual{u"Faktinės"_s, u"fak"_s};

// By node: the entries of the year, and where work began within it what had been spent by then.
QHash<qlonglong, qint64> spentInYear(const TClosing &closing, const QString &column)
{
    const QVariantMap year{{u"metai"_s, closing.month.date().year()}};
    auto spent = amountsByKey(
        closing.fin,
        u"select irs_jveid, sum(irs_%1_db - irs_%1_kr) as suma from bd_irasai, bd_period "
        "where per_id = irs_perid and per_metai = :metai and per_menuo > 0 and irs_jveid is not null "
        "group by irs_jveid"_s.arg(column),
        year);
    const auto before = amountsByKey(
        closing.fin,
        u"select sml_jveid, sum(sml_%1_db - sml_%1_kr) as suma from bd_isllik, bd_period p "
        "where p.per_id = sml_perid and p.per_metai = :metai and p.per_menuo > 0 "
        "and p.per_ketv * 3 + p.per_menuo > 4 and not exists (select 1 from bd_period e where e.per_menuo > "
        "0 "
        "and (e.per_metai < p.per_metai or (e.per_metai = p.per_metai "
        "and e.per_ketv * 3 + e.per_menuo < p.per_ketv * 3 + p.per_menuo))) group by sml_jveid"_s.arg(column),
        year);
    for (auto each = before.cbegin(); each != before.cend(); ++each)
        spent[each.key()] += each.value();
    return spent;
}

} // namespace

std::vector<TCloseFinding> estimatesOverrun(const TClosing &closing)
{
    const auto spentCash = spentInYear(closing, cash.column);
    const auto spentFactual = spentInYear(closing, factual.column);
    TFindingList found;
    eachRowOf(closing.fin,
              u"select sam_jveid, jve_kodas, jve_pavad, sam_samata, sam_sam_kor "
              "from bd_samatos, bd_period, bd_jve where per_id = sam_perid and jve_id = sam_jveid "
              "and per_metai = :metai and per_ketv = 0 order by jve_kodas, jve_id"_s,
              {{u"metai"_s, closing.month.date().year()}}, [&](const TStatement &row) {
                  const qint64 estimate = tenThousandths(row.number(3)) + tenThousandths(row.number(4));
                  const auto compare = [&](const TExpenses &kind, const QHash<qlonglong, qint64> &amounts) {
                      const qint64 spent = amounts.value(row.integer(0));
                      if (spent > estimate)
                          found.add({textAt(row, 1) + u"  "_s + textAt(row, 2),
                                     u"%1 metų išlaidos %2 viršija metų sąmatą %3."_s.arg(
                                         kind.name, amountText(spent), amountText(estimate)),
                                     {u"TSamFrm"_s, row.number(0)}});
                  };
                  compare(cash, spentCash);
                  compare(factual, spentFactual);
              });
    return found.all();
}
