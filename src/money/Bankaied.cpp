#include "src/money/Bankaied.h"

namespace Bankaied {

TUnit unit("BankaiEd");
TBankaiDlg *BankaiDlg = nullptr;

namespace {

const TCatalogue banks{.table = "bd_bankai",
                       .key = "bnk_kodas",
                       .name = "bnk_pavad",
                       .caption = "Bankai",
                       .pickHint = "Pasirinkti banką",
                       .noSuch = "Banko „%1“ nėra",
                       .gone = "Banko nebėra"};

} // namespace

bool EditBankas(double &kodas, bool isNew)
{
    return editRecord<TBankaiDlg>(kodas, TRecordStart::rowOrNew(isNew, kodas));
}

TBankaiDlg::TBankaiDlg(const TRecordStart &start)
    : TRecordDialog(
          {.name = "TBankaiDlg",
           .newCaption = "Bankas",
           .help = 65,
           .table = "BD_BANKAI",
           .keyColumn = "BNK_KODAS",
           .sql = "SELECT * FROM BD_BANKAI WHERE BNK_KODAS = :kodas",
           .unique = {{"BNK_KODAS"}},
           .rows =
               {TFieldRow::edit("&Banko kodas", "BNK_KODAS").digitsTyped().between(1, 999999999).required(),
                CatalogueRow("&Centrinis bankas", "BNK_BNKKODAS", banks).width(50),
                TFieldRow::edit("&Pavadinimas", "BNK_PAVAD").required().width(40),
                TFieldRow::edit("&Rinkliava (%)", "BNK_RINK").between(0, 100)},
           .buttons = saveAndCancel("Išsaugoti", "Atsisakyti")},
          start)
{
    keepIn(BankaiDlg);
}

void TBankaiDlg::Validate()
{
    TRecordDialog::Validate();
    const TField *central = field("BNK_BNKKODAS");
    if (central->IsNull())
        return;
    // A new code goes along with the banks below: the former one would come to mean the bank itself.
    for (const Variant &own : {rowKey(), field("BNK_KODAS")->OldValue()})
        if (sameKey(central->Value(), own))
            refuse("BNK_BNKKODAS", "Bankas negali būti pats sau centrinis bankas!");
}

} // namespace Bankaied
