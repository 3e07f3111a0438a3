#include "src/money/Kasosform.h"

#include "src/money/Kasnew.h"
#include "toolkit/widgets/column_lookup.h"

namespace Kasosform {

TUnit unit("KasosForm");
TKasosFrm *KasosFrm = nullptr;

namespace {

constexpr int longestAccount = 80;

// Each account is looked up once for every reading of the list.
void computeAccount(TQuery &desks)
{
    const auto accounts = std::make_shared<TColumnLookup>(
        [](const QVariant &id) { return GetSasById(id.toDouble(), true).left(longestAccount); });
    desks.addCalculated("SAS_NR", TFieldType::ftString, longestAccount);
    desks.describe("SAS_NR", [](TField &account) { account.DisplayLabel = "Sąskaitos Nr."; });
    desks.BeforeOpen = [accounts](TDataSet &) { accounts->forget(); };
    desks.OnCalcFields = [accounts](TDataSet &desk) {
        desk.FieldByName("SAS_NR")->setAsString(accounts->text(desk.FieldByName("KAS_SASID")->Value()));
    };
}

} // namespace

TKasosFrm::TKasosFrm(QWidget *owner)
    : TBrowseFrm(
          {.name = "TKasosFrm",
           .caption = "Kasos",
           .help = 40,
           .keyColumn = "kas_id",
           .table = "bd_kasos",
           .sql = "select * from bd_kasos order by kas_pavad",
           .columns = {{"KAS_PAVAD", "Kasos pavadinimas", 300}, {"SAS_NR", "Sąskaita", 400}},
           .used = {"Kasa \"%s\" yra naudojama!", "kas_pavad"},
           .newCaption = "Nauja kasa",
           .editCaption = "Redaguojama kasa",
           .editRow = [](const QString &caption,
                         bool isNew) { Kasnew::ShowKasa(AnsiString(caption), isNew); },
           .statements = {.insert = "insert into bd_kasos (KAS_ID, KAS_SASID, KAS_PAVAD) "
                                    "values (:KAS_ID, :KAS_SASID, :KAS_PAVAD)",
                          .update = "update bd_kasos set KAS_SASID = :KAS_SASID, KAS_PAVAD = :KAS_PAVAD "
                                    "where KAS_ID = :OLD_KAS_ID",
                          .remove = "delete from bd_kasos where KAS_ID = :OLD_KAS_ID"},
           .prepare = computeAccount},
          owner)
{
    keepIn(KasosFrm);
}

} // namespace Kasosform
