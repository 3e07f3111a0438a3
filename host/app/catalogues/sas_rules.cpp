#include "host/app/catalogues/sas_rules.h"

#include "host/app/catalogues/table_lock.h"
#include "host/controls/session.h"
#include "host/data/main_datas.h"
#include "toolkit/data/dataset.h"
#include "toolkit/data/statement.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

TDatabase *books()
{
    return sessionOf(TSession::Main);
}

bool any(const QString &count, const QVariantMap &parameters)
{
    return books()->fieldResult(count, parameters).toInt() > 0;
}

bool hasAccountsBelow(double id)
{
    return any(u"select count(*) from bd_sasplan where sas_tevid = :id"_s, {{u"id"_s, id}});
}

bool isUsed(double id)
{
    lockRow(books(), u"bd_sasplan"_s, u"sas_id"_s, id);
    return any(u"select f_CheckUsed('bd_sasplan', 'sas_id', '%1') from dummy"_s.arg(qRound64(id)), {});
}

// Amounts with which the account goes into the current period, or that were entered in it.
bool hasAmounts(double id)
{
    const QVariantMap now{{u"id"_s, id}, {u"perid"_s, EinPer_Id()}};
    return any(u"select count(*) from bd_saslik where ssl_sasid = :id and ssl_perid = :perid "
               "and (ssl_sum_db <> 0 or ssl_sum_kr <> 0)"_s,
               now) ||
           any(u"select count(*) from bd_dbkrlik where dkl_sasid = :id and dkl_perid = :perid "
               "and (dkl_sum_db <> 0 or dkl_sum_kr <> 0)"_s,
               now) ||
           any(u"select count(*) from bd_irasai where irs_sasid = :id and irs_perid = :perid"_s, now);
}

TAccount parentOf(double id)
{
    if (const auto account = findAccount(books(), id))
        return *account;
    throw Exception(u"Sąskaita, po kuria dedama, jau ištrinta kitoje darbo vietoje"_s);
}

void requireBeginning(const QString &number, const TAccount &parent)
{
    if (number.size() <= parent.number.size() || !number.startsWith(parent.number))
        throw Exception(
            u"Sąskaitos numeris turi prasidėti aukštesnės sąskaitos „%1“ numeriu ir būti už jį ilgesnis"_s
                .arg(labelOf(parent)));
}

// The row's own parent is that of the moment when it was read: another station may have moved it since.
double storedParent(const TDataSet &row)
{
    if (row.State() == dsInsert)
        return row.FieldByName(u"SAS_TEVID"_s)->AsFloat();
    return books()
        ->fieldResult(u"select sas_tevid from bd_sasplan where sas_id = :id"_s,
                      {{u"id"_s, row.FieldByName(u"SAS_ID"_s)->Value()}})
        .toDouble();
}

void requireDigits(const QString &number)
{
    static const QRegularExpression digits(u"^[0-9]{1,10}$"_s);
    if (!digits.match(number).hasMatch())
        throw Exception(u"Sąskaitos numeris – tik skaitmenys, ne daugiau kaip 10"_s);
}

void requireRenumbered(const QString &former, double id)
{
    if (hasAccountsBelow(id))
        throw Exception(
            u"Sąskaitos %1 numeris nekeičiamas: juo prasideda žemesnio lygio sąskaitos"_s.arg(former));
    requireNotInBudgetForm(former);
}

void judgeNumber(const TField &number, const QString &proposed)
{
    const TDataSet &row = *number.DataSet();
    const double id = row.FieldByName(u"SAS_ID"_s)->AsFloat();
    if (!proposed.isEmpty()) {
        requireDigits(proposed);
        const auto other = findAccountByNumber(books(), proposed);
        if (other && other->id != id)
            throw Exception(u"Sąskaita %1 jau yra: %2"_s.arg(proposed, other->name));
        if (const auto parent = findAccount(books(), storedParent(row)))
            requireBeginning(proposed, *parent);
    }
    const QString former = number.OldValue().toString();
    if (!former.isEmpty() && proposed != former)
        requireRenumbered(former, id);
}

} // namespace

QString labelOf(const TAccount &account)
{
    return account.number + u"  "_s + account.name;
}

// A row of the form may name several accounts, between commas.
void requireNotInBudgetForm(const QString &number)
{
    const auto lines =
        sessionOf(TSession::Budget)
            ->prepare(u"select bss_balkod, bss_sasnr from bd_balsas where bss_sasnr like %1"_s.arg(
                TDatabase::quoted(u'%' + number + u'%')));
    for (lines->exec(); lines->next();)
        for (const QString &named : QString::fromUtf8(lines->utf8(1)).split(u','))
            if (named.trimmed() == number)
                throw Exception(
                    u"Sąskaita %1 yra biudžeto balanso formos eilutėje %2: pirmiausia išimkite ją iš "
                    "formos"_s.arg(number, QString::fromUtf8(lines->utf8(0))));
}

void requireNumber(const TField &number, const Variant &proposed)
{
    try {
        judgeNumber(number, proposed.toString());
    } catch (const Exception &error) {
        throw EFieldRefused(error.message(), number.FieldName());
    }
}

void requireAccountKind(const TDataSet &row)
{
    const TField *kind = row.FieldByName(u"SAS_TIP"_s);
    const QString wanted = kind->AsString();
    const double id = row.FieldByName(u"SAS_ID"_s)->AsFloat();
    const auto refuse = [kind](const QString &why) { throw EFieldRefused(why, kind->FieldName()); };
    if (wanted == kind->OldValue().toString())
        return;
    if (wanted != u"S" && hasAccountsBelow(id))
        refuse(u"Sąskaita turi žemesnio lygio sąskaitų, todėl lieka suminė"_s);
    if (wanted == u"S" && isUsed(id))
        refuse(u"Sąskaita yra naudojama, todėl negali būti suminė"_s);
    if (wanted == u"U" && hasAmounts(id))
        refuse(u"Sąskaita einamąjį periodą turi likutį ar įrašų, todėl neuždaroma"_s);
}

void makeSummary(double id)
{
    const TAccount parent = parentOf(id);
    if (parent.kind == u"U")
        throw Exception(u"Sąskaita „%1“ uždaryta: kitų sąskaitų po ja dėti negalima"_s.arg(labelOf(parent)));
    if (parent.kind == u"S")
        return;
    if (!hasAccountsBelow(id) && isUsed(id))
        throw Exception(
            u"Sąskaita „%1“ yra naudojama (likučiai, įrašai ar kiti duomenys): kitų sąskaitų po ja dėti "
            "negalima"_s.arg(labelOf(parent)));
    books()->ExecSQL(u"update bd_sasplan set sas_tip = 'S' where sas_id = :id"_s, {{u"id"_s, id}});
}

void placeAccount(double id, double parent)
{
    if (parent <= 0)
        return;
    const auto account = findAccount(books(), id);
    if (!account)
        throw ERowGone();
    requireBeginning(account->number, parentOf(parent));
    makeSummary(parent);
}
