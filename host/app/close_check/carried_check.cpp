#include "database/carried_balances.h"
#include "host/app/close_check/checks.h"
#include "host/app/close_check/finding_list.h"
#include "toolkit/data/statement.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Kind = TMiscarried::Kind;

double keyOf(const TClosing &closing, const QString &sql, QVariantMap parameters)
{
    parameters[u"perid"_s] = closing.period;
    return closing.fin.fieldResult(sql, parameters).toDouble();
}

QString nameOf(const TClosing &closing, const QString &sql, const QVariant &key)
{
    return closing.fin.fieldResult(sql, {{u"raktas"_s, key}}).toString().trimmed();
}

TCloseFinding accountFound(const TClosing &closing, const QVariant &number)
{
    return {.about = number.toString() + u"  "_s +
                     nameOf(closing, u"select sas_pavad from bd_sasplan where sas_sasnr = :raktas"_s, number),
            .text = u"Sąskaitos"_s,
            .place = {u"TSasLikFrm"_s,
                      keyOf(closing,
                            u"select min(ssl_id) from bd_saslik, bd_sasplan where ssl_sasid = sas_id "
                            "and ssl_perid = :perid and sas_sasnr = :raktas"_s,
                            {{u"raktas"_s, number}})}};
}

TCloseFinding nodeFound(const TClosing &closing, const TMiscarried &balance)
{
    const QVariant node = balance.key.first();
    return {.about = nameOf(
                closing, u"select jve_kodas + '  ' + jve_pavad from bd_jve where jve_id = :raktas"_s, node),
            .text = QString(balance.what).remove(u" mazgas"_s),
            .place = {u"TIslFrm"_s, node.toDouble()}};
}

// The row of all that tells one balance from another; null is like null.
double partyRow(const TClosing &closing, const QVariantList &key)
{
    const QStringList columns{u"dkl_dkaid"_s, u"dkl_sasid"_s, u"dkl_i_kod"_s, u"dkl_pavad"_s, u"dkl_padid"_s};
    QString sql = u"select min(dkl_id) from bd_dbkrlik where dkl_perid = :perid"_s;
    QVariantMap parameters;
    for (qsizetype i = 0; i < columns.size(); ++i) {
        if (key.at(i).isNull()) {
            sql += u" and %1 is null"_s.arg(columns.at(i));
            continue;
        }
        sql += u" and %1 = :%1"_s.arg(columns.at(i));
        parameters.insert(columns.at(i), key.at(i));
    }
    return keyOf(closing, sql, parameters);
}

TCloseFinding partyFound(const TClosing &closing, const TMiscarried &balance)
{
    const QVariant party = balance.key.at(0), typedName = balance.key.at(3), department = balance.key.at(4);
    QStringList about{
        party.isNull()
            ? typedName.toString()
            : nameOf(closing, u"select dka_pavad from bd_dbkrasm where dka_id = :raktas"_s, party)};
    if (!department.isNull())
        about << nameOf(closing, u"select pad_pavad from bd_pad where pad_id = :raktas"_s, department);
    return {.about = about.join(u", "_s),
            .text = u"Debitoriaus ar kreditoriaus"_s,
            .place = {u"TDKALikFrm"_s, partyRow(closing, balance.key)}};
}

TCloseFinding found(const TClosing &closing, const TMiscarried &balance)
{
    TCloseFinding told = balance.kind == Kind::Account    ? accountFound(closing, balance.key.first())
                         : balance.kind == Kind::Expenses ? nodeFound(closing, balance)
                                                          : partyFound(closing, balance);
    told.text += u" pradžios likutis %1, o pagal praėjusį mėnesį ir jo įrašus turi būti %2."_s.arg(
        amountText(balance.is), amountText(balance.due));
    return told;
}

} // namespace

std::vector<TCloseFinding> balancesMiscarried(const TClosing &closing)
{
    const QList<TBookMonth> months = monthsOfBooks(closing.fin);
    const auto month = std::ranges::find(months, closing.period, &TBookMonth::id);
    if (month == months.cend() || month == months.cbegin())
        return {};
    QList<TMiscarried> balances; // the statement that finds them ends before their names are asked for
    eachMiscarried(closing.fin, *(month - 1), *month,
                   [&balances](const TMiscarried &balance) { balances << balance; });
    TFindingList list;
    for (const TMiscarried &balance : std::as_const(balances)) {
        if (list.tellsNext())
            list.add(found(closing, balance));
        else
            list.addUntold();
    }
    return list.all();
}
