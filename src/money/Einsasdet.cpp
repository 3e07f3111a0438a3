#include "src/money/Einsasdet.h"

#include <QRegularExpression>

namespace Einsasdet {

TUnit unit("einsasdet");
TEinSasItem *EinSasItem = nullptr;

namespace {

// Nothing, 0 and what is no whole number are no code of a bank.
Variant bankCode(const TField &field, const QString &typed)
{
    static const QRegularExpression code("^\\s*-?0*[1-9]\\d*\\s*$");
    if (!typed.contains(code))
        return {};
    if (std::abs(typed.toDouble()) > std::numeric_limits<int>::max())
        field.refuse("skaičius per didelis.");
    return typed;
}

} // namespace

bool ShowEinSas(const AnsiString &caption, double &id, bool isNew)
{
    return editRecord<TEinSasItem>(id, caption, TRecordStart::rowOrNew(isNew, id));
}

TEinSasItem::TEinSasItem(const AnsiString &caption, const TRecordStart &start)
    : TRecordDialog(
          {.name = "TEinSasItem",
           .newCaption = caption.toQString(),
           .help = 6,
           .table = "bd_einsas",
           .keyColumn = "EIN_ID",
           .key = TKeyRule::largestPlusOne("select max(ein_id) from bd_einsas"),
           .sql = "select * from bd_einsas where ein_id  =:ParId",
           .rows =
               {TFieldRow::suggest("Einamosios sąskaitos Nr.", "EIN_NR",
                                   "SELECT distinct EIN_NR,1 FROM bd_einsas where ISNULL(EIN_NR,'') <> '' "
                                   "order by ein_nr")
                    .required()
                    .lettersAndDigitsTyped(),
                SasRow("Sąskaitos pavadinimas", "EIN_SASID", {.whenNotDetail = TSasRule::Clear}).required(),
                TFieldRow::suggest("Banko kodas", "EIN_BANK_KOD",
                                   "select distinct ein_bank_kod, 1 from bd_einsas "
                                   "where ISNULL(ein_bank_kod,'') <> '' order by 1")
                    .digitsTyped(),
                TFieldRow::suggest("Banko pavadinimas", "EIN_BANK_PAV",
                                   "select distinct ein_bank_pav, 1 from bd_einsas "
                                   "where ISNULL(ein_bank_pav,'') <> '' order by 1")
                    .required()
                    .width(50)},
           .save = TSaveRule::WhenFilledAndChanged,
           .openFailure = "Šiuo metu atidaryti lentelės \"BD_EINSAS\" negalima",
           .saveFailure = "Šiuo metu koreguoti lentelės \"BD_EINSAS\" negalima",
           .prepare =
               [](TQuery &account) {
                   account.describe("EIN_BANK_KOD", [](TField &code) { code.OnSetText = bankCode; });
               }},
          start)
{
    keepIn(EinSasItem);
}

} // namespace Einsasdet
