#include "host/app/catalogues/sas_rules.h"

#include "host/controls/session.h"
#include "host/data/main_datas.h"
#include "toolkit/data/dataset.h"

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

} // namespace

QString labelOf(const TAccount &account)
{
    return account.number + u"  "_s + account.name;
}

void requireNumber(const TField &number, const Variant &proposed)
{
    static const QRegularExpression digits(u"^[0-9]{1,10}$"_s);
    const QString text = proposed.toString();
    if (!text.isEmpty() && !digits.match(text).hasMatch())
        throw Exception(u"Sąskaitos numeris – tik skaitmenys, ne daugiau kaip 10"_s);
    const TDataSet &row = *number.DataSet();
    const double id = row.FieldByName(u"SAS_ID"_s)->AsFloat();
    const auto other = findAccountByNumber(books(), text);
    if (other && other->id != id)
        throw Exception(u"Sąskaita %1 jau yra: %2"_s.arg(text, other->name));
    const auto parent = findAccount(books(), row.FieldByName(u"SAS_TEVID"_s)->AsFloat());
    if (parent && !text.isEmpty())
        requireBeginning(text, *parent);
    const QString former = number.OldValue().toString();
    if (!former.isEmpty() && text != former && hasAccountsBelow(id))
        throw Exception(
            u"Sąskaitos %1 numeris nekeičiamas: juo prasideda žemesnio lygio sąskaitos"_s.arg(former));
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
