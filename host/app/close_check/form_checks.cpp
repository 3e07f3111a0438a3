#include "host/app/close_check/checks.h"
#include "host/app/close_check/finding_list.h"
#include "toolkit/data/statement.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// Findings for the accounts with entries in the month that are not among those of the form.
std::vector<TCloseFinding> accountsOutside(const QSet<QString> &claimed, const TClosing &closing,
                                           const QString &screen)
{
    if (claimed.isEmpty())
        throw ENotChecked(u"Formos eilutėms sąskaitų nepriskirta."_s);
    TFindingList found;
    eachRowOf(
        closing.fin,
        u"select sas_sasnr, sas_pavad from bd_sasplan where exists "
        "(select 1 from bd_irasai where irs_sasid = sas_id and irs_perid = :perid) order by sas_sasnr"_s,
        {{u"perid"_s, closing.period}}, [&](const TStatement &row) {
            if (!claimed.contains(textAt(row, 0)))
                found.add({textAt(row, 0) + u"  "_s + textAt(row, 1),
                           u"Sąskaita turi mėnesio įrašų, bet jos nėra nė vienoje formos eilutėje."_s,
                           {.screen = screen}});
        });
    return found.all();
}

} // namespace

std::vector<TCloseFinding> accountsInNoForm(const TClosing &closing)
{
    QSet<QString> claimed;
    eachRowOf(closing.fin, u"select distinct sas_sasnr from bd_balsas, bd_sasplan where sas_id = bss_sasid"_s,
              {}, [&claimed](const TStatement &row) { claimed << textAt(row, 0); });
    return accountsOutside(claimed, closing, u"TBalFrm"_s);
}

// A row of this form may name several accounts, between commas.
std::vector<TCloseFinding> accountsInNoBudgetForm(const TClosing &closing)
{
    QSet<QString> claimed;
    eachRowOf(closing.ravl, u"select bss_sasnr from bd_balsas where bss_sasnr is not null"_s, {},
              [&claimed](const TStatement &row) {
                  for (const QString &number : textAt(row, 0).split(u','))
                      claimed << number.trimmed();
              });
    return accountsOutside(claimed, closing, u"TBalFrm_mnRavl"_s);
}
