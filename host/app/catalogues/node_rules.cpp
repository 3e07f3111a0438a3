#include "host/app/catalogues/node_rules.h"

#include "host/app/catalogues/branch_use.h"
#include "host/app/catalogues/table_lock.h"
#include "host/classifier/book_data.h"
#include "host/controls/session.h"
#include "toolkit/data/dataset.h"

using namespace Qt::StringLiterals;

namespace {

struct TLevel {
    double book = 0;
    double parent = 0; // 0: the first level
};

QString refusalOfCode(const TLevel &level, double node, const QString &code)
{
    const Variant others =
        sessionOf(TSession::Main)
            ->fieldResult(
                u"select count(*) from bd_jve where jve_islid = :knyga and jve_id <> :id and "
                "ISNULL(jve_tevid, 0) = :tevas and jve_kodas = :kodas"_s,
                {{u"knyga"_s, level.book}, {u"id"_s, node}, {u"tevas"_s, level.parent}, {u"kodas"_s, code}});
    return others.toInt() > 0 ? u"Kodas \"%1\" šiame lygyje jau yra"_s.arg(code) : QString();
}

bool hasCodesBelow(double node)
{
    const Variant below =
        sessionOf(TSession::Main)
            ->fieldResult(u"select count(*) from bd_jve where jve_tevid = :id"_s, {{u"id"_s, node}});
    return below.toInt() > 0;
}

} // namespace

void requireNodeCode(const TDataSet &row)
{
    const auto number = [&row](const QString &column) { return row.FieldByName(column)->AsFloat(); };
    const QString refusal = refusalOfCode({number(u"JVE_ISLID"_s), number(u"JVE_TEVID"_s)},
                                          number(u"JVE_ID"_s), row.FieldByName(u"JVE_KODAS"_s)->AsString());
    if (!refusal.isEmpty())
        throw EFieldRefused(refusal, u"JVE_KODAS"_s);
}

void makeHeading(double node)
{
    TDatabase *books = sessionOf(TSession::Main);
    const auto parent = findNode(books, node);
    if (!parent || !parent->carriesData)
        return;
    lockRow(books, u"bd_jve"_s, u"jve_id"_s, node);
    if (branchIsUsed(books, u"bd_jve"_s, u"jve_id"_s, {node}))
        throw Exception(
            u"Kodas „%1“ jau turi sumų (sąmatą, likučių ar įrašų): kitų kodų po juo dėti negalima"_s.arg(
                parent->label()));
    books->ExecSQL(u"update bd_jve set jve_duom = 0 where jve_id = :id"_s, {{u"id"_s, node}});
}

QString lossOfHeading(double node)
{
    const auto parent = findNode(sessionOf(TSession::Main), node);
    return parent && parent->carriesData
               ? u"Kodas „%1“ turės žemesnių kodų, todėl pats sumų nebeturės."_s.arg(parent->label())
               : QString();
}

void placeNode(const QList<double> &branch, double parent, bool loose)
{
    static const auto unused = placeUnused(u"bd_jve"_s, u"jve_id"_s);
    unused(branch, parent, loose);
    const auto node = findNode(sessionOf(TSession::Main), branch.first());
    if (!node)
        throw ERowGone();
    const QString refusal = refusalOfCode({node->book, parent}, node->id, node->code);
    if (!refusal.isEmpty())
        throw Exception(refusal);
    makeHeading(parent);
}

void requireNodeMark(const TDataSet &row)
{
    const TField *mark = row.FieldByName(u"JVE_DUOM"_s);
    const double id = row.FieldByName(u"JVE_ID"_s)->AsFloat();
    if (mark->OldValue().toInt() == 0 && mark->AsInteger() != 0 && hasCodesBelow(id))
        throw EFieldRefused(u"Kodas turi žemesnių kodų, todėl pats sumų neturi"_s, u"JVE_DUOM"_s);
    if (mark->OldValue().toInt() != 0 && mark->AsInteger() == 0 &&
        branchIsUsed(sessionOf(TSession::Main), u"bd_jve"_s, u"jve_id"_s, {id}))
        throw EFieldRefused(u"Kodas jau turi sumų (sąmatą, likučių ar įrašų)"_s, u"JVE_DUOM"_s);
}
