#include "database/carried_balances.h"

#include "toolkit/data/statement.h"

using namespace Qt::StringLiterals;

namespace {

using Kind = TMiscarried::Kind;

constexpr int monthsOfYear = 12;

// Balances of one kind. Both selects name the period "periodas", the keys and the amounts (debit above
// credit).
struct TCarried {
    struct TAmount {
        QString what;
        QString column;
    };
    Kind kind;
    QList<TAmount> amounts;
    QString keys; // columns that tell one balance from another
    QString opening;
    QString entries; // of the journal

    int keyCount() const { return int(keys.count(u',')) + 1; }
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
    return {Kind::Account,
            {{u"Sąskaita"_s, u"suma"_s}},
            u"raktas"_s,
            u"select ssl_perid as periodas, sas_sasnr as raktas, ssl_sum_db - ssl_sum_kr as suma from "
            "bd_saslik join bd_sasplan on sas_id = ssl_sasid"_s,
            u"select irs_perid as periodas, sas_sasnr as raktas, irs_sum_db - irs_sum_kr as suma from "
            "bd_irasai join bd_sasplan on sas_id = irs_sasid"_s};
}

TCarried expenseBalances()
{
    return {Kind::Expenses,
            {{u"Asignavimų išlaidų mazgas"_s, u"asig"_s},
             {u"Kasinių išlaidų mazgas"_s, u"kas"_s},
             {u"Faktinių išlaidų mazgas"_s, u"fak"_s}},
            u"raktas"_s,
            u"select sml_perid as periodas, sml_jveid as raktas, sml_asig_db - sml_asig_kr as asig, "
            "sml_kas_db - sml_kas_kr as kas, sml_fak_db - sml_fak_kr as fak from bd_isllik"_s,
            u"select irs_perid as periodas, irs_jveid as raktas, irs_asig_db - irs_asig_kr as asig, "
            "irs_kas_db - irs_kas_kr as kas, irs_fak_db - irs_fak_kr as fak from bd_irasai "
            "where irs_jveid is not null"_s};
}

TCarried partyBalances()
{
    return {Kind::Party,
            {{u"Debitorius ar kreditorius"_s, u"suma"_s}},
            u"dka, sas, kodas, pavad, skyrius"_s,
            u"select dkl_perid as periodas, dkl_dkaid as dka, dkl_sasid as sas, dkl_i_kod as kodas, "
            "dkl_pavad as pavad, dkl_padid as skyrius, dkl_sum_db - dkl_sum_kr as suma from bd_dbkrlik"_s,
            u"select irs_perid as periodas, irs_dkaid as dka, cast(null as bigint) as sas, "
            "cast(null as bigint) as kodas, cast(null as varchar(150)) as pavad, irs_padid as skyrius, "
            "irs_sum_db - irs_sum_kr as suma from bd_irasai join bd_dbkrasm on dka_id = irs_dkaid "
            "where irs_sasid in (dka_sasid, dka_sasid_2)"_s};
}

QString tenThousandths(const QString &amount)
{
    return u"cast(round((%1) * 10000) as bigint)"_s.arg(amount);
}

void eachMiscarriedOf(TDatabase &fin, const TCarried &carried, const TCarried::TAmount &amount,
                      const TBookMonth &from, const TBookMonth &to,
                      const std::function<void(const TMiscarried &)> &tell)
{
    const int keyCount = carried.keyCount();
    const QString sql =
        u"select %1, %2, %3 from (select %1, %4 as turi, 0 as yra from (%5) a where periodas = %7 "
        "union all select %1, %4, 0 from (%6) b where periodas = %7 "
        "union all select %1, 0, %4 from (%5) c where periodas = %8) d group by %1 having %2 <> %3 "
        "order by 1"_s
            .arg(carried.keys, exactSum(u"turi"_s), exactSum(u"yra"_s), amount.column, carried.opening,
                 carried.entries)
            .arg(from.id)
            .arg(to.id);
    eachRow(fin, sql, [&](const TStatement &row) {
        TMiscarried found{carried.kind, amount.what, {}, 0, 0};
        for (int column = 0; column < keyCount; ++column)
            found.key.append(row.value(column));
        found.due = qRound64(row.number(keyCount));
        found.is = qRound64(row.number(keyCount + 1));
        tell(found);
    });
}

// A number that a key alone has. It is odd: times an amount it is nothing only if the amount is.
quint64 factorOf(const TStatement &row, int firstColumn, int columns)
{
    size_t factor = 0;
    for (int column = firstColumn; column < firstColumn + columns; ++column) {
        const TFieldType type = row.valueType(column);
        factor = qHash(int(type), factor);
        if (type == TFieldType::ftInteger)
            factor = qHash(row.integer(column), factor);
        else if (type != TFieldType::ftUnknown)
            factor = qHash(row.utf8(column), factor);
    }
    return factor | 1;
}

// Whether balances of a kind follow, told by one pass over all months: of balances and of entries the amounts
// are summed up, each times the factor of its key. A file groups rows by sorting them, which takes many times
// as long; but which balance it is that does not follow, only the keys can tell.
class TCarriedSums {
public:
    TCarriedSums(TDatabase &fin, const TCarried &carried)
        : opening(sumsOf(fin, carried, carried.opening)),
          entries(sumsOf(fin, carried, carried.entries))
    {
    }

    bool fit(qsizetype amount, const TBookMonth &from, const TBookMonth &to) const
    {
        const auto in = [amount](const TSums &sums, const TBookMonth &month) {
            return sums.value(month.id).value(amount);
        };
        return in(opening, from) + in(entries, from) == in(opening, to);
    }

private:
    using TSums = QHash<qlonglong, QList<quint64>>; // by period, for each amount

    static TSums sumsOf(TDatabase &fin, const TCarried &carried, const QString &rows)
    {
        QStringList amounts;
        for (const TCarried::TAmount &amount : carried.amounts)
            amounts.append(tenThousandths(amount.column));
        const int keyCount = carried.keyCount();
        TSums sums;
        eachRow(fin, u"select periodas, %1, %2 from (%3) a"_s.arg(carried.keys, amounts.join(u", "_s), rows),
                [&](const TStatement &row) {
                    QList<quint64> &ofMonth = sums[row.integer(0)];
                    ofMonth.resize(amounts.size());
                    const quint64 factor = factorOf(row, 1, keyCount);
                    for (int i = 0; i < int(amounts.size()); ++i)
                        ofMonth[i] += factor * quint64(row.integer(1 + keyCount + i));
                });
        return sums;
    }

    TSums opening, entries;
};

bool hasPartyBalances(TDatabase &fin, const TBookMonth &month)
{
    bool has = false;
    eachRow(fin, u"select 1 from bd_dbkrlik where dkl_perid = %1 limit 1"_s.arg(month.id),
            [&has](const TStatement &) { has = true; });
    return has;
}

bool isJudged(TDatabase &fin, const TCarried &carried, const TBookMonth &from, const TBookMonth &to)
{
    switch (carried.kind) {
    case Kind::Expenses:
        return to.number % monthsOfYear != 0;
    case Kind::Party:
        return hasPartyBalances(fin, from);
    default:
        return true;
    }
}

// sums: of all months, null where there are none.
void eachMiscarriedOf(TDatabase &fin, const TCarried &carried, const TCarriedSums *sums,
                      const TBookMonth &from, const TBookMonth &to,
                      const std::function<void(const TMiscarried &)> &tell)
{
    if (!isJudged(fin, carried, from, to))
        return;
    for (qsizetype amount = 0; amount < carried.amounts.size(); ++amount) {
        if (!sums || !sums->fit(amount, from, to))
            eachMiscarriedOf(fin, carried, carried.amounts.at(amount), from, to, tell);
    }
}

QList<TCarried> allBalances()
{
    return {accountBalances(), expenseBalances(), partyBalances()};
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
    return u"sum(%1)"_s.arg(tenThousandths(amount));
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
    for (const TCarried &carried : allBalances())
        eachMiscarriedOf(fin, carried, nullptr, from, to, tell);
}

void eachMiscarried(
    TDatabase &fin, const QList<TBookMonth> &months,
    const std::function<void(const TBookMonth &, const TBookMonth &, const TMiscarried &)> &tell)
{
    const QList<TCarried> balances = allBalances();
    QList<TCarriedSums> sums;
    if (fin.engine() == Engine::Sqlite) {
        for (const TCarried &carried : balances)
            sums.append(TCarriedSums(fin, carried));
    }
    for (qsizetype i = 1; i < months.size(); ++i) {
        const TBookMonth &from = months.at(i - 1), &to = months.at(i);
        if (to.number != from.number + 1)
            continue;
        for (qsizetype kind = 0; kind < balances.size(); ++kind)
            eachMiscarriedOf(fin, balances.at(kind), sums.isEmpty() ? nullptr : &sums.at(kind), from, to,
                             [&](const TMiscarried &balance) { tell(from, to, balance); });
    }
}
