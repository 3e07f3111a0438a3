#include "host/app/catalogues/irasai.h"

#include "host/data/main_datas.h"

using namespace Qt::StringLiterals;

TIrasaiFrm::TIrasaiFrm(QWidget *owner)
    : TBrowseFrm(
          {.name = u"TIrasaiFrm"_s,
           .caption = u"Mėnesio įrašai"_s,
           .help = 128,
           .keyColumn = u"IRS_ID"_s,
           .table = u"bd_irasai"_s,
           .sql = u"select irs_id, irs_data, irs_dok, sas_sasnr, sas_pavad, irs_sum_db, irs_sum_kr, "
                  "dka_pavad from bd_irasai left join bd_sasplan on sas_id = irs_sasid "
                  "left join bd_dbkrasm on dka_id = irs_dkaid where irs_perid = :perid "
                  "order by irs_data, irs_dok, irs_id"_s,
           .parameters = {{u"perid"_s, EinPer_Id()}},
           .columns = {{.field = u"IRS_DATA"_s, .title = u"Data"_s, .width = 80, .format = u"yyyy.mm.dd"_s},
                       {u"IRS_DOK"_s, u"Dokumentas"_s, 100},
                       {u"SAS_SASNR"_s, u"Sąskaita"_s, 80},
                       {u"SAS_PAVAD"_s, u"Pavadinimas"_s, 180},
                       {.field = u"IRS_SUM_DB"_s, .title = u"Debetas"_s, .width = 90, .format = u"0.00##"_s},
                       {.field = u"IRS_SUM_KR"_s, .title = u"Kreditas"_s, .width = 90, .format = u"0.00##"_s},
                       {u"DKA_PAVAD"_s, u"Debitorius ar kreditorius"_s, 170}},
           .editing = TEditing::Never},
          owner)
{
}

void TIrasaiFrm::PeriodChanged()
{
    description.parameters[u"perid"_s] = EinPer_Id();
    TBrowseFrm::PeriodChanged();
}
