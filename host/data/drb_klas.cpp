#include "host/data/drb_klas.h"

using namespace Qt::StringLiterals;

TDrbKlasFra::TDrbKlasFra(QWidget *parent)
    : TCatalogueEdit({.table = u"du_drbklas"_s,
                      .key = u"kla_kodas"_s,
                      .name = u"kla_pavad"_s,
                      .caption = u"Profesinės grupės"_s,
                      .pickHint = u"Pasirinkti profesinę grupę"_s,
                      .noSuch = u"Profesinės grupės „%1“ nėra"_s,
                      .gone = u"Profesinės grupės nebėra"_s},
                     parent)
{
    setLabel(u"Profesinė grupė"_s);
}

Variant TDrbKlasFra::f_kodas() const
{
    return value() > 0 ? Variant(value()) : Variant();
}

void TDrbKlasFra::p_kodas(const Variant &code)
{
    setValue(code.toDouble());
}
