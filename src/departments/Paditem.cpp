#include "src/departments/Paditem.h"

namespace Paditem {

TUnit unit("PadItem");
TPadItemFrm *PadItemFrm = nullptr;

namespace {

constexpr int usualActivity = 1;

// Another station may have changed them since they were read.
TQuery *activities()
{
    MainDatas()->RefreshVeikl();
    return MainDatas()->Veikl();
}

QList<TFieldRow> rows()
{
    return {
        TFieldRow::edit("&Pavadinimas", "PAD_PAVAD").width(60),
        TFieldRow::edit("&Adresas", "PAD_ADR"),
        TFieldRow::edit("&Kodas", "PAD_KODAS").holdsFocus(),
        TFieldRow::check("Is&taiga", "PAD_IST"),
        TFieldRow::lookup("&Veikla", "PAD_VKLID", activities(), "vkl_id", "vkl_pavad"),
        SasRow("&Sąskaita", "PAD_SASID", {.zeroKeeps = true}),
        FunRow("Va&lstybės funkcija", "PAD_FUNID"),
        BookRow("K&nyga", "PAD_ISLID"),
        SasRow("&Būsimų laikotarpių sąskaita", "PAD_SASID2", {.zeroKeeps = true}),
    };
}

} // namespace

bool ChangePad()
{
    return TPadItemFrm().run();
}

TPadItemFrm::TPadItemFrm()
    : TRecordDialog({.name = "TPadItemFrm",
                     .newCaption = "Naujas skyrius",
                     .editCaption = "Koreguojamas skyrius",
                     .help = 5,
                     .table = "bd_pad",
                     .keyColumn = "PAD_ID",
                     .key = TKeyRule::largestPlusOne("select max(pad_id) from bd_pad"),
                     .rows = rows(),
                     .buttons = saveAndCancel("&Išsaugoti", "&Atsisakyti")},
                    TRecordStart::onRowOf("TSkyriaiFrm"))
{
    keepIn(PadItemFrm);
}

void TPadItemFrm::Save()
{
    if (field("PAD_VKLID")->IsNull())
        field("PAD_VKLID")->setValue(usualActivity);
    TRecordDialog::Save();
}

} // namespace Paditem
