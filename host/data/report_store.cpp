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
        .sql = u"select DKA_ID, DKA_KOD, DKA_PAVAD, DKA_ADR, DKA_TEL, DKA_I_KOD, DKA_PVM_KOD, DKA_EIN_SAS, "
               "DKA_BANK_PAV, a.SAS_SASNR as SASNR, b.SAS_SASNR as SASNR_2 "
               "from Bd_DbKrAsm, bd_sasplan as a, bd_sasplan as b "
               "where a.sas_id=dka_sasid and b.sas_id=dka_sasid_2 ORDER BY DKA_KOD"_s,
        .columns = {{.field = u"DKA_KOD"_s, .title = u"Kodas"_s, .width = 44},
                    {.field = u"DKA_PAVAD"_s, .title = u"Pavadinimas"_s, .width = 152},
                    {.field = u"DKA_ADR"_s, .title = u"Adresas"_s, .width = 104},
                    {.field = u"DKA_TEL"_s, .title = u"Telefonas"_s, .width = 64},
                    {.field = u"DKA_I_KOD"_s,
                     .title = u"Įmonės kodas"_s,
                     .width = 46,
                     .alignment = Qt::AlignRight,
                     .mask = u"#"_s},
                    {.field = u"DKA_PVM_KOD"_s, .title = u"PVM Kodas"_s, .width = 60},
                    {.field = u"DKA_EIN_SAS"_s, .title = u"Einamoji sąskaita"_s, .width = 94},
                    {.field = u"DKA_BANK_PAV"_s, .title = u"Banko pavadinimas"_s, .width = 110},
                    {.field = u"SASNR"_s, .title = u"Sąskaita"_s, .width = 40},
                    {.field = u"SASNR_2"_s, .title = u"Mok. sumų sąskaita"_s, .width = 44}},
        .fontSize = 7,
        .summary = u"'Iš viso: ' + COUNT(DKA_ID)"_s,
    };
}

// The current accounts.
TStoredReport currentAccounts()
{
    return {
        .number = 82,
        .caption = u"Einamosios sąskaitos"_s,
        .sql = u"select EIN_ID, EIN_NR, (SAS_SASNR + '  ' + SAS_PAVAD) as SAS_NR_PAVAD, EIN_BANK_PAV, "
               "EIN_BANK_KOD from bd_einsas inner join bd_sasplan on (EIN_SASID = SAS_ID) order by EIN_NR"_s,
        .columns = {{.field = u"EIN_NR"_s, .title = u"Ein sąs. Nr"_s, .width = 120},
                    {.field = u"SAS_NR_PAVAD"_s, .title = u"Sąskaita"_s, .width = 190},
                    {.field = u"EIN_BANK_PAV"_s, .title = u"Banko pavadinimas"_s, .width = 150},
                    {.field = u"EIN_BANK_KOD"_s,
                     .title = u"Banko kodas"_s,
                     .width = 60,
                     .alignment = Qt::AlignRight}},
        .summary = u"'Iš viso: ' + COUNT(EIN_ID)"_s,
    };
}

// The estimates with their corrections, the last year first.
TStoredReport estimates()
{
    return {
        .number = 86,
        .caption = u"Sąmatos"_s,
        .sql = u"select PER_METAI, PER_KETV, JVE_KODAS, JVE_PAVAD, SAM_SAMATA, SAM_SAM_KOR "
               "from bd_samatos, bd_period, bd_jve where per_id=sam_perid and jve_id=sam_jveid "
               "order by PER_METAI desc, JVE_KODAS, SAM_PERID"_s,
        .columns = {{.field = u"PER_METAI"_s, .title = u"Metai"_s, .width = 40},
                    {.field = u"JVE_KODAS"_s, .title = u"Kodas"_s, .width = 70},
                    {.field = u"JVE_PAVAD"_s, .title = u"Pavadinimas"_s, .width = 230},
                    {.field = u"PER_KETV"_s, .title = u"Ketvirtis"_s, .width = 50},
                    {.field = u"SAM_SAMATA"_s,
                     .title = u"Sąmatos suma"_s,
                     .width = 90,
                     .alignment = Qt::AlignRight,
                     .mask = u"0.00"_s},
                    {.field = u"SAM_SAM_KOR"_s,
                     .title = u"Koreguota sąmata"_s,
                     .width = 90,
                     .alignment = Qt::AlignRight,
                     .mask = u"0.00"_s}},
        .fontSize = 8,
    };
}

} // namespace

const TStoredReport *storedReport(int number)
{
    static const std::vector<TStoredReport> store = {debtorRegister(), currentAccounts(), estimates()};
    const auto found = std::ranges::find(store, number, &TStoredReport::number);
    return found == store.end() ? nullptr : &*found;
}
