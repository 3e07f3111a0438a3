#include "host/app/catalogues/node_rules.h"

#include "host/app/catalogues/branch_use.h"
#include "host/controls/session.h"
#include "toolkit/data/dataset.h"

using namespace Qt::StringLiterals;

void requireNodeCode(const TDataSet &row)
{
    const auto value = [&row](const QString &column) { return row.FieldByName(column)->Value(); };
    const int others =
        sessionOf(TSession::Main)
            ->fieldResult(u"select count(*) from bd_jve where jve_islid = :knyga and jve_id <> :id and "
                          "ISNULL(jve_tevid, 0) = :tevas and jve_kodas = :kodas"_s,
                          {{u"knyga"_s, value(u"JVE_ISLID"_s)},
                           {u"id"_s, value(u"JVE_ID"_s)},
                           {u"tevas"_s, value(u"JVE_TEVID"_s).toDouble()},
                           {u"kodas"_s, value(u"JVE_KODAS"_s)}})
            .toInt();
    if (others > 0)
        throw EFieldRefused(u"Kodas \"%1\" šiame lygyje jau yra"_s.arg(value(u"JVE_KODAS"_s).toString()),
                            u"JVE_KODAS"_s);
}

void requireNodeMark(const TDataSet &row)
{
    const TField *mark = row.FieldByName(u"JVE_DUOM"_s);
    const double id = row.FieldByName(u"JVE_ID"_s)->AsFloat();
    if (mark->OldValue().toInt() != 0 && mark->AsInteger() == 0 &&
        branchIsUsed(sessionOf(TSession::Main), u"bd_jve"_s, u"jve_id"_s, {id}))
        throw EFieldRefused(u"Kodas jau turi sumų (sąmatą, likučių ar įrašų)"_s, u"JVE_DUOM"_s);
}
