#include "database/tool/keeping/book_checks.h"

#include "database/carried_balances.h"
#include "database/tool/keeping/findings.h"
#include "database/tool/keeping/native_query.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString amountText(const QVariant &tenThousandths)
{
    const qlonglong units = tenThousandths.toLongLong();
    const quint64 size =
        units < 0 ? 0 - quint64(units) : quint64(units); // a damaged amount may be the least number
    QString text = u"%1%2.%3"_s.arg(units < 0 ? u"-"_s : QString())
                       .arg(size / 10000)
                       .arg(size % 10000, 4, 10, QLatin1Char('0'));
    if (text.endsWith(u"00"_s))
        text.chop(2);
    return text;
}

void checkPeriodRows(TDatabase &fin, QStringList &found)
{
    const auto tell = [&](const QString &condition, const QString &text) {
        for (const QString &id :
             columnOf(fin, u"select per_id from bd_period p where %1 order by 1"_s.arg(condition)))
            found.append(text.arg(id));
    };
    tell(
        u"per_ketv not between 0 and 4 or per_menuo not between 0 and 3 or (per_ketv = 0 and per_menuo > 0)"_s,
        u"Periodas %1: neleistinas ketvirtis arba mėnuo."_s);
    tell(u"per_menuo > 0 and not exists (select 1 from bd_period m join bd_period k on k.per_id = m.per_id + "
         "p.per_ketv where m.per_metai = p.per_metai and m.per_ketv = 0 and coalesce(m.per_menuo, 0) = 0 and "
         "k.per_metai = p.per_metai and k.per_ketv = p.per_ketv and coalesce(k.per_menuo, 0) = 0)"_s,
         u"Periodas %1: mėnuo neturi savo metų arba ketvirčio eilutės."_s);
}

// The current month is the last one by date and, as keys only grow, also by key.
void checkMonthSequence(const QList<TBookMonth> &months, QStringList &found)
{
    if (months.isEmpty()) {
        found.append(u"Nėra einamojo periodo: darbo pradžios periodas nenustatytas."_s);
        return;
    }
    for (qsizetype i = 1; i < months.size(); ++i) {
        const TBookMonth &before = months.at(i - 1), &month = months.at(i);
        if (month.number == before.number)
            found.append(u"Mėnuo %1 įrašytas du kartus (periodai %2 ir %3)."_s.arg(month.title())
                             .arg(before.id)
                             .arg(month.id));
        else if (month.number != before.number + 1)
            found.append(u"Nutrūkusi mėnesių seka: po %1 eina %2."_s.arg(before.title(), month.title()));
    }
    const auto newest = std::max_element(
        months.cbegin(), months.cend(), [](const TBookMonth &a, const TBookMonth &b) { return a.id < b.id; });
    if (newest->id != months.constLast().id)
        found.append(u"Du einamieji periodai: pagal datą %1 (periodas %2), pagal numerį %3 (periodas %4)."_s
                         .arg(months.constLast().title())
                         .arg(months.constLast().id)
                         .arg(newest->title())
                         .arg(newest->id));
}

// Debit against credit of every period of a table.
void checkSides(TDatabase &fin, const QString &what, const QString &table, const QString &period,
                const QString &debit, const QString &credit, QStringList &found)
{
    TFindings findings(found);
    eachRow(fin,
            u"select %2, %3, %4 from %1 group by %2 having %3 <> %4 order by 1"_s.arg(
                table, period, exactSum(debit), exactSum(credit)),
            [&](const QSqlQuery &row) {
                findings.add(u"Periodas %1: %2 debetas %3 nelygus kreditui %4."_s.arg(
                    row.value(0).toString(), what, amountText(row.value(1)), amountText(row.value(2))));
            });
}

void checkCarried(TDatabase &fin, const QList<TBookMonth> &months, QStringList &found)
{
    std::pair<QString, QString> kind; // what is told of, and in which month
    std::optional<TFindings> findings;
    eachMiscarried(
        fin, months, [&](const TBookMonth &from, const TBookMonth &to, const TMiscarried &balance) {
            if (!findings || kind != std::pair(balance.what, to.title())) {
                findings.emplace(found);
                kind = {balance.what, to.title()};
            }
            findings->add(u"%1 %2: %3 pradžios likutis %4, o pagal %5 likutį ir įrašus turi būti %6."_s.arg(
                balance.what, balance.keyText(), to.title(), amountText(balance.is), from.title(),
                amountText(balance.due)));
        });
}

// The database keeps these totals itself; a difference means that somebody wrote past it.
void checkCorrections(TDatabase &fin, QStringList &found)
{
    TFindings findings(found);
    eachRow(
        fin,
        u"select y.sam_jveid, max(cast(round(y.sam_sam_kor * 10000) as bigint)), coalesce(%1, 0) from "
        u"bd_samatos y "
        "join bd_period on per_id = y.sam_perid and per_ketv = 0 left join bd_samkor on sak_samid = y.sam_id "
        "group by y.sam_id, y.sam_jveid "
        "having max(cast(round(y.sam_sam_kor * 10000) as bigint)) <> coalesce(%1, 0) order by 1"_s.arg(
            exactSum(u"sak_i_ketv + sak_ii_ketv + sak_iii_ketv + sak_iv_ketv"_s)),
        [&](const QSqlQuery &row) {
            findings.add(
                u"Mazgo %1 metinė sąmata: koregavimų suma %2, o pagal dokumentus turi būti %3."_s.arg(
                    row.value(0).toString(), amountText(row.value(1)), amountText(row.value(2))));
        });
}

} // namespace

QStringList checkBooks(TDatabase &fin)
{
    QStringList found;
    const QList<TBookMonth> months = monthsOfBooks(fin);
    checkPeriodRows(fin, found);
    checkMonthSequence(months, found);
    checkSides(fin, u"pradžios likučių"_s, u"bd_saslik"_s, u"ssl_perid"_s, u"ssl_sum_db"_s, u"ssl_sum_kr"_s,
               found);
    checkSides(fin, u"įrašų"_s, u"bd_irasai"_s, u"irs_perid"_s, u"irs_sum_db"_s, u"irs_sum_kr"_s, found);
    checkCarried(fin, months, found);
    checkCorrections(fin, found);
    return found;
}

QStringList checkUsers(TDatabase &ravl)
{
    const QStringList rows = columnOf(ravl, u"select count(*) from bd_usr"_s);
    const QStringList admins = columnOf(ravl, u"select count(*) from bd_usr where usr_user_admin = 1"_s);
    if (rows.constFirst() != u"0" && admins.constFirst() == u"0")
        return {u"Nė vienas vartotojas neturi teisės administruoti vartotojų."_s};
    return {};
}
