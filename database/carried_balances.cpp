#include "database/carried_balances.h"

#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

using Kind = TMiscarried::Kind;

constexpr int monthsOfYear = 12;

struct TCarried {
    Kind kind;
    QString what;
    QString keys;    // columns that tell one balance from another, as the result names them
    QString opening; // select of the keys and the amount (debit above credit) with "%1" for the period
    QString entries; // the same of the journal
};

// Runs a select in wording that both engines know.
void eachRow(TDatabase &db, const QString &sql, const std::function<void(const TStatement &)> &consumer)
{
    const auto rows = db.prepareNative({SqlKind::Select, sql});
    for (rows->exec(); rows->next();)
        consumer(*rows);
}

TCarried accountBalances()
{
    return {Kind::Account, u"Sąskaita"_s, u"raktas"_s,
            u"select sas_sasnr as raktas, ssl_sum_db - ssl_sum_kr as suma from bd_saslik join bd_sasplan on "
            "sas_id = ssl_sasid where ssl_perid = %1"_s,
            u"select sas_sasnr as raktas, irs_sum_db - irs_sum_kr as suma from bd_irasai join bd_sasplan on "
            "sas_id = irs_sasid where irs_perid = %1"_s};
}

TCarried expenseBalances(const QString &what, const QString &column)
{
    return {Kind::Expenses, what, u"raktas"_s,
            u"select sml_jveid as raktas, sml_%1_db - sml_%1_kr as suma from bd_isllik where sml_perid = "
            "%2"_s.arg(column),
            u"select irs_jveid as raktas, irs_%1_db - irs_%1_kr as suma from bd_irasai where irs_jveid is "
            "not null and irs_perid = %2"_s.arg(column)};
}

TCarried partyBalances()
{
    return {
        Kind::Party, u"Debitorius ar kreditorius"_s, u"dka, sas, kodas, pavad, skyrius"_s,
        u"select dkl_dkaid as dka, dkl_sasid as sas, dkl_i_kod as kodas, dkl_pavad as pavad, dkl_padid as "
        u"skyrius, dkl_sum_db - dkl_sum_kr as suma from bd_dbkrlik where dkl_perid = %1"_s,
        u"select irs_dkaid as dka, cast(null as bigint) as sas, cast(null as bigint) as kodas, cast(null "
        "as varchar(150)) as pavad, irs_padid as skyrius, irs_sum_db - irs_sum_kr as suma from bd_irasai "
        "join bd_dbkrasm on dka_id = irs_dkaid where irs_sasid in (dka_sasid, dka_sasid_2) and irs_perid "
        "= %1"_s};
}

void eachMiscarriedOf(TDatabase &fin, const TCarried &carried, const TBookMonth &from, const TBookMonth &to,
                      const std::function<void(const TMiscarried &)> &tell)
{
    const int keyCount = int(carried.keys.count(u',')) + 1;
    const QString sql =
        u"select %1, %2, %3 from (select %1, suma as turi, 0 as yra from (%4) a union all select %1, suma, 0 "
        u"from (%5) b "
        "union all select %1, 0, suma from (%6) c) d group by %1 having %2 <> %3 order by 1"_s.arg(
            carried.keys, exactSum(u"turi"_s), exactSum(u"yra"_s), carried.opening.arg(from.id),
            carried.entries.arg(from.id), carried.opening.arg(to.id));
    eachRow(fin, sql, [&](const TStatement &row) {
        TMiscarried found{carried.kind, carried.what, {}, 0, 0};
        for (int column = 0; column < keyCount; ++column)
            found.key.append(row.value(column));
        found.due = qRound64(row.number(keyCount));
        found.is = qRound64(row.number(keyCount + 1));
        tell(found);
    });
}

bool hasPartyBalances(TDatabase &fin, const TBookMonth &month)
{
    bool has = false;
    eachRow(fin, u"select 1 from bd_dbkrlik where dkl_perid = %1 limit 1"_s.arg(month.id),
            [&has](const TStatement &) { has = true; });
    return has;
}

} // namespace

int TBookMonth::year() const
{
    return number / monthsOfYear;
}

QDate TBookMonth::firstDay() const
{
    return {year(), number % monthsOfYear + 1, 1};
}

QString TBookMonth::title() const
{
    return u"%1.%2"_s.arg(year()).arg(number % monthsOfYear + 1, 2, 10, QLatin1Char('0'));
}

QString TMiscarried::keyText() const
{
    QStringList parts;
    for (const QVariant &part : key)
        if (!part.isNull())
            parts.append(part.toString());
    return parts.join(u" / "_s);
}

QString exactSum(const QString &amount)
{
    return u"sum(cast(round((%1) * 10000) as bigint))"_s.arg(amount);
}

QList<TBookMonth> monthsOfBooks(TDatabase &fin)
{
    QList<TBookMonth> months;
    eachRow(fin,
            u"select per_id, per_metai, per_ketv, per_menuo from bd_period where per_menuo > 0 "
            "order by per_metai, per_ketv, per_menuo, per_id"_s,
            [&months](const TStatement &row) {
                months.append({row.integer(0), int(row.integer(1) * monthsOfYear + (row.integer(2) - 1) * 3 +
                                                   row.integer(3) - 1)});
            });
    return months;
}

void eachMiscarried(TDatabase &fin, const TBookMonth &from, const TBookMonth &to,
                    const std::function<void(const TMiscarried &)> &tell)
{
    QList<TCarried> carried{accountBalances()};
    if (to.number % monthsOfYear != 0)
        carried += {expenseBalances(u"Asignavimų išlaidų mazgas"_s, u"asig"_s),
                    expenseBalances(u"Kasinių išlaidų mazgas"_s, u"kas"_s),
                    expenseBalances(u"Faktinių išlaidų mazgas"_s, u"fak"_s)};
    if (hasPartyBalances(fin, from))
        carried += partyBalances();
    for (const TCarried &each : carried)
        eachMiscarriedOf(fin, each, from, to, tell);
}
