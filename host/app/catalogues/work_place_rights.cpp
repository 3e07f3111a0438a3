#include "host/app/catalogues/work_place_rights.h"

#include "toolkit/data/statement.h"
#include "toolkit/text/errors.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int mostWorkPlaces = 16; // bits of a user's rights

QString ofAdministrators(const QString &rights = u"in"_s)
{
    return u"udv_usrid %1 (select usr_id from bd_usr where usr_user_admin = 1)"_s.arg(rights);
}

const QString notIn = u"not in"_s;

QString hasBit(int bit)
{
    return u"(udv_kdv & %1) <> 0"_s.arg(bit);
}

void takeBit(TDatabase *budget, int bit, const QString &whose)
{
    budget->ExecSQL(u"update bd_usrkdv set udv_kdv = udv_kdv - %1 where %2 and %3"_s.arg(QString::number(bit),
                                                                                         hasBit(bit), whose));
}

} // namespace

quint16 bitOf(int workPlace)
{
    return quint16(1U << (workPlace - 1));
}

bool isGivenToOthers(TDatabase *budget, int bit)
{
    return budget
               ->fieldResult(u"select count(*) from bd_usrkdv where %1 and %2"_s.arg(hasBit(bit),
                                                                                     ofAdministrators(notIn)))
               .toInt() > 0;
}

void giveToAdministrators(TDatabase *budget, int bit)
{
    takeBit(budget, bit, ofAdministrators(notIn));
    budget->ExecSQL(u"update bd_usrkdv set udv_kdv = udv_kdv + %1 where (udv_kdv & %1) = 0 and %2"_s.arg(
        QString::number(bit), ofAdministrators()));
    budget->ExecSQL(u"insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) select usr_id, fin_id, %1 from "
                    u"bd_usr, bd_fin "
                    "where usr_user_admin = 1 and not exists "
                    "(select 1 from bd_usrkdv where udv_usrid = usr_id and udv_finid = fin_id)"_s.arg(bit));
}

void takeFromAdministrators(TDatabase *budget, int bit)
{
    takeBit(budget, bit, ofAdministrators());
}

int lowestFreeNumber(TDatabase *budget)
{
    QSet<int> taken;
    const auto places = budget->prepare(u"select kdv_id from bd_kdv"_s);
    for (places->exec(); places->next();)
        taken.insert(int(places->integer(0)));
    for (int number = 1; number <= mostWorkPlaces; ++number)
        if (!taken.contains(number))
            return number;
    throw Exception(u"Darbo vietų gali būti ne daugiau kaip %1: ištrinkite nereikalingą arba pakeiskite jos "
                    "pavadinimą"_s.arg(mostWorkPlaces));
}
