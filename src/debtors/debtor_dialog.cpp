#include "src/debtors/debtor_dialog.h"

namespace {

// Only a detail account can carry what is owed.
const TSasRule owedOn = {.whenNotDetail = TSasRule::Clear};

QString bankList(const QString &column)
{
    return QString("select distinct %1, 1 from bd_dbkrasm where ISNULL(%1,'') <> '' order by 1").arg(column);
}

} // namespace

TDbKrDialog::TDbKrDialog(const QString &name, const AnsiString &caption, const TRecordStart &start,
                         const QList<TFieldRow> &rows, const QList<TDialogButton> &buttons)
    : TRecordDialog({.name = name,
                     .newCaption = caption.toQString(),
                     .help = 9,
                     .table = "bd_dbkrasm",
                     .keyColumn = "dka_id",
                     .key = TKeyRule::largestPlusOne("select max(dka_id) from bd_dbkrasm"),
                     .sql = "select * from Bd_DbKrAsm where DKA_ID =:ID",
                     .addsMissing = true,
                     .unique = {{"dka_kod"}},
                     .rows = rows,
                     .buttons = buttons},
                    start),
      company(UAB())
{
    if (company)
        return;
    form().setLabel("DKA_SASID", "Sąskaitos");
    form().setRowVisible("DKA_SASID_2", false);
}

TFieldRow TDbKrDialog::dbKrRow(const QString &column)
{
    static const QHash<QString, TFieldRow> all = {
        {"DKA_PAVAD", TFieldRow::edit("Pavadinimas", "DKA_PAVAD").width(60).required()},
        {"DKA_ADR", TFieldRow::edit("Adresas", "DKA_ADR")},
        {"DKA_TEL", TFieldRow::edit("Telefonas", "DKA_TEL")},
        {"DKA_I_KOD", TFieldRow::edit("Įmonės kodas", "DKA_I_KOD").maxLength(11).format("#")},
        {"DKA_PVM_KOD", TFieldRow::edit("PVM kodas", "DKA_PVM_KOD")},
        {"DKA_EIN_SAS", TFieldRow::edit("Einamoji sąskaita", "DKA_EIN_SAS").upperCase()},
        {"DKA_KOD", TFieldRow::edit("Paieškos kodas", "DKA_KOD").required()},
        {"DKA_SASID", SasRow("Gautinų sumų sąs. Nr", "DKA_SASID", owedOn).required()},
        {"DKA_SASID_2", SasRow("Mokėtinų sumų sąs. Nr", "DKA_SASID_2", owedOn).required()},
        {"DKA_KLIENT_INFSIST",
         TFieldRow::edit("Kliento kodas gavėjo informacinjė sistemoje", "DKA_KLIENT_INFSIST")},
        {"DKA_BANK_PAV", TFieldRow::suggest("Banko pavadinimas", "DKA_BANK_PAV", bankList("dka_bank_pav"))},
        {"DKA_BANK_KOD", TFieldRow::suggest("Banko kodas", "DKA_BANK_KOD", bankList("dka_bank_kod"))},
    };
    return all.find(column).value();
}

void TDbKrDialog::Validate()
{
    TRecordDialog::Validate();
    if (!company)
        field("DKA_SASID_2")->setValue(field("DKA_SASID")->Value());
}
