#include "host/data/report_store.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The register of debtors and creditors.
TStoredReport debtorRegister()
{
    return {
        .number = 81,
        .caption = u"Debitoriai ir kreditoriai"_s,
        .sql = u"select DKA_ID, DKA_KOD, (a.SAS_SASNR+'  '+a.SAS_PAVAD) as SASKAITA, DKA_PAVAD, DKA_ADR, "
               "DKA_TEL, DKA_I_KOD, DKA_PVM_KOD, DKA_EIN_SAS, DKA_BANK_KOD, DKA_BANK_PAV, "
               "(b.SAS_SASNR+'  '+b.SAS_PAVAD) as SASKAITA_2 "
               "from Bd_DbKrAsm, bd_sasplan as a, bd_sasplan as b "
               "where a.sas_id=dka_sasid and b.sas_id=dka_sasid_2 ORDER BY DKA_KOD"_s,
        .columns = {{u"DKA_KOD"_s, u"Kodas"_s, 46},
                    {u"DKA_PAVAD"_s, u"Pavadinimas"_s, 120},
                    {u"DKA_ADR"_s, u"Adresas"_s, 92},
                    {u"DKA_TEL"_s, u"Telefonas"_s, 62},
                    {u"DKA_I_KOD"_s, u"Įmonės kodas"_s, 48, Qt::AlignRight, u"#"_s},
                    {u"DKA_PVM_KOD"_s, u"PVM Kodas"_s, 62},
                    {u"DKA_EIN_SAS"_s, u"Einamoji sąskaita"_s, 94},
                    {u"DKA_BANK_PAV"_s, u"Banko pavadinimas"_s, 76},
                    {u"SASKAITA"_s, u"Sąskaita"_s, 80},
                    {u"SASKAITA_2"_s, u"Mok. sumų sąskaita"_s, 80}},
        .fontSize = 7,
        .summary = u"'Iš viso: ' + COUNT(DKA_ID)"_s,
    };
}

} // namespace

const TStoredReport *storedReport(int number)
{
    static const std::vector<TStoredReport> store = {debtorRegister()};
    const auto found = std::ranges::find(store, number, &TStoredReport::number);
    return found == store.end() ? nullptr : &*found;
}
