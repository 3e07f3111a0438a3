#include "src/money/Fined.h"

namespace Fined {

TUnit unit("FinEd");
TFinEdDlg *FinEdDlg = nullptr;

bool FinShow()
{
    return TFinEdDlg().run();
}

TFinEdDlg::TFinEdDlg()
    : TRecordDialog(
          {.name = "TFinEdDlg",
           .newCaption = "Finansavimo šaltinio keitimas",
           .help = 72,
           .session = TSession::Budget,
           .table = "bd_fin",
           .keyColumn = "fin_id",
           .rows = {TFieldRow::edit("&Pavadinimas", "fin_pavad").required().width(50),
                    TFieldRow::edit("&DB", "fin_dir").blankIsNull(),
                    TFieldRow::group(
                        "Organizacijos atributai",
                        {TFieldRow::edit("&Organizacija", "fin_org_pavad").blankIsNull(),
                         TFieldRow::edit("Į&monės kodas", "fin_i_kod").digitsTyped().between(1, 999999999),
                         TFieldRow::edit("P&VM Kodas", "fin_pvm_kod").blankIsNull(),
                         TFieldRow::edit("&Adresas", "fin_adr").blankIsNull(),
                         TFieldRow::edit("D&raudėjo kodas", "fin_DRAUD_KOD").blankIsNull(),
                         TFieldRow::lookup(
                             "&Savivaldybės kodas", "Fin_Savivaldybe", sessionOf(TSession::Budget),
                             "SELECT * FROM Bd_Savivaldybes ORDER BY Sav_Pavad", "Sav_Kod", "Sav_Pavad"),
                         TFieldRow::edit("Re&gistro tvarkytojas", "Fin_RejNum").blankIsNull(),
                         TFieldRow::picture("&Ženklas", "fin_org_zenklas")}),
                    TFieldRow::check("Rod&yti ataskaitose", "fin_rodyti").defaultValue(1)},
           .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")},
          TRecordStart::onRowOf("TFinListFrm"))
{
    keepIn(FinEdDlg);
}

// The address and the company code belong to the organisation's name.
void TFinEdDlg::Validate()
{
    TRecordDialog::Validate();
    for (const char *column : {"fin_adr", "fin_i_kod"})
        requireOfOrganisation(column);
}

// Raises unless the field is filled, or the user gives up the organisation's name for it.
void TFinEdDlg::requireOfOrganisation(const char *column)
{
    if (field("fin_org_pavad")->IsNull() || !field(column)->IsNull())
        return;
    const QString question =
        QString("Kai užpildytas organizacijos pavadinimas laukas \"%1\" negali būti tuščias! Kad užpildyti "
                "lauka spauskite \"Taip\", kad išvalyti organizacijos pavadinimą spauskite \"Ne\".")
            .arg(field(column)->label());
    const int answer = StdMsgBox(mkQuestion, question, mrYes);
    if (answer == mrNo) {
        field("fin_org_pavad")->Clear();
        return;
    }
    control(column)->setFocus();
    throw EAbort();
}

} // namespace Fined
