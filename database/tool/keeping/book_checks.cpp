#include "database/tool/keeping/book_checks.h"

#include "database/tool/keeping/native_query.h"

using namespace Qt::StringLiterals;

namespace {

// A month of the period table; number counts months since year 0.
struct TMonth {
    qlonglong id;
    int number;

    QString title() const
    {
        return u"%1.%2"_s.arg(number / 12).arg(number % 12 + 1, 2, 10, QLatin1Char('0'));
    }
};

// How many findings of one kind are told one by one.
constexpr int toldOneByOne = 20;

// A sum of amounts as a whole number of ten thousandths, the same on both engines.
QString exactSum(const QString &amount)
{
    return u"sum(cast(round((%1) * 10000) as bigint))"_s.arg(amount);
}

QString amountText(const QVariant &tenThousandths)
{
    const qlonglong units = tenThousandths.toLongLong();
    const qlonglong size = qAbs(units);
    QString text = u"%1%2.%3"_s.arg(units < 0 ? u"-"_s : QString())
                       .arg(size / 10000)
                       .arg(size % 10000, 4, 10, QLatin1Char('0'));
    if (text.endsWith(u"00"_s))
        text.chop(2);
    return text;
}

// Collects findings of one kind and tells how many more there are.
class TFindings {
public:
    explicit TFindings(QStringList &aTarget) : target(aTarget) {}
    ~TFindings()
    {
        if (count > toldOneByOne)
            target.append(u"… ir dar %1 tokių pat neatitikimų."_s.arg(count - toldOneByOne));
    }
    void add(const QString &text)
    {
        if (++count <= toldOneByOne)
            target.append(text);
    }

private:
    QStringList &target;
    int count = 0;
};

QList<TMonth> readMonths(TDatabase &fin)
{
    QList<TMonth> months;
    eachRow(fin,
            u"select per_id, per_metai, per_ketv, per_menuo from bd_period where per_menuo > 0 "
            "order by per_metai, per_ketv, per_menuo, per_id"_s,
            [&months](const QSqlQuery &row) {
                months.append(
                    {row.value(0).toLongLong(),
                     row.value(1).toInt() * 12 + (row.value(2).toInt() - 1) * 3 + row.value(3).toInt() - 1});
            });
    return months;
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
void checkMonthSequence(const QList<TMonth> &months, QStringList &found)
{
    if (months.isEmpty()) {
        found.append(u"Nėra einamojo periodo: darbo pradžios periodas nenustatytas."_s);
        return;
    }
    for (qsizetype i = 1; i < months.size(); ++i) {
        const TMonth &before = months.at(i - 1), &month = months.at(i);
        if (month.number == before.number)
            found.append(u"Mėnuo %1 įrašytas du kartus (periodai %2 ir %3)."_s.arg(month.title())
                             .arg(before.id)
                             .arg(month.id));
        else if (month.number != before.number + 1)
            found.append(u"Nutrūkusi mėnesių seka: po %1 eina %2."_s.arg(before.title(), month.title()));
    }
    const auto newest = std::max_element(months.cbegin(), months.cend(),
                                         [](const TMonth &a, const TMonth &b) { return a.id < b.id; });
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

// How the balances of a month follow from the month before.
struct TCarried {
    QString what;
    QString keys;    // columns that tell one balance from another, as the result names them
    QString opening; // select of the keys and the amount (debit above credit) with "%1" for the period
    QString entries; // the same of the journal
};

void checkCarried(TDatabase &fin, const TCarried &carried, const TMonth &from, const TMonth &to,
                  QStringList &found)
{
    const QString sql =
        u"select %1, %2, %3 from (select %1, suma as turi, 0 as yra from (%4) a union all select %1, suma, 0 "
        u"from (%5) b "
        "union all select %1, 0, suma from (%6) c) d group by %1 having %2 <> %3 order by 1"_s.arg(
            carried.keys, exactSum(u"turi"_s), exactSum(u"yra"_s), carried.opening.arg(from.id),
            carried.entries.arg(from.id), carried.opening.arg(to.id));
    const qsizetype keyCount = carried.keys.count(u',') + 1;
    TFindings findings(found);
    eachRow(fin, sql, [&](const QSqlQuery &row) {
        QStringList key;
        for (qsizetype i = 0; i < keyCount; ++i) {
            if (!row.value(int(i)).isNull())
                key.append(row.value(int(i)).toString());
        }
        findings.add(u"%1 %2: %3 pradžios likutis %4, o pagal %5 likutį ir įrašus turi būti %6."_s.arg(
            carried.what, key.join(u" / "_s), to.title(), amountText(row.value(int(keyCount) + 1)),
            from.title(), amountText(row.value(int(keyCount)))));
    });
}

const QList<TCarried> &accountBalances()
{
    static const QList<TCarried> list{{u"Sąskaita"_s, u"raktas"_s,
                                       u"select sas_sasnr as raktas, ssl_sum_db - ssl_sum_kr as suma from "
                                       u"bd_saslik join bd_sasplan on sas_id = "
                                       "ssl_sasid where ssl_perid = %1"_s,
                                       u"select sas_sasnr as raktas, irs_sum_db - irs_sum_kr as suma from "
                                       u"bd_irasai join bd_sasplan on sas_id = "
                                       "irs_sasid where irs_perid = %1"_s}};
    return list;
}

// The three kinds of expenses.
const QList<TCarried> &expenseBalances()
{
    const auto kind = [](const QString &what, const QString &column) {
        return TCarried{
            what, u"raktas"_s,
            u"select sml_jveid as raktas, sml_%1_db - sml_%1_kr as suma from bd_isllik where sml_perid = "
            "%2"_s.arg(column),
            u"select irs_jveid as raktas, irs_%1_db - irs_%1_kr as suma from bd_irasai where irs_jveid is "
            "not null and irs_perid = %2"_s.arg(column)};
    };
    static const QList<TCarried> list{kind(u"Asignavimų išlaidų mazgas"_s, u"asig"_s),
                                      kind(u"Kasinių išlaidų mazgas"_s, u"kas"_s),
                                      kind(u"Faktinių išlaidų mazgas"_s, u"fak"_s)};
    return list;
}

const QList<TCarried> &partyBalances()
{
    static const QList<TCarried> list{
        {u"Debitorius ar kreditorius"_s, u"dka, sas, kodas, pavad, skyrius"_s,
         u"select dkl_dkaid as dka, dkl_sasid as sas, dkl_i_kod as kodas, dkl_pavad as pavad, dkl_padid as "
         u"skyrius, "
         "dkl_sum_db - dkl_sum_kr as suma from bd_dbkrlik where dkl_perid = %1"_s,
         u"select irs_dkaid as dka, cast(null as bigint) as sas, cast(null as bigint) as kodas, cast(null as "
         "varchar(150)) as pavad, irs_padid as skyrius, irs_sum_db - irs_sum_kr as suma from bd_irasai join "
         "bd_dbkrasm on dka_id = irs_dkaid where irs_sasid in (dka_sasid, dka_sasid_2) and irs_perid = %1"_s}};
    return list;
}

bool hasRows(TDatabase &fin, const QString &table, const QString &period, const TMonth &month)
{
    return !columnOf(fin, u"select 1 from %1 where %2 = %3 limit 1"_s.arg(table, period).arg(month.id))
                .isEmpty();
}

// Expenses may be entered anew for the first month of a year. Balances of counterparties may be deleted for
// all months and computed for the last one only.
void checkCarriedMonth(TDatabase &fin, const TMonth &from, const TMonth &to, QStringList &found)
{
    QList<TCarried> carried = accountBalances();
    if (to.number % 12 != 0)
        carried += expenseBalances();
    if (hasRows(fin, u"bd_dbkrlik"_s, u"dkl_perid"_s, from))
        carried += partyBalances();
    for (const TCarried &each : carried)
        checkCarried(fin, each, from, to, found);
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
    const QList<TMonth> months = readMonths(fin);
    checkPeriodRows(fin, found);
    checkMonthSequence(months, found);
    checkSides(fin, u"pradžios likučių"_s, u"bd_saslik"_s, u"ssl_perid"_s, u"ssl_sum_db"_s, u"ssl_sum_kr"_s,
               found);
    checkSides(fin, u"įrašų"_s, u"bd_irasai"_s, u"irs_perid"_s, u"irs_sum_db"_s, u"irs_sum_kr"_s, found);
    for (qsizetype i = 1; i < months.size(); ++i) {
        if (months.at(i).number == months.at(i - 1).number + 1)
            checkCarriedMonth(fin, months.at(i - 1), months.at(i), found);
    }
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
