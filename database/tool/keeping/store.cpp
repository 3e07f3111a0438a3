#include "database/tool/keeping/store.h"

using namespace Qt::StringLiterals;

void TStore::refuseWhenPresent()
{
    if (present() > 0)
        throw Exception(u"Duomenų bazės jau yra. Jos neliečiamos; nurodykite kitą vietą."_s);
}

void TStore::refuseWhenMissing()
{
    switch (present()) {
    case 0:
        throw Exception(u"Nurodytoje vietoje duomenų bazių nėra."_s);
    case 1:
        throw Exception(u"Nurodytoje vietoje yra tik viena iš dviejų duomenų bazių (%1 ir %2)."_s.arg(
            QLatin1String(BooksNames::fin), QLatin1String(BooksNames::ravl)));
    default:
        break;
    }
}
