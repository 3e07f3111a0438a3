#include "src/debtors/Dbkrsut.h"

namespace Dbkrsut {

TUnit unit("DbKrSut");
TDbKrSutart *DbKrSutart = nullptr;
char Tipas = 'B';

namespace {

const QString firstDay = QStringLiteral("2007.01.01"); // of a new contract

QString kind()
{
    return QString(QLatin1Char(Tipas));
}

// The last day may be missing, and may be the first one.
void requireOrder(const Variant &first, const Variant &last)
{
    if (!last.isNull() && first.toDate() > last.toDate())
        throw Exception("Data nuo negali būti didesnė už datą iki");
}

} // namespace

void DbKrShow(const Variant &dkaId)
{
    TDbKrSutart(dkaId.toDouble()).run();
}

TDbKrSutart::TDbKrSutart(double counterparty)
    : TRecordDialog(
          {.name = "TDbKrSutart",
           .newCaption = "Sutartis",
           .help = 9,
           .table = "bd_dbkrsut",
           .keyColumn = "DKS_ID",
           .sql = "select * from bd_dbkrsut where dks_dkaid=:DKAID",
           .addsMissing = true,
           .rows = {TFieldRow::edit("Sutarties Nr", "DKS_NR").width(30),
                    TFieldRow::date("Nuo", "DKS_NUO").holdsFocus(),
                    TFieldRow::edit("Iki", "DKS_IKI").holdsFocus(),
                    TFieldRow::radio("Sumos tipas", "DKS_TIPAS", {{"Bendras", "B"}, {"Mėnesinis", "M"}}),
                    TFieldRow::edit("Suma", "DKS_SUMA").money()},
           .buttons = saveAndCancel("&Išsaugoti", "&Atsisakyti"),
           .prepare = [this](TQuery &contract) { setRules(contract); }},
          TRecordStart::row(counterparty)),
      dkaId(counterparty)
{
    keepIn(DbKrSutart);
}

void TDbKrSutart::setRules(TQuery &contract)
{
    contract.describe("DKS_TIPAS", [](TField &kindField) {
        kindField.OnChange = [](TField &chosen) { Tipas = chosen.AsString() == "M" ? 'M' : 'B'; };
    });
    contract.describe("DKS_NUO", [this](TField &first) {
        first.OnValidate = [this](TField &, const Variant &proposed) {
            requireOrder(proposed, field("DKS_IKI")->Value());
        };
    });
    contract.describe("DKS_IKI", [this](TField &last) {
        last.OnValidate = [this](TField &, const Variant &proposed) {
            requireOrder(field("DKS_NUO")->Value(), proposed);
        };
    });
}

void TDbKrSutart::Loaded()
{
    Tipas = field("DKS_TIPAS")->AsString() == "M" ? 'M' : 'B';
    if (isNew())
        field("DKS_NUO")->setAsString(firstDay);
    field("DKS_DKAID")->setAsFloat(dkaId);
    field("DKS_TIPAS")->setAsString(kind());
}

void TDbKrSutart::Validate()
{
    requireOrder(field("DKS_NUO")->Value(), field("DKS_IKI")->Value());
    field("DKS_TIPAS")->setAsString(kind());
}

void TDbKrSutart::Save()
{
    if (isNew() && dkaId > 0)
        requireNoOther();
    TRecordDialog::Save();
}

// Two stations may enter the first contract of a counterparty at once, and only one would ever be shown
// again. Writing the counterparty's row lets the second wait for the first.
void TDbKrSutart::requireNoOther()
{
    Database()->ExecSQL("update bd_dbkrasm set dka_kod = dka_kod where dka_id = :id", {{"id", dkaId}});
    if (Database()
            ->fieldResult("select count(*) from bd_dbkrsut where dks_dkaid = :id", {{"id", dkaId}})
            .toInt() > 0)
        throw Exception(
            "Kita darbo vieta ką tik įrašė šio debitoriaus ar kreditoriaus sutartį. Uždarykite langą ir "
            "atverkite sutartį iš naujo.");
}

} // namespace Dbkrsut
